// Prints the time of the response sweep in each of its variants, one line each: name, nanoseconds per step of one
// oscillator. The smallest of many short runs in turn, so that what else the machine does hardly shows.

#include "numeric/waves/OscillatorSweep.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

using tremlo::SweepVariant;

struct Timing {
  const char* name;
  SweepVariant variant;
  double least = std::numeric_limits<double>::infinity();
};

double NanosecondsPerStep(SweepVariant variant, const std::vector<double>& acc) {
  constexpr double kTimeStep = 0.005;
  const double df = (1.0 / static_cast<double>(acc.size())) / kTimeStep;
  std::vector<double> maxima;
  const auto start = std::chrono::steady_clock::now();
  SweepMaxima(variant, maxima, acc, df, df, kTimeStep);
  const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
  return time.count() / (static_cast<double>(maxima.size()) * static_cast<double>(acc.size() - 1));
}

}  // namespace

int main() {
  std::vector<double> acc(1024);
  std::uint64_t state = 88172645463325252ULL;
  for (double& value : acc) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    value = (static_cast<double>(state >> 11) * 0x1p-53 - 0.5) * 500.0;
  }
  std::array timings{Timing{"plain", SweepVariant::Plain}, Timing{"sse2", SweepVariant::Sse2},
                     Timing{"avx2", SweepVariant::Avx2}, Timing{"avx512", SweepVariant::Avx512}};
  for (int round = 0; round < 400; ++round)
    for (Timing& timing : timings)
      if (IsSweepVariantAvailable(timing.variant))
        timing.least = std::min(timing.least, NanosecondsPerStep(timing.variant, acc));
  for (const Timing& timing : timings)
    if (IsSweepVariantAvailable(timing.variant)) std::printf("%s %.6f\n", timing.name, timing.least);
}
