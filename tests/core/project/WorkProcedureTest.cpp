#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/WorkProcedure.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using test::FillProject;
using test::ProcedureParts;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kLeaveChart = QStringLiteral("作業手順の確認中ですがよろしいですか？");
const QString kUnexpectedScreen = QStringLiteral("予期せぬフォームの呼び出しが発生しました。");

/// A new project of the guideline route as the program brings it up.
struct NewProject : ProcedureParts {
  NewProject() {
    doc.guidelineRoute = true;
    for (const char16_t* name : {u"H20大規模地震", u"下限2"})
      doc.lowerSpectra.AddSpectrum(QString::fromUtf16(name), {1.0}, {2.0});
    doc.MarkDefaultLowerSpectrum();
    procedure.ResetPane();
    EXPECT_EQ(procedure.ShowProject(), SwitchOutcome::Open);
    log.clear();
  }
};

struct OnClickChart : NewProject {
  OnClickChart() { Enter(ScreenId::Flowchart2); }
};

/// The filled project, opened and on the screen of its procedure.
struct FixedProject : ProcedureParts {
  FixedProject() {
    FillProject(doc);
    EXPECT_EQ(procedure.ShowOpenedProject(), SwitchOutcome::Open);
    log.clear();
  }
};

const std::vector<FlowStep> kEightSteps(kStepsBehindProcedure.begin(), kStepsBehindProcedure.end());

std::vector<FlowStep> EightWithout(std::initializer_list<FlowStep> missing) {
  std::vector<FlowStep> steps = kEightSteps;
  for (const FlowStep step : missing) std::erase(steps, step);
  return steps;
}

constexpr ChartAnswers kFaultsAndNeighbours = {true, true, false, true, true};

// --- Steps of the pane ---

TEST(FlowStep, TitlesAndScreensOfThePaneInTheirOrder) {
  const std::pair<const char*, int> rows[] = {{"現場設定", 59649},
                                              {"作業手順の確認", 59650},
                                              {"波形登録", 59654},
                                              {"現場近隣地震波形", 59655},
                                              {"距離減衰式（断層）", 59656},
                                              {"下限スペクトル", 59658},
                                              {"基準スペクトル設定", 59659},
                                              {"原種波形の振幅調整", 59660},
                                              {"可視化", 59661},
                                              {"印刷", 0},
                                              {"原種波形設定", 59662},
                                              {"調整用スペクトル設定", 59663},
                                              {"可視化", 59664}};
  int step = 0;
  for (const auto& [title, screen] : rows) {
    const FlowStepRow& row = RowOf(FlowStep(step++));
    EXPECT_EQ(QString::fromUtf16(row.title), QString::fromUtf8(title));
    EXPECT_EQ(row.screen ? static_cast<int>(*row.screen) : 0, screen);
  }
}

TEST(FlowStep, EveryRowStandsAtItsStep) {
  for (int step = 0; step < 13; ++step) EXPECT_EQ(RowOf(FlowStep(step)).step, FlowStep(step));
}

TEST(WorkProcedure, ANewProjectEnablesOnlyTheFirstTwoSteps) {
  NewProject project;
  EXPECT_TRUE(project.procedure.StepEnabled(FlowStep::Field));
  EXPECT_TRUE(project.procedure.StepEnabled(FlowStep::FlowCheck));
  for (const FlowStep step : kStepsBehindProcedure) EXPECT_FALSE(project.procedure.StepEnabled(step));
  EXPECT_THAT(project.pane.EnabledSteps(), IsEmpty());
  EXPECT_EQ(project.pane.drawn, FlowStep::Field);
}

TEST(WorkProcedure, AFixedProcedureEnablesTheSourcesThatItNames) {
  ProcedureParts parts;
  parts.doc.flowFixed = true;
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.EnabledSteps(), EightWithout({FlowStep::FaultSpectra, FlowStep::DamsiteWave}));
  parts.doc.flowNeighbourWave = true;
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.EnabledSteps(), EightWithout({FlowStep::FaultSpectra}));
  parts.doc.flowFaultSource = true;
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.EnabledSteps(), kEightSteps);
  parts.doc.flowNeighbourWave = false;
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.EnabledSteps(), EightWithout({FlowStep::DamsiteWave}));
  parts.doc.flowFixed = false;
  parts.procedure.ApplyFlowState();
  EXPECT_THAT(parts.pane.EnabledSteps(), IsEmpty());
}

