// From the start of the process to the first screen that is painted and takes input: with a new project,
// whose top screen is confirmed as soon as it is painted, and with a project file that holds a wave of 65,536
// samples. The splash takes no time, and a local service answers the probes at once.

#include "BenchPlatform.h"
#include "LongWave.h"
#include "ProgramFolder.h"
#include "core/project/ProjectFile.h"
#include "support/LocalService.h"
#include "support/TestHome.h"
#include "window/graphs/Screen.h"
#include "window/shell/DlgTop.h"
#include "window/shell/MorvaneApp.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>

namespace tremlo {
namespace {

constexpr char kWindowWord[] = "--window";
constexpr int kPatienceMs = 60000;
constexpr int kProbes = 4;  ///< requests of one start, before those of the first screen for its map

/// Presses OK on the top screen once it is painted, and ends the program once its first screen is.
class FirstPaint : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    if (watched->objectName() == u"dlgTop") {
      QTimer::singleShot(0, watched, [top = static_cast<QDialog*>(watched)] { top->accept(); });
    } else if (dynamic_cast<Screen*>(watched)) {
      // Behind all that the showing of the window has left to the event loop.
      QTimer::singleShot(0, qApp, [] {
        std::puts("ready");
        std::fflush(stdout);
        QCoreApplication::exit(0);
      });
    }
    return false;
  }
};

/// The program as its own main starts it but for its settings: `--window folder service certificates [file]`.
int RunWindow(int argc, char* argv[]) {
  PaintOffscreenByDefault(QString::fromLocal8Bit(argv[2]));
  const QApplication application(argc, argv);
  QStringList words = QCoreApplication::arguments();
  ProgramSettings settings;
  settings.splashMs = 0;
  settings.folders = words.at(2);
  settings.services.hazardAddress = settings.services.tileAddress = words.at(3);
  settings.services.certificateFile = words.at(4);
  settings.services.probePauseMs = 0;
  words.remove(1, 4);
  FirstPaint paint;
  qApp->installEventFilter(&paint);
  CMorvaneApp program(settings, ProgramScreens());
  const std::optional<int> ended = program.Start(words);
  return ended ? *ended : QApplication::exec();
}

QString ProjectWithLongWave(const ProgramFolder& folder) {
  CMorvaneDoc doc(folder.Path());
  doc.ResetDocument();
  doc.guidelineRoute = false;
  doc.seedWaves.Add(QStringLiteral("波"));
  doc.seedWaves.At(0).timeStep = kLongWaveStep;
  doc.seedWaves.At(0).acc = LongWave();
  const QString path = folder.Path("long.trml");
  if (!SaveProject(doc, path)) std::abort();
  return path;
}

void Start(benchmark::State& state, bool withFile) {
  const ProgramFolder folder;
  const test::LocalService service;
  QStringList words{QLatin1String(kWindowWord), folder.Path(), service.Address(QStringLiteral("https")),
                    service.CertificateFile()};
  if (withFile) words << ProjectWithLongWave(folder);
  double longest = 0.0;
  for (auto _ : state) {
    const qsizetype requests = service.Paths().size();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer clock;
    clock.start();
    program.start(QCoreApplication::applicationFilePath(), words);
    const bool ready = program.waitForReadyRead(kPatienceMs) && program.readLine() == "ready\n";
    const double seconds = static_cast<double>(clock.nsecsElapsed()) * 1e-9;
    program.waitForFinished(kPatienceMs);
    if (!ready || program.exitCode() != 0 || service.Paths().size() < requests + kProbes) {
      state.SkipWithError("the window did not come up");
      return;
    }
    state.SetIterationTime(seconds);
    longest = std::max(longest, seconds);
  }
  state.counters["longest ms"] = longest * 1000.0;
}
BENCHMARK_CAPTURE(Start, NewProject, false)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, ProjectFile, true)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  if (argc > 1 && std::strcmp(argv[1], tremlo::kWindowWord) == 0) return tremlo::RunWindow(argc, argv);
  const tremlo::test::TestHome home;
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
