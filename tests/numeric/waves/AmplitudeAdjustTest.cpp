#include "core/waves/WaveFile.h"
#include "numeric/waves/AmplitudeAdjust.h"
#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Outcome {
  bool converged = false;
  std::vector<double> result{-1.0};
  std::vector<FitFigures> figures;
};

Outcome Adjust(int iterations, const std::vector<double>& acc, const std::vector<double>& periods,
               const std::vector<double>& target, double tolerance, double timeStep) {
  Outcome run;
  run.converged = AdjustAmplitude(iterations, acc, periods, target, run.result, tolerance, timeStep,
                                  [&](const FitFigures& figures) { run.figures.push_back(figures); });
  return run;
}

/// A wave of zero mean on a power-of-two length with its own spectrum.
struct Wave {
  std::vector<double> acc, periods, spectrum;
  double timeStep = 0.01;

  explicit Wave(std::size_t count, std::uint64_t seed = 1) : acc(test::CenteredRecord(count, seed)) {
    ComputeResponseSpectrum(acc, periods, spectrum, timeStep);
  }
};

/// The definition of the ratios with a scan from the start for each frequency.
double PlainMatchRatio(const TargetSpectrum& t, std::vector<double>& ratios,
                       const std::vector<double>& response, double df) {
  const std::size_t m = t.frequencies.size();
  ratios.assign(response.size(), 0.0);
  double sum = 0.0;
  double used = 0.0;
  for (std::size_t i = 0; i < response.size(); ++i) {
    const double f = static_cast<double>(i + 1) * df;
    if (t.frequencies[0] > f || f > t.frequencies[m - 1]) continue;
    std::size_t j = 0;
    while (j < m && t.frequencies[j] < f) ++j;
    if (j == 0) j = 1;
    if (j >= m) j = m - 1;
    const double wanted = (t.amplitudes[j] - t.amplitudes[j - 1]) /
                              (t.frequencies[j] - t.frequencies[j - 1]) * (f - t.frequencies[j - 1]) +
                          t.amplitudes[j - 1];
    ratios[i] = wanted / response[i];
    sum += std::pow(1.0 - ratios[i], 2.0);
    used += 1.0;
  }
  return std::sqrt(sum / used);
}

void ExpectPlainMatch(const TargetSpectrum& target, const std::vector<double>& response, double df) {
  std::vector<double> ratios;
  std::vector<double> expected;
  const double error = MatchRatio(target, ratios, response, df);
  const double expectedError = PlainMatchRatio(target, expected, response, df);
  EXPECT_EQ(ratios, expected);
  EXPECT_TRUE(error == expectedError || (std::isnan(error) && std::isnan(expectedError)));
}

TEST(MatchRatio, InterpolatesLinearlyInFrequency) {
  std::vector<double> ratios;
  const double error = MatchRatio({{1.0, 3.0}, {10.0, 30.0}}, ratios, {5.0, 5.0, 5.0, 5.0}, 1.0);
  EXPECT_EQ(ratios, (std::vector<double>{2.0, 4.0, 6.0, 0.0}));
  EXPECT_DOUBLE_EQ(error, std::sqrt((1.0 + 9.0 + 25.0) / 3.0));
}

TEST(MatchRatio, TheLimitsOfTheBandBelongToItWithoutTolerance) {
  std::vector<double> ratios;
  MatchRatio({{1.0, std::nextafter(3.0, 0.0)}, {1.0, 1.0}}, ratios, {1.0, 1.0, 1.0}, 1.0);
  EXPECT_EQ(ratios[0], 1.0);
  EXPECT_EQ(ratios[2], 0.0);
}

TEST(MatchRatio, OnlyFrequenciesStrictlyBelowCount) {
  // At the step of the target, from 20 to 40 at 2 Hz, the stretch before it holds.
  for (const TargetSpectrum& target :
       {TargetSpectrum{{1.0, 2.0, 2.0, 3.0}, {10.0, 20.0, 40.0, 50.0}},
        TargetSpectrum{{1.0, 2.0, 2.0, 1.5, 3.0},
                       {10.0, 20.0, 40.0, 45.0, 50.0}}}) {  // scanned from the start
    std::vector<double> ratios;
    MatchRatio(target, ratios, {1.0, 1.0, 1.0}, 1.0);
    EXPECT_EQ(ratios, (std::vector<double>{10.0, 20.0, 50.0}));
  }
}

