#include "random/DocumentInvariants.h"

#include "core/project/BaseSpectrum.h"
#include "core/project/ProjectFile.h"

#include <algorithm>
#include <bit>
#include <set>

namespace tremlo::test {

namespace {

using Sentences = std::vector<std::string>;

/// The labels of everything that carries a mark of the base spectrum. Waves of one name count once, since
/// marks are set by name, and so do the lower limits that are marked as chosen together.
std::multiset<QString> MarkedLabels(const CMorvaneDoc& doc) {
  std::set<QString> waves;
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.baseSelected) waves.insert(wave.name);
  std::multiset<QString> labels(waves.begin(), waves.end());
  for (const FaultInfo& fault : doc.faults) {
    for (std::size_t plane = 0; plane < fault.shortBaseSelected.size(); ++plane)
      if (fault.shortBaseSelected[plane]) labels.insert(ShortestLabel(fault, plane));
    for (std::size_t plane = 0; plane < fault.equivBaseSelected.size(); ++plane)
      if (fault.equivBaseSelected[plane]) labels.insert(EquivalentLabel(fault, plane));
  }
  bool chosenCounted = false;
  for (const CSeismicWave& limit : doc.lowerSpectra.Records()) {
    if (!limit.baseSelected) continue;
    if (limit.lowerSelected && chosenCounted) continue;
    chosenCounted = chosenCounted || limit.lowerSelected;
    labels.insert(limit.name);
  }
  return labels;
}

void CheckBase(const CMorvaneDoc& doc, Sentences& broken) {
  const std::multiset<QString> labels = MarkedLabels(doc);
  if (labels.size() > 1) {
    std::string text = "more than one base spectrum is marked:";
    for (const QString& label : labels) text += " " + label.toStdString();
    broken.push_back(text);
  }
  // A damaged file may bring waves without a name; a base of that name is none.
  if (doc.baseSpectrumName.isEmpty() && !labels.empty() && !labels.begin()->isEmpty())
    broken.push_back("a base spectrum is marked, but none is named: " + labels.begin()->toStdString());
  if (!doc.baseSpectrumName.isEmpty() && labels.empty())
    broken.push_back("a base spectrum is named, but none is marked: " + doc.baseSpectrumName.toStdString());
  if (!doc.baseSpectrumName.isEmpty() && labels.size() == 1 && *labels.begin() != doc.baseSpectrumName)
    broken.push_back("the base spectrum is named " + doc.baseSpectrumName.toStdString() + ", but marked is " +
                     labels.begin()->toStdString());
}

void CheckAdoption(const CMorvaneDoc& doc, Sentences& broken) {
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  const auto adopted = [](const CSeismicWave& wave) { return wave.adopted; };
  const auto count = std::count_if(waves.begin(), waves.end(), adopted);
  if (doc.seedAdopted) {
    const bool named = std::any_of(waves.begin(), waves.end(), [&](const CSeismicWave& wave) {
      return wave.adopted && wave.name == doc.seedAdoptedName;
    });
    if (!named)
      broken.push_back("the adopted wave is no wave with its flag set: " + doc.seedAdoptedName.toStdString());
    if (count > 1) broken.push_back("more than one wave is adopted");
  } else {
    if (count > 0) broken.push_back("a wave bears the flag of the adopted one, but none is adopted");
    if (!doc.seedAdoptedName.isEmpty())
      broken.push_back("no wave is adopted, but one is named: " + doc.seedAdoptedName.toStdString());
  }
}

void CheckResults(const CMorvaneDoc& doc, const CSeismicWave& wave, Sentences& broken) {
  const std::string name = wave.name.toStdString();
  const bool hasData =
      !wave.adjustedAcc.empty() || !wave.adjustedPeriods.empty() || !wave.adjustedSpec.empty();
  if (!wave.adjusted && hasData)
    broken.push_back("results are left of an adjustment that was cleared: " + name);
  // The run pads the seed to a power of two and leaves it so.
  if (wave.adjusted && wave.adjustedAcc.size() != std::bit_ceil(wave.acc.size()))
    broken.push_back("the adjusted wave has another number of samples than its seed: " + name);
  if (wave.adjusted && wave.adjustedSpec.empty())
    broken.push_back("an adjusted wave has no spectrum: " + name);
  if (wave.adjustedPeriods.size() != wave.adjustedSpec.size())
    broken.push_back("periods and values of an adjusted spectrum are not as many: " + name);
  if (wave.periods.size() != wave.accSpec.size())
    broken.push_back("periods and values of a spectrum are not as many: " + name);
  if (!doc.guidelineRoute) return;
  if (wave.adjustChecked && !wave.adjusted)
    broken.push_back("a wave is ticked as adjusted, but is not: " + name);
  if (wave.adjusted && !doc.seedAdopted) broken.push_back("a wave is adjusted, but none is adopted: " + name);
  if (wave.adjusted && doc.baseSpectrumName.isEmpty())
    broken.push_back("a wave is adjusted, but there is no base spectrum: " + name);
}

void CheckPlanes(const FaultInfo& fault, Sentences& broken) {
  const std::size_t planes = fault.groundClass.size();
  bool same = true;
  const auto check = [&](const auto& perPlane) { same = same && perPlane.size() == planes; };
  check(fault.attenColor);
  check(fault.attenShow);
  check(fault.attenUse);
  check(fault.shortBaseColor);
  check(fault.shortBaseShow);
  check(fault.shortBaseSelected);
  check(fault.shortArea);
  check(fault.equivBaseColor);
  check(fault.equivBaseShow);
  check(fault.equivBaseSelected);
  check(fault.equivArea);
  check(fault.adjustShow);
  check(fault.adjustShowEquiv);
  if (!same)
    broken.push_back("the lists of a fault's planes are not of one length: " + fault.ltename.toStdString());
}

void CheckProcedure(const CMorvaneDoc& doc, Sentences& broken) {
  if (doc.flowFixed && !doc.flowQ2Yes && !doc.flowCollect)
    broken.push_back("the procedure is fixed without a way to the phases");
  if (!doc.guidelineRoute || doc.flowFixed) return;
  // With no procedure fixed, whatever rests on one is cleared.
  if (!doc.faults.empty()) broken.push_back("faults are left, but the procedure is not fixed");
  if (!doc.baseSpectrumName.isEmpty())
    broken.push_back("a base spectrum is left, but the procedure is not fixed");
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.siteUse)
      broken.push_back("a wave is in use near the site, but the procedure is not fixed: " +
                       wave.name.toStdString());
}

