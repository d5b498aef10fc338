#include "core/shell/ChartLook.h"

#include <gmock/gmock.h>
#include <set>

namespace tremlo {
namespace {

using testing::ElementsAre;

constexpr auto kLit = BoxLook::Lit;
constexpr auto kOn = BoxLook::Normal;
constexpr auto kOff = BoxLook::Dimmed;

QuestionChartState After(std::initializer_list<ChartReply> replies) {
  QuestionChart chart;
  for (const ChartReply reply : replies) chart.Reply(reply);
  return chart.State();
}

TEST(ChartLook, AFreshChartLightsItsFirstQuestion) {
  EXPECT_THAT(LooksOf(QuestionChartState(After({}))),
              ElementsAre(kLit, kOff, kOff, kOff, kOff, kOff, kOn, kOn, kOn));
}

TEST(ChartLook, ABoxIsLitBeforeItsPathCounts) {
  QuestionChartState state;
  for (std::size_t box = 0; box < 6; ++box) {
    state = {};
    EXPECT_EQ(LooksOf(state)[box], kOff);
    state.yesPath[box] = true;
    EXPECT_EQ(LooksOf(state)[box], kOn);
    state.focus[box] = true;
    EXPECT_EQ(LooksOf(state)[box], kLit);
    state.yesPath[box] = false;
    EXPECT_EQ(LooksOf(state)[box], kLit);
    for (std::size_t other = 0; other < 6; ++other)
      EXPECT_TRUE(other == box || LooksOf(state)[other] == kOff);
  }
}

TEST(ChartLook, PathsOfAWayThroughTheQuestions) {
  using enum ChartReply;
  EXPECT_THAT(LooksOf(After({No})), ElementsAre(kOn, kOff, kOff, kLit, kOff, kOff, kOn, kOn, kOn));
  EXPECT_THAT(LooksOf(After({No, Yes})), ElementsAre(kOn, kOff, kOff, kOn, kLit, kOff, kOn, kOn, kOn));
  EXPECT_THAT(LooksOf(After({No, Yes, Yes})), ElementsAre(kOn, kOff, kOff, kOn, kLit, kOff, kOn, kOn, kOn));
  EXPECT_THAT(LooksOf(After({No, Yes, Yes, Yes})),
              ElementsAre(kOn, kOff, kOff, kOn, kOn, kLit, kOn, kOn, kOn));
  EXPECT_THAT(LooksOf(After({Yes, Yes, Yes, No, No})),
              ElementsAre(kOn, kOn, kOn, kOff, kOff, kOff, kOn, kOn, kOn));
}

TEST(ChartLook, ClickChartFollowsItsFiveAnswers) {
  const std::array<ChartBox, 5> boxes = {ChartBox::PhaseQ2, ChartBox::PhaseQ3, ChartBox::PhaseQ4,
                                         ChartBox::Amplitude1, ChartBox::Amplitude2};
  for (int answers = 0; answers < 32; ++answers) {
    const ChartAnswers flags = {(answers & 1) != 0, (answers & 2) != 0, (answers & 4) != 0,
                                (answers & 8) != 0, (answers & 16) != 0};
    BoxLooks expected;
    expected.fill(kOn);
    for (std::size_t i = 0; i < boxes.size(); ++i)
      if (!(answers & 1 << i)) expected[static_cast<std::size_t>(boxes[i])] = kOff;
    EXPECT_EQ(LooksOf(flags), expected) << answers;
  }
}

TEST(ChartLook, EveryBoxIsNamedForThoseWhoHearIt) {
  std::set<QString> names;
  for (const ChartBox box : kChartBoxes) {
    EXPECT_FALSE(SpokenName(box).isEmpty());
    EXPECT_FALSE(SpokenName(box).contains(u'\n'));
    names.insert(SpokenName(box));
  }
  EXPECT_EQ(names.size(), kChartBoxes.size());
  EXPECT_EQ(SpokenName(ChartBox::PhaseQ1), "位相特性　Q1　対象ダムに地震計が設置されている");
  EXPECT_EQ(SpokenName(ChartBox::SeedWave), "原種波形");
  EXPECT_EQ(SpokenName(ChartBox::BaseSpectrum), "基準スペクトル");
  EXPECT_EQ(SpokenName(ChartBox::Adjustment), "振幅調整");
}

TEST(ChartLook, TheThreeStatesAreToldInWords) {
  EXPECT_EQ(SpokenState(ChartBox::PhaseQ2, kLit), "現在の質問");
  EXPECT_EQ(SpokenState(ChartBox::PhaseQ2, kOn), "採用中");
  EXPECT_EQ(SpokenState(ChartBox::Amplitude2, kOff), "未採用");
  for (const ChartBox box : {ChartBox::SeedWave, ChartBox::BaseSpectrum, ChartBox::Adjustment})
    EXPECT_EQ(SpokenState(box, kOn), "") << "it is always there";
}

}  // namespace
}  // namespace tremlo
