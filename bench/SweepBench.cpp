// The response sweep in each variant against the plain loop, with the results compared bit by bit.

#include "numeric/waves/OscillatorSweep.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tremlo {
namespace {

constexpr double kTimeStep = 0.005;

/// Noise of a strong record's size; `quietFrom` samples on it is silent.
std::vector<double> Noise(std::size_t count, std::size_t quietFrom) {
  std::vector<double> acc(count, 0.0);
  std::uint64_t state = 88172645463325252ULL;
  for (std::size_t i = 0; i < quietFrom; ++i) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    acc[i] = (static_cast<double>(state >> 11) * 0x1p-53 - 0.5) * 500.0;
  }
  return acc;
}

void Sweep(benchmark::State& state, SweepVariant variant, bool quietTail) {
  if (!IsSweepVariantAvailable(variant)) {
    state.SkipWithError("not on this processor");
    return;
  }
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<double> acc = Noise(count, quietTail ? count / 2 : count);
  const double df = (1.0 / static_cast<double>(count)) / kTimeStep;
  std::vector<double> maxima;
  for (auto _ : state) {
    SweepMaxima(variant, maxima, acc, df, df, kTimeStep);
    benchmark::DoNotOptimize(maxima.data());
  }
  const double steps = static_cast<double>(count / 2) * static_cast<double>(count - 1);
  state.counters["steps/s"] =
      benchmark::Counter(steps * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  if (count > 16384) return;
  std::vector<double> plain;
  SweepMaxima(SweepVariant::Plain, plain, acc, df, df, kTimeStep);
  if (std::memcmp(plain.data(), maxima.data(), plain.size() * sizeof(double)) != 0)
    state.SkipWithError("differs from the plain loop");
}

void Register(const char* name, SweepVariant variant) {
  const auto add = [&](const std::string& title, bool quietTail) {
    benchmark::RegisterBenchmark(title.c_str(), Sweep, variant, quietTail)
        ->Arg(4096)
        ->Arg(16384)
        ->Arg(65536)
        ->Unit(benchmark::kMillisecond);
  };
  add(std::string("sweep/") + name, false);
  add(std::string("sweep_quiet_tail/") + name, true);
}

}  // namespace
}  // namespace tremlo

int main(int argc, char** argv) {
  using tremlo::SweepVariant;
  tremlo::Register("plain", SweepVariant::Plain);
  tremlo::Register("sse2", SweepVariant::Sse2);
  tremlo::Register("avx2", SweepVariant::Avx2);
  tremlo::Register("avx512", SweepVariant::Avx512);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