TEST(WorkProcedure, StepEnabledSaysWhatThePaneShows) {
  for (int flags = 0; flags < 8; ++flags) {
    ProcedureParts parts;
    parts.doc.flowFixed = (flags & 1) != 0;
    parts.doc.flowFaultSource = (flags & 2) != 0;
    parts.doc.flowNeighbourWave = (flags & 4) != 0;
    parts.procedure.ApplyStepSwitches();
    for (const FlowStep step : kStepsBehindProcedure) {
      const std::vector<FlowStep> enabled = parts.pane.EnabledSteps();
      const bool isEnabled = std::find(enabled.begin(), enabled.end(), step) != enabled.end();
      EXPECT_EQ(parts.procedure.StepEnabled(step), isEnabled);
    }
  }
}

TEST(WorkProcedure, StepsOfTheResponseRouteAreAlwaysEnabled) {
  ProcedureParts parts;
  for (const FlowStep step :
       {FlowStep::RespOrigSeismicWave, FlowStep::RespAdjustSpectrum, FlowStep::RespVisualization})
    EXPECT_TRUE(parts.procedure.StepEnabled(step));
}

TEST(WorkProcedure, TheHighlightGoesToTheFirstStepOnlyWithAFixedProcedure) {
  ProcedureParts parts;
  parts.pane.Highlight(FlowStep::FlowCheck, true);
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.drawn, FlowStep::FlowCheck);
  parts.doc.flowFixed = true;
  parts.procedure.ApplyStepSwitches();
  EXPECT_EQ(parts.pane.drawn, FlowStep::FlowCheck);
  parts.procedure.ApplyFlowState();
  EXPECT_EQ(parts.pane.drawn, FlowStep::Field);
  EXPECT_EQ(parts.pane.current, FlowStep::Field);
}

// --- Opening screens ---

TEST(WorkProcedure, AScreenIsExchangedInItsOrder) {
  NewProject project;
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::OrigSeismicWave), SwitchOutcome::Open);
  EXPECT_THAT(project.TakeLog(), ElementsAre("left 59649", "show 59654", "entered 59654"));
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::OrigSeismicWave);
}

TEST(WorkProcedure, TheScreenOnDisplayIsNotEnteredAgainButItsGateRuns) {
  FixedProject project;
  project.Enter(ScreenId::DamsiteWave);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::DamsiteWave), SwitchOutcome::Open);
  EXPECT_THAT(project.TakeLog(), ElementsAre("prepare 59655"));
  project.doc.seedWaves.Clear();
  project.prompt.ExpectMessage("「波形登録」で波形を登録してください。");
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::DamsiteWave), SwitchOutcome::Refused);
}

TEST(WorkProcedure, ARefusedSwitchLeavesTheOldScreenOnDisplay) {
  FixedProject project;
  project.prompt.ExpectMessage(
      "基準スペクトルが選択されていません。「基準スペクトル設定」で基準スペクトルを選択してください。");
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::AdjustSeismicWave), SwitchOutcome::Refused);
  EXPECT_THAT(project.TakeLog(), ElementsAre("box"));
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
}

TEST(WorkProcedure, AGateThatEndsTheProgramShowsNothing) {
  FixedProject project;
  project.host.faultSpectraWork = false;
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::MakeSeismicWave2), SwitchOutcome::EndProgram);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
}

TEST(WorkProcedure, NumbersThatAreNoCommandEndTheProgram) {
  NewProject project;
  const DocumentState before(project.doc);
  for (const int id : {59653, 59648, 59665, 0, -1}) {
    project.prompt.ExpectMessage(kUnexpectedScreen);
    EXPECT_EQ(project.procedure.SwitchScreen(ScreenId(id)), SwitchOutcome::EndProgram);
    EXPECT_THAT(project.TakeLog(), ElementsAre("box"));
  }
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
}

TEST(WorkProcedure, TheQuestionComesBeforeTheChoiceOfTheTarget) {
  OnClickChart project;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Flowchart3), SwitchOutcome::Refused);
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  project.prompt.ExpectMessage(kUnexpectedScreen);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Flowchart3), SwitchOutcome::EndProgram);
}

