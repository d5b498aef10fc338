#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/IndependentSpectrum.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

struct Spectrum {
  std::vector<double> periods;
  std::vector<double> values;
};

Spectrum SpectrumOf(const std::vector<double>& acc, double timeStep) {
  Spectrum spectrum{{9.0}, {9.0}};
  ComputeResponseSpectrum(acc, spectrum.periods, spectrum.values, timeStep);
  return spectrum;
}

/// Compares every `stride`-th oscillator with the independent computation, relative to the value itself.
void ExpectIndependentSpectrum(const std::vector<double>& acc, double timeStep, std::size_t stride,
                               double tolerance) {
  const Spectrum spectrum = SpectrumOf(acc, timeStep);
  for (std::size_t i = 0; i < spectrum.values.size(); i += stride) {
    const double frequency = static_cast<double>(i + 1) * FrequencyStep(acc.size(), timeStep);
    const double expected = test::IndependentPeak(acc, frequency, timeStep, test::LoadIntegral::MethodsOwn);
    EXPECT_NEAR(spectrum.values[i], expected, tolerance * expected)
        << acc.size() << " samples, oscillator " << i;
  }
}

TEST(ResponseSpectrum, EightSamplesGiveFourPeriods) {
  const Spectrum spectrum = SpectrumOf(test::Noise(8, 1), 0.01);
  ASSERT_EQ(spectrum.periods.size(), 4U);
  ASSERT_EQ(spectrum.values.size(), 4U);
  EXPECT_DOUBLE_EQ(spectrum.periods[0], 0.08);
  EXPECT_DOUBLE_EQ(spectrum.periods[1], 0.04);
  EXPECT_DOUBLE_EQ(spectrum.periods[2], 0.08 / 3.0);
  EXPECT_DOUBLE_EQ(spectrum.periods[3], 0.02);
}

TEST(ResponseSpectrum, NineSamplesGiveFourPeriodsOfTheirOwnStep) {
  const Spectrum spectrum = SpectrumOf(test::Noise(9, 1), 0.01);
  ASSERT_EQ(spectrum.periods.size(), 4U);
  for (std::size_t j = 0; j < 4; ++j)
    EXPECT_DOUBLE_EQ(spectrum.periods[j], 0.09 / static_cast<double>(j + 1));
}

TEST(ResponseSpectrum, TheFrequencyStepIsDividedByTheCountFirstAndByTheTimeStepThen) {
  // One division by 3 * 0.005, or the two in the other order, give 66.66666666666667.
  EXPECT_EQ(FrequencyStep(3, 0.005), 0x1.0aaaaaaaaaaaap+6);
  EXPECT_EQ(FrequencyStep(6, 0.02), 0x1.0aaaaaaaaaaaap+3);
  EXPECT_EQ(FrequencyStep(15, 0.01), 0x1.aaaaaaaaaaaaap+2);
  EXPECT_EQ(SpectrumOf(test::Noise(6, 1), 0.02).periods.front(), 1.0 / 0x1.0aaaaaaaaaaaap+3);
}

TEST(ResponseSpectrum, ProgressReachesEveryOscillatorAndChangesNoBit) {
  const std::vector<double> acc = test::Noise(777, 2);
  std::vector<double> periods, values;
  std::vector<std::size_t> told;
  ComputeResponseSpectrum(acc, periods, values, 0.01, [&](std::size_t done, std::size_t count) {
    EXPECT_EQ(count, 388U);
    told.push_back(done);
  });
  ASSERT_GT(told.size(), 1U);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), 388U);
  EXPECT_EQ(values, SpectrumOf(acc, 0.01).values);
}

TEST(ResponseSpectrum, SilenceGivesZeros) {
  EXPECT_EQ(SpectrumOf(std::vector<double>(10, 0.0), 0.01).values, std::vector<double>(5, 0.0));
}

TEST(ResponseSpectrum, AFirstSampleAloneActsAsAnImpulse) {
  std::vector<double> acc(64, 0.0);
  acc[0] = 100.0;
  for (const double value : SpectrumOf(acc, 0.01).values) EXPECT_GT(value, 0.0);
}

TEST(ResponseSpectrum, TheImpulseCountsEvenWhereTheLoadDoesNot) {
  // One step of two samples: the peak is that of the state after it, velocity -a0·dt included.
  const std::vector<double> acc = {100.0, 0.0};
  const double dt = 0.01;
  const Spectrum spectrum = SpectrumOf(acc, dt);
  ASSERT_EQ(spectrum.values.size(), 1U);
  const double expected =
      test::IndependentPeak(acc, FrequencyStep(2, dt), dt, test::LoadIntegral::MethodsOwn);
  EXPECT_NEAR(spectrum.values[0], expected, 1e-12 * expected);
}

TEST(ResponseSpectrum, FewerThanTwoSamplesGiveNothing) {
  EXPECT_TRUE(SpectrumOf({}, 0.01).periods.empty());
  EXPECT_TRUE(SpectrumOf({5.0}, 0.01).values.empty());
}

TEST(ResponseSpectrum, ABadTimeStepGivesNothing) {
  for (const double timeStep :
       {0.0, -0.01, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(SpectrumOf(test::Noise(8, 1), timeStep).periods.empty());
    EXPECT_TRUE(SpectrumOf(test::Noise(8, 1), timeStep).values.empty());
  }
}

TEST(ResponseSpectrum, PaddingChangesTheAxis) {
  std::vector<double> padded = test::Noise(1000, 2);
  const Spectrum bare = SpectrumOf(padded, 0.01);
  padded.resize(1024, 0.0);
  const Spectrum longer = SpectrumOf(padded, 0.01);
  EXPECT_DOUBLE_EQ(bare.periods.front(), 10.0);
  EXPECT_DOUBLE_EQ(longer.periods.front(), 10.24);
}

TEST(ResponseSpectrum, AgreesWithTheIndependentComputationAtEveryOscillator) {
  ExpectIndependentSpectrum(test::RecordLike(1024, 3), 0.01, 1, 1e-10);
}

TEST(ResponseSpectrum, AgreesWithTheIndependentComputationOnALongWave) {
  ExpectIndependentSpectrum(test::RecordLike(16384, 4), 0.005, 67, 1e-10);
}

TEST(ResponseSpectrum, AgreesWithTheIndependentComputationOnAVeryLongWave) {
  ExpectIndependentSpectrum(test::RecordLike(65536, 5), 0.005, 1021, 1e-9);
}

TEST(ResponseSpectrum, AgreesWithTheIndependentComputationOnARecord) {
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  ASSERT_FALSE(ReadWaveFile(test::SourcePath("samples/waves/elcentro_1940_ns.csv"), name, timeStep, acc));
  ASSERT_EQ(acc.size(), 2688U);
  ExpectIndependentSpectrum(acc, timeStep, 11, 1e-10);
}

TEST(ResponseSpectrum, TheRequiredSignMattersMostAtShortPeriods) {
  // Guards the coefficient: with the exact integral in its place the spectrum would differ visibly near 3·dt.
  const std::vector<double> acc = test::RecordLike(512, 6);
  const Spectrum spectrum = SpectrumOf(acc, 0.01);
  double largest = 0.0;
  for (std::size_t i = 150; i < 200; ++i) {
    const double exact = test::IndependentPeak(acc, static_cast<double>(i + 1) * FrequencyStep(512, 0.01),
                                               0.01, test::LoadIntegral::Exact);
    largest = std::max(largest, std::fabs(spectrum.values[i] - exact) / exact);
  }
  EXPECT_GT(largest, 1e-3);
}

}  // namespace
}  // namespace tremlo
