#include "core/project/WorkProcedure.h"

#include "core/project/ChangeQuestions.h"
#include "core/project/ResponseRoute.h"

namespace tremlo {

ChartAnswers FixedAnswers(const CMorvaneDoc& doc) {
  return {doc.flowQ1Yes, doc.flowQ2Yes, doc.flowCollect, doc.flowFaultSource, doc.flowNeighbourWave};
}

ProcedureState WorkProcedure::State() const {
  if (m_doc.flowFixed) return ProcedureState::Fixed;
  const bool onChart = m_active == ScreenId::Flowchart1 || m_active == ScreenId::Flowchart2;
  return onChart ? ProcedureState::Deciding : ProcedureState::Undecided;
}

bool WorkProcedure::StepEnabled(FlowStep step) const {
  switch (step) {
    case FlowStep::OrigSeismicWave:
    case FlowStep::LowerSpectrum:
    case FlowStep::BaseSpectrum:
    case FlowStep::AdjustSeismicWave:
    case FlowStep::Visualization:
    case FlowStep::Print:
      return m_doc.flowFixed;
    case FlowStep::FaultSpectra:
      return m_doc.flowFixed && m_doc.flowFaultSource;
    case FlowStep::DamsiteWave:
      return m_doc.flowFixed && m_doc.flowNeighbourWave;
    default:
      return true;
  }
}

void WorkProcedure::ApplyStepSwitches() {
  for (const FlowStep step : kStepsBehindProcedure) m_pane.EnableStep(step, StepEnabled(step));
}

void WorkProcedure::ApplyFlowState() {
  ApplyStepSwitches();
  if (m_doc.flowFixed) MoveHighlight(FlowStep::Field);
}

void WorkProcedure::ResetPane() {
  DisableSteps();
  MoveHighlight(FlowStep::Field);
}

SwitchOutcome WorkProcedure::PressStep(FlowStep step) {
  const FlowStepRow& row = RowOf(step);
  m_pane.SetCurrentStep(step);
  if (row.highlight != HighlightMoment::AfterSwitch)
    m_pane.Highlight(step, row.highlight != HighlightMoment::AtNextPaint);
  if (!row.screen) return SwitchOutcome::Refused;
  const SwitchOutcome outcome = SwitchScreen(*row.screen);
  if (row.highlight == HighlightMoment::AfterSwitch && outcome == SwitchOutcome::Open)
    m_pane.Highlight(step, true);
  return outcome;
}

SwitchOutcome WorkProcedure::SwitchScreen(ScreenId id) {
  if (!ConfirmLeaveFlowCheck()) return SwitchOutcome::Refused;
  const std::optional<ScreenId> target = TargetOf(id);
  if (!target) {
    m_prompt.Tell(QStringLiteral("予期せぬフォームの呼び出しが発生しました。"));
    return SwitchOutcome::EndProgram;
  }
  if (!m_host.Has(*target)) {
    m_prompt.Tell(QStringLiteral("この画面は、この版では使用できません。"));
    return SwitchOutcome::Refused;
  }
  const SwitchOutcome gate = m_gates.Pass(*target);
  if (gate == SwitchOutcome::Open && m_active != target) Exchange(*target);
  return gate;
}

bool WorkProcedure::ConfirmLeaveFlowCheck() {
  if (m_skipFlowPrompt) {
    m_skipFlowPrompt = false;
    return true;
  }
  return !m_flowCheckActive || m_prompt.Ask(LeaveFlowCheckQuestion());
}

SwitchOutcome WorkProcedure::ShowRouteStart() {
  m_pane.ShowRoute(m_doc.guidelineRoute);
  if (m_doc.guidelineRoute) return SwitchScreen(ScreenId::Field);
  const SwitchOutcome outcome = SwitchScreen(ScreenId::RespOrigSeismicWave);
  if (outcome == SwitchOutcome::Open) MoveHighlight(FlowStep::RespOrigSeismicWave);
  return outcome;
}

void WorkProcedure::RefreshScreens() {
  if (!m_doc.guidelineRoute) {
    // The screen may be on display, and then it is not entered again: it would have no wave to show.
    EnsureRespWave(m_doc);
    m_host.Refresh(ScreenId::RespOrigSeismicWave);
    return;
  }
  m_host.Refresh(ScreenId::Field);
  m_host.Refresh(ScreenId::OrigSeismicWave);
  RefreshFaultScreens();
  m_host.Refresh(ScreenId::LowerSpectrum);
}

void WorkProcedure::RefreshFaultScreens() {
  m_host.Refresh(ScreenId::MakeSeismicWave1);
  m_host.Refresh(ScreenId::MakeSeismicWave2);
}

void WorkProcedure::RefreshActiveScreen() {
  if (m_active) m_host.Refresh(*m_active);
}

bool WorkProcedure::BeginReplaceProject() {
  if (!m_flowCheckActive) return true;
  if (!m_prompt.Ask(LeaveFlowCheckQuestion())) return false;
  m_skipFlowPrompt = true;
  return true;
}

SwitchOutcome WorkProcedure::ShowProject() {
  RefreshScreens();
  const SwitchOutcome outcome = ShowRouteStart();
  // Screens may have written on entry, but the user has changed nothing yet.
  m_doc.SetModified(false);
  return outcome;
}

SwitchOutcome WorkProcedure::ShowOpenedProject() {
  RefreshScreens();
  ApplyFlowState();
  const SwitchOutcome outcome = ShowRouteStart();
  m_doc.SetModified(false);
  return outcome;
}

void WorkProcedure::ClearFlowAnswers() {
  m_doc.flowQ1Yes = m_doc.flowQ2Yes = m_doc.flowCollect = false;
  m_doc.flowFaultSource = m_doc.flowNeighbourWave = m_doc.flowFixed = false;
  m_doc.SetModified(true);
}

SwitchOutcome WorkProcedure::FixByClicks(const ChartAnswers& answers) {
  if (!answers.q2Yes && !answers.collect) {
    m_prompt.Tell(QStringLiteral("位相特性のフローチャートが不正です。"));
    return SwitchOutcome::Refused;
  }
  m_doc.flowQ1Yes = answers.q1Yes;
  m_doc.flowQ2Yes = answers.q2Yes;
  m_doc.flowCollect = answers.collect;
  m_doc.flowFaultSource = answers.faultSource;
  m_doc.flowNeighbourWave = answers.neighbourWave;
  return Fix(answers.faultSource, answers.neighbourWave);
}

SwitchOutcome WorkProcedure::FixByQuestions(bool faultPath, bool neighbourPath) {
  return Fix(faultPath, neighbourPath);
}

SwitchOutcome WorkProcedure::ChangeProcedure() {
  const std::uint64_t generation = m_doc.Generation();
  if (!m_prompt.Ask(ChangeProcedureQuestion()) || m_doc.Generation() != generation)
    return SwitchOutcome::Refused;
  ClearForChangedProcedure();
  RefreshScreens();
  const SwitchOutcome outcome = SwitchScreen(ScreenId::FlowCheck);
  DisableSteps();
  return outcome;
}

std::optional<ScreenId> WorkProcedure::TargetOf(ScreenId id) const {
  if (!IsScreen(id) || id == ScreenId::Flowchart3) return std::nullopt;
  if (id == ScreenId::FlowCheck && m_doc.flowFixed) return ScreenId::Flowchart3;
  return id;
}

void WorkProcedure::Exchange(ScreenId target) {
  if (m_active) {
    if (m_active == ScreenId::Flowchart2) m_flowCheckActive = false;
    m_host.Left(*m_active);
  }
  m_active = target;
  ApplyEntryRules(target);
  m_host.Show(target);
  m_host.Entered(target);
}

void WorkProcedure::ApplyEntryRules(ScreenId id) {
  if (id == ScreenId::Flowchart1 || id == ScreenId::Flowchart2) ClearFlowAnswers();
  if (id == ScreenId::Flowchart2) m_flowCheckActive = true;
  if (id == ScreenId::Visualization) m_doc.SetModified(true);
  if (id == ScreenId::RespOrigSeismicWave) EnsureRespWave(m_doc);
}

void WorkProcedure::DisableSteps() {
  for (const FlowStep step : kStepsBehindProcedure) m_pane.EnableStep(step, false);
}

void WorkProcedure::EnableFixedSteps(bool faultSource, bool neighbourWave) {
  for (const FlowStep step : kStepsBehindProcedure) {
    const bool enabled = step == FlowStep::FaultSpectra  ? faultSource
                         : step == FlowStep::DamsiteWave ? neighbourWave
                                                         : true;
    m_pane.EnableStep(step, enabled);
  }
}

void WorkProcedure::MoveHighlight(FlowStep step) {
  m_pane.SetCurrentStep(step);
  m_pane.Highlight(step, true);
}

SwitchOutcome WorkProcedure::Fix(bool faultSource, bool neighbourWave) {
  m_doc.flowFixed = true;
  m_doc.SetModified(true);
  EnableFixedSteps(faultSource, neighbourWave);
  m_flowCheckActive = false;
  return SwitchScreen(ScreenId::FlowCheck);
}

void WorkProcedure::ClearForChangedProcedure() {
  m_doc.flowFixed = false;
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).siteUse = false;
  m_doc.ClearFaults();
  m_doc.MarkDefaultLowerSpectrum();
  m_doc.ClearSpectrumSelection();
  m_doc.baseSpectrumName.clear();
  m_doc.ClearAdjustment();
  m_doc.apiParameters = ApiParameterSet{};
  m_doc.adjustMaxIterations = 100;
  m_doc.adjustTolerancePercent = 0.05;
  m_doc.SetModified(true);
}

}  // namespace tremlo