TEST(WorkProcedure, TheQuestionComesBeforeTheGate) {
  OnClickChart project;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  project.prompt.ExpectMessage("「波形登録」で波形を登録してください。");
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::DamsiteWave), SwitchOutcome::Refused);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart2);
  EXPECT_TRUE(project.procedure.FlowCheckActive());
}

TEST(WorkProcedure, TheCommandOfTheProcedureOpensTheScreenThatFits) {
  NewProject project;
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::FlowCheck), SwitchOutcome::Open);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::FlowCheck);
  project.doc.flowFixed = true;
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::FlowCheck), SwitchOutcome::Open);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart3);
}

TEST(WorkProcedure, OnlyTheVisualizationMarksTheDocumentOnEntry) {
  FixedProject project;
  test::ChooseBase(project.doc, test::kWaveLabel);
  for (const ScreenId id : {ScreenId::OrigSeismicWave, ScreenId::DamsiteWave, ScreenId::MakeSeismicWave1,
                            ScreenId::MakeSeismicWave2, ScreenId::LowerSpectrum, ScreenId::BaseSpectrum,
                            ScreenId::AdjustSeismicWave, ScreenId::Field}) {
    const DocumentState before(project.doc);
    project.Enter(id);
    EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
  }
  const DocumentState before(project.doc);
  project.Enter(ScreenId::Visualization);
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), ElementsAre("modified"));
}

// --- Presses in the pane ---

TEST(WorkProcedure, MostStepsMoveTheHighlightBeforeTheQuestion) {
  for (const FlowStep step : {FlowStep::Field, FlowStep::FlowCheck, FlowStep::OrigSeismicWave,
                              FlowStep::FaultSpectra, FlowStep::LowerSpectrum, FlowStep::BaseSpectrum}) {
    OnClickChart project;
    project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
    EXPECT_EQ(project.procedure.PressStep(step), SwitchOutcome::Refused);
    EXPECT_THAT(project.TakeLog(), ElementsAre("highlight", "box"));
    EXPECT_EQ(project.pane.drawn, step);
    EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart2);
  }
}

TEST(WorkProcedure, GuardedStepsMoveTheHighlightOnlyOnSuccess) {
  FixedProject project;
  test::ChooseBase(project.doc, test::kWaveLabel);
  for (const FlowStep step : {FlowStep::DamsiteWave, FlowStep::AdjustSeismicWave, FlowStep::Visualization}) {
    EXPECT_EQ(project.procedure.PressStep(step), SwitchOutcome::Open);
    EXPECT_EQ(project.TakeLog().back(), "highlight");
    EXPECT_EQ(project.pane.drawn, step);
  }
}

TEST(WorkProcedure, ARefusedGuardedStepIsCurrentButNotDrawn) {
  for (const FlowStep step : {FlowStep::DamsiteWave, FlowStep::AdjustSeismicWave, FlowStep::Visualization}) {
    OnClickChart project;
    project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
    EXPECT_EQ(project.procedure.PressStep(step), SwitchOutcome::Refused);
    EXPECT_EQ(project.pane.current, step);
    EXPECT_EQ(project.pane.drawn, FlowStep::Field);
  }
}

TEST(WorkProcedure, PrintingOnlyMarksItsStepWithoutARepaint) {
  FixedProject project;
  const DocumentState before(project.doc);
  project.procedure.PressStep(FlowStep::Print);
  EXPECT_THAT(project.TakeLog(), ElementsAre("mark"));
  EXPECT_EQ(project.pane.current, FlowStep::Print);
  EXPECT_EQ(project.pane.marked, FlowStep::Print);
  EXPECT_EQ(project.pane.drawn, FlowStep::Field);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
}

TEST(WorkProcedure, StepsOfTheResponseRouteOpenTheirScreens) {
  ProcedureParts parts;
  EXPECT_EQ(parts.procedure.PressStep(FlowStep::RespAdjustSpectrum), SwitchOutcome::Open);
  EXPECT_THAT(parts.TakeLog(), ElementsAre("highlight", "prepare 59663", "show 59663", "entered 59663"));
  parts.prompt.ExpectMessage("原種波形が設定されていません。");
  EXPECT_EQ(parts.procedure.PressStep(FlowStep::RespVisualization), SwitchOutcome::Refused);
  EXPECT_EQ(parts.pane.drawn, FlowStep::RespAdjustSpectrum);
  parts.log.clear();
  EXPECT_EQ(parts.procedure.PressStep(FlowStep::RespOrigSeismicWave), SwitchOutcome::Open);
  EXPECT_THAT(parts.TakeLog(), ElementsAre("highlight", "left 59663", "show 59662", "entered 59662"));
  EXPECT_EQ(parts.procedure.PressStep(FlowStep::RespVisualization), SwitchOutcome::Open);
  EXPECT_EQ(parts.pane.drawn, FlowStep::RespVisualization);
}

