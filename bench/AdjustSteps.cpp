// How long each step of the adjustment and of its result keeps the event loop from turning, with 20 waves of
// 65,536 samples and their spectra of 32,768 periods. Prints a table.

#include "LongWave.h"
#include "WalkSteps.h"
#include "WindowDriver.h"
#include "core/graphs/CurvePalette.h"
#include "core/project/BaseSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/Spread7.h"

#include <QApplication>
#include <QTest>

namespace tremlo {
namespace {

constexpr std::size_t kWaves = 20;

/// A measurement counts only if the step has done its work.
void Expect(bool done, const char* what) {
  if (!done) qFatal("The steps have not led to: %s", what);
}

/// Waves of the same samples at 20 sizes, the first with a result, against the first of them as base.
void FillDocument(CMorvaneDoc& doc) {
  const std::vector<double> acc = LongWave();
  std::vector<double> periods, values;
  ComputeResponseSpectrum(acc, periods, values, kLongWaveStep);
  doc.flowFixed = true;
  for (std::size_t i = 0; i < kWaves; ++i) {
    doc.seedWaves.Add(QStringLiteral("地震波形 %1").arg(i + 1));
    CSeismicWave& wave = doc.seedWaves.At(i);
    const double size = 0.5 + 0.05 * static_cast<double>(i);
    wave.timeStep = kLongWaveStep;
    for (const double sample : acc) wave.acc.push_back(size * sample);
    wave.periods = periods;
    for (const double value : values) wave.accSpec.push_back(size * value);
    wave.spectrumValid = true;
    wave.adjustColor = PaletteColor(i);
  }
  CSeismicWave& first = doc.seedWaves.At(0);
  first.adjusted = true;
  first.adjustedAcc = acc;
  first.adjustedPeriods = periods;
  first.adjustedSpec = values;
  first.siteUse = doc.flowNeighbourWave = true;
  SetBase(doc, first.name);
  Expect(MarkedBase(doc).has_value(), "a base spectrum");
}

class Road {
 public:
  Road(const ProgramFolder& folder, const ServiceSettings& services)
      : m_window(folder, services, TopChoice::GuidelineRoute) {
    FillDocument(m_window.Doc());
    m_window.Procedure().ApplyFlowState();
  }

  void Run() {
    m_window.BeginRound();
    m_window.Do("pane: to the adjustment", [&] { m_window.PressStep(FlowStep::AdjustSeismicWave); });
    Expect(Active(ScreenId::AdjustSeismicWave), "the adjustment");
    Adjust();
    m_window.Do("pane: to the result", [&] { m_window.PressStep(FlowStep::Visualization); });
    Expect(Active(ScreenId::Visualization), "the result");
    Visualize();
    m_window.Do("pane: back to the site", [&] { m_window.PressStep(FlowStep::Field); });
  }
  void Print() const { m_window.Print(); }

 private:
  bool Active(ScreenId id) { return m_window.Procedure().ActiveScreen() == id; }
  void ClickCell(const char* step, const char* name, int row, int column);
  void PointAtGraph(const char* step);
  void Adjust();
  void Visualize();

  WindowDriver m_window;
};

void Road::ClickCell(const char* step, const char* name, int row, int column) {
  auto& grid = m_window.Find<CSpread7>(name);
  const QPoint centre = grid.visualRect(grid.model()->index(row - 1, column - 1)).center();
  m_window.Do(step, [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, centre); });
}

void Road::PointAtGraph(const char* step) {
  auto& graph = m_window.Find<GraphView>("graph");
  for (int i = 1; i < 20; ++i)
    m_window.Do(step, [&] { m_window.MovePointer(graph, {graph.width() * i / 20, graph.height() / 2}); });
}

void Road::Adjust() {
  CMorvaneDoc& doc = m_window.Doc();
  for (int column = 1; column <= 4; ++column)
    ClickCell("adjustment: click on a text or figure", "waveGrid", 2, column);
  for (int i = 0; i < 2; ++i) ClickCell("adjustment: hide and show a wave", "waveGrid", 3, 6);
  for (const int row : {2, 1}) ClickCell("adjustment: adopt a wave", "waveGrid", row, 7);
  Expect(doc.seedWaves.At(0).adopted, "the first wave adopted");
  const bool checked = doc.seedWaves.At(0).adjustChecked;
  ClickCell("adjustment: show the adjusted or the own spectrum", "waveGrid", 1, 8);
  Expect(doc.seedWaves.At(0).adjustChecked != checked, "the other spectrum");
  ClickCell("adjustment: show the adjusted or the own spectrum", "waveGrid", 1, 8);
  for (int i = 0; i < 2; ++i) ClickCell("adjustment: hide and show the base", "baseGrid", 1, 5);
  auto& grid = m_window.Find<CSpread7>("waveGrid");
  const QPoint color = grid.visualRect(grid.model()->index(0, 4)).center();
  m_window.DoWithDialog(
      "adjustment: the dialog of a colour",
      [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, color); }, [](QWidget*) {});
  for (const char* button : {"hideAllButton", "showAllButton"})
    m_window.Do("adjustment: hide and show all", [&] { m_window.PressButton(button); });
  for (int i = 0; i < 3; ++i)
    m_window.Do("adjustment: scroll", [&] { m_window.Wheel(*grid.viewport(), i < 2 ? 3 : -6); });
  PointAtGraph("adjustment: pointer over 20 curves");
  for (const QSize size : {QSize(1000, 700), QSize(1200, 800)})
    m_window.Do("adjustment: resize", [&] { m_window.Frame().resize(size); });
  m_window.Do("adjustment: copy the picture", [&] { m_window.PressButton("copyButton"); });
}

void Road::Visualize() {
  m_window.Do("result: response spectra", [&] { m_window.PressButton("specButton"); });
  for (int i = 0; i < 2; ++i)
    m_window.Do("result: hide and show the target", [&] { m_window.PressButton("targetCheck"); });
  PointAtGraph("result: pointer over the spectra");
  m_window.Do("result: Fourier spectra", [&] { m_window.PressButton("fourierButton"); });
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  return tremlo::WalkSteps<tremlo::Road>(argc, argv);
}
