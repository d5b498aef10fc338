// How long each step of the short route keeps the event loop from turning, with a wave of 65,536 samples and
// a target of 32,768 periods. Prints a table.

#include "LongWave.h"
#include "WalkSteps.h"
#include "WindowDriver.h"
#include "core/waves/WaveFile.h"
#include "core/waves/WaveFileQuestion.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/Spread7.h"
#include "window/shell/DlgTop.h"
#include "window/shell/FileDialogBoxes.h"
#include "window/shell/MessageBoxPrompt.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <cmath>

namespace tremlo {
namespace {

void WriteFiles(const ProgramFolder& folder) {
  const std::vector<double> acc = LongWave();
  std::vector<double> times, periods, values;
  for (std::size_t i = 0; i < acc.size(); ++i) times.push_back(static_cast<double>(i) * kLongWaveStep);
  ComputeResponseSpectrum(acc, periods, values, kLongWaveStep);
  for (double& value : values) value *= 1.5;
  if (!WriteCsv(folder.Path("wave.csv"), QStringLiteral("長い波"), kLongWaveStep, times, acc) ||
      !WriteCsv(folder.Path("target.csv"), QStringLiteral("目標"), kLongWaveStep, periods, values))
    std::abort();
}

/// A measurement counts only if the step has done its work.
void Expect(bool done, const char* what) {
  if (!done) qFatal("The steps have not led to: %s", what);
}

/// The route with its files, step by step.
class Route {
 public:
  explicit Route(const ProgramFolder& folder, const ServiceSettings& services)
      : m_folder(folder), m_window(folder, services) {}

  void Run() {
    m_window.BeginRound();
    RegisterWave();
    EditSamples();
    SetTarget();
    Visualize();
    SwitchScreens();
    KeepProject();
    OpenDialogs();
  }
  void Print() const { m_window.Print(); }

 private:
  void RegisterWave();
  void EditSamples();
  void PasteSamples();
  void SetTarget();
  void Visualize();
  void SwitchScreens();
  void KeepProject();

  void Read(const char* step, const char* file);
  void Save(const char* step, const char* button);
  void OpenDialogs();
  /// What is done on every screen with its graph: pointer, picture, settings, another size of the window.
  void WorkGraph(const char* pointer, const char* resize, const char* settings);
  void Scroll(const char* step, const char* grid);
  void TypeCell(const char* step, const char* grid);
  void EnterText(const char* step, const char* edit, const char* text);
  const CSeismicWave& Wave() { return m_window.Doc().seedWaves.At(0); }
  CSpread7& SelectCell(const char* grid, int row, int column);

  const ProgramFolder& m_folder;
  WindowDriver m_window;
};

void Route::Read(const char* step, const char* file) {
  m_window.nextFile = m_folder.Path(file);
  m_window.Do(step, [&] { m_window.PressButton("readButton"); });
}

void Route::Save(const char* step, const char* button) {
  m_window.nextFile = m_folder.Path("out.csv");
  m_window.Do(step, [&] { m_window.PressButton(button); });
}

void Route::WorkGraph(const char* pointer, const char* resize, const char* settings) {
  auto& graph = m_window.Find<GraphView>("graph");
  for (int i = 1; i < 20; ++i)
    m_window.Do(pointer, [&] { m_window.MovePointer(graph, {graph.width() * i / 20, graph.height() / 2}); });
  for (const QSize size : {QSize(1000, 700), QSize(1400, 900), QSize(1200, 800)})
    m_window.Do(resize, [&] { m_window.Frame().resize(size); });
  m_window.DoWithDialog(
      settings, [&] { m_window.PressButton("settingsButton"); },
      [&](QWidget* dialog) {
        for (QCheckBox* const check : dialog->findChildren<QCheckBox*>())
          for (int i = 0; i < 2; ++i) m_window.Click(*check);
      });
}

void Route::Scroll(const char* step, const char* grid) {
  CSpread7& shown = m_window.Find<CSpread7>(grid);
  for (int i = 0; i < 5; ++i) m_window.Do(step, [&] { m_window.Wheel(*shown.viewport(), 3); });
  QScrollBar& bar = *shown.verticalScrollBar();
  for (int i = 0; i < 5; ++i) m_window.Do(step, [&] { bar.setValue(bar.maximum() * i / 5); });
  SelectCell(grid, 1, 2);
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_Down})
    m_window.Do(step, [&] { m_window.Key(key); });
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home})
    m_window.Do(step, [&] { m_window.Key(key, Qt::ControlModifier); });
}