// --- The route ---

TEST(WorkProcedure, EachRouteStartsOnItsFirstScreenWithItsPane) {
  ProcedureParts parts;
  parts.doc.guidelineRoute = true;
  EXPECT_EQ(parts.procedure.ShowRouteStart(), SwitchOutcome::Open);
  EXPECT_THAT(parts.TakeLog(), ElementsAre("pane of the guideline route", "show 59649", "entered 59649"));
  parts.doc.guidelineRoute = false;
  EXPECT_EQ(parts.procedure.ShowRouteStart(), SwitchOutcome::Open);
  EXPECT_THAT(parts.TakeLog(),
              ElementsAre("pane of the response route", "left 59649", "show 59662", "entered 59662"));
}

TEST(WorkProcedure, TheGuidelineRouteRefreshesFiveScreensInTheirOrder) {
  FixedProject project;
  project.procedure.RefreshScreens();
  EXPECT_THAT(project.TakeLog(), ElementsAre("refresh 59649", "refresh 59654", "refresh 59656",
                                             "refresh 59657", "refresh 59658"));
}

TEST(WorkProcedure, TheRefreshOfTheGuidelineRouteMakesNoWaveAndMarksNothing) {
  NewProject project;  // without the wave that the response route would be given here
  ASSERT_TRUE(project.doc.seedWaves.IsEmpty());
  const DocumentState before(project.doc);
  project.procedure.RefreshScreens();
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
  EXPECT_FALSE(project.doc.IsModified());
}

TEST(WorkProcedure, TheResponseRouteRefreshesItsWaveScreenAloneAndSeesToAWave) {
  ProcedureParts parts;
  parts.procedure.RefreshScreens();
  EXPECT_THAT(parts.TakeLog(), ElementsAre("refresh 59662"));
  EXPECT_EQ(parts.doc.seedWaves.Names(), std::vector<QString>{"地震波形"});
}

TEST(WorkProcedure, EnteringTheWaveScreenOfTheResponseRouteSeesToAWave) {
  ProcedureParts parts;
  parts.Enter(ScreenId::RespOrigSeismicWave);
  EXPECT_EQ(parts.doc.seedWaves.Names(), std::vector<QString>{"地震波形"});
}

TEST(WorkProcedure, AProjectOnDisplayCountsAsNotModified) {
  ProcedureParts parts;
  EXPECT_EQ(parts.procedure.ShowProject(), SwitchOutcome::Open);
  EXPECT_EQ(parts.doc.seedWaves.Count(), 1U);
  EXPECT_FALSE(parts.doc.IsModified());
  parts.doc.seedWaves.Clear();
  parts.doc.SetModified(true);
  EXPECT_EQ(parts.procedure.ShowOpenedProject(), SwitchOutcome::Open);
  EXPECT_EQ(parts.doc.seedWaves.Count(), 1U);  // the wave screen is on display and was not entered again
  EXPECT_FALSE(parts.doc.IsModified());
}

TEST(WorkProcedure, AnOpenedProjectWithAFixedProcedureHasItsStepsEnabled) {
  NewProject project;
  project.Enter(ScreenId::OrigSeismicWave);
  FillProject(project.doc);
  EXPECT_EQ(project.procedure.ShowOpenedProject(), SwitchOutcome::Open);
  EXPECT_EQ(project.pane.EnabledSteps(), kEightSteps);
  EXPECT_EQ(project.pane.drawn, FlowStep::Field);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
  EXPECT_EQ(project.procedure.State(), ProcedureState::Fixed);
  EXPECT_THAT(
      project.TakeLog(),
      ElementsAre("refresh 59649", "refresh 59654", "refresh 59656", "refresh 59657", "refresh 59658",
                  "highlight", "pane of the guideline route", "left 59654", "show 59649", "entered 59649"));
}

