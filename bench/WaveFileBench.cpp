// Reading and writing a wave of 1,000,000 lines, with the peak memory of the process.

#include "core/waves/WaveFile.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cmath>

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace tremlo {
namespace {

constexpr std::size_t kLines = 1000000;

double PeakMiB() {
#ifdef _WIN32
  return 0.0;
#else
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
#endif
}

struct LongWave {
  std::vector<double> times, acc;
  LongWave() {
    for (std::size_t i = 0; i < kLines; ++i) {
      times.push_back(static_cast<double>(i) * 0.005);
      acc.push_back(std::sin(static_cast<double>(i) * 0.37) * 345.678);
    }
  }
};

void WriteLongWave(benchmark::State& state) {
  const LongWave wave;
  const QTemporaryDir folder;
  for (auto _ : state)
    if (!WriteCsv(folder.filePath(QStringLiteral("w.csv")), QStringLiteral("w"), 0.005, wave.times, wave.acc))
      state.SkipWithError("not written");
  state.counters["peak MiB"] = PeakMiB();
}

void ReadLongWave(benchmark::State& state) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("w.csv"));
  {
    const LongWave wave;
    WriteCsv(path, QStringLiteral("w"), 0.005, wave.times, wave.acc);
  }
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  for (auto _ : state) ReadWaveFile(path, name, timeStep, acc);
  if (acc.size() != kLines) state.SkipWithError("not read whole");
  state.counters["peak MiB"] = PeakMiB();
}

BENCHMARK(ReadLongWave)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteLongWave)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
