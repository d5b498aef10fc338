// Every way of clicking on the boxes, held against a table of what each click does.

#include "core/shell/ClickChart.h"
#include "support/ScriptedPrompt.h"

#include <array>
#include <gmock/gmock.h>
#include <set>
#include <vector>

namespace tremlo {
namespace {

constexpr std::array kClickBoxes = {ChartBox::PhaseQ2, ChartBox::PhaseQ3, ChartBox::PhaseQ4,
                                    ChartBox::Amplitude1, ChartBox::Amplitude2};

const PromptBox kClearsSecond = {.text = QStringLiteral("2つ目のYESのパスが消去されますがよろしいですか？"),
                                 .icon = PromptIcon::Warning,
                                 .buttons = PromptButtons::YesNo};
const PromptBox kFirstIsOpen = {.text = QStringLiteral("前の質問に答えてからクリックして下さい。"),
                                .icon = PromptIcon::Warning,
                                .buttons = PromptButtons::Ok};

/// Answers all boxes alike and keeps the last one.
class OneAnswer : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    shown.push_back(box);
    return answer;
  }
  PromptAnswer answer = PromptAnswer::No;
  std::vector<PromptBox> shown;
};

/// What a click on one of the first two boxes does, where answer1 and answer2 stand so.
struct FirstTwo {
  bool answer1, answer2;
  int click;
  PromptAnswer reply;  ///< to the question, where one comes
  bool becomes1, becomes2;
  const PromptBox* box;
};

const std::array<FirstTwo, 7> kFirstTwo = {{
    {false, false, 1, PromptAnswer::Yes, true, false, nullptr},
    {true, false, 1, PromptAnswer::Yes, false, false, nullptr},
    {true, true, 1, PromptAnswer::Yes, false, false, &kClearsSecond},
    {true, true, 1, PromptAnswer::No, true, true, &kClearsSecond},
    {false, false, 2, PromptAnswer::Ok, false, false, &kFirstIsOpen},
    {true, false, 2, PromptAnswer::Yes, true, true, nullptr},
    {true, true, 2, PromptAnswer::Yes, true, false, nullptr},
}};

using Model = std::array<bool, 5>;

Model ModelOf(const ClickChart& chart) {
  const ChartAnswers& answers = chart.Answers();
  return {answers.q1Yes, answers.q2Yes, answers.collect, answers.faultSource, answers.neighbourWave};
}

struct Clicks {
  OneAnswer prompt;
  std::string way;
  std::set<const FirstTwo*> used;
  std::set<Model> seen;
  long count = 0;
};

void ClickAll(const ClickChart& chart, const Model& model, Clicks& clicks, int left);

void ClickOnce(const ClickChart& chart, const Model& model, Clicks& clicks, int left, std::size_t click,
               const FirstTwo* rule) {
  Model expected = model;
  if (rule) {
    expected[0] = rule->becomes1;
    expected[1] = rule->becomes2;
    clicks.prompt.answer = rule->reply;
    clicks.used.insert(rule);
  } else {
    expected[click] = !expected[click];
  }
  clicks.way += static_cast<char>('1' + click);
  clicks.prompt.shown.clear();
  ClickChart clicked = chart;
  clicked.Click(kClickBoxes[click]);
  ++clicks.count;
  ASSERT_EQ(ModelOf(clicked), expected) << clicks.way;
  ASSERT_EQ(clicks.prompt.shown.size(), rule && rule->box ? 1U : 0U) << clicks.way;
  if (rule && rule->box) {
    ASSERT_EQ(clicks.prompt.shown[0], *rule->box) << clicks.way;
  }
  ClickAll(clicked, expected, clicks, left - 1);
  clicks.way.pop_back();
}

void ClickAll(const ClickChart& chart, const Model& model, Clicks& clicks, int left) {
  clicks.seen.insert(model);
  if (left == 0 || testing::Test::HasFailure()) return;
  for (std::size_t click = 0; click < 2; ++click) {
    int found = 0;
    for (const FirstTwo& rule : kFirstTwo) {
      if (rule.click != static_cast<int>(click) + 1 || rule.answer1 != model[0] || rule.answer2 != model[1])
        continue;
      ++found;
      ClickOnce(chart, model, clicks, left, click, &rule);
    }
    ASSERT_GT(found, 0) << clicks.way;
  }
  for (std::size_t click = 2; click < 5; ++click) ClickOnce(chart, model, clicks, left, click, nullptr);
}

TEST(ClickChart, EverySequenceOfEightClicksFollowsTheTable) {
  Clicks clicks;
  const ClickChart chart(clicks.prompt);
  ASSERT_EQ(ModelOf(chart), Model{});
  ClickAll(chart, Model{}, clicks, 8);
  EXPECT_EQ(clicks.used.size(), kFirstTwo.size()) << "a rule that no sequence has tried";
  EXPECT_EQ(clicks.seen.size(), 24U) << "three ways of the first two boxes, eight of the others";
  EXPECT_EQ(clicks.count, 567657);
}

TEST(ClickChart, OnlyFiveBoxesTakeClicks) {
  test::ScriptedPrompt prompt;
  ClickChart chart(prompt);
  for (const ChartBox box :
       {ChartBox::PhaseQ1, ChartBox::SeedWave, ChartBox::BaseSpectrum, ChartBox::Adjustment}) {
    EXPECT_FALSE(ClickChart::TakesClicks(box));
    chart.Click(box);
    EXPECT_EQ(chart.Answers(), ChartAnswers{});
  }
  for (const ChartBox box : kClickBoxes) EXPECT_TRUE(ClickChart::TakesClicks(box));
}

TEST(ClickChart, StartsAfresh) {
  test::ScriptedPrompt prompt;
  ClickChart chart(prompt);
  chart.Click(ChartBox::PhaseQ2);
  chart.Click(ChartBox::PhaseQ3);
  chart.Click(ChartBox::Amplitude2);
  chart.Restart();
  EXPECT_EQ(chart.Answers(), ChartAnswers{});
}

TEST(ClickChart, ANoKeepsBothPaths) {
  test::ScriptedPrompt prompt;
  ClickChart chart(prompt);
  chart.Click(ChartBox::PhaseQ2);
  chart.Click(ChartBox::PhaseQ3);
  prompt.ExpectQuestion(kClearsSecond.text, PromptAnswer::No);
  chart.Click(ChartBox::PhaseQ2);
  EXPECT_EQ(chart.Answers(), (ChartAnswers{true, true, false, false, false}));
}

}  // namespace
}  // namespace tremlo
