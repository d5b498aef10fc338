// What actions of a user cost on a grid of 65,536 rows, each begun from the event loop and with the painting
// that follows it; beside the time the longest wait between two ticks of a 10 ms timer, and the memory
// gained.

#include "EventLoopWatch.h"
#include "core/graphs/NumberRows.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/Spread7.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <fstream>
#include <limits>

namespace tremlo {
namespace {

constexpr std::size_t kRows = 65536;
constexpr int kTickMs = 10;

double ResidentMiB() {
  double pages = 0.0;
  std::ifstream statm("/proc/self/statm");
  statm >> pages >> pages;
  return pages * 4096.0 / (1024.0 * 1024.0);
}

/// A grid of samples in a window of its own.
class SampleGrid {
 public:
  explicit SampleGrid(std::size_t rows) {
    for (std::size_t i = 0; i < rows; ++i) acc.push_back(345.678 * std::sin(0.37 * static_cast<double>(i)));
    grid.SetMenu(CSpread7::Menu::FullEdit);
    grid.resize(400, 700);
    grid.show();
    grid.activateWindow();
    grid.setFocus();
  }
  void Open() {
    grid.SetData(std::make_shared<NumberRows>(std::vector<NumberRows::Column>{
        {QStringLiteral("時間 (sec)"), nullptr, [](int index) { return 0.005 * index; }, 3, {}},
        {QStringLiteral("加速度 (gal)"), [this] { return &acc; }, nullptr, 6,
         std::numeric_limits<double>::infinity()}}));
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &grid, key, keys);
    QCoreApplication::processEvents();
  }
  /// Before and behind this the clipboard holds the whole list.
  void CopyAll() {
    grid.selectAll();
    grid.Copy();
    grid.SelectCell(1, 2);
  }

  std::vector<double> acc;
  CSpread7 grid;
};

using Step = void (*)(SampleGrid&);

void Nothing(SampleGrid& /*samples*/) {}

/// Opens a list of so many rows and prepares it outside the measurement, then runs the action from the event
/// loop.
void Run(benchmark::State& state, std::size_t rows, Step prepare, Step action) {
  double longest = 0.0;
  double gained = 0.0;
  for (auto _ : state) {
    state.PauseTiming();
    SampleGrid samples(rows);
    EventLoopWatch watch(kTickMs);
    prepare(samples);
    watch.RunTicks(3);
    watch.Forget();
    const double before = ResidentMiB();
    QTimer::singleShot(0, &samples.grid, [&] {
      state.ResumeTiming();
      action(samples);
      samples.grid.repaint();
      state.PauseTiming();
    });
    watch.RunTicks(3);
    longest = std::max(longest, watch.LongestMs());
    gained = std::max(gained, ResidentMiB() - before);
    state.ResumeTiming();
  }
  state.counters["wait ms"] = longest;
  state.counters["MiB"] = gained;
}

void Register(
    const char* name, Step action, Step prepare = [](SampleGrid& s) { s.Open(); }, std::size_t rows = kRows) {
  benchmark::RegisterBenchmark(name, Run, rows, prepare, action)
      ->Iterations(5)
      ->Unit(benchmark::kMillisecond);
}

void RegisterMoves() {
  Register(
      "Open", [](SampleGrid& s) { s.Open(); }, Nothing);
  Register("Refresh", [](SampleGrid& s) { s.grid.Refresh(); });
  Register("PageDown", [](SampleGrid& s) { s.Key(Qt::Key_PageDown); });
  Register("ToTheEnd", [](SampleGrid& s) { s.Key(Qt::Key_End, Qt::ControlModifier); });
  Register("SelectAll", [](SampleGrid& s) { s.Key(Qt::Key_A, Qt::ControlModifier); });
}

void RegisterEdits() {
  const Step atTheTop = [](SampleGrid& s) {
    s.Open();
    s.grid.SelectCell(1, 2);
  };
  const Step withAllCopied = [](SampleGrid& s) {
    s.Open();
    s.CopyAll();
  };
  const Step withAllSelected = [](SampleGrid& s) {
    s.Open();
    s.grid.selectAll();
  };
  Register(
      "EditCell",
      [](SampleGrid& s) {
        for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Return}) s.Key(key);
      },
      atTheTop);
  Register(
      "InsertRow", [](SampleGrid& s) { s.Key(Qt::Key_Insert); }, atTheTop);
  Register(
      "AppendRow", [](SampleGrid& s) { s.Key(Qt::Key_Insert, Qt::ControlModifier); }, atTheTop);
  Register(
      "RemoveRow", [](SampleGrid& s) { s.Key(Qt::Key_Delete); }, atTheTop);
  Register(
      "RemoveAllRows", [](SampleGrid& s) { s.Key(Qt::Key_Delete); }, withAllSelected);
  Register(
      "CopyAll", [](SampleGrid& s) { s.Key(Qt::Key_C, Qt::ControlModifier); }, withAllSelected);
  Register(
      "CutAll", [](SampleGrid& s) { s.Key(Qt::Key_X, Qt::ControlModifier); }, withAllSelected);
  Register(
      "PasteOverAll",
      [](SampleGrid& s) {
        s.grid.SelectCell(1, 1);
        s.Key(Qt::Key_V, Qt::ControlModifier);
      },
      withAllCopied);
  Register(
      "PasteAllBehindTheEnd",
      [](SampleGrid& s) {
        s.grid.SelectCell(static_cast<int>(kRows), 1);
        s.Key(Qt::Key_V, Qt::ControlModifier);
      },
      withAllCopied);
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  tremlo::InstallJapaneseFonts();
  tremlo::RegisterMoves();
  tremlo::RegisterEdits();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
