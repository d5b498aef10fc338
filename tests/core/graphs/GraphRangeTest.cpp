#include "core/graphs/GraphRange.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kMargin = 1.2;

WaveGraphSetting Block(bool automatic, bool logarithmic) {
  WaveGraphSetting block;
  block.autoRange = automatic;
  block.specLog = block.fourierLog = logarithmic;
  return block;
}

void ExpectX(const GraphRange& range, double min, double max, double step) {
  EXPECT_EQ(range.xMin, min);
  EXPECT_EQ(range.xMax, max);
  EXPECT_EQ(range.xStep, step);
}
void ExpectY(const GraphRange& range, double min, double max, double step) {
  EXPECT_EQ(range.yMin, min);
  EXPECT_EQ(range.yMax, max);
  EXPECT_EQ(range.yStep, step);
}

TEST(GraphRange, AFixedRangeIsTheBlocksAsItStands) {
  const WaveGraphSetting block = Block(false, false);
  const DataRange data{40, 0, 2000, -3000};
  ExpectX(WorkingRange(GraphKind::Time, block, data, kMargin), 0, 30, 5);
  ExpectY(WorkingRange(GraphKind::Time, block, data, kMargin), -500, 500, 100);
  ExpectX(WorkingRange(GraphKind::Spectrum, block, data, kMargin), 0, 50, 5);
  ExpectY(WorkingRange(GraphKind::Spectrum, block, data, kMargin), 0, 1200, 200);
  ExpectX(WorkingRange(GraphKind::Fourier, block, data, kMargin), 0, 10, 2);
  ExpectY(WorkingRange(GraphKind::Fourier, block, data, kMargin), 0, 500, 50);
}

TEST(GraphRange, ASpectrumOfFiftyGalReachesToOneHundredAndTwenty) {
  ExpectY(WorkingRange(GraphKind::Spectrum, Block(true, false), {5, 0, 50, 0}, kMargin), 0, 120, 10);
}

TEST(GraphRange, TheUpperLimitFollowsTheDataFromAHundredAndATenth) {
  const auto top = [](double value) {
    return WorkingRange(GraphKind::Fourier, Block(true, false), {5, 0, value, 0}, 1.0).yMax;
  };
  EXPECT_EQ(top(100.0), 100.0);
  EXPECT_EQ(top(100.05), 100.0);
  EXPECT_EQ(top(100.1), 100.1);
  EXPECT_EQ(top(812.5), 812.5);
  EXPECT_EQ(top(kNan), 100.0);
}

TEST(GraphRange, ATimeAxisReachesToTwentySecondsAtLeast) {
  const auto end = [](double value) {
    return WorkingRange(GraphKind::Time, Block(true, true), {value, 0, 0, 0}, kMargin).xMax;
  };
  EXPECT_EQ(end(10.0), 20.0);
  EXPECT_EQ(end(20.05), 20.0);
  EXPECT_EQ(end(20.1), 20.1);
  EXPECT_EQ(end(53.76), 53.76);
}

TEST(GraphRange, TheMarginWidensBothLimitsOfTheValues) {
  ExpectY(WorkingRange(GraphKind::Time, Block(true, false), {10, 0, 200, -300}, kMargin), -360, 240, 100);
  ExpectY(WorkingRange(GraphKind::Time, Block(true, false), {10, 0, 200, -300}, 1.0), -300, 200, 100);
}

TEST(GraphRange, BlankDataLeaveALimitThatIsNotANumber) {
  const GraphRange range = WorkingRange(GraphKind::Time, Block(true, false), {10, 0, kNan, kNan}, kMargin);
  EXPECT_TRUE(std::isnan(range.yMin));
  EXPECT_EQ(range.yMax, 120.0);
}

TEST(GraphRange, ALogarithmicAxisKeepsTheBlocksLimitsAlsoWhenTheOtherFollowsTheData) {
  for (const bool automatic : {false, true}) {
    const WaveGraphSetting block = Block(automatic, true);
    const GraphRange spectrum = WorkingRange(GraphKind::Spectrum, block, {81.92, 0, 812.5, 0}, kMargin);
    EXPECT_TRUE(spectrum.logarithmic);
    ExpectX(spectrum, 0.01, 10, 1);
    EXPECT_EQ(spectrum.yMax, automatic ? 975.0 : 1200.0);
    ExpectX(WorkingRange(GraphKind::Fourier, block, {81.92, 0, 812.5, 0}, kMargin), 0.1, 10, 1);
  }
}

TEST(GraphRange, ATimeAxisIsNeverLogarithmic) {
  EXPECT_FALSE(WorkingRange(GraphKind::Time, Block(true, true), {}, kMargin).logarithmic);
}

