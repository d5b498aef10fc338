// How long each step on the screens of the spectra keeps the event loop from turning, with 100 faults of
// 3 planes, all in use, and three waves, of which one has 65,536 samples: 604 candidates for the base
// spectrum. Prints a table.

#include "LongWave.h"
#include "ManyFaults.h"
#include "WalkSteps.h"
#include "WindowDriver.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/Spread7.h"
#include "window/waves/WaveRuns.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <chrono>
#include <cstdlib>

namespace tremlo {
namespace {

constexpr int kCandidates = 604;

/// A measurement counts only if the step has done its work.
void Expect(bool done, const char* what) {
  if (!done) qFatal("The steps have not led to: %s", what);
}

void FillDocument(CMorvaneDoc& doc) {
  doc.flowFixed = doc.flowNeighbourWave = doc.flowFaultSource = true;
  for (const std::size_t samples : {std::size_t{4096}, std::size_t{8192}, kLongWaveSamples}) {
    doc.seedWaves.Add(QStringLiteral("観測波 %1").arg(samples));
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = kLongWaveStep;
    wave.acc = LongWave();
    wave.acc.resize(samples);
    wave.siteUse = true;
    wave.siteColor = wave.baseColor = PaletteColor(doc.seedWaves.Count());
  }
  doc.faults = ManyFaults();
  Expect(ComputeMissingSpectra(doc, nullptr, std::chrono::milliseconds(0)), "the waves' spectra");
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
    Faults();
    FaultSpectra();
    LowerLimit();
    Neighbours();
    Base();
  }
  void Print() const { m_window.Print(); }

 private:
  void Enter(const char* step, FlowStep button, ScreenId screen) {
    m_window.Do(step, [&] { m_window.PressStep(button); });
    Expect(m_window.Procedure().ActiveScreen() == screen, step);
  }
  void Click(const char* step, const char* name, int row, int column) {
    auto& grid = m_window.Find<CSpread7>(name);
    const QPoint centre = grid.visualRect(grid.model()->index(row - 1, column - 1)).center();
    m_window.Do(step, [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, centre); });
  }
  void Press(const char* step, std::initializer_list<const char*> buttons) {
    for (const char* const name : buttons) m_window.Do(step, [&] { m_window.PressButton(name); });
  }
  void Scroll(const char* step, const char* name) {
    QScrollBar& bar = *m_window.Find<CSpread7>(name).verticalScrollBar();
    for (int i = 5; i >= 0; --i) m_window.Do(step, [&] { bar.setValue(bar.maximum() * i / 5); });
  }
  void Point(const char* step) {
    auto& graph = m_window.Find<GraphView>("graph");
    for (int i = 1; i < 20; ++i)
      m_window.Do(step, [&] { m_window.MovePointer(graph, {graph.width() * i / 20, graph.height() / 2}); });
  }

  void Faults();
  void FaultSpectra();
  void ChangeClass();
  void LowerLimit();
  void Neighbours();
  void Base();
  void WalkCandidates();

  WindowDriver m_window;
};

void Road::Faults() {
  Enter("faults: enter", FlowStep::FaultSpectra, ScreenId::MakeSeismicWave1);
  Expect(m_window.Find<CSpread7>("rankingGrid").RowCount() == 300, "300 planes");
  Scroll("faults: scroll", "rankingGrid");
  for (const char* const name : {"rangeRadio", "rankingRadio"})
    m_window.Do("faults: the other way of acquiring", [&] { m_window.PressButton(name); });
}

void Road::FaultSpectra() {
  const CMorvaneDoc& doc = m_window.Doc();
  m_window.Do("fault spectra: enter, with the relation for all planes",
              [&] { m_window.PressButton("attenuationButton"); });
  Expect(!doc.faults.back().equivalentSpectrum.back().empty(), "all spectra");
  ChangeClass();
  for (const int row : {2, 1}) Click("fault spectra: another relation", "relationGrid", row, 2);
  for (const int column : {9, 10})
    for (int i = 0; i < 2; ++i) Click("fault spectra: a flag", "planeGrid", 2, column);
  Press("fault spectra: a button for all planes",
        {"showNoneButton", "showAllButton", "useNoneButton", "useAllButton"});
  Expect(doc.faults.back().attenUse.back(), "all planes in use");
  Scroll("fault spectra: scroll", "planeGrid");
  Point("fault spectra: pointer");
}

