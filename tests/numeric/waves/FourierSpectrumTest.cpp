#include "numeric/waves/FourierSpectrum.h"
#include "support/Waves.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

const long double kPi = std::acos(-1.0L);

struct Spectrum {
  std::vector<double> periods;
  std::vector<double> amplitudes;
};

Spectrum SpectrumOf(const std::vector<double>& acc, double timeStep) {
  Spectrum spectrum{{9.0}, {9.0}};
  ComputeFourierSpectrum(acc, spectrum.periods, spectrum.amplitudes, timeStep);
  return spectrum;
}

/// The sum that defines the transform, term by term in long double.
std::complex<double> DirectCoefficient(const std::vector<double>& samples, std::size_t k) {
  const std::size_t count = samples.size();
  std::complex<long double> sum;
  for (std::size_t n = 0; n < count; ++n) {
    const long double angle =
        -2.0L * kPi * static_cast<long double>((k * n) % count) / static_cast<long double>(count);
    sum += static_cast<long double>(samples[n]) * std::complex<long double>(std::cos(angle), std::sin(angle));
  }
  sum /= static_cast<long double>(count);
  return {static_cast<double>(sum.real()), static_cast<double>(sum.imag())};
}

TEST(FourierSpectrum, PaddedLengthIsTheNextPowerOfTwo) {
  EXPECT_EQ(PaddedLength(0), 0U);
  EXPECT_EQ(PaddedLength(1), 1U);
  EXPECT_EQ(PaddedLength(3), 4U);
  EXPECT_EQ(PaddedLength(1000), 1024U);
  EXPECT_EQ(PaddedLength(1024), 1024U);
  EXPECT_EQ(PaddedLength(1025), 2048U);
}

TEST(FourierSpectrum, ForwardIsTheDefiningSum) {
  for (const std::size_t count : {2U, 4U, 8U, 64U, 256U}) {
    const std::vector<double> samples = test::Noise(count, count);
    FourierTransform transform(count);
    transform.Forward(samples);
    ASSERT_EQ(transform.spectrum.size(), count);
    for (std::size_t k = 0; k < count; ++k)
      EXPECT_LT(std::abs(transform.spectrum[k] - DirectCoefficient(samples, k)), 1e-12) << count << ' ' << k;
  }
}

TEST(FourierSpectrum, ForwardThenBackwardIsTheIdentity) {
  for (std::size_t count = 1; count <= 65536; count *= 4) {
    const std::vector<double> samples = test::Noise(count, 1, 1.0);
    FourierTransform transform(count);
    transform.Forward(samples);
    transform.Backward(transform.spectrum);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_NEAR(transform.spectrum[i].real(), samples[i], 4e-15) << count << ' ' << i;
  }
}

TEST(FourierSpectrum, OneSampleIsItsOwnTransform) {
  FourierTransform transform(1);
  transform.Forward({3.0});
  ASSERT_EQ(transform.spectrum.size(), 1U);
  EXPECT_EQ(transform.spectrum[0], std::complex<double>(3.0, 0.0));
  transform.Backward(transform.spectrum);
  EXPECT_EQ(transform.spectrum[0].real(), 3.0);
}

TEST(FourierSpectrum, NoSampleGivesNothing) {
  FourierTransform transform(0);
  transform.Forward({});
  EXPECT_TRUE(transform.spectrum.empty());
  EXPECT_TRUE(SpectrumOf({}, 0.01).periods.empty());
  EXPECT_TRUE(SpectrumOf({}, 0.01).amplitudes.empty());
  EXPECT_TRUE(SpectrumOf({1.0}, 0.01).periods.empty());
}

TEST(FourierSpectrum, ABadTimeStepGivesNothing) {
  for (const double timeStep : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_TRUE(SpectrumOf({1.0, 2.0}, timeStep).periods.empty());
}

TEST(FourierSpectrum, IsAlwaysTakenOnThePaddedLength) {
  const Spectrum padded = SpectrumOf(test::Noise(1000, 1), 0.01);
  const Spectrum whole = SpectrumOf(test::Noise(1024, 1), 0.01);
  EXPECT_EQ(padded.periods.size(), 512U);
  EXPECT_EQ(padded.periods, whole.periods);
  EXPECT_DOUBLE_EQ(padded.periods.front(), 10.24);
}

TEST(FourierSpectrum, TheAmplitudesOfAPaddedWaveAreTheSumsOverItsSamplesTimesTheStep) {
  for (const std::size_t count : {5U, 1000U}) {
    const std::vector<double> acc = test::Noise(count, 3);
    std::vector<double> padded = acc;
    padded.resize(PaddedLength(count), 0.0);
    const Spectrum spectrum = SpectrumOf(acc, 0.02);
    ASSERT_EQ(spectrum.amplitudes.size(), padded.size() / 2);
    for (std::size_t k = 1; k <= padded.size() / 2; ++k) {
      const double sum = std::abs(DirectCoefficient(padded, k)) * static_cast<double>(padded.size());
      EXPECT_NEAR(spectrum.amplitudes[k - 1], sum * 0.02, 1e-11 * static_cast<double>(count))
          << count << ' ' << k;
    }
  }
}

TEST(FourierSpectrum, TheShortestPeriodIsTwoSteps) {
  EXPECT_DOUBLE_EQ(SpectrumOf(test::Noise(100, 1), 0.01).periods.back(), 0.02);
}

TEST(FourierSpectrum, AConstantWaveHasNoAmplitude) {
  for (const double amplitude : SpectrumOf(std::vector<double>(256, 123.4), 0.01).amplitudes)
    EXPECT_NEAR(amplitude, 0.0, 1e-11);
}

TEST(FourierSpectrum, ACosineStandsAtItsPeriod) {
  constexpr std::size_t kCount = 512;
  constexpr std::size_t kBin = 37;
  std::vector<double> acc(kCount);
  for (std::size_t n = 0; n < kCount; ++n)
    acc[n] = 80.0 * static_cast<double>(std::cos(2.0L * kPi * kBin * static_cast<long double>(n) / kCount));
  const Spectrum spectrum = SpectrumOf(acc, 0.01);
  EXPECT_NEAR(spectrum.amplitudes[kBin - 1], 80.0 * kCount * 0.01 / 2.0, 1e-9);
  EXPECT_DOUBLE_EQ(spectrum.periods[kBin - 1], kCount * 0.01 / kBin);
  EXPECT_NEAR(spectrum.amplitudes[kBin], 0.0, 1e-9);
}

}  // namespace
}  // namespace tremlo
