// A batch of 200 lines of 8,192 samples on one and on two threads, whole processes, in turn: both shares of
// the machine change alike.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <string>

namespace tremlo {
namespace {

constexpr double kLeastSpeedUp = 1.8;
constexpr int kLines = 200;

/// Whether all lines converge.
bool RunBatch(const QString& table, const QString& out, const char* jobs, double& seconds) {
  const auto start = std::chrono::steady_clock::now();
  QProcess process;  // what it prints is not for the table of the benchmark
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"),
                {QStringLiteral("batch"), table, QStringLiteral("--out"), out, QStringLiteral("--jobs"),
                 QString::fromLatin1(jobs)});
  const bool ended = process.waitForFinished(-1);
  seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void BatchOnTwoThreads(benchmark::State& state) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("jobs.csv"));
  QFile table(path);
  if (!table.open(QIODevice::WriteOnly)) return state.SkipWithError("no table");
  table.write("seed,target\n");
  for (int i = 0; i < kLines; ++i)
    table.write(TREMLO_SOURCE_DIR "/samples/waves/hses_2016_n80w_0005_8192.csv," TREMLO_SOURCE_DIR
                                  "/data/LowSpec/h20_h.csv\n");
  table.close();
  double one = 0.0;
  double two = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    double seconds = 0.0;
    const bool done = RunBatch(path, folder.filePath(QStringLiteral("one")), "1", one) &&
                      RunBatch(path, folder.filePath(QStringLiteral("two")), "2", seconds);
    if (!done) return state.SkipWithError("a line failed");
    state.SetIterationTime(seconds);
    two += seconds;
  }
  state.counters["speedup_ratio"] = one / two;
  if (one / two < kLeastSpeedUp)
    state.SkipWithError(("only " + std::to_string(one / two) + " times as fast").c_str());
}
BENCHMARK(BatchOnTwoThreads)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
