#include "core/waves/AdjustRun.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A wave and the spectrum it has, made `factor` times as large: met after one correction, which the second
/// pass finds.
AdjustInput InputFor(double factor, int iterations = 2) {
  AdjustInput input;
  input.timeStep = 0.01;
  input.acc = test::CenteredRecord(256, 6);
  ComputeResponseSpectrum(input.acc, input.periods, input.target, input.timeStep);
  for (double& value : input.target) value *= factor;
  input.iterations = iterations;
  input.tolerance = 1e-6;
  return input;
}

CSeismicWaveSet TwoWaves() {
  CSeismicWaveSet waves;
  waves.Add("a");
  waves.Add("b");
  return waves;
}

TEST(AdjustRun, AWaveIsTakenWithItsBlanksAsZero) {
  CSeismicWave wave;
  wave.timeStep = 0.02;
  wave.acc = {1.0, kBlankSample, -2.0};
  AdjustInput input;
  input.SetWave(wave);
  EXPECT_EQ(input.timeStep, 0.02);
  EXPECT_THAT(input.acc, ElementsAre(1.0, 0.0, -2.0));
}

TEST(AdjustRun, AWaveNeedsSamplesAndATimeStep) {
  AdjustInput input = InputFor(1.0);
  EXPECT_TRUE(input.HasWave());
  for (const double timeStep : {0.0, -0.01, HUGE_VAL, std::nan("")}) {
    input.timeStep = timeStep;
    EXPECT_FALSE(input.HasWave()) << timeStep;
  }
  input = InputFor(1.0);
  input.acc.clear();
  EXPECT_FALSE(input.HasWave());
}

TEST(AdjustRun, ATargetNeedsPeriodsAndValues) {
  AdjustInput input = InputFor(1.0);
  EXPECT_TRUE(input.HasTarget());
  input.periods.clear();
  EXPECT_FALSE(input.HasTarget());
  input = InputFor(1.0);
  input.target.clear();
  EXPECT_FALSE(input.HasTarget());
}

TEST(AdjustRun, ARunThatConvergesHasWaveSpectrumAndFigures) {
  const AdjustInput input = InputFor(2.0);
  const AdjustResult result = RunAdjustment(input);
  ASSERT_TRUE(result.converged);
  EXPECT_EQ(result.passes, 2);
  EXPECT_EQ(result.fit.pass, 1);
  EXPECT_LT(result.fit.deviation, 1e-6);
  EXPECT_EQ(result.acc.size(), 256U);
  std::vector<double> periods;
  std::vector<double> spectrum;
  ComputeResponseSpectrum(result.acc, periods, spectrum, input.timeStep);
  EXPECT_EQ(result.periods, periods);
  EXPECT_EQ(result.spectrum, spectrum);
}

TEST(AdjustRun, ConvergedAtTheFirstSweepIsOnePass) {
  const AdjustResult result = RunAdjustment(InputFor(1.0));
  EXPECT_TRUE(result.converged);
  EXPECT_EQ(result.passes, 1);
}

TEST(AdjustRun, ARunThatDoesNotConvergeKeepsItsFiguresAlone) {
  const AdjustResult result = RunAdjustment(InputFor(2.0, 1));
  EXPECT_FALSE(result.converged);
  EXPECT_EQ(result.passes, 1);
  EXPECT_THAT(result.fit.deviation, testing::DoubleNear(1.0, 1e-9));
  EXPECT_THAT(result.acc, IsEmpty());
  EXPECT_THAT(result.periods, IsEmpty());
  EXPECT_THAT(result.spectrum, IsEmpty());
}

TEST(AdjustRun, WithoutWaveTargetOrPassThereIsNoFigure) {
  AdjustInput noWave = InputFor(1.0);
  noWave.timeStep = 0.0;
  AdjustInput noTarget = InputFor(1.0);
  noTarget.target.clear();
  for (const AdjustInput& input : {noWave, noTarget, InputFor(1.0, 0)}) {
    const AdjustResult result = RunAdjustment(input);
    EXPECT_FALSE(result.converged);
    EXPECT_EQ(result.passes, 0);
    EXPECT_TRUE(std::isnan(result.fit.deviation));
    EXPECT_THAT(result.acc, IsEmpty());
  }
}

TEST(AdjustRun, EachPassIsTold) {
  std::vector<int> passes;
  RunAdjustment(InputFor(2.0), [&](const FitFigures& fit) { passes.push_back(fit.pass); });
  EXPECT_THAT(passes, ElementsAre(0, 1));
}

TEST(PutLongestFirst, ARisingTargetIsReversed) {
  std::vector<double> periods = {0.1, 0.5, 2.0};
  std::vector<double> target = {10.0, 50.0, 20.0};
  PutLongestFirst(periods, target);
  EXPECT_THAT(periods, ElementsAre(2.0, 0.5, 0.1));
  EXPECT_THAT(target, ElementsAre(20.0, 50.0, 10.0));
}

TEST(PutLongestFirst, AFallingTargetAndOneOfEqualEndsStay) {
  std::vector<double> periods = {2.0, 0.5};
  std::vector<double> target = {20.0, 50.0};
  PutLongestFirst(periods, target);
  EXPECT_THAT(periods, ElementsAre(2.0, 0.5));
  EXPECT_THAT(target, ElementsAre(20.0, 50.0));
  periods = {1.0, 2.0, 1.0};
  target = {1.0, 2.0, 3.0};
  PutLongestFirst(periods, target);
  EXPECT_THAT(target, ElementsAre(1.0, 2.0, 3.0));
}

TEST(PutLongestFirst, ValuesKeepTheirPeriodsWhenOneVectorIsLonger) {
  std::vector<double> periods = {0.1, 0.5, 2.0};
  std::vector<double> target = {10.0, 50.0};
  PutLongestFirst(periods, target);
  EXPECT_THAT(periods, ElementsAre(0.5, 0.1));
  EXPECT_THAT(target, ElementsAre(50.0, 10.0));
  target.clear();
  PutLongestFirst(periods, target);
  EXPECT_THAT(periods, IsEmpty());
}

TEST(StoreAdjustment, AResultReachesTheWavesOfItsName) {
  CSeismicWaveSet waves = TwoWaves();
  const AdjustResult result = RunAdjustment(InputFor(2.0));
  StoreAdjustment(waves, "b", result);
  const CSeismicWave& wave = waves.At(1);
  EXPECT_TRUE(wave.adjusted);
  EXPECT_EQ(wave.adjustedAcc, result.acc);
  EXPECT_EQ(wave.adjustedPeriods, result.periods);
  EXPECT_EQ(wave.adjustedSpec, result.spectrum);
  EXPECT_FALSE(wave.adjustChecked);
  EXPECT_TRUE(waves.At(0) == TwoWaves().At(0));
}

TEST(StoreAdjustment, ARunThatFailedChangesNothing) {
  CSeismicWaveSet waves = TwoWaves();
  waves.At(1).adjusted = true;
  waves.At(1).adjustedAcc = {1.0};
  const CSeismicWave before = waves.At(1);
  StoreAdjustment(waves, "b", RunAdjustment(InputFor(2.0, 1)));
  EXPECT_TRUE(waves.At(1) == before);
}

}  // namespace
}  // namespace tremlo