TEST(WorkProcedure, ANewProjectAfterAFixedOneIsUndecided) {
  const test::TestFolder folder;
  test::CopyTables(folder);
  FixedProject project;
  project.Enter(ScreenId::LowerSpectrum);
  project.doc = CMorvaneDoc(folder.Path());
  ASSERT_FALSE(project.doc.ResetDocument());
  project.procedure.ResetPane();
  project.doc.guidelineRoute = true;
  EXPECT_EQ(project.procedure.ShowProject(), SwitchOutcome::Open);
  EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
  EXPECT_THAT(project.pane.EnabledSteps(), IsEmpty());
  EXPECT_EQ(project.pane.drawn, FlowStep::Field);
  EXPECT_FALSE(project.doc.IsModified());
}

TEST(WorkProcedure, OpeningChangesNothingThatIsStored) {
  ProcedureParts parts;
  FillProject(parts.doc);
  const DocumentState before(parts.doc);
  EXPECT_EQ(parts.procedure.ShowOpenedProject(), SwitchOutcome::Open);
  EXPECT_THAT(before.DifferencesTo(DocumentState(parts.doc)), IsEmpty());
}

TEST(WorkProcedure, AnOpenedProjectWithAnOpenProcedureHasItsStepsDisabled) {
  FixedProject project;
  project.doc.flowFixed = false;
  EXPECT_EQ(project.procedure.ShowOpenedProject(), SwitchOutcome::Open);
  EXPECT_THAT(project.pane.EnabledSteps(), IsEmpty());
  EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
}

// --- Deciding the procedure ---

TEST(WorkProcedure, EnteringAChartClearsTheAnswersInTheDocument) {
  for (const ScreenId chart : {ScreenId::Flowchart1, ScreenId::Flowchart2}) {
    NewProject project;
    project.doc.flowQ1Yes = project.doc.flowQ2Yes = project.doc.flowCollect = true;
    project.doc.flowFaultSource = project.doc.flowNeighbourWave = true;
    project.Enter(ScreenId::FlowCheck);
    EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
    project.Enter(chart);
    EXPECT_EQ(project.procedure.State(), ProcedureState::Deciding);
    const CMorvaneDoc& doc = project.doc;
    EXPECT_FALSE(doc.flowQ1Yes || doc.flowQ2Yes || doc.flowCollect || doc.flowFaultSource ||
                 doc.flowNeighbourWave || doc.flowFixed);
    EXPECT_TRUE(doc.IsModified());
  }
}

TEST(WorkProcedure, OnlyTheClickChartAsksBeforeItIsLeft) {
  NewProject project;
  project.Enter(ScreenId::Flowchart1);
  EXPECT_FALSE(project.procedure.FlowCheckActive());
  project.Enter(ScreenId::FlowCheck);
  project.Enter(ScreenId::Flowchart2);
  EXPECT_TRUE(project.procedure.FlowCheckActive());
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Field), SwitchOutcome::Open);
  EXPECT_THAT(project.TakeLog(), ElementsAre("box", "left 59652", "show 59649", "entered 59649"));
  EXPECT_FALSE(project.procedure.FlowCheckActive());
  EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::OrigSeismicWave), SwitchOutcome::Open);
}

TEST(WorkProcedure, ANoKeepsTheChartAndTheDocument) {
  OnClickChart project;
  const DocumentState before(project.doc);
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Field), SwitchOutcome::Refused);
  EXPECT_EQ(project.procedure.State(), ProcedureState::Deciding);
  EXPECT_TRUE(project.procedure.FlowCheckActive());
  EXPECT_THAT(project.TakeLog(), ElementsAre("box"));
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
}

TEST(WorkProcedure, ACancelledQuestionDialogGoesBackToTheChoice) {
  NewProject project;
  project.Enter(ScreenId::Flowchart1);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::FlowCheck), SwitchOutcome::Open);
  EXPECT_THAT(project.TakeLog(), ElementsAre("left 59651", "show 59650", "entered 59650"));
  EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
}

