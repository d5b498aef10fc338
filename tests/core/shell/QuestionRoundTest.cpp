// The questions over a document: what each reply leaves in it, in every state that fourteen replies can
// reach.

#include "core/shell/QuestionRound.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::AnyOf;
using testing::Each;
using testing::IsEmpty;
using testing::StartsWith;

const QString kLeaveChart = QStringLiteral("作業手順の確認中ですがよろしいですか？");

constexpr int kPresses = 14;

/// The filled project on the chart of the questions; its first round has begun.
struct OnQuestions : test::ProcedureParts {
  OnQuestions() {
    test::FillProject(doc);
    doc.flowFixed = false;
    EXPECT_EQ(procedure.ShowOpenedProject(), SwitchOutcome::Open);
    Enter(ScreenId::Flowchart1);
    round.Begin();
  }
  explicit OnQuestions(const std::vector<QuestionEnd>& way) : OnQuestions() {
    for (const QuestionEnd end : way) EXPECT_EQ(round.Take(end), std::nullopt);
    log.clear();
    doc.SetModified(false);
  }
  ChartAnswers Flags() const {
    return {doc.flowQ1Yes, doc.flowQ2Yes, doc.flowCollect, doc.flowFaultSource, doc.flowNeighbourWave};
  }

  QuestionRound round{doc, prompt, procedure};
};

std::vector<QuestionEnd> ButtonsOf(ChartQuestion question) {
  if (question == ChartQuestion::PhaseQ1) return {QuestionEnd::Yes, QuestionEnd::No};
  if (question == ChartQuestion::PhaseQ4) return {QuestionEnd::Back, QuestionEnd::Yes};
  return {QuestionEnd::Back, QuestionEnd::Yes, QuestionEnd::No};
}

struct Reached {
  QuestionChartState state;
  std::vector<QuestionEnd> way;
};

/// Every state of an open chart, each with a shortest way to it.
std::vector<Reached> ReachableStates() {
  std::vector<Reached> reached = {{OnQuestions().round.Chart(), {}}};
  for (std::size_t i = 0; i < reached.size(); ++i) {
    const Reached from = reached[i];
    if (from.way.size() == kPresses) continue;
    for (const QuestionEnd end : ButtonsOf(*OnQuestions(from.way).round.Due())) {
      OnQuestions pressed(from.way);
      if (pressed.round.Take(end)) continue;
      const QuestionChartState state = pressed.round.Chart();
      const auto same = [&state](const Reached& other) { return other.state == state; };
      if (std::any_of(reached.begin(), reached.end(), same)) continue;
      reached.push_back({state, from.way});
      reached.back().way.push_back(end);
    }
  }
  return reached;
}

class QuestionRoundTest : public testing::Test {
 protected:
  static const std::vector<Reached>& States() {
    static const std::vector<Reached> states = ReachableStates();
    return states;
  }
};

TEST_F(QuestionRoundTest, FourteenPressesReachEveryQuestionInManyStates) {
  std::array<int, 8> states{};
  for (const Reached& reached : States())
    ++states[static_cast<std::size_t>(*OnQuestions(reached.way).round.Due())];
  for (std::size_t question = 0; question < states.size(); ++question)
    EXPECT_GT(states[question], 0) << question;
  EXPECT_GT(States().size(), 50U);
}

TEST_F(QuestionRoundTest, ACancelAnsweredWithNoLeavesEverythingByteForByte) {
  for (const Reached& reached : States()) {
    OnQuestions at(reached.way);
    const DocumentState before(at.doc);
    at.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::No);
    EXPECT_FALSE(at.round.MayCancel());
    EXPECT_THAT(before.DifferencesTo(DocumentState(at.doc)), IsEmpty());
    EXPECT_FALSE(at.doc.IsModified());
    EXPECT_EQ(at.round.Chart(), reached.state);
    EXPECT_EQ(at.procedure.ActiveScreen(), ScreenId::Flowchart1);
  }
}

TEST_F(QuestionRoundTest, ACancelAnsweredWithYesLeavesTheFlagsAndLeadsBackToTheChoice) {
  for (const Reached& reached : States()) {
    OnQuestions at(reached.way);
    const DocumentState before(at.doc);
    at.prompt.ExpectQuestion(kLeaveChart, PromptAnswer::Yes);
    EXPECT_TRUE(at.round.MayCancel());
    EXPECT_EQ(at.round.Take(QuestionEnd::Cancelled), SwitchOutcome::Open);
    EXPECT_THAT(before.DifferencesTo(DocumentState(at.doc)), IsEmpty());
    EXPECT_EQ(at.Flags(), reached.state.flags);
    EXPECT_FALSE(at.doc.flowFixed);
    EXPECT_EQ(at.procedure.ActiveScreen(), ScreenId::FlowCheck);
    EXPECT_THAT(at.pane.EnabledSteps(), IsEmpty());
  }
}

