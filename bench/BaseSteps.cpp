// How long each step on the screens of the waves near the site and of the base spectrum keeps the event loop
// from turning, with 100 faults of 3 planes, all in use, and three waves, of which one has 65,536 samples:
// 604 candidates. Prints a table.

#include "BenchPlatform.h"
#include "EventLoopWatch.h"
#include "LongWave.h"
#include "ProgramFolder.h"
#include "core/graphs/CurvePalette.h"
#include "core/sources/DamSpectra.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/Spread7.h"
#include "window/shell/MainFrame.h"
#include "window/sources/FrmBaseSpectrum.h"
#include "window/sources/FrmDamsiteWave.h"
#include "window/waves/WaveRuns.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace tremlo {
namespace {

constexpr std::size_t kRounds = 5;
constexpr std::size_t kFaults = 100;
constexpr std::size_t kPlanes = 3;
constexpr int kTickMs = 2;
constexpr int kTicksToPaint = 20;

void AddFault(CMorvaneDoc& doc, std::size_t number) {
  FaultInfo fault;
  fault.ltename = QStringLiteral("断層%1").arg(number);
  fault.geomNum = static_cast<std::int32_t>(kPlanes);
  fault.magnitude = QStringLiteral("7.2");
  fault.groundClass.assign(kPlanes, QStringLiteral("B"));
  for (std::size_t plane = 0; plane < kPlanes; ++plane) {
    const std::size_t of = number * kPlanes + plane;
    fault.planeDepth.push_back(10.0);
    fault.shortestDistance.push_back(10.0 + 0.3 * static_cast<double>(of));
    fault.equivalentDistance.push_back(15.0 + 0.3 * static_cast<double>(of));
    fault.shortBaseColor.push_back(PaletteColor(of));
    fault.equivBaseColor.push_back(PaletteColor(of + 1));
  }
  for (auto* spectra :
       {&fault.shortestPeriods, &fault.shortestSpectrum, &fault.equivalentPeriods, &fault.equivalentSpectrum})
    spectra->resize(kPlanes);
  for (auto* flags : {&fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow})
    flags->assign(kPlanes, true);
  fault.shortBaseSelected.assign(kPlanes, false);
  fault.equivBaseSelected.assign(kPlanes, false);
  fault.shortArea.assign(kPlanes, 0.0);
  fault.equivArea.assign(kPlanes, 0.0);
  doc.faults.push_back(std::move(fault));
}

void FillProject(CMorvaneDoc& doc) {
  if (doc.ResetDocument()) std::abort();
  doc.guidelineRoute = doc.flowFixed = doc.flowNeighbourWave = doc.flowFaultSource = true;
  for (const std::size_t samples : {std::size_t{4096}, std::size_t{8192}, kLongWaveSamples}) {
    doc.seedWaves.Add(QStringLiteral("観測波 %1").arg(samples));
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = kLongWaveStep;
    wave.acc = LongWave();
    wave.acc.resize(samples);
    wave.siteUse = true;
    wave.siteColor = wave.baseColor = PaletteColor(doc.seedWaves.Count());
  }
  for (std::size_t i = 0; i < kFaults; ++i) AddFault(doc, i);
  if (!ComputeMissingSpectra(doc, nullptr, std::chrono::milliseconds(0))) std::abort();
}

/// A question would hold the steps up.
class NoQuestions : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    qFatal("The program tells: %s", qUtf8Printable(box.text));
  }
};

/// The window with the two screens, worked by mouse and keys.
class Steps {
 public:
  explicit Steps(CMorvaneDoc& doc) : m_doc(doc) {
    m_frame.SetRuns([] { return true; },
                    [this] {
                      CalculateDamSpectra(m_doc.damCoefSets, m_doc.attenuationMethod, m_doc.faults);
                      m_doc.SetModified(true);
                      return true;
                    },
                    [] { return true; });
    m_frame.AddScreen(ScreenId::DamsiteWave, new CFrmDamsiteWave(m_doc, m_prompt, m_rules, m_gate));
    m_frame.AddScreen(ScreenId::BaseSpectrum, new CFrmBaseSpectrum(m_doc, m_prompt, m_rules, m_gate));
    m_gate.SetScreenOnDisplay([this] { return m_frame.ScreenOnDisplay(); });
    QObject::connect(m_frame.Pane(), &CPaneFlow::StepPressed, &m_frame,
                     [this](FlowStep step) { m_gate.Run([&] { m_procedure.PressStep(step); }); });
    m_frame.Pane()->ShowRoute(true);
    m_procedure.ApplyFlowState();
    m_frame.resize(1200, 800);
    m_frame.show();
    m_frame.activateWindow();
    m_watch.RunTicks(kTicksToPaint);
  }

  void RunRound() {
    ++m_round;
    WorkNeighbours();
    WorkBase();
  }
  void Print() const;

 private:
  struct Row {
    std::string step;
    std::vector<double> longest;  ///< ms, by round
  };

  void WorkNeighbours();
  void WorkBase();
  void WalkRows();

