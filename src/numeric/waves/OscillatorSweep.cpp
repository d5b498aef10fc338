#include "numeric/waves/OscillatorSweep.h"

#include <algorithm>
#include <array>
#include <cmath>

#ifdef TREMLO_VECTOR_SWEEP
#include "numeric/waves/SweepLanes.h"

#include <xmmintrin.h>
#endif

namespace tremlo {

namespace {

#ifdef TREMLO_VECTOR_SWEEP

/// Subnormal numbers count as 0 while this lives; the processor's mode is put back after it.
class FlushSubnormals {
 public:
  FlushSubnormals() : m_saved(_mm_getcsr()) { _mm_setcsr(m_saved | kFlushToZero | kDenormalsAreZero); }
  ~FlushSubnormals() { _mm_setcsr(m_saved); }
  FlushSubnormals(const FlushSubnormals&) = delete;
  FlushSubnormals& operator=(const FlushSubnormals&) = delete;

 private:
  static constexpr unsigned kFlushToZero = 0x8000;
  static constexpr unsigned kDenormalsAreZero = 0x0040;
  unsigned m_saved;
};

using BlockFunction = void (*)(const double* rows, const double* acc, std::size_t count, double timeStep,
                               double* peaks);

struct Lanes {
  BlockFunction run;
  std::size_t width;
};

Lanes LanesOf(SweepVariant variant) {
  switch (variant) {
    case SweepVariant::Avx512:
      return {lanes::SweepBlockAvx512, lanes::kBlockAvx512};
    case SweepVariant::Avx2:
      return {lanes::SweepBlockAvx2, lanes::kBlockAvx2};
    default:
      return {lanes::SweepBlockSse2, lanes::kBlockSse2};
  }
}

/// Runs `width` oscillators at a time. The last block is filled up with copies of its last oscillator.
template <class FrequencyOf>
void SweepBlocks(const Lanes& lanes, std::vector<double>& maxima, const std::vector<double>& acc,
                 double timeStep, FrequencyOf frequencyOf, const SweepProgress& progress) {
  alignas(64) std::array<double, lanes::kRows * lanes::kLargestBlock> rows{};
  std::array<double, lanes::kLargestBlock> peaks{};
  for (std::size_t begin = 0; begin < maxima.size(); begin += lanes.width) {
    const std::size_t used = std::min(lanes.width, maxima.size() - begin);
    for (std::size_t lane = 0; lane < lanes.width; ++lane) {
      const OscillatorCoefficients o = OscillatorAt(frequencyOf(begin + std::min(lane, used - 1)), timeStep);
      const auto put = [&](lanes::Row row, double value) { rows[row * lanes.width + lane] = value; };
      put(lanes::kA11, o.a11);
      put(lanes::kA12, o.a12);
      put(lanes::kA21, o.a21);
      put(lanes::kA22, o.a22);
      put(lanes::kB11, o.b11);
      put(lanes::kB12, o.b12);
      put(lanes::kB21, o.b21);
      put(lanes::kB22, o.b22);
      put(lanes::kTwoC, o.twoC);
      put(lanes::kW, o.w);
    }
    lanes.run(rows.data(), acc.data(), acc.size(), timeStep, peaks.data());
    std::copy_n(peaks.begin(), used, maxima.begin() + static_cast<std::ptrdiff_t>(begin));
    if (progress) progress(begin + used, maxima.size());
  }
}

#else

/// No mode to change on this kind of processor.
class FlushSubnormals {};

#endif

}  // namespace

OscillatorCoefficients OscillatorAt(double frequency, double timeStep) {
  const double pi = 4.0 * std::atan(1.0);
  const double omega = 2.0 * pi * frequency;
  const double damped = std::sqrt(0.9975) * omega;
  const double c = 0.05 * omega;
  const double e = std::exp(-c * timeStep);
  const double w = std::pow(omega, 2.0);
  const double theta = damped * timeStep;
  const double s = std::sin(theta);
  const double cosine = std::cos(theta);
  const double a = -(c * s) - damped * cosine;
  const double b = damped * s - c * cosine;
  // p and q: integrals of exp(-c·s)·sin and exp(-c·s)·cos over a step; r: of s·exp(-c·s)·sin.
  const double p = (e * a + damped) / w;
  const double q = (e * b + c) / w;
  const double r = (c * p + e * timeStep * a + damped * q) / w;
  // The plus sign before damped·p is the method's own; see the header.
  const double t = (c * q + e * timeStep * b + damped * p) / w;
  const double u = p * timeStep - r;

  OscillatorCoefficients o{};
  o.a11 = e * (cosine + (c * s) / damped);
  o.a12 = e * s / damped;
  o.a21 = -w * e * s / damped;
  o.a22 = e * (cosine - (c * s) / damped);
  o.b11 = -r / theta;
  o.b12 = -u / theta;
  o.b21 = (c * r - damped * t) / theta;
  o.b22 = (c * u - damped * (q * timeStep - t)) / theta;
  o.twoC = -2.0 * c;
  o.w = w;
  return o;
}

double OscillatorPeak(const OscillatorCoefficients& oscillator, const double* acc, std::size_t count,
                      double timeStep) {
  const OscillatorCoefficients o = oscillator;
  double x = 0.0;
  double v = -acc[0] * timeStep;
  double peak = 0.0;
  for (std::size_t k = 0; k + 1 < count; ++k) {
    const double a0 = acc[k];
    const double a1 = acc[k + 1];
    const double nextX = o.a11 * x + o.a12 * v + o.b12 * a1 + o.b11 * a0;
    const double nextV = o.a22 * v + o.a21 * x + o.b22 * a1 + o.b21 * a0;
    const double size = std::fabs(o.twoC * nextV - o.w * nextX);
    if (size > peak) peak = size;
    x = nextX;
    v = nextV;
  }
  return peak;
}

bool IsSweepVariantAvailable(SweepVariant variant) {
  if (variant == SweepVariant::Plain) return true;
#ifdef TREMLO_VECTOR_SWEEP
  switch (variant) {
    case SweepVariant::Sse2:
      return true;
    case SweepVariant::Avx2:
      return __builtin_cpu_supports("avx2");
    case SweepVariant::Avx512:
      return __builtin_cpu_supports("avx512f");
    default:
      break;
  }
#endif
  return false;
}

SweepVariant BestSweepVariant() {
  for (const SweepVariant variant : {SweepVariant::Avx512, SweepVariant::Avx2, SweepVariant::Sse2})
    if (IsSweepVariantAvailable(variant)) return variant;
  return SweepVariant::Plain;
}

void SweepMaxima([[maybe_unused]] SweepVariant variant, std::vector<double>& maxima,
                 const std::vector<double>& acc, double firstFrequency, double frequencyStep, double timeStep,
                 const SweepProgress& progress) {
  maxima.assign(acc.size() / 2, 0.0);
  const auto frequencyOf = [&](std::size_t i) {
    return static_cast<double>(i) * frequencyStep + firstFrequency;
  };
  [[maybe_unused]] const FlushSubnormals flush;
#ifdef TREMLO_VECTOR_SWEEP
  if (variant != SweepVariant::Plain && IsSweepVariantAvailable(variant)) {
    SweepBlocks(LanesOf(variant), maxima, acc, timeStep, frequencyOf, progress);
    return;
  }
#endif
  for (std::size_t i = 0; i < maxima.size(); ++i) {
    maxima[i] = OscillatorPeak(OscillatorAt(frequencyOf(i), timeStep), acc.data(), acc.size(), timeStep);
    if (progress) progress(i + 1, maxima.size());
  }
}

}  // namespace tremlo