TEST(WorkProcedure, AConfirmedClickChartFixesTheProcedure) {
  OnClickChart project;
  project.doc.SetModified(false);
  EXPECT_EQ(project.procedure.FixByClicks({true, true, false, false, true}), SwitchOutcome::Open);
  EXPECT_TRUE(project.doc.flowQ1Yes);
  EXPECT_TRUE(project.doc.flowQ2Yes);
  EXPECT_FALSE(project.doc.flowCollect);
  EXPECT_FALSE(project.doc.flowFaultSource);
  EXPECT_TRUE(project.doc.flowNeighbourWave);
  EXPECT_TRUE(project.doc.flowFixed);
  EXPECT_TRUE(project.doc.IsModified());
  EXPECT_EQ(project.pane.EnabledSteps(), EightWithout({FlowStep::FaultSpectra}));
  EXPECT_EQ(project.procedure.State(), ProcedureState::Fixed);
  EXPECT_FALSE(project.procedure.FlowCheckActive());
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart3);
  EXPECT_THAT(project.TakeLog(), ElementsAre("left 59652", "show 59653", "entered 59653"));
}

TEST(WorkProcedure, AnIncompletePhasePartIsRefused) {
  for (const ChartAnswers& answers : {ChartAnswers{false, false, false, true, true},
                                      ChartAnswers{true, false, false, true, true}, ChartAnswers{}}) {
    OnClickChart project;
    const DocumentState before(project.doc);
    project.prompt.ExpectMessage("位相特性のフローチャートが不正です。");
    EXPECT_EQ(project.procedure.FixByClicks(answers), SwitchOutcome::Refused);
    EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
    EXPECT_EQ(project.procedure.State(), ProcedureState::Deciding);
    EXPECT_TRUE(project.procedure.FlowCheckActive());
  }
}

TEST(WorkProcedure, CollectingMaterialAloneCompletesThePhasePart) {
  OnClickChart project;
  EXPECT_EQ(project.procedure.FixByClicks({false, false, true, false, false}), SwitchOutcome::Open);
  EXPECT_TRUE(project.doc.flowCollect);
  EXPECT_EQ(project.pane.EnabledSteps(), EightWithout({FlowStep::FaultSpectra, FlowStep::DamsiteWave}));
}

TEST(WorkProcedure, AcceptedQuestionsFixTheProcedure) {
  NewProject project;
  project.Enter(ScreenId::Flowchart1);
  project.doc.flowCollect = project.doc.flowFaultSource = true;  // as the dialogs have left them
  EXPECT_EQ(project.procedure.FixByQuestions(true, false), SwitchOutcome::Open);
  EXPECT_TRUE(project.doc.flowFixed);
  EXPECT_TRUE(project.doc.flowCollect);
  EXPECT_EQ(project.pane.EnabledSteps(), EightWithout({FlowStep::DamsiteWave}));
  EXPECT_EQ(project.procedure.State(), ProcedureState::Fixed);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart3);
  EXPECT_THAT(project.TakeLog(), ElementsAre("left 59651", "show 59653", "entered 59653"));
}

TEST(WorkProcedure, FixingLeavesTheHighlightWhereItIs) {
  // Neither at the first step nor at that of the chart, where a move would end.
  OnClickChart project;
  project.pane.SetCurrentStep(FlowStep::LowerSpectrum);
  project.pane.Highlight(FlowStep::LowerSpectrum, true);
  EXPECT_EQ(project.procedure.FixByClicks(kFaultsAndNeighbours), SwitchOutcome::Open);
  EXPECT_EQ(project.pane.current, FlowStep::LowerSpectrum);
  EXPECT_EQ(project.pane.marked, FlowStep::LowerSpectrum);
  EXPECT_EQ(project.pane.drawn, FlowStep::LowerSpectrum);
}

// --- New and open while the click chart is up ---

TEST(WorkProcedure, NewAndOpenAskNothingAwayFromTheClickChart) {
  NewProject project;
  EXPECT_TRUE(project.procedure.BeginReplaceProject());
  project.Enter(ScreenId::Flowchart1);
  EXPECT_TRUE(project.procedure.BeginReplaceProject());
}

TEST(WorkProcedure, NewOnTheClickChartAsksOnceForTheWholeCommand) {
  OnClickChart project;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  EXPECT_TRUE(project.procedure.BeginReplaceProject());
  FillProject(project.doc);
  EXPECT_EQ(project.procedure.ShowOpenedProject(), SwitchOutcome::Open);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Field);
  EXPECT_FALSE(project.procedure.FlowCheckActive());
}

