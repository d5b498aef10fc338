// Prints the processor time of the response sweep in each of its variants, one line each: name and number of
// samples, nanoseconds per step of one oscillator. Processor time, so that what else the machine does hardly
// shows.

#include "numeric/waves/OscillatorSweep.h"

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

using tremlo::SweepVariant;

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

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
  // Long against the ticks of 10 ms by which some systems count it.
  constexpr double kLeast = 1.0;
  constexpr double kTimeStep = 0.005;
  const double df = (1.0 / static_cast<double>(acc.size())) / kTimeStep;
  std::vector<double> maxima;
  const double start = ProcessorSeconds();
  double runs = 0.0;
  double time = 0.0;
  for (; time < kLeast; time = ProcessorSeconds() - start) {
    SweepMaxima(variant, maxima, acc, df, df, kTimeStep);
    runs += 1.0;
  }
  return 1e9 * time / (runs * static_cast<double>(maxima.size()) * static_cast<double>(acc.size() - 1));
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