TEST(MatchRatio, HasTheBitsOfAScanFromTheStart) {
  TargetSpectrum target;
  for (int i = 0; i < 200; ++i) {
    target.frequencies.push_back(0.3 + 0.37 * i);
    target.amplitudes.push_back(100.0 + 50.0 * std::sin(i));
  }
  const std::vector<double> response = test::Noise(1000, 1);
  for (const double df : {0.01, 0.1, 0.37, 1.0}) ExpectPlainMatch(target, response, df);
  TargetSpectrum falling = target;
  std::swap(falling.frequencies[50], falling.frequencies[120]);
  ExpectPlainMatch(falling, response, 0.1);
  TargetSpectrum twice = target;
  twice.frequencies[80] = twice.frequencies[79];
  ExpectPlainMatch(twice, response, 0.1);
}

TEST(MatchRatio, ATargetInTheOtherOrderReachesNothing) {
  std::vector<double> ratios;
  EXPECT_TRUE(std::isnan(MatchRatio({{3.0, 2.0, 1.0}, {1.0, 1.0, 1.0}}, ratios, {1.0, 1.0, 1.0, 1.0}, 1.0)));
  EXPECT_EQ(ratios, std::vector<double>(4, 0.0));
}

TEST(MatchRatio, ASinglePointCountsAtItsOwnFrequencyAlone) {
  std::vector<double> ratios;
  EXPECT_EQ(MatchRatio({{2.0}, {10.0}}, ratios, {5.0, 5.0, 5.0}, 1.0), 1.0);
  EXPECT_EQ(ratios, (std::vector<double>{0.0, 2.0, 0.0}));
}

TEST(MatchRatio, AnEmptyTargetGivesNotANumber) {
  std::vector<double> ratios;
  EXPECT_TRUE(std::isnan(MatchRatio({}, ratios, {1.0, 2.0}, 1.0)));
  EXPECT_EQ(ratios, std::vector<double>(2, 0.0));
}

TEST(MatchRatio, AZeroResponseGivesAnInfiniteRatio) {
  std::vector<double> ratios;
  EXPECT_EQ(MatchRatio({{1.0, 2.0}, {1.0, 1.0}}, ratios, {0.0, 1.0}, 1.0), kInfinity);
  EXPECT_EQ(ratios[0], kInfinity);
}

TEST(AmplitudeAdjust, ATargetEqualToTheResponseConvergesAtOnce) {
  std::vector<double> seed = test::RecordLike(1000, 2);
  std::vector<double> padded = seed;
  padded.resize(1024, 0.0);
  std::vector<double> periods;
  std::vector<double> spectrum;
  ComputeResponseSpectrum(padded, periods, spectrum, 0.01);
  const Outcome run = Adjust(5, seed, periods, spectrum, 1e-12, 0.01);
  EXPECT_TRUE(run.converged);
  EXPECT_EQ(run.figures.size(), 1U);
  EXPECT_EQ(run.result, padded);
}

TEST(AmplitudeAdjust, NoIterationReturnsThePaddedSeed) {
  const std::vector<double> seed = test::RecordLike(1000, 2);
  for (const int iterations : {0, -1}) {
    const Outcome run = Adjust(iterations, seed, {1.0, 0.1}, {100.0, 100.0}, 0.05, 0.01);
    EXPECT_FALSE(run.converged);
    EXPECT_TRUE(run.figures.empty());
    ASSERT_EQ(run.result.size(), 1024U);
    EXPECT_TRUE(std::equal(seed.begin(), seed.end(), run.result.begin()));
    EXPECT_EQ(run.result.back(), 0.0);
  }
}

TEST(AmplitudeAdjust, TwiceTheTargetGivesTwiceTheWave) {
  const Wave wave(1024);
  std::vector<double> target = wave.spectrum;
  for (double& value : target) value *= 2.0;
  const Outcome run = Adjust(1, wave.acc, wave.periods, target, 1e-9, wave.timeStep);
  EXPECT_FALSE(run.converged);
  ASSERT_EQ(run.result.size(), wave.acc.size());
  for (std::size_t i = 0; i < wave.acc.size(); ++i) EXPECT_NEAR(run.result[i], 2.0 * wave.acc[i], 1e-9);
}

TEST(AmplitudeAdjust, PhasesStay) {
  const Wave wave(512, 3);
  const std::vector<double> target(wave.periods.size(), 300.0);
  const Outcome run = Adjust(3, wave.acc, wave.periods, target, 1e-9, wave.timeStep);
  FourierTransform before(512);
  FourierTransform after(512);
  before.Forward(wave.acc);
  after.Forward(run.result);
  for (std::size_t k = 1; k < 256; ++k)
    EXPECT_NEAR(std::arg(after.spectrum[k] / before.spectrum[k]), 0.0, 1e-9) << k;
}

