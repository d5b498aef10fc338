// The verification of a project of 20 adjusted waves of 8,192 samples and 300 planes. The measure is the
// sweeps that it has to make, taken in turn with each run: both shares of the machine change alike.

#include "LargeDesign.h"
#include "core/verify/VerifyProject.h"
#include "numeric/waves/ResponseSpectrum.h"

#include <benchmark/benchmark.h>
#include <ctime>
#include <string>

namespace tremlo {
namespace {

constexpr double kMostOfSweeps = 1.1;
/// Of the processor: both run on one thread, and what else the machine does is not theirs.
template <class Work>
double Seconds(Work work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void VerifyLargeProject(benchmark::State& state) {
  const LargeDesign project;
  if (VerifyProject(project.doc).outcome != VerifyOutcome::Equal) state.SkipWithError("not equal");
  double verifySeconds = 0.0;
  double sweepSeconds = 0.0;
  std::vector<double> maxima;
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t i = 0; i < project.sweeps.size(); ++i) {
      const CSeismicWave& wave = project.doc.seedWaves.At(i);
      const double df = FrequencyStep(wave.adjustedAcc.size(), wave.timeStep);
      sweepSeconds += Seconds([&] {
        for (int sweep = 0; sweep < project.sweeps[i]; ++sweep)
          ComputeOscillatorMaxima(maxima, wave.adjustedAcc, df, df, wave.timeStep);
      });
    }
    const double seconds = Seconds([&] { benchmark::DoNotOptimize(VerifyProject(project.doc)); });
    state.SetIterationTime(seconds);
    verifySeconds += seconds;
  }
  const double ratio = verifySeconds / sweepSeconds;
  state.counters["sweeps_ratio"] = ratio;
  if (ratio > kMostOfSweeps) state.SkipWithError((std::to_string(ratio) + " times the sweeps").c_str());
}
BENCHMARK(VerifyLargeProject)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