TEST(WorkProcedure, NewOnTheClickChartAsksOnceAlsoForTheResponseRoute) {
  OnClickChart project;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  EXPECT_TRUE(project.procedure.BeginReplaceProject());
  project.doc.guidelineRoute = false;
  EXPECT_EQ(project.procedure.ShowProject(), SwitchOutcome::Open);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::RespOrigSeismicWave);
}

TEST(WorkProcedure, NewOnTheClickChartIsDroppedByANo) {
  OnClickChart project;
  const DocumentState before(project.doc);
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_FALSE(project.procedure.BeginReplaceProject());
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
  // and the next step asks as ever
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Field), SwitchOutcome::Refused);
}

TEST(WorkProcedure, ACancelledFileDialogLeavesTheYesForTheNextSwitchOnly) {
  OnClickChart project;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
  EXPECT_TRUE(project.procedure.BeginReplaceProject());
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Flowchart2), SwitchOutcome::Open);
  EXPECT_TRUE(project.procedure.FlowCheckActive());  // still on it: nothing was exchanged
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_EQ(project.procedure.SwitchScreen(ScreenId::Field), SwitchOutcome::Refused);
}

TEST(WorkProcedure, TheRouteStartIsNotShownWhenTheChartIsKept) {
  OnClickChart project;
  project.doc.guidelineRoute = false;
  project.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
  EXPECT_EQ(project.procedure.ShowRouteStart(), SwitchOutcome::Refused);
  EXPECT_THAT(project.TakeLog(), ElementsAre("pane of the response route", "box"));
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::Flowchart2);
}

// --- Changing the procedure ---

const QString kChangeProcedure = QStringLiteral(
    "作業手順を変更しますか？\n以下のデータがクリアされます。\n・「現場近隣地震波形」\n・「距離減衰式(断層)"
    "」\n"
    "・「下限スペクトル」\n・「基準スペクトル設定」\n・「原種波形の振幅調整」\n・「可視化」\n"
    "・「断層APIパラメータ設定」\n・「振幅調整設定」");

/// On the screen of a fixed procedure, with a base spectrum chosen.
struct OnFixedChart : FixedProject {
  OnFixedChart() {
    test::ChooseBase(doc, test::kLowerLabel);
    EXPECT_EQ(procedure.SwitchScreen(ScreenId::FlowCheck), SwitchOutcome::Open);
    EXPECT_EQ(procedure.ActiveScreen(), ScreenId::Flowchart3);
    log.clear();
  }
  SwitchOutcome Change(PromptAnswer answer) {
    prompt.ExpectQuestion(kChangeProcedure, answer);
    return procedure.ChangeProcedure();
  }
};

TEST(WorkProcedure, AChangeThatIsDeclinedLeavesAllAsItWas) {
  OnFixedChart project;
  const DocumentState before(project.doc);
  EXPECT_EQ(project.Change(PromptAnswer::No), SwitchOutcome::Refused);
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
  EXPECT_THAT(project.TakeLog(), ElementsAre("box"));
  EXPECT_EQ(project.pane.EnabledSteps(), kEightSteps);
  EXPECT_EQ(project.procedure.State(), ProcedureState::Fixed);
}

TEST(WorkProcedure, AChangedProcedureOpensTheChoiceWithTheStepsDisabled) {
  OnFixedChart project;
  EXPECT_EQ(project.Change(PromptAnswer::Yes), SwitchOutcome::Open);
  EXPECT_THAT(project.TakeLog(),
              ElementsAre("box", "refresh 59649", "refresh 59654", "refresh 59656", "refresh 59657",
                          "refresh 59658", "left 59653", "show 59650", "entered 59650"));
  EXPECT_THAT(project.pane.EnabledSteps(), IsEmpty());
  EXPECT_EQ(project.procedure.State(), ProcedureState::Undecided);
  EXPECT_EQ(project.procedure.ActiveScreen(), ScreenId::FlowCheck);
}