TEST_F(QuestionRoundTest, AReplyWritesTheFlagsAndNothingElse) {
  for (const Reached& reached : States()) {
    for (const QuestionEnd end : ButtonsOf(*OnQuestions(reached.way).round.Due())) {
      OnQuestions at(reached.way);
      const DocumentState before(at.doc);
      const ChartQuestion question = *at.round.Due();
      const std::optional<SwitchOutcome> over = at.round.Take(end);
      const QuestionChartState& state = at.round.Chart();
      EXPECT_EQ(at.Flags(), state.flags);
      EXPECT_EQ(at.doc.flowFixed, state.fixed);
      EXPECT_EQ(over.has_value(), question == ChartQuestion::QaEnd && end == QuestionEnd::Yes);
      EXPECT_EQ(at.procedure.ActiveScreen(), over ? ScreenId::Flowchart3 : ScreenId::Flowchart1);
      const bool silent =
          question == ChartQuestion::PhaseQ1 || (question == ChartQuestion::AmpQ2 && end != QuestionEnd::No);
      EXPECT_EQ(at.doc.IsModified(), !silent) << "a write marks, whatever the value was";
      EXPECT_THAT(before.DifferencesTo(DocumentState(at.doc)), Each(AnyOf(StartsWith("flow"), "modified")));
    }
  }
}

TEST_F(QuestionRoundTest, OkOpensTheStepsOfTheTakenPaths) {
  using enum QuestionEnd;
  const std::vector<QuestionEnd> phase = {No, Yes};
  struct Way {
    std::vector<QuestionEnd> amplitude;
    bool faults, neighbours;
  };
  for (const Way& way : {Way{{No, No}, false, false}, Way{{Yes, Yes, No}, true, false},
                         Way{{Yes, No, Yes}, false, true}, Way{{Yes, Yes, Yes}, true, true}}) {
    std::vector<QuestionEnd> ends = phase;
    ends.insert(ends.end(), way.amplitude.begin(), way.amplitude.end());
    OnQuestions at(ends);
    EXPECT_EQ(at.round.Take(Yes), SwitchOutcome::Open);
    std::vector<FlowStep> expected(kStepsBehindProcedure.begin(), kStepsBehindProcedure.end());
    if (!way.faults) std::erase(expected, FlowStep::FaultSpectra);
    if (!way.neighbours) std::erase(expected, FlowStep::DamsiteWave);
    EXPECT_EQ(at.pane.EnabledSteps(), expected);
    EXPECT_EQ(at.Flags(), (ChartAnswers{false, false, true, way.faults, way.neighbours}));
    EXPECT_TRUE(at.doc.flowFixed);
    EXPECT_EQ(at.procedure.State(), ProcedureState::Fixed);
  }
}

TEST_F(QuestionRoundTest, StepsFollowThePathAsDrawnEvenWhereTheFlagStaysCleared) {
  using enum QuestionEnd;
  OnQuestions at({No, Yes, Yes, No, Back, Yes, No});
  EXPECT_EQ(at.round.Take(Yes), SwitchOutcome::Open);
  EXPECT_FALSE(at.doc.flowFaultSource);
  const std::vector<FlowStep> enabled = at.pane.EnabledSteps();
  EXPECT_NE(std::find(enabled.begin(), enabled.end(), FlowStep::FaultSpectra), enabled.end());
}

TEST_F(QuestionRoundTest, ADialogThatCannotBeShownIsToldAndEndsTheProgram) {
  const std::vector<const char*> texts = {"位相特性Q1", "位相特性Q2", "位相特性Q3", "位相特性Q3",
                                          "振幅特性Q1", "振幅特性Q2", "振幅特性Q3", "フローチャートの確認"};
  using enum QuestionEnd;
  const std::vector<QuestionEnd> way = {Yes, Yes, No, Yes, Yes, Yes, Yes};
  for (std::size_t shown = 0; shown <= way.size(); ++shown) {
    OnQuestions at(std::vector<QuestionEnd>(way.begin(), way.begin() + static_cast<std::ptrdiff_t>(shown)));
    ASSERT_EQ(at.round.Due(), ChartQuestion(shown));
    at.prompt.ExpectMessage(QString(texts[shown]) + "を表示させることができませんでした。");
    EXPECT_EQ(at.round.Take(NotShown), SwitchOutcome::EndProgram);
    EXPECT_EQ(at.procedure.ActiveScreen(), ScreenId::Flowchart1);
  }
}

TEST_F(QuestionRoundTest, ANewRoundStartsAfresh) {
  OnQuestions at({QuestionEnd::Yes, QuestionEnd::Yes, QuestionEnd::Yes});
  at.Enter(ScreenId::FlowCheck);
  at.Enter(ScreenId::Flowchart1);
  at.round.Begin();
  EXPECT_EQ(at.round.Chart(), QuestionChart().State());
  EXPECT_EQ(at.Flags(), ChartAnswers{});
}

}  // namespace
}  // namespace tremlo