TEST(AmplitudeAdjust, TheMeanIsRemoved) {
  Wave wave(256);
  for (double& a : wave.acc) a += 50.0;
  const Outcome run = Adjust(1, wave.acc, wave.periods, wave.spectrum, 1e-9, wave.timeStep);
  FourierTransform after(256);
  after.Forward(run.result);
  EXPECT_NEAR(after.spectrum[0].real(), 0.0, 1e-12);
}

TEST(AmplitudeAdjust, ANarrowBandRemovesWhatLiesOutside) {
  const Wave wave(1024, 4);
  const Outcome run = Adjust(1, wave.acc, {1.0, 0.1}, {200.0, 200.0}, 1e-9, wave.timeStep);
  FourierTransform after(1024);
  after.Forward(run.result);
  const double df = FrequencyStep(1024, wave.timeStep);
  for (std::size_t k = 1; k <= 512; ++k) {
    const double f = static_cast<double>(k) * df;
    if (f < 1.0 || f > 10.0)
      EXPECT_LT(std::abs(after.spectrum[k]), 1e-13) << k;
    else
      EXPECT_GT(std::abs(after.spectrum[k]), 1e-6) << k;
  }
}

TEST(AmplitudeAdjust, TheResultHasThePaddedLength) {
  for (const std::size_t count : {1000U, 1024U})
    EXPECT_EQ(Adjust(1, test::RecordLike(count, 1), {1.0, 0.1}, {9.0, 9.0}, 0.05, 0.01).result.size(), 1024U);
}

TEST(AmplitudeAdjust, ADeviationOfExactlyTheToleranceIsNotConverged) {
  const Wave wave(256, 5);
  std::vector<double> target = wave.spectrum;
  for (double& value : target) value *= 1.5;
  const double deviation =
      Adjust(1, wave.acc, wave.periods, target, 0.0, wave.timeStep).figures.front().deviation;
  EXPECT_NEAR(deviation, 0.5, 1e-12);
  EXPECT_FALSE(Adjust(1, wave.acc, wave.periods, target, deviation, wave.timeStep).converged);
  EXPECT_TRUE(
      Adjust(1, wave.acc, wave.periods, target, std::nextafter(deviation, 1.0), wave.timeStep).converged);
}

TEST(AmplitudeAdjust, TheCorrectionOfTheLastPassIsNotMeasured) {
  // The doubled target is met after one correction, which only a second pass would notice.
  const Wave wave(256, 6);
  std::vector<double> target = wave.spectrum;
  for (double& value : target) value *= 2.0;
  EXPECT_FALSE(Adjust(1, wave.acc, wave.periods, target, 1e-6, wave.timeStep).converged);
  const Outcome two = Adjust(2, wave.acc, wave.periods, target, 1e-6, wave.timeStep);
  EXPECT_TRUE(two.converged);
  EXPECT_EQ(two.figures.size(), 2U);
}

TEST(AmplitudeAdjust, AMissedBandEndsAsNotConvergedInZeros) {
  const Outcome run = Adjust(3, test::RecordLike(256, 7), {2000.0, 1000.0}, {1.0, 1.0}, 0.05, 0.01);
  EXPECT_FALSE(run.converged);
  ASSERT_EQ(run.figures.size(), 3U);
  EXPECT_TRUE(std::isnan(run.figures.front().deviation));
  EXPECT_EQ(run.result, std::vector<double>(256, 0.0));
}

TEST(AmplitudeAdjust, OddTargetsEndWithoutConverging) {
  const std::vector<double> seed = test::RecordLike(128, 8);
  EXPECT_FALSE(Adjust(2, seed, {}, {}, 0.05, 0.01).converged);
  EXPECT_FALSE(Adjust(2, seed, {0.5}, {100.0}, 0.05, 0.01).converged);
  EXPECT_FALSE(Adjust(2, seed, {0.5, 0.5}, {100.0, 100.0}, 0.05, 0.01).converged);
  EXPECT_FALSE(Adjust(2, seed, {0.1, 1.0}, {100.0, 100.0}, 0.05, 0.01).converged);
  EXPECT_FALSE(Adjust(2, std::vector<double>(128, 0.0), {1.0, 0.1}, {100.0, 100.0}, 0.05, 0.01).converged);
}