TEST(GraphRange, ALogarithmicLimitOfZeroCountsAsOneAndANegativeOneByItsMagnitude) {
  WaveGraphSetting block = Block(true, true);
  block.specLogXMin = 0.0;
  block.specLogXMax = -50.0;
  ExpectX(WorkingRange(GraphKind::Spectrum, block, {}, kMargin), 1, 50, 1);
  block.fourierLogXMin = -0.02;
  block.fourierLogXMax = 0.0;
  ExpectX(WorkingRange(GraphKind::Fourier, block, {}, kMargin), 0.02, 1, 1);
}

TEST(GraphRange, ALinearPeriodAxisThatFollowsTheDataGoesFromZeroToTheLongestPeriod) {
  for (const GraphKind kind : {GraphKind::Spectrum, GraphKind::Fourier}) {
    const GraphRange range = WorkingRange(kind, Block(true, false), {40.96, 0, 0, 0}, kMargin);
    EXPECT_EQ(range.xMin, 0.0);
    EXPECT_EQ(range.xMax, 40.96);
    EXPECT_EQ(range.dataXMin, 0.0);
    EXPECT_EQ(range.dataXMax, 40.96);
    EXPECT_EQ(WorkingRange(kind, Block(true, false), {5, 0, 0, 0}, kMargin).xMax, 20.0);
  }
}

TEST(GraphRange, ALowerLimitSpectrumHasItsShorterPeriodAxis) {
  WaveGraphSetting block = DefaultLowerGraph();
  block.autoRange = block.specLog = 0;
  ExpectX(WorkingRange(GraphKind::Spectrum, block, {}, kMargin), 0, 5, 1);
}

TEST(GraphRange, AnyValueButZeroTurnsASwitchOn) {
  WaveGraphSetting block = Block(true, false);
  block.specLog = 2;
  block.autoRange = -1;
  const GraphRange range = WorkingRange(GraphKind::Spectrum, block, {5, 0, 200, 0}, kMargin);
  EXPECT_TRUE(range.logarithmic);
  EXPECT_EQ(range.yMax, 240.0);
}

TEST(GraphRange, AStepThatCannotDivideCountsAsOne) {
  for (const double bad : {0.0, -5.0, kInf, -kInf, kNan}) {
    EXPECT_EQ(UsableStep(bad), 1.0) << bad;
    WaveGraphSetting block = Block(false, false);
    block.timeXStep = block.timeYStep = bad;
    const GraphRange range = WorkingRange(GraphKind::Time, block, {}, kMargin);
    EXPECT_EQ(range.xStep, 1.0) << bad;
    EXPECT_EQ(range.yStep, 1.0) << bad;
  }
  EXPECT_EQ(UsableStep(1e-300), 1e-300);
}

TEST(GraphRange, AStepStaysWhileItMakesThreeToTwelveIntervals) {
  EXPECT_EQ(StepForSpan(15.0, 5.0), 5.0);
  EXPECT_EQ(StepForSpan(60.0, 5.0), 5.0);
  EXPECT_EQ(StepForSpan(20.0, 5.0), 5.0);
  EXPECT_EQ(StepForSpan(9.0, 3.0), 3.0);
  EXPECT_EQ(StepForSpan(36.0, 3.0), 3.0);
  EXPECT_EQ(StepForSpan(36.1, 3.0), 5.0);
  EXPECT_EQ(StepForSpan(14.9, 5.0), 2.0);
  EXPECT_EQ(StepForSpan(60.1, 5.0), 10.0);
}

TEST(GraphRange, AnotherStepIsTheSmallestRoundOneOfAtMostTwelveIntervals) {
  EXPECT_EQ(StepForSpan(120.0, 200.0), 10.0);
  EXPECT_EQ(StepForSpan(120.1, 200.0), 20.0);
  EXPECT_EQ(StepForSpan(600.0, 7.0), 50.0);
  EXPECT_EQ(StepForSpan(327.68, 5.0), 50.0);
  EXPECT_EQ(StepForSpan(2.4, 50.0), 0.2);
  EXPECT_EQ(StepForSpan(1.2, 50.0), 0.1);
  EXPECT_EQ(StepForSpan(1.21, 50.0), 0.2);
  EXPECT_EQ(StepForSpan(1.2e-8, 50.0), 1e-9);
  EXPECT_EQ(StepForSpan(1.2e20, 50.0), 1e19);
}

TEST(GraphRange, AnAxisWithoutExtentKeepsItsStep) {
  for (const double span : {0.0, -20.0, kInf, kNan}) EXPECT_EQ(StepForSpan(span, 5.0), 5.0) << span;
}

TEST(GraphRange, TheRangeNeverChangesTheBlock) {
  const WaveGraphSetting block = Block(true, false);
  const WaveGraphSetting before = block;
  WorkingRange(GraphKind::Time, block, {400, 0, 9000, -9000}, kMargin);
  EXPECT_EQ(block, before);
}

}  // namespace
}  // namespace tremlo