  void Do(const char* step, const std::function<void()>& act);
  template <class Control>
  Control& Find(const char* name) {
    auto* const control = m_frame.ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    if (!control) qFatal("no control %s", name);
    return *control;
  }
  void PressStep(FlowStep step) {
    QTest::mouseClick(m_frame.Pane()->StepsOf(step)->Button(step), Qt::LeftButton);
  }
  void PressButton(const char* name) { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }
  void ClickCell(const char* name, int row, int column) {
    auto& grid = Find<CSpread7>(name);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.visualRect(grid.model()->index(row - 1, column - 1)).center());
  }
  static void Expect(bool done, const char* what) {
    if (!done) qFatal("The steps have not led to: %s", what);
  }

  CMorvaneDoc& m_doc;
  NoQuestions m_prompt;
  CommandGate m_gate{m_prompt};
  CMainFrame m_frame;
  WorkProcedure m_procedure{m_doc, m_prompt, m_frame, *m_frame.Pane()};
  ChangeRules m_rules{m_doc, m_prompt, m_procedure};
  EventLoopWatch m_watch{kTickMs};
  std::vector<Row> m_rows;
  std::size_t m_round = 0;
};

void Steps::Do(const char* step, const std::function<void()>& act) {
  m_watch.RunTicks(1);
  m_watch.Forget();
  QTimer::singleShot(0, &m_frame, act);
  m_watch.RunTicks(kTicksToPaint);
  auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& r) { return r.step == step; });
  if (row == m_rows.end()) row = m_rows.insert(m_rows.end(), {step, {}});
  row->longest.resize(m_round);
  row->longest.back() = std::max(row->longest.back(), m_watch.LongestMs());
}

void Steps::WorkNeighbours() {
  constexpr char kGrid[] = "waveGrid";
  Do("waves: enter", [&] { PressStep(FlowStep::DamsiteWave); });
  for (const int column : {4, 5})
    for (int i = 0; i < 2; ++i) Do("waves: click on a flag", [&] { ClickCell(kGrid, 3, column); });
  for (const char* const name : {"hideAllButton", "showAllButton", "useNoneButton", "useAllButton"})
    Do("waves: a button for all", [&] { PressButton(name); });
  Expect(m_doc.seedWaves.At(2).siteUse && m_doc.seedWaves.At(2).siteShow, "waves in use");
}

void Steps::WorkBase() {
  constexpr char kGrid[] = "candidateGrid";
  Do("base: enter", [&] { PressStep(FlowStep::BaseSpectrum); });
  Expect(Find<CSpread7>(kGrid).RowCount() == 604, "604 candidates");
  for (const int row : {1, 3, 5})
    for (int i = 0; i < 2; ++i) Do("base: click on a shown flag", [&] { ClickCell(kGrid, row, 6); });
  for (const int row : {1, 3, 5}) {
    Do("base: choose", [&] { ClickCell(kGrid, row, 7); });
    Expect(m_doc.baseSpectrumName == Find<CSpread7>(kGrid).GetCellText(row, 2), "a base");
  }
  WalkRows();
  Do("base: choose in the last row", [&] { ClickCell(kGrid, 604, 7); });
  Do("base: hide and show the last row", [&] { ClickCell(kGrid, 604, 6); });
  Do("base: hide and show the last row", [&] { ClickCell(kGrid, 604, 6); });
  for (const char* const name : {"hideAllButton", "showAllButton"})
    Do("base: a button for all", [&] { PressButton(name); });
  m_doc.ClearSpectrumSelection();
  m_doc.baseSpectrumName.clear();
}

void Steps::WalkRows() {
  auto& grid = Find<CSpread7>("candidateGrid");
  auto& period = Find<CExpEdit>("damPeriodEdit");
  Do("base: type the dam's period", [&] {
    period.setFocus();
    QTest::keyClicks(&period, QStringLiteral("0.35"));
    QTest::keyClick(&period, Qt::Key_Return);
  });
  grid.setFocus();
  grid.SelectCell(1, 2);
  for (int i = 0; i < 10; ++i) Do("base: move the active row", [&] { QTest::keyClick(&grid, Qt::Key_Down); });
  Do("base: move the active row", [&] { QTest::keyClick(&grid, Qt::Key_PageDown); });
  Do("base: move the active row", [&] { ClickCell("candidateGrid", grid.ActiveRow() - 2, 2); });
  Do("base: move the active row", [&] { grid.SelectCell(3, 2); });  // that of the long wave
  Do("base: to the last row", [&] { QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier); });
}

void Steps::Print() const {
  std::printf("| step | longest stall, ms (median of %zu rounds) | of all rounds |\n|---|---|---|\n",
              m_round);
  for (const Row& row : m_rows) {
    std::vector<double> sorted = row.longest;
    std::sort(sorted.begin(), sorted.end());
    std::printf("| %s | %.0f | %.0f |\n", row.step.c_str(), sorted[sorted.size() / 2], sorted.back());
  }
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  const tremlo::ProgramFolder folder;
  tremlo::PaintOffscreenByDefault(folder.Path());
  const QApplication application(argc, argv);
  tremlo::InstallJapaneseFonts();
  QApplication::setFont(tremlo::ScreenFont());
  tremlo::CMorvaneDoc doc(folder.Path());
  tremlo::FillProject(doc);
  tremlo::Steps steps(doc);
  for (std::size_t i = 0; i < tremlo::kRounds; ++i) steps.RunRound();
  steps.Print();
}
