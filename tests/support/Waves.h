#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

namespace tremlo::test {

/// Noise in gal that is the same on every machine: `seed` chooses the wave.
inline std::vector<double> Noise(std::size_t count, std::uint64_t seed, double size = 200.0) {
  std::vector<double> acc(count);
  std::uint64_t state = 88172645463325252ULL ^ (seed * 0x9E3779B97F4A7C15ULL);
  for (double& a : acc) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    a = (static_cast<double>(state >> 11) * 0x1p-53 - 0.5) * 2.0 * size;
  }
  return acc;
}

/// Noise under an envelope that rises and decays as a record does.
inline std::vector<double> RecordLike(std::size_t count, std::uint64_t seed) {
  std::vector<double> acc = Noise(count, seed);
  for (std::size_t i = 0; i < count; ++i) {
    const double t = static_cast<double>(i) / static_cast<double>(count);
    acc[i] *= t * std::exp(1.0 - 6.0 * t) * 4.0;
  }
  return acc;
}

/// The same without its mean, which no adjustment keeps: twice its spectrum is met by one correction.
inline std::vector<double> CenteredRecord(std::size_t count, std::uint64_t seed) {
  std::vector<double> acc = RecordLike(count, seed);
  double mean = 0.0;
  for (const double a : acc) mean += a;
  mean /= static_cast<double>(count);
  for (double& a : acc) a -= mean;
  return acc;
}

}  // namespace tremlo::test
