// Every way of answering the questions, held against a table that states what each answer does.

#include "core/shell/QuestionChart.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tremlo {
namespace {

constexpr auto kYes = ChartReply::Yes;
constexpr auto kNo = ChartReply::No;
constexpr auto kBack = ChartReply::Back;

// --- The table ---

/// All that a chart keeps, and the six flags that it gives to the document. a: passed; f: lit as the current
/// question; y: drawn as taken. P1 to P4: the phase questions; A1 to A3: the amplitude questions; B1, B2: the
/// amplitude boxes.
// clang-format off
enum Field {
  aP1, aP2, aP3, aP4, aA1, aA2, aA3, aEnd,
  fP1, fP2, fP3, fP4, fB1, fB2,
  yP1, yP2, yP3, yP4, yB1, yB2,
  backP4, backA1, backA3,
  dQ1, dQ2, dCollect, dFault, dNeighbour, dFixed,
  kFieldCount,
  kAlways
};
// clang-format on

using Snapshot = std::array<int, kFieldCount>;

struct Effect {
  Field field;
  int value;
};

/// What a reply to a question does, in its order; a row with a condition holds only for that value of a back
/// field. A later effect on the same field wins.
struct Rule {
  ChartQuestion question;
  ChartReply reply;
  Field condition;
  int conditionValue;
  std::vector<Effect> effects;
};

using enum ChartQuestion;

const std::vector<Rule> kRules = {
    {PhaseQ1, kYes, kAlways, 0, {{aP1, 1}, {yP1, 1}, {fP1, 0}, {fP2, 1}}},
    {PhaseQ1, kNo, kAlways, 0, {{aP1, 1}, {yP1, 1}, {aP2, 1}, {aP3, 1}, {backP4, 315}, {fP1, 0}, {fP4, 1}}},

    {PhaseQ2, kBack, kAlways, 0, {{dQ1, 1}, {dQ1, 0}, {aP1, 0}, {yP1, 0}, {fP1, 1}, {fP2, 0}}},
    {PhaseQ2, kYes, kAlways, 0, {{dQ1, 1}, {yP2, 1}, {aP2, 1}, {fP2, 0}, {fP3, 1}}},
    {PhaseQ2, kNo, kAlways, 0, {{dQ1, 1}, {yP2, 1}, {aP2, 1}, {aP3, 1}, {backP4, 316}, {fP2, 0}, {fP4, 1}}},

    {PhaseQ3, kBack, kAlways, 0, {{dQ2, 1}, {dQ2, 0}, {aP2, 0}, {yP2, 0}, {fP2, 1}, {fP3, 0}}},
    {PhaseQ3, kYes, kAlways, 0, {{dQ2, 1}, {yP3, 1}, {aP3, 1}, {aP4, 1}, {backA1, 317}, {fP3, 0}, {fB1, 1}}},
    {PhaseQ3, kNo, kAlways, 0, {{dQ2, 1}, {yP3, 1}, {aP3, 1}, {backP4, 317}, {fP3, 0}, {fP4, 1}}},

    {PhaseQ4,
     kBack,
     backP4,
     315,
     {{dCollect, 1}, {dCollect, 0}, {aP1, 0}, {aP2, 0}, {aP3, 0}, {yP1, 0}, {fP4, 0}, {fP1, 1}}},
    {PhaseQ4,
     kBack,
     backP4,
     316,
     {{dCollect, 1}, {dCollect, 0}, {aP2, 0}, {aP3, 0}, {yP2, 0}, {fP4, 0}, {fP2, 1}}},
    {PhaseQ4, kBack, backP4, 317, {{dCollect, 1}, {dCollect, 0}, {aP3, 0}, {yP3, 0}, {fP3, 1}, {fP4, 0}}},
    {PhaseQ4, kYes, kAlways, 0, {{dCollect, 1}, {aP4, 1}, {backA1, 338}, {fP4, 0}, {fB1, 1}, {yP4, 1}}},

    {AmpQ1, kBack, backA1, 317, {{dFault, 1}, {dFault, 0}, {aP3, 0}, {aP4, 0}, {yP3, 0}, {fB1, 0}, {fP3, 1}}},
    {AmpQ1, kBack, backA1, 338, {{dFault, 1}, {dFault, 0}, {aP4, 0}, {yP4, 0}, {fP4, 1}, {fB1, 0}}},
    {AmpQ1, kYes, kAlways, 0, {{dFault, 1}, {aA1, 1}}},
    {AmpQ1,
     kNo,
     kAlways,
     0,
     {{dFault, 1}, {aA1, 1}, {aA2, 1}, {dFault, 0}, {backA3, 318}, {yB1, 0}, {fB1, 0}, {fB2, 1}}},

    {AmpQ2, kBack, kAlways, 0, {{aA1, 0}}},
    {AmpQ2, kYes, kAlways, 0, {{aA2, 1}, {backA3, 319}, {yB1, 1}, {fB1, 0}, {fB2, 1}}},
    {AmpQ2, kNo, kAlways, 0, {{dFault, 0}, {aA2, 1}, {backA3, 319}, {yB1, 0}, {fB1, 0}, {fB2, 1}}},

    {AmpQ3,
     kBack,
     backA3,
     318,
     {{dNeighbour, 1}, {dNeighbour, 0}, {aA1, 0}, {aA2, 0}, {yB1, 0}, {fB1, 1}, {fB2, 0}}},
    {AmpQ3, kBack, backA3, 319, {{dNeighbour, 1}, {dNeighbour, 0}, {aA2, 0}, {yB1, 0}, {fB1, 1}, {fB2, 0}}},
    {AmpQ3, kYes, kAlways, 0, {{dNeighbour, 1}, {aA3, 1}, {fB2, 0}, {yB2, 1}}},
    {AmpQ3, kNo, kAlways, 0, {{dNeighbour, 1}, {dNeighbour, 0}, {aA3, 1}, {fB2, 0}, {yB2, 0}}},

    {QaEnd, kBack, kAlways, 0, {{dFixed, 1}, {aA3, 0}, {dFixed, 0}, {yB2, 0}, {fB2, 1}}},
    {QaEnd, kYes, kAlways, 0, {{dFixed, 1}, {aEnd, 1}}},
    // "やり直す": all but the first box's light goes out.
    {QaEnd, kNo, kAlways, 0, {{aP1, 0}, {aP2, 0},      {aP3, 0},    {aP4, 0},        {aA1, 0},    {aA2, 0},
                              {aA3, 0}, {aEnd, 0},     {fP1, 1},    {fP2, 0},        {fP3, 0},    {fP4, 0},
                              {fB1, 0}, {fB2, 0},      {yP1, 0},    {yP2, 0},        {yP3, 0},    {yP4, 0},
                              {yB1, 0}, {yB2, 0},      {backP4, 0}, {backA1, 0},     {backA3, 0}, {dQ1, 0},
                              {dQ2, 0}, {dCollect, 0}, {dFault, 0}, {dNeighbour, 0}, {dFixed, 0}}},
};

Snapshot FreshChart() {
  Snapshot fresh{};
  fresh[fP1] = 1;
  return fresh;
}

/// The dialog that is due: the first that has not been passed.
std::optional<ChartQuestion> DueBy(const Snapshot& model) {
  for (int question = 0; question < 8; ++question)
    if (!model[static_cast<std::size_t>(aP1 + question)]) return ChartQuestion(question);
  return std::nullopt;
}

std::size_t RuleFor(const Snapshot& model, ChartQuestion question, ChartReply reply) {
  for (std::size_t i = 0; i < kRules.size(); ++i) {
    const Rule& rule = kRules[i];
    if (rule.question != question || rule.reply != reply) continue;
    if (rule.condition == kAlways || model[rule.condition] == rule.conditionValue) return i;
  }
  return kRules.size();
}

bool WritesAFlag(const Rule& rule) {
  return std::any_of(rule.effects.begin(), rule.effects.end(),
                     [](const Effect& effect) { return effect.field >= dQ1; });
}

/// The same fields of the chart under test.
Snapshot SnapshotOf(const QuestionChart& chart) {
  const QuestionChartState& state = chart.State();
  Snapshot fields{};
  for (std::size_t i = 0; i < 8; ++i) fields[aP1 + i] = state.answered[i];
  for (std::size_t i = 0; i < 6; ++i) fields[fP1 + i] = state.focus[i];
  for (std::size_t i = 0; i < 6; ++i) fields[yP1 + i] = state.yesPath[i];
  fields[backP4] = state.backFromPhaseQ4;
  fields[backA1] = state.backFromAmpQ1;
  fields[backA3] = state.backFromAmpQ3;
  fields[dQ1] = state.flags.q1Yes;
  fields[dQ2] = state.flags.q2Yes;
  fields[dCollect] = state.flags.collect;
  fields[dFault] = state.flags.faultSource;
  fields[dNeighbour] = state.flags.neighbourWave;
  fields[dFixed] = state.fixed;
  return fields;
}

// --- The buttons, and where they lead in the eyes of the user ---

std::vector<ChartReply> ButtonsOf(ChartQuestion question) {
  if (question == PhaseQ1) return {kYes, kNo};
  if (question == PhaseQ4) return {kBack, kYes};
  return {kBack, kYes, kNo};
}

/// Which question follows which, without any of the chart's fields.
ChartQuestion FollowerOf(ChartQuestion question, ChartReply reply) {
  switch (question) {
    case PhaseQ1:
      return reply == kYes ? PhaseQ2 : PhaseQ4;
    case PhaseQ2:
      return reply == kYes ? PhaseQ3 : PhaseQ4;
    case PhaseQ3:
      return reply == kYes ? AmpQ1 : PhaseQ4;
    case PhaseQ4:
      return AmpQ1;
    case AmpQ1:
      return reply == kYes ? AmpQ2 : AmpQ3;
    case AmpQ2:
      return AmpQ3;
    default:
      return QaEnd;
  }
}

struct Walk {
  std::vector<ChartReply> replies;   ///< of the whole way, to name a failure
  std::vector<ChartQuestion> stack;  ///< the questions that lead to the one that is asked
  std::set<std::size_t> rulesUsed;
  long presses = 0;
  long fixed = 0;
};

std::string WayOf(const Walk& walk) {
  std::string way;
  for (const ChartReply reply : walk.replies) way += reply == kYes ? 'Y' : reply == kNo ? 'N' : 'B';
  return way;
}

/// Presses every button of the question that is asked, and from there every button of the next one.
void PressAll(const QuestionChart& chart, const Snapshot& model, Walk& walk, int pressesLeft) {
  if (pressesLeft == 0 || testing::Test::HasFailure()) return;
  const ChartQuestion question = walk.stack.back();
  for (const ChartReply reply : ButtonsOf(question)) {
    walk.replies.push_back(reply);
    const std::size_t number = RuleFor(model, question, reply);
    ASSERT_LT(number, kRules.size()) << WayOf(walk);
    walk.rulesUsed.insert(number);
    Snapshot expected = model;
    for (const Effect& effect : kRules[number].effects) expected[effect.field] = effect.value;

    QuestionChart pressed = chart;
    const bool wroteFlags = pressed.Reply(reply);
    ++walk.presses;
    ASSERT_EQ(SnapshotOf(pressed), expected) << WayOf(walk);
    ASSERT_EQ(wroteFlags, WritesAFlag(kRules[number])) << WayOf(walk);
    ASSERT_EQ(pressed.Due(), DueBy(expected)) << WayOf(walk);

    const std::vector<ChartQuestion> stack = walk.stack;
    if (reply == kBack)
      walk.stack.pop_back();
    else if (question == QaEnd)
      walk.stack = {PhaseQ1};
    else
      walk.stack.push_back(FollowerOf(question, reply));
    if (question == QaEnd && reply == kYes) {
      ++walk.fixed;
      ASSERT_EQ(pressed.Due(), std::nullopt) << WayOf(walk);
    } else {
      ASSERT_EQ(pressed.Due(), walk.stack.back()) << WayOf(walk);
      PressAll(pressed, expected, walk, pressesLeft - 1);
    }
    walk.stack = stack;
    walk.replies.pop_back();
  }
}

TEST(QuestionChart, EverySequenceOfFourteenPressesFollowsTheTable) {
  Walk walk;
  walk.stack = {PhaseQ1};
  const QuestionChart chart;
  ASSERT_EQ(SnapshotOf(chart), FreshChart());
  PressAll(chart, FreshChart(), walk, 14);
  EXPECT_EQ(walk.rulesUsed.size(), kRules.size()) << "a rule that no sequence has tried";
  EXPECT_EQ(walk.presses, 773894) << "counted from which question follows which";
  EXPECT_EQ(walk.fixed, 41850);
}

// --- Ways worth a name ---

QuestionChart After(std::initializer_list<ChartReply> replies) {
  QuestionChart chart;
  for (const ChartReply reply : replies) chart.Reply(reply);
  return chart;
}

TEST(QuestionChart, NoSeismographAndNoSourcesCollectsMaterialOnly) {
  const QuestionChart chart = After({kNo, kYes, kNo, kNo, kYes});
  EXPECT_TRUE(chart.State().fixed);
  EXPECT_EQ(chart.State().flags, (ChartAnswers{false, false, true, false, false}));
  EXPECT_EQ(chart.Due(), std::nullopt);
}

TEST(QuestionChart, AUsableRecordSkipsTheCollecting) {
  QuestionChart chart = After({kYes, kYes, kYes});
  EXPECT_EQ(chart.Due(), AmpQ1);
  EXPECT_TRUE(chart.State().flags.q2Yes);
  chart.Reply(kBack);
  EXPECT_EQ(chart.Due(), PhaseQ3);
  EXPECT_TRUE(chart.State().flags.q2Yes) << "until the question is answered again";
  chart.Reply(kBack);
  EXPECT_FALSE(chart.State().flags.q2Yes);
}

TEST(QuestionChart, AFlagIsSetWhenTheNextQuestionIsAnswered) {
  QuestionChart chart;
  EXPECT_FALSE(chart.Reply(kYes)) << "nothing is written yet";
  EXPECT_FALSE(chart.State().flags.q1Yes);
  EXPECT_TRUE(chart.Reply(kNo));
  EXPECT_TRUE(chart.State().flags.q1Yes);
}

TEST(QuestionChart, AYesBehindANoTakenBackFollowsThePathButLeavesTheFlagCleared) {
  const QuestionChart chart = After({kNo, kYes, kYes, kNo, kBack, kYes, kNo, kYes});
  EXPECT_TRUE(chart.State().fixed);
  EXPECT_TRUE(chart.State().yesPath[4]);
  EXPECT_FALSE(chart.State().flags.faultSource);
}

TEST(QuestionChart, StartingAgainClearsAll) {
  QuestionChart chart = After({kYes, kYes, kNo, kYes, kYes, kYes, kYes});
  ASSERT_EQ(chart.Due(), QaEnd);
  EXPECT_NE(chart.State().flags, ChartAnswers{});
  EXPECT_TRUE(chart.Reply(kNo));
  EXPECT_EQ(chart.Due(), PhaseQ1);
  EXPECT_EQ(chart.State(), QuestionChart().State());
}

TEST(QuestionChart, AButtonThatAQuestionDoesNotHaveDoesNothing) {
  QuestionChart chart;
  EXPECT_FALSE(chart.Reply(kBack));
  EXPECT_EQ(chart.State(), QuestionChart().State());
  chart.Reply(kNo);
  const QuestionChartState atCollecting = chart.State();
  EXPECT_FALSE(chart.Reply(kNo));
  EXPECT_EQ(chart.State(), atCollecting);
}

TEST(QuestionChart, AFixedChartTakesNoReply) {
  QuestionChart chart = After({kNo, kYes, kNo, kNo, kYes});
  const QuestionChartState fixed = chart.State();
  for (const ChartReply reply : {kYes, kNo, kBack}) {
    EXPECT_FALSE(chart.Reply(reply));
    EXPECT_EQ(chart.State(), fixed);
  }
}

}  // namespace
}  // namespace tremlo
