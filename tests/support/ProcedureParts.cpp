#include "support/ProcedureParts.h"

#include "core/project/BaseSpectrum.h"

#include <gtest/gtest.h>
#include <limits>

namespace tremlo::test {

namespace {

void AddWave(CMorvaneDoc& doc, const QString& name, bool adjusted) {
  doc.seedWaves.Add(name);
  CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
  wave.spectrumValid = true;
  wave.timeStep = 0.01;
  wave.acc = {1.0, kBlankSample, -0.0, std::numeric_limits<double>::quiet_NaN()};
  wave.periods = {0.04, 0.02};
  wave.accSpec = {10.0, 20.0};
  wave.baseAdjustShow = false;
  wave.origGraph.reserved = {1, 2, 3, 4, 5, 6};
  wave.adjustChecked = adjusted;
  wave.adjusted = adjusted;
  if (!adjusted) return;
  wave.adjustedAcc = {1.5, 2.5, 3.5, -std::numeric_limits<double>::infinity()};
  wave.adjustedPeriods = {0.04, 0.02};
  wave.adjustedSpec = {11.0, 21.0};
}

FaultInfo Fault(const QString& name, std::size_t planes) {
  FaultInfo fault;
  fault.ltename = name;
  fault.geomNum = static_cast<std::int32_t>(planes);
  fault.rank = QString::number(planes);
  fault.magnitude = QStringLiteral("7.2");
  fault.ijma = QStringLiteral("-");
  fault.groundClass.assign(planes, QStringLiteral("A"));
  fault.shortestDistance.assign(planes, 12.5);
  fault.equivalentDistance.assign(planes, std::numeric_limits<double>::quiet_NaN());
  fault.shortestPeriods.assign(planes, {1.0, 0.5});
  fault.shortestSpectrum.assign(planes, {100.0, 200.0});
  fault.equivalentPeriods.assign(planes, {2.0, 0.25});
  fault.equivalentSpectrum.assign(planes, {80.0, 160.0});
  fault.attenColor.assign(planes, 0x102030);
  fault.shortBaseColor.assign(planes, 0x102030);
  fault.equivBaseColor.assign(planes, 0x405060);
  fault.shortBaseShow.assign(planes, true);
  fault.equivBaseShow.assign(planes, true);
  fault.shortArea.assign(planes, 0.0);
  fault.equivArea.assign(planes, 0.0);
  fault.attenShow.assign(planes, true);
  fault.attenUse.assign(planes, true);
  fault.shortBaseSelected.assign(planes, false);
  fault.equivBaseSelected.assign(planes, false);
  fault.adjustShow.assign(planes, false);
  fault.adjustShowEquiv.assign(planes, false);
  return fault;
}

}  // namespace

void RecordingHost::Log(const char* what, ScreenId id) {
  m_log.append(QStringLiteral("%1 %2").arg(QString::fromLatin1(what)).arg(static_cast<int>(id)));
}

bool RecordingHost::ComputeMissingSpectra() {
  m_log.append(QStringLiteral("compute spectra"));
  if (!missingSpectraWork) return false;
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).spectrumValid = true;
  return true;
}

bool RecordingHost::CalculateFaultSpectra() {
  m_log.append(QStringLiteral("fault spectra"));
  return faultSpectraWork;
}

AdjustResult RecordingHost::RunRespAdjustment() {
  m_log.append(QStringLiteral("adjust"));
  if (respAdjustmentWorks) m_doc.seedWaves.At(0).adjusted = true;
  AdjustResult result;
  result.converged = respAdjustmentWorks;
  result.passes = 4;
  result.fit.deviation = 0.125;
  return result;
}

void RecordingPane::ShowRoute(bool guidelineRoute) {
  m_log.append(guidelineRoute ? QStringLiteral("pane of the guideline route")
                              : QStringLiteral("pane of the response route"));
}

void RecordingPane::Highlight(FlowStep step, bool repaint) {
  marked = step;
  if (repaint) drawn = step;
  m_log.append(repaint ? QStringLiteral("highlight") : QStringLiteral("mark"));
}

std::vector<FlowStep> RecordingPane::EnabledSteps() const {
  std::vector<FlowStep> steps;
  for (const FlowStep step : kStepsBehindProcedure)
    if (m_enabled.contains(step) && m_enabled.at(step)) steps.push_back(step);
  return steps;
}

void ProcedureParts::Enter(ScreenId id) {
  EXPECT_EQ(procedure.SwitchScreen(id), SwitchOutcome::Open);
  EXPECT_EQ(procedure.ActiveScreen(), id);
  log.clear();
}

QStringList ProcedureParts::TakeLog() {
  return std::exchange(log, {});
}

void FillProject(CMorvaneDoc& doc) {
  doc.guidelineRoute = true;
  doc.flowQ1Yes = doc.flowQ2Yes = doc.flowFaultSource = doc.flowNeighbourWave = doc.flowFixed = true;
  AddWave(doc, QStringLiteral("A"), true);
  AddWave(doc, QStringLiteral("B"), true);
  AddWave(doc, QStringLiteral("C"), false);
  doc.seedWaves.At(0).siteUse = true;
  doc.seedWaves.At(0).adopted = true;
  doc.seedWaves.SelectCurrent(QStringLiteral("B"));
  doc.seedAdopted = true;
  doc.seedAdoptedName = QStringLiteral("A");
  doc.faults = {Fault(QStringLiteral("南"), 1), Fault(QStringLiteral("北"), 2)};
  for (const char16_t* name : {u"下限1", u"H20大規模地震", u"下限3"}) {
    doc.lowerSpectra.AddSpectrum(QString::fromUtf16(name), {2.0, 1.0}, {30.0, 40.0});
    doc.lowerSpectra.At(doc.lowerSpectra.Count() - 1).baseAdjustShow = false;
  }
  doc.lowerSpectra.At(0).lowerSelected = true;
  doc.apiParameters.catastropheWeight = -0.25;
  doc.apiParameters.versionIndex = 7;
  doc.adjustMaxIterations = 7;
  doc.adjustTolerancePercent = 0.125;
  doc.SetModified(false);
}

void ChooseBase(CMorvaneDoc& doc, const char16_t* label) {
  SetBase(doc, QString::fromUtf16(label));
  EXPECT_TRUE(MarkedBase(doc).has_value());
  doc.SetModified(false);
}

}  // namespace tremlo::test
