#include "core/records/EvenTimes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

std::vector<double> Printed(double step, std::size_t count, double unit) {
  std::vector<double> times(count);
  for (std::size_t i = 0; i < count; ++i) times[i] = std::round(static_cast<double>(i) * step / unit) * unit;
  return times;
}

TEST(EvenTimes, StepsPrintedInFullAreExact) {
  const EvenTimes times = FindEvenTimes(Printed(0.01, 1000, 0.01), 0.01);
  EXPECT_EQ(times.kind, EvenTimes::Even);
  EXPECT_EQ(times.timeStep, 0.01);
  EXPECT_EQ(times.doubt, 0.0);
}

TEST(EvenTimes, AStepNextToAPrintedOneIsTheMean) {
  // 0.010005 s in four decimals: 19 of 20 steps read 0.0100.
  const EvenTimes times = FindEvenTimes(Printed(0.010005, 2001, 0.0001), 0.0001);
  EXPECT_EQ(times.kind, EvenTimes::Even);
  EXPECT_NEAR(times.timeStep, 0.010005, 1e-12);
  EXPECT_GT(times.doubt, 0.0);
}

TEST(EvenTimes, RoundedStepsGiveTheirRate) {
  // 128 Hz in four decimals: no single step is 1/128.
  const EvenTimes times = FindEvenTimes(Printed(1.0 / 128.0, 1000, 0.0001), 0.0001);
  EXPECT_EQ(times.kind, EvenTimes::Even);
  EXPECT_EQ(times.timeStep, 1.0 / 128.0);
}

TEST(EvenTimes, TimesThatDoNotRiseInPrintAreRounded) {
  const EvenTimes times = FindEvenTimes(Printed(0.005, 300, 0.01), 0.01);
  EXPECT_EQ(times.kind, EvenTimes::Rounded);
  EXPECT_NEAR(times.timeStep, 0.005, times.doubt);
}

TEST(EvenTimes, AGapOfOneSampleIsFound) {
  std::vector<double> times = Printed(0.01, 300, 0.01);
  for (std::size_t i = 200; i < 300; ++i) times[i] += 0.01;
  const EvenTimes found = FindEvenTimes(times, 0.01);
  EXPECT_EQ(found.kind, EvenTimes::Uneven);
  EXPECT_EQ(found.badRow, 200U);
  EXPECT_EQ(found.timeStep, 0.01);
}

TEST(EvenTimes, AGapInRoundedTimesIsFound) {
  std::vector<double> times = Printed(1.0 / 128.0, 300, 0.0001);
  for (std::size_t i = 100; i < 300; ++i) times[i] += 0.05;
  const EvenTimes found = FindEvenTimes(times, 0.0001);
  EXPECT_EQ(found.kind, EvenTimes::Uneven);
  EXPECT_EQ(found.badRow, 100U);
}

TEST(EvenTimes, AJumpBackIsFound) {
  std::vector<double> times = Printed(0.01, 300, 0.01);
  for (std::size_t i = 150; i < 300; ++i) times[i] -= 1.0;
  const EvenTimes found = FindEvenTimes(times, 0.01);
  EXPECT_EQ(found.kind, EvenTimes::Uneven);
  EXPECT_EQ(found.badRow, 150U);
}

TEST(EvenTimes, AccelerationsAreNoTimes) {
  std::vector<double> values(300);
  for (std::size_t i = 0; i < 300; ++i)
    values[i] = std::round(1000.0 * std::sin(0.1 * static_cast<double>(i))) / 1000.0;
  EXPECT_EQ(FindEvenTimes(values, 0.001).kind, EvenTimes::None);
  EXPECT_EQ(FindEvenTimes(std::vector<double>(300, 0.0), 0.01).kind, EvenTimes::None);
}

}  // namespace
}  // namespace tremlo