TEST(WorkProcedure, AChangedProcedureKeepsTheWavesAndEmptiesWhatRestedOnIt) {
  OnFixedChart project;
  project.Change(PromptAnswer::Yes);
  const CMorvaneDoc& doc = project.doc;
  EXPECT_EQ(doc.SeedWaveNames(), (std::vector<QString>{"A", "B", "C"}));
  for (const CSeismicWave& wave : doc.seedWaves.Records()) {
    EXPECT_FALSE(wave.siteUse || wave.baseSelected || wave.adopted || wave.adjusted || wave.adjustChecked);
    EXPECT_TRUE(wave.adjustedAcc.empty() && wave.adjustedPeriods.empty() && wave.adjustedSpec.empty());
    EXPECT_TRUE(wave.baseAdjustShow);
    EXPECT_EQ(wave.acc.size(), 4U);
    EXPECT_TRUE(wave.spectrumValid);
  }
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_EQ(MarkedBase(doc), std::nullopt);
  EXPECT_EQ(doc.baseSpectrumName, QString());
  EXPECT_FALSE(doc.seedAdopted);
  EXPECT_EQ(doc.seedAdoptedName, QString());
  EXPECT_EQ(doc.apiParameters, ApiParameterSet{});
  EXPECT_EQ(doc.adjustMaxIterations, 100);
  EXPECT_EQ(doc.adjustTolerancePercent, 0.05);
  EXPECT_TRUE(doc.IsModified());
}

TEST(WorkProcedure, AChangedProcedureKeepsTheOtherAnswers) {
  OnFixedChart project;
  project.Change(PromptAnswer::Yes);
  EXPECT_FALSE(project.doc.flowFixed);
  EXPECT_TRUE(project.doc.flowQ1Yes && project.doc.flowQ2Yes && project.doc.flowFaultSource &&
              project.doc.flowNeighbourWave);
  EXPECT_FALSE(project.doc.flowCollect);
}

TEST(WorkProcedure, AChangedProcedureMarksTheDefaultLowerLimitBesideTheOneThatWas) {
  OnFixedChart project;
  project.Change(PromptAnswer::Yes);
  const CSeismicWaveSet& spectra = project.doc.lowerSpectra;
  EXPECT_TRUE(spectra.At(0).lowerSelected);
  EXPECT_TRUE(spectra.At(1).lowerSelected);
  EXPECT_FALSE(spectra.At(2).lowerSelected);
  EXPECT_EQ(spectra.SelectedName(), QString("下限1"));  // the first one counts
  // the mark came before the adjustment was cleared, which shows the curve of every marked one again
  EXPECT_TRUE(spectra.At(0).baseAdjustShow && spectra.At(1).baseAdjustShow);
  EXPECT_FALSE(spectra.At(2).baseAdjustShow);
  // the next click leaves exactly one
  EXPECT_EQ(project.rules.SelectLowerSpectrum(2), ChoiceOutcome::Applied);
  EXPECT_FALSE(spectra.At(0).lowerSelected || spectra.At(1).lowerSelected);
  EXPECT_TRUE(spectra.At(2).lowerSelected);
}

TEST(WorkProcedure, AChangedProcedureMarksTheDefaultOfTheDeliveredTables) {
  const test::TestFolder folder;
  test::CopyTables(folder);
  FixedProject project;
  project.doc = CMorvaneDoc(folder.Path());
  ASSERT_FALSE(project.doc.ResetDocument());
  project.doc.guidelineRoute = true;
  project.doc.flowFixed = true;
  EXPECT_EQ(project.rules.SelectLowerSpectrum(2), ChoiceOutcome::Applied);
  project.prompt.ExpectQuestion(kChangeProcedure, PromptAnswer::Yes);
  EXPECT_EQ(project.procedure.ChangeProcedure(), SwitchOutcome::Open);
  const CSeismicWaveSet& spectra = project.doc.lowerSpectra;
  EXPECT_EQ(spectra.SelectedName(), QString::fromUtf16(kDefaultLowerLongName));
  EXPECT_TRUE(spectra.At(0).lowerSelected && spectra.At(2).lowerSelected);
  EXPECT_FALSE(spectra.At(1).lowerSelected);
}

TEST(WorkProcedure, AChangedProcedureCanBeFixedAgain) {
  OnFixedChart project;
  project.Change(PromptAnswer::Yes);
  project.Enter(ScreenId::Flowchart2);
  EXPECT_EQ(project.procedure.State(), ProcedureState::Deciding);
  EXPECT_EQ(project.procedure.FixByClicks({false, false, true, true, false}), SwitchOutcome::Open);
  EXPECT_EQ(project.pane.EnabledSteps(), EightWithout({FlowStep::DamsiteWave}));
  EXPECT_FALSE(project.doc.flowQ1Yes || project.doc.flowQ2Yes);
}

}  // namespace
}  // namespace tremlo