TEST(AmplitudeAdjust, ShortWaves) {
  EXPECT_TRUE(Adjust(3, {}, {1.0, 0.1}, {1.0, 1.0}, 0.05, 0.01).result.empty());
  EXPECT_EQ(Adjust(0, {5.0}, {1.0, 0.1}, {1.0, 1.0}, 0.05, 0.01).result, std::vector<double>{5.0});
  EXPECT_EQ(Adjust(1, {5.0}, {1.0, 0.1}, {1.0, 1.0}, 0.05, 0.01).result, std::vector<double>{0.0});
  EXPECT_EQ(Adjust(1, {5.0, 1.0, 2.0}, {1.0, 0.01}, {1.0, 1.0}, 0.05, 0.01).result.size(), 4U);
}

TEST(AmplitudeAdjust, WorksTheSameWithoutAListener) {
  const Wave wave(512, 9);
  const std::vector<double> target(wave.periods.size(), 150.0);
  const Outcome heard = Adjust(4, wave.acc, wave.periods, target, 0.01, wave.timeStep);
  std::vector<double> result;
  EXPECT_EQ(AdjustAmplitude(4, wave.acc, wave.periods, target, result, 0.01, wave.timeStep), heard.converged);
  EXPECT_EQ(result, heard.result);
}

TEST(AmplitudeAdjust, TellsTheLargestMissesWithTheirPeriods) {
  const Wave wave(256, 10);
  std::vector<double> target = wave.spectrum;
  target[20] *= 2.0;
  target[40] /= 4.0;
  const FitFigures fit = Adjust(1, wave.acc, wave.periods, target, 1e-9, wave.timeStep).figures.front();
  EXPECT_NEAR(fit.undershoot, 0.5, 1e-12);
  EXPECT_NEAR(fit.undershootPeriod, wave.periods[20], 1e-12);
  EXPECT_NEAR(fit.overshoot, 3.0, 1e-12);
  EXPECT_NEAR(fit.overshootPeriod, wave.periods[40], 1e-12);
}

struct SampleRun {
  const char* name;
  const char* seed;
  const char* target;
  int convergesAtPass;  ///< -1: does not converge within 100 passes
};

class SampleData : public testing::TestWithParam<SampleRun> {};

TEST_P(SampleData, ConvergesAsItsReadmeSays) {
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  std::vector<double> periods;
  std::vector<double> target;
  ASSERT_FALSE(ReadWaveFile(test::SourcePath(QString::fromUtf8(GetParam().seed)), name, timeStep, acc));
  ASSERT_FALSE(
      ReadSpectrumFile(test::SourcePath(QString::fromUtf8(GetParam().target)), name, periods, target));
  if (periods.front() < periods.back()) {
    std::reverse(periods.begin(), periods.end());
    std::reverse(target.begin(), target.end());
  }
  const Outcome run = Adjust(100, acc, periods, target, 0.05, timeStep);
  EXPECT_EQ(run.converged ? static_cast<int>(run.figures.size()) - 1 : -1, GetParam().convergesAtPass);
}

INSTANTIATE_TEST_SUITE_P(
    Samples, SampleData,
    testing::Values(
        SampleRun{"Short0005OnH20H", "samples/waves/hses_2016_n80w_0005_8192.csv", "data/LowSpec/h20_h.csv",
                  5},
        SampleRun{"Short0005OnH20V", "samples/waves/hses_2016_n80w_0005_8192.csv", "data/LowSpec/h20_v.csv",
                  7},
        SampleRun{"Short0005OnH17", "samples/waves/hses_2016_n80w_0005_8192.csv", "data/LowSpec/h17.csv", 8},
        SampleRun{"ElCentroOnSampleTarget", "samples/waves/elcentro_1940_ns.csv",
                  "samples/spectra/target_sample_005_5s.csv", 8},
        SampleRun{"HsesOnSampleTarget", "samples/waves/hses_2016_n80w_002.csv",
                  "samples/spectra/target_sample_005_5s.csv", 6},
        SampleRun{"ThzOnSampleTarget", "samples/waves/thz_2016_ns_002.csv",
                  "samples/spectra/target_sample_005_5s.csv", 9},
        SampleRun{"UpDownOnSampleTarget", "samples/waves/hses_2016_ud_002.csv",
                  "samples/spectra/target_sample_005_5s.csv", 6},
        SampleRun{"ElCentroOnH20H", "samples/waves/elcentro_1940_ns.csv", "data/LowSpec/h20_h.csv", -1}),
    [](const auto& run) { return run.param.name; });

}  // namespace
}  // namespace tremlo