CSpread7& Route::SelectCell(const char* grid, int row, int column) {
  CSpread7& shown = m_window.Find<CSpread7>(grid);
  shown.setFocus();
  shown.SelectCell(row, column);
  return shown;
}

void Route::TypeCell(const char* step, const char* grid) {
  SelectCell(grid, 100, 2);
  for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Period, Qt::Key_5, Qt::Key_Return})
    m_window.Do(step, [&] { m_window.Key(key); });
}

void Route::EnterText(const char* step, const char* edit, const char* text) {
  auto& field = m_window.Find<QLineEdit>(edit);
  m_window.Do(step, [&] { m_window.Click(field); });
  m_window.Do(step, [&] { m_window.Key(Qt::Key_A, Qt::ControlModifier); });
  for (const char* letter = text; *letter; ++letter)
    m_window.Do(step, [&] { QTest::keyClick(&field, *letter); });
  m_window.Do(step, [&] { m_window.Key(Qt::Key_Tab); });
}

void Route::RegisterWave() {
  Read("registration: open a wave", "wave.csv");
  Expect(Wave().acc.size() == kLongWaveSamples, "all samples are read");
  WorkGraph("registration, time: pointer", "registration, time: resize", "registration, time: settings");
  m_window.Do(
      "registration: first spectrum", [&] { m_window.PressButton("specButton"); }, StepKind::Spectrum);
  Expect(Wave().spectrumValid, "the spectrum is computed");
  WorkGraph("registration, spectrum: pointer", "registration, spectrum: resize",
            "registration, spectrum: settings");
  m_window.Do("registration: switch to Fourier", [&] { m_window.PressButton("fourierButton"); });
  WorkGraph("registration, Fourier: pointer", "registration, Fourier: resize",
            "registration, Fourier: settings");
  TypeCell("registration, Fourier: type a sample", "sampleGrid");
  m_window.Do("registration: switch to time", [&] { m_window.PressButton("timeButton"); });
  m_window.Do("registration: copy the picture", [&] { m_window.PressButton("copyButton"); });
  EnterText("registration: type the name", "nameEdit", "wave");
  EnterText("registration: type the time step", "timeStepEdit", "0.01");
  Expect(Wave().timeStep == 0.01 && Wave().acc[99] == 12.5, "what is typed is taken");
}

void Route::EditSamples() {
  Scroll("registration: scroll", "sampleGrid");
  TypeCell("registration: type a sample", "sampleGrid");
  SelectCell("sampleGrid", 100, 2);
  m_window.Do("registration: insert and delete a row", [&] { m_window.Key(Qt::Key_Insert); });
  m_window.Do("registration: insert and delete a row", [&] { m_window.Key(Qt::Key_Delete); });
  QApplication::clipboard()->setText(QStringLiteral("12.5"));
  m_window.Do("registration: paste a sample", [&] { m_window.Key(Qt::Key_V, Qt::ControlModifier); });
  PasteSamples();
}

void Route::PasteSamples() {
  SelectCell("sampleGrid", 1, 2).selectAll();
  const auto control = [&](const char* step, Qt::Key key) {
    m_window.Do(step, [&] { m_window.Key(key, Qt::ControlModifier); });
  };
  control("registration: copy all samples", Qt::Key_C);
  control("registration: cut all samples", Qt::Key_X);
  Expect(!std::isfinite(Wave().acc[0]), "all samples are cut");
  SelectCell("sampleGrid", 1, 1);
  control("registration: paste all samples", Qt::Key_V);
  Expect(Wave().acc.size() == kLongWaveSamples, "all samples are pasted");
}

