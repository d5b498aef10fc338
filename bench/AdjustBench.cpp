// The whole adjustment with the sweep in its widest variant and over the plain loop, the ratio of one
// measurement to one pass, the transform, and the figures of both waves, which a screen computes when it is
// filled.

#include "core/waves/FiguresText.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/AmplitudeAdjust.h"
#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/OscillatorSweep.h"
#include "numeric/waves/ResponseSpectrum.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>

namespace tremlo {
namespace {

struct Job {
  std::vector<double> acc, periods, target;
  double timeStep = 0.0;

  /// The 0.005 s record over the lower limit, of 16,384 samples; with `dense` the target is written out at as
  /// many points as the wave has frequencies.
  explicit Job(bool dense) {
    QString name;
    ReadWaveFile(QStringLiteral(TREMLO_SOURCE_DIR "/samples/waves/hses_2016_n80w_0005.csv"), name, timeStep,
                 acc);
    acc.resize(16384);
    ReadSpectrumFile(QStringLiteral(TREMLO_SOURCE_DIR "/data/LowSpec/h20_h.csv"), name, periods, target);
    std::reverse(periods.begin(), periods.end());
    std::reverse(target.begin(), target.end());
    if (dense) WriteOut(8192);
  }

  void WriteOut(std::size_t points) {
    TargetSpectrum coarse;
    for (const double period : periods) coarse.frequencies.push_back(1.0 / period);
    coarse.amplitudes = target;
    const double first = coarse.frequencies.front();
    const double step = (coarse.frequencies.back() - first) / static_cast<double>(points);
    std::vector<double> finePeriods;
    std::vector<double> fine;
    for (std::size_t i = 0; i < points; ++i) {
      const double f = first + step * static_cast<double>(i);
      const auto above = std::upper_bound(coarse.frequencies.begin() + 1, coarse.frequencies.end() - 1, f);
      const auto j = static_cast<std::size_t>(above - coarse.frequencies.begin());
      const double share =
          (f - coarse.frequencies[j - 1]) / (coarse.frequencies[j] - coarse.frequencies[j - 1]);
      fine.push_back(coarse.amplitudes[j - 1] + share * (coarse.amplitudes[j] - coarse.amplitudes[j - 1]));
      finePeriods.push_back(1.0 / f);
    }
    periods = finePeriods;
    target = fine;
  }
};

void WholeAdjustment(benchmark::State& state, bool dense) {
  const Job job(dense);
  std::vector<double> result;
  bool converged = false;
  for (auto _ : state)
    converged = AdjustAmplitude(100, job.acc, job.periods, job.target, result, 0.05, job.timeStep);
  if (!converged) state.SkipWithError("not converged");
}

/// The plain sweeps that the same run would make, without its transforms: the whole run over the plain loop
/// takes a little longer, so the ratio to this is a lower bound.
void PlainAdjustment(benchmark::State& state) {
  const Job job(false);
  const double df = FrequencyStep(job.acc.size(), job.timeStep);
  std::vector<double> result;
  std::vector<double> maxima;
  int passes = 0;
  AdjustAmplitude(100, job.acc, job.periods, job.target, result, 0.05, job.timeStep,
                  [&](const FitFigures&) { ++passes; });
  for (auto _ : state)
    for (int pass = 0; pass < passes; ++pass)
      SweepMaxima(SweepVariant::Plain, maxima, job.acc, df, df, job.timeStep);
}

void MatchAgainstDenseTarget(benchmark::State& state) {
  const Job job(true);
  TargetSpectrum target;
  for (const double period : job.periods) target.frequencies.push_back(1.0 / period);
  target.amplitudes = job.target;
  const double df = FrequencyStep(job.acc.size(), job.timeStep);
  std::vector<double> response;
  ComputeOscillatorMaxima(response, job.acc, df, df, job.timeStep);
  std::vector<double> ratios;
  for (auto _ : state) benchmark::DoNotOptimize(MatchRatio(target, ratios, response, df));
}

void Transform(benchmark::State& state) {
  Job job(false);
  job.acc.resize(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    FourierTransform transform(job.acc.size());
    transform.Forward(job.acc);
    transform.Backward(transform.spectrum);
    benchmark::DoNotOptimize(transform.spectrum.data());
  }
}

void FiguresOfBothWaves(benchmark::State& state) {
  const Job job(false);
  CSeismicWave wave;
  wave.timeStep = job.timeStep;
  wave.acc = job.acc;
  wave.acc.resize(static_cast<std::size_t>(state.range(0)), 1.0);
  wave.adjustedAcc = wave.acc;
  wave.adjusted = true;
  for (auto _ : state) benchmark::DoNotOptimize(FiguresOf(wave));
}

BENCHMARK_CAPTURE(WholeAdjustment, sparse_target, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeAdjustment, dense_target, true)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainAdjustment)->Unit(benchmark::kMillisecond);
BENCHMARK(MatchAgainstDenseTarget)->Unit(benchmark::kMillisecond);
BENCHMARK(Transform)->Arg(4096)->Arg(16384)->Arg(65536)->Unit(benchmark::kMillisecond);
BENCHMARK(FiguresOfBothWaves)->Arg(65536)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
