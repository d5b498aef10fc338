#include "core/waves/WaveFile.h"
#include "numeric/waves/WaveFigures.h"
#include "support/IndependentFigures.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <numbers>

namespace tremlo {
namespace {

using testing::Each;
using testing::IsNan;

using Values = std::vector<double>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// In the order of the members.
std::array<double, 7> Listed(const WaveFigures& f) {
  return {f.pga, f.pgv, f.pgd, f.endVelocity, f.endDisplacement, f.ariasIntensity, f.duration};
}

/// Each to 1e-9 of its value; what the wave ends with, which may be near 0, to 1e-9 of its peak.
void ExpectAgree(const Values& acc, double timeStep) {
  const WaveFigures figures = ComputeWaveFigures(acc, timeStep);
  const WaveFigures other = test::IndependentFigures(acc, timeStep);
  EXPECT_EQ(figures.pga, other.pga);
  EXPECT_NEAR(figures.pgv, other.pgv, 1e-9 * other.pgv);
  EXPECT_NEAR(figures.pgd, other.pgd, 1e-9 * other.pgd);
  EXPECT_NEAR(figures.endVelocity, other.endVelocity, 1e-9 * other.pgv);
  EXPECT_NEAR(figures.endDisplacement, other.endDisplacement, 1e-9 * other.pgd);
  EXPECT_NEAR(figures.ariasIntensity, other.ariasIntensity, 1e-9 * other.ariasIntensity);
  EXPECT_NEAR(figures.duration, other.duration, 1e-9 * other.duration);
  EXPECT_GT(other.pgd * other.ariasIntensity * other.duration, 0.0);
}

TEST(WaveFigures, OfAConstantAcceleration) {
  const WaveFigures figures = ComputeWaveFigures(Values(101, -100.0), 0.01);
  EXPECT_EQ(figures.pga, 100.0);
  EXPECT_NEAR(figures.pgv, 100.0, 1e-11);
  EXPECT_NEAR(figures.endVelocity, -100.0, 1e-11);
  EXPECT_NEAR(figures.pgd, 50.0, 1e-11);
  EXPECT_NEAR(figures.endDisplacement, -50.0, 1e-11);
  EXPECT_NEAR(figures.ariasIntensity, std::numbers::pi / 1961.33 * 1e4, 1e-11);
  EXPECT_NEAR(figures.duration, 0.9, 1e-12);
}

TEST(WaveFigures, OfOneGravityForOneSecondTheIntensityIsHalfPiTimesThat) {
  const WaveFigures figures = ComputeWaveFigures(Values(1001, 980.665), 0.001);
  EXPECT_NEAR(figures.ariasIntensity, std::numbers::pi / 2.0 * 980.665, 1e-9);
}

TEST(WaveFigures, APeakIsNotWhatIsLeftAtTheEnd) {
  const WaveFigures figures = ComputeWaveFigures(Values{0.0, 20.0, -20.0, -10.0, 5.0}, 0.5);
  // Velocity 0, 5, 5, -2.5, -3.75; displacement 0, 1.25, 3.75, 4.375, 2.8125.
  EXPECT_DOUBLE_EQ(figures.pga, 20.0);
  EXPECT_DOUBLE_EQ(figures.pgv, 5.0);
  EXPECT_DOUBLE_EQ(figures.endVelocity, -3.75);
  EXPECT_DOUBLE_EQ(figures.pgd, 4.375);
  EXPECT_DOUBLE_EQ(figures.endDisplacement, 2.8125);
  // Squares 0, 400, 400, 100, 25; steps 100, 200, 125, 31.25; sum 456.25.
  EXPECT_DOUBLE_EQ(figures.ariasIntensity, std::numbers::pi / 1961.33 * 456.25);
  EXPECT_DOUBLE_EQ(figures.duration, 0.5 * (3.0 + (433.4375 - 425.0) / 31.25) - 0.5 * (22.8125 / 100.0));
}

TEST(WaveFigures, AQuietHeadAndTailCountForNothing) {
  const Values acc = test::RecordLike(700, 3);
  Values padded(400, 0.0);
  padded.insert(padded.end(), acc.begin(), acc.end());
  padded.resize(2048, 0.0);
  ASSERT_EQ(acc.front(), 0.0);
  const WaveFigures figures = ComputeWaveFigures(acc, 0.01);
  const WaveFigures around = ComputeWaveFigures(padded, 0.01);
  EXPECT_EQ(around.pga, figures.pga);
  EXPECT_EQ(around.pgv, figures.pgv);
  EXPECT_NEAR(around.ariasIntensity, figures.ariasIntensity, 1e-4 * figures.ariasIntensity);
  EXPECT_NEAR(around.duration, figures.duration, 1e-3 * figures.duration);
}

/// The level may be reached just where a stretch without energy begins: the first such time counts.
TEST(WaveFigures, TheDurationIsFromTheFirstTimeToTheFirstTime) {
  Values acc(14, 0.0);
  acc[1] = 1.0;           // 1 of 20, at 2 s
  acc[7] = acc[8] = 3.0;  // 18 of 20, at 9 s
  acc[12] = 1.0;
  EXPECT_EQ(ComputeWaveFigures(acc, 1.0).duration, 9.0 - 2.0);
}

TEST(WaveFigures, AgreeWithAnIndependentComputation) {
  ExpectAgree(test::Noise(2, 2), 0.01);
  for (const std::size_t count : {3U, 100U, 4096U, 65536U}) {
    SCOPED_TRACE(count);
    ExpectAgree(test::Noise(count, count), 0.01);
    ExpectAgree(test::CenteredRecord(count, count + 1), 0.005);
    ExpectAgree(test::Noise(count, 7, 1e-3), 1.0 / 3.0);
  }
}

TEST(WaveFigures, OfTheSampleRecordsAgreeToo) {
  for (const char* file : {"elcentro_1940_ns", "hses_2016_n80w_0005_8192", "thz_2016_ns_002"}) {
    SCOPED_TRACE(file);
    QString name;
    double timeStep = 0.0;
    Values acc;
    ASSERT_FALSE(
        ReadWaveFile(test::SourcePath(QStringLiteral("samples/waves/%1.csv").arg(QLatin1String(file))), name,
                     timeStep, acc));
    ExpectAgree(acc, timeStep);
  }
}

/// What exact arithmetic on fractions gives for this file.
TEST(WaveFigures, OfElCentro) {
  QString name;
  double timeStep = 0.0;
  Values acc;
  ASSERT_FALSE(ReadWaveFile(test::SourcePath("samples/waves/elcentro_1940_ns.csv"), name, timeStep, acc));
  const double expected[] = {342.0,
                             38.098,
                             251.23819999999998,
                             2.6159999999999988,
                             251.23819999999998,
                             182.31475625889314,
                             24.435227181696472};
  const auto figures = Listed(ComputeWaveFigures(acc, timeStep));
  for (std::size_t i = 0; i < figures.size(); ++i)
    EXPECT_NEAR(figures[i], expected[i], 1e-9 * expected[i]) << i;
}

TEST(WaveFigures, GrowWithTheWaveAndWithItsTime) {
  const Values acc = test::RecordLike(1000, 5);
  Values twice = acc;
  for (double& a : twice) a *= 2.0;
  const auto one = Listed(ComputeWaveFigures(acc, 0.01));
  const auto larger = Listed(ComputeWaveFigures(twice, 0.01));
  const auto slower = Listed(ComputeWaveFigures(acc, 0.02));
  const double growth[] = {2.0, 2.0, 2.0, 2.0, 2.0, 4.0, 1.0};
  const double stretch[] = {1.0, 2.0, 4.0, 2.0, 4.0, 2.0, 2.0};
  for (std::size_t i = 0; i < one.size(); ++i) {
    EXPECT_DOUBLE_EQ(larger[i], growth[i] * one[i]) << i;
    EXPECT_DOUBLE_EQ(slower[i], stretch[i] * one[i]) << i;
  }
}

TEST(WaveFigures, WithoutASampleThereAreNone) {
  EXPECT_THAT(Listed(ComputeWaveFigures({}, 0.01)), Each(IsNan()));
}

TEST(WaveFigures, OneSampleHasItsAccelerationAlone) {
  EXPECT_EQ(Listed(ComputeWaveFigures(Values{-7.0}, 0.01)), (std::array{7.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
}

TEST(WaveFigures, AWaveOfZerosHasAllFiguresZero) {
  EXPECT_THAT(Listed(ComputeWaveFigures(Values(300, 0.0), 0.01)), Each(0.0));
}

TEST(WaveFigures, ASampleThatIsNotFiniteLeavesNoFigure) {
  for (const double bad : {kNan, kInf, -kInf}) {
    for (const std::size_t at : {0U, 5U, 9U}) {
      Values acc = test::Noise(10, 1);
      acc[at] = bad;
      EXPECT_THAT(Listed(ComputeWaveFigures(acc, 0.01)), Each(IsNan())) << bad << ' ' << at;
    }
  }
}

TEST(WaveFigures, WithoutATimeStepThereIsThePeakAccelerationAlone) {
  for (const double timeStep : {0.0, -0.01, kNan, kInf, -kInf}) {
    auto figures = Listed(ComputeWaveFigures(Values{1.0, -3.0, 2.0}, timeStep));
    EXPECT_EQ(figures[0], 3.0);
    figures[0] = kNan;
    EXPECT_THAT(figures, Each(IsNan())) << timeStep;
  }
}

TEST(WaveFigures, WhatLeavesTheDoublesCannotBeTold) {
  // The squares do, the sums do not.
  const WaveFigures squares = ComputeWaveFigures(Values{0.0, 1e200, -1e200, 0.0}, 0.01);
  EXPECT_EQ(squares.pga, 1e200);
  EXPECT_DOUBLE_EQ(squares.pgv, 5e197);
  EXPECT_NEAR(squares.endVelocity, 0.0, 1e183);
  EXPECT_TRUE(std::isfinite(squares.pgd) && std::isfinite(squares.endDisplacement));
  EXPECT_TRUE(std::isnan(squares.ariasIntensity) && std::isnan(squares.duration));
  // The velocity does, and would seem to come back.
  const WaveFigures sums = ComputeWaveFigures(Values{1e308, 1e308, -1e308, -1e308, 1.0}, 1.0);
  EXPECT_EQ(sums.pga, 1e308);
  EXPECT_TRUE(std::isnan(sums.pgv) && std::isnan(sums.endVelocity));
  EXPECT_TRUE(std::isnan(sums.pgd) && std::isnan(sums.endDisplacement));
  // The displacement alone does.
  const WaveFigures far = ComputeWaveFigures(Values(4, 1e140), 1e160);
  EXPECT_DOUBLE_EQ(far.pgv, 3e300);
  EXPECT_TRUE(std::isnan(far.pgd) && std::isnan(far.endDisplacement));
  // The time itself does.
  const WaveFigures late = ComputeWaveFigures(Values(5, 1e-150), 1e308);
  EXPECT_TRUE(std::isfinite(late.ariasIntensity));
  EXPECT_TRUE(std::isnan(late.duration));
}

}  // namespace
}  // namespace tremlo