void Route::SetTarget() {
  m_window.Do("pane: to the target", [&] { m_window.PressStep(FlowStep::RespAdjustSpectrum); });
  Read("target: open a spectrum", "target.csv");
  WorkGraph("target: pointer", "target: resize", "target: settings");
  Scroll("target: scroll", "spectrumGrid");
  TypeCell("target: type a value", "spectrumGrid");
  EnterText("target: type the name", "nameEdit", "target");
  SelectCell("spectrumGrid", 1, 1).selectAll();
  m_window.Do("target: copy all", [&] { m_window.Key(Qt::Key_C, Qt::ControlModifier); });
  SelectCell("spectrumGrid", 1, 1);
  m_window.Do("target: paste all", [&] { m_window.Key(Qt::Key_V, Qt::ControlModifier); });
  m_window.DoWithDialog(
      "menu: settings of the adjustment", [&] { m_window.Frame().Menu()->adjustSettings->trigger(); },
      [](QWidget*) { QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1")); });
}

void Route::Visualize() {
  // Any deviation will do: the run ends behind its first sweep, with a result.
  m_window.Doc().adjustTolerancePercent = 100.0;
  m_window.Do(
      "pane: to the visualization, with its run", [&] { m_window.PressStep(FlowStep::RespVisualization); },
      StepKind::ModalRun);
  Expect(Wave().adjusted, "an adjusted wave");
  WorkGraph("visualization, time: pointer", "visualization, time: resize", "visualization, time: settings");
  m_window.Do(
      "visualization: first spectra", [&] { m_window.PressButton("specButton"); }, StepKind::Spectrum);
  WorkGraph("visualization, spectra: pointer", "visualization, spectra: resize",
            "visualization, spectra: settings");
  Expect(Wave().spectrumValid, "the spectrum of the seed wave");
  m_window.Do("visualization: switch to Fourier", [&] { m_window.PressButton("fourierButton"); });
  WorkGraph("visualization, Fourier: pointer", "visualization, Fourier: resize",
            "visualization, Fourier: settings");
  for (const char* const check : {"seedCheck", "adjustedCheck"})
    for (int i = 0; i < 2; ++i)
      m_window.Do("visualization, Fourier: hide and show a curve", [&] { m_window.PressButton(check); });
  m_window.Do("visualization: switch to time", [&] { m_window.PressButton("timeButton"); });
  Save("visualization: export the seed wave", "exportSeedButton");
  Save("visualization: export the adjusted wave", "exportAdjustedButton");
}

void Route::SwitchScreens() {
  for (int i = 0; i < 2; ++i) {
    m_window.Do("pane: back to the wave", [&] { m_window.PressStep(FlowStep::RespOrigSeismicWave); });
    m_window.Do("pane: back to the target", [&] { m_window.PressStep(FlowStep::RespAdjustSpectrum); });
    m_window.Do("pane: back to the visualization", [&] { m_window.PressStep(FlowStep::RespVisualization); });
  }
}

void Route::KeepProject() {
  MainMenu& menu = *m_window.Frame().Menu();
  m_window.nextFile = m_folder.Path("project.trml");
  m_window.Do("menu: save the project", [&] { menu.saveProjectAs->trigger(); });
  m_window.Do("menu: open the project", [&] { menu.openProject->trigger(); });
  Expect(Wave().adjustedAcc.size() == kLongWaveSamples, "the project is read");
  m_window.Do("menu: new project", [&] { menu.newProject->trigger(); });
}

void Route::OpenDialogs() {
  const auto nothing = [](QWidget*) {};
  m_window.DoWithDialog(
      "dialog: about the program", [&] { m_window.Frame().Menu()->about->trigger(); }, nothing);
  m_window.DoWithDialog(
      "dialog: top screen", [&] { CDlgTop::Ask(&m_window.Frame()); }, nothing);
  m_window.DoWithDialog(
      "dialog: a question", [] { MessageBoxPrompt().Ask(QStringLiteral("質問")); }, nothing);
  m_window.DoWithDialog(
      "dialog: choice of a file",
      [&] { FileDialogBoxes(m_window.Doc()).AskOpenPath(WaveFileToRead(QStringLiteral("読込"))); }, nothing);
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  return tremlo::WalkSteps<tremlo::Route>(argc, argv, tremlo::WriteFiles);
}