void CheckLimits(const CMorvaneDoc& doc, Sentences& broken) {
  const std::vector<CSeismicWave>& limits = doc.lowerSpectra.Records();
  const auto marked = [](const CSeismicWave& limit) { return limit.lowerSelected; };
  if (!limits.empty() && std::none_of(limits.begin(), limits.end(), marked))
    broken.push_back("no lower limit is marked");
}

}  // namespace

std::vector<std::string> BrokenInvariants(const CMorvaneDoc& doc) {
  Sentences broken;
  CheckBase(doc, broken);
  CheckAdoption(doc, broken);
  for (const CSeismicWave& wave : doc.seedWaves.Records()) CheckResults(doc, wave, broken);
  for (const CSeismicWave& target : doc.respSpectra.Records())
    if (target.periods.size() != target.accSpec.size())
      broken.push_back("periods and values of a target are not as many: " + target.name.toStdString());
  for (const FaultInfo& fault : doc.faults) CheckPlanes(fault, broken);
  CheckProcedure(doc, broken);
  CheckLimits(doc, broken);
  return broken;
}

std::string RoundTripFailure(const CMorvaneDoc& doc) {
  const std::string bytes = ProjectBytes(doc);
  if (bytes.empty()) return "the project cannot be written";
  CMorvaneDoc other(doc.Folders());
  if (!LoadProject(other, bytes).whole) return "the project cannot be read back";
  if (ProjectBytes(other) != bytes) return "the project read back is another one";
  return {};
}

}  // namespace tremlo::test
