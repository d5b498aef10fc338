#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace tremlo {

inline constexpr std::size_t kLongWaveSamples = 65536;
inline constexpr double kLongWaveStep = 0.005;  ///< s

/// A record of 65,536 samples (gal): noise under an envelope, which fills a graph as an earthquake does.
inline std::vector<double> LongWave() {
  std::mt19937 engine(1);
  std::normal_distribution<double> noise(0.0, 20.0);
  std::vector<double> acc;
  for (std::size_t i = 0; i < kLongWaveSamples; ++i) {
    const double t = static_cast<double>(i) * kLongWaveStep;
    acc.push_back(noise(engine) * t * std::exp(-t / 60.0));
  }
  return acc;
}

}  // namespace tremlo
