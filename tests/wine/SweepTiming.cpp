// Prints the time of the response sweep in each of its variants, one line each: name and number of samples,
// nanoseconds per step of one oscillator. The least time of many sweeps, since whatever else the machine does
// only adds to it; and by the clock, which is read without a call of the system. After such a call, as the
// question for the processor's time, Wine leaves the upper halves of the vector registers in use, and code
// without AVX then takes up to half as long again.

#include "numeric/waves/OscillatorSweep.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

using tremlo::SweepVariant;

std::vector<double> Noise(std::size_t count) {
  std::vector<double> acc(count);
  std::uint64_t state = 88172645463325252ULL;
  for (double& value : acc) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    value = (static_cast<double>(state >> 11) * 0x1p-53 - 0.5) * 500.0;
  }
  return acc;
}

double NanosecondsPerStep(SweepVariant variant, const std::vector<double>& acc) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::seconds kLeast{1};
  constexpr double kTimeStep = 0.005;
  const double df = (1.0 / static_cast<double>(acc.size())) / kTimeStep;
  std::vector<double> maxima;
  const Clock::time_point end = Clock::now() + kLeast;
  double best = std::numeric_limits<double>::infinity();
  for (Clock::time_point start = Clock::now(); start < end;) {
    SweepMaxima(variant, maxima, acc, df, df, kTimeStep);
    const Clock::time_point now = Clock::now();
    best = std::min(best, std::chrono::duration<double, std::nano>(now - start).count());
    start = now;
  }
  return best / (static_cast<double>(maxima.size()) * static_cast<double>(acc.size() - 1));
}

}  // namespace

int main() {
  constexpr struct {
    const char* name;
    SweepVariant variant;
  } kVariants[] = {{"plain", SweepVariant::Plain},
                   {"sse2", SweepVariant::Sse2},
                   {"avx2", SweepVariant::Avx2},
                   {"avx512", SweepVariant::Avx512}};
  for (const int count : {4096, 16384})
    for (const auto& [name, variant] : kVariants)
      if (IsSweepVariantAvailable(variant))
        std::printf("%s/%d %.6f\n", name, count,
                    NanosecondsPerStep(variant, Noise(static_cast<std::size_t>(count))));
}
