// The report of a project of 20 waves of 8,192 samples and 300 planes, beside its verification, which it
// carries.

#include "BenchPlatform.h"
#include "LargeDesign.h"
#include "ProgramFolder.h"
#include "core/verify/VerifyProject.h"
#include "window/graphs/JapaneseFont.h"
#include "window/report/ReportPages.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <string>

namespace tremlo {
namespace {

constexpr double kMostSeconds = 2.0;

void ReportOfALargeProject(benchmark::State& state) {
  const LargeDesign project;
  const VerifyReport check = VerifyProject(project.doc);
  qsizetype bytes = 0;
  double seconds = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    const auto pdf = ReportPdf(project.doc, GatherReportFacts(project.doc, QDate(2026, 1, 2)), check);
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    bytes = pdf ? pdf->size() : 0;
  }
  state.counters["KiB"] = static_cast<double>(bytes) / 1024.0;
  seconds /= static_cast<double>(state.iterations());
  if (bytes == 0) state.SkipWithError("no report");
  if (seconds > kMostSeconds) state.SkipWithError((std::to_string(seconds) + " s").c_str());
}
BENCHMARK(ReportOfALargeProject)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  const tremlo::ProgramFolder folder;
  tremlo::PaintOffscreenByDefault(folder.Path());
  const QApplication application(argc, argv);
  tremlo::InstallJapaneseFonts();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