void Road::ChangeClass() {
  auto& grid = m_window.Find<CSpread7>("planeGrid");
  grid.setFocus();
  grid.SelectCell(2, 3);
  for (const char letter : {'D', 'A'}) {
    m_window.Do("fault spectra: another class", [&] { QTest::keyClick(&grid, Qt::Key_F2); });
    for (const Qt::Key key : {static_cast<Qt::Key>(letter), Qt::Key_Return})
      m_window.Do("fault spectra: another class", [key] {
        QWidget* const list = QApplication::activePopupWidget();
        QTest::keyClick(list && list->focusWidget() ? list->focusWidget() : QApplication::focusWidget(), key);
      });
    Expect(m_window.Doc().faults[0].groundClass[1] == QLatin1Char(letter), "another class");
  }
}

void Road::LowerLimit() {
  Enter("lower limit: enter", FlowStep::LowerSpectrum, ScreenId::LowerSpectrum);
  for (const int row : {2, 1}) Click("lower limit: another one", "limitGrid", row, 3);
  Expect(m_window.Doc().lowerSpectra.At(0).lowerSelected, "the first limit");
}

void Road::Neighbours() {
  Enter("waves: enter", FlowStep::DamsiteWave, ScreenId::DamsiteWave);
  for (const int column : {4, 5})
    for (int i = 0; i < 2; ++i) Click("waves: a flag", "waveGrid", 3, column);
  Press("waves: a button for all", {"hideAllButton", "showAllButton", "useNoneButton", "useAllButton"});
  const CSeismicWave& wave = m_window.Doc().seedWaves.At(2);
  Expect(wave.siteUse && wave.siteShow, "waves in use");
}

void Road::Base() {
  CMorvaneDoc& doc = m_window.Doc();
  Enter("base: enter", FlowStep::BaseSpectrum, ScreenId::BaseSpectrum);
  auto& grid = m_window.Find<CSpread7>("candidateGrid");
  Expect(grid.RowCount() == kCandidates, "604 candidates");
  for (const int row : {1, 3, 5})
    for (int i = 0; i < 2; ++i) Click("base: a shown flag", "candidateGrid", row, 6);
  for (const int row : {1, 3, 5}) {
    Click("base: choose", "candidateGrid", row, 7);
    Expect(doc.baseSpectrumName == grid.GetCellText(row, 2), "a base");
  }
  WalkCandidates();
  Click("base: choose", "candidateGrid", kCandidates, 7);
  for (int i = 0; i < 2; ++i) Click("base: a shown flag", "candidateGrid", kCandidates, 6);
  Press("base: a button for all", {"hideAllButton", "showAllButton"});
  Point("base: pointer");
  doc.ClearSpectrumSelection();
  doc.baseSpectrumName.clear();
}

void Road::WalkCandidates() {
  auto& grid = m_window.Find<CSpread7>("candidateGrid");
  auto& period = m_window.Find<CExpEdit>("damPeriodEdit");
  m_window.Do("base: type the dam's period", [&] {
    period.setFocus();
    QTest::keyClicks(&period, QStringLiteral("0.35"));
    QTest::keyClick(&period, Qt::Key_Return);
  });
  grid.setFocus();
  grid.SelectCell(1, 2);
  for (int i = 0; i < 10; ++i)
    m_window.Do("base: move the active row", [&] { QTest::keyClick(&grid, Qt::Key_Down); });
  m_window.Do("base: move the active row", [&] { QTest::keyClick(&grid, Qt::Key_PageDown); });
  m_window.Do("base: move the active row", [&] { grid.SelectCell(3, 2); });  // that of the long wave
  m_window.Do("base: to the last row", [&] { QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier); });
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  return tremlo::WalkSteps<tremlo::Road>(argc, argv);
}
