// How long each step on the screens of the fault spectra and of the lower limit keeps the event loop from
// turning, with 100 faults of three planes, and what the attenuation relation takes for all of them beside
// the plain loop of its formula. Prints two tables.

#include "BenchPlatform.h"
#include "ProgramFolder.h"
#include "StepTable.h"
#include "core/graphs/CurvePalette.h"
#include "core/sources/DamSpectra.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/Spread7.h"
#include "window/shell/MainFrame.h"
#include "window/shell/ScreenTable.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace tremlo {
namespace {

constexpr int kFaults = 100;
constexpr std::size_t kPlanes = 3;
constexpr std::size_t kRounds = 5;
constexpr int kRepeats = 200;
constexpr int kClass = 3, kShown = 9, kUse = 10;

FaultInfo Fault(int number) {
  FaultInfo fault;
  fault.rank = QString::number(number + 1);
  fault.ltename = QStringLiteral("断層帯%1").arg(number + 1);
  fault.magnitude = QStringLiteral("%1").arg(6.0 + 0.02 * number, 0, 'f', 2);
  fault.ijma = QStringLiteral("5.5");
  fault.geomNum = kPlanes;
  fault.groundClass.assign(kPlanes, QStringLiteral("A"));
  for (std::size_t plane = 0; plane < kPlanes; ++plane) {
    const double far = number + 0.3 * static_cast<double>(plane);
    fault.planeDepth.push_back(8.0 + 0.05 * far);
    fault.shortestDistance.push_back(5.0 + far);
    fault.equivalentDistance.push_back(12.0 + far);
    fault.attenColor.push_back(PaletteColor(static_cast<std::size_t>(number) * kPlanes + plane));
  }
  fault.attenShow.assign(kPlanes, true);
  fault.attenUse.assign(kPlanes, true);
  fault.shortBaseSelected.assign(kPlanes, false);
  fault.equivBaseSelected.assign(kPlanes, false);
  return fault;
}

/// A measurement counts only if the step has done its work.
void Expect(bool done, const char* what) {
  if (!done) qFatal("The steps have not led to: %s", what);
}

/// Nothing is asked here.
class NoPrompt : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override { qFatal("A box: %s", qUtf8Printable(box.text)); }
};
class NoFiles : public FileDialogs {
 public:
  QString AskOpenPath(const FileQuestion&) override { return {}; }
  QString AskSavePath(const FileQuestion&) override { return {}; }
};

/// The window with both screens, worked by mouse and keys.
class Work {
 public:
  explicit Work(const QString& folder) : m_doc(folder) {
    if (m_doc.ResetDocument()) qFatal("no tables");
    m_doc.guidelineRoute = m_doc.flowFixed = m_doc.flowFaultSource = true;
    for (int i = 0; i < kFaults; ++i) m_doc.faults.push_back(Fault(i));
    const ScreenTable table = ProgramScreens();
    m_parts.calculateFaultSpectra = [this, run = table.runs.calculateFaultSpectra] { return run(m_parts); };
    m_frame.SetRuns([] { return true; }, m_parts.calculateFaultSpectra, [] { return true; });
    for (const ScreenId id : {ScreenId::MakeSeismicWave2, ScreenId::LowerSpectrum})
      m_frame.AddScreen(id, table.screens.at(id)(m_parts));
    m_frame.resize(1200, 800);
    m_frame.show();
    m_frame.activateWindow();
    m_steps.Settle();
  }

  void Run() {
    m_steps.BeginRound();
    m_steps.Do("fault spectra: enter, with the relation for all planes",
               [this] { Enter(ScreenId::MakeSeismicWave2); });
    Expect(!m_doc.faults.back().equivalentSpectrum.back().empty(), "all spectra");
    ChangeClass();
    for (const int row : {2, 1}) Click("fault spectra: another relation", "relationGrid", row, 2);
    for (const int column : {kShown, kUse})
      for (int i = 0; i < 2; ++i) Click("fault spectra: a flag", "planeGrid", 2, column);
    for (const char* const name : {"showNoneButton", "showAllButton", "useNoneButton", "useAllButton"})
      m_steps.Do("fault spectra: a button for all planes", [this, name] { Press(name); });
    Expect(m_doc.faults.back().attenUse.back(), "all planes in use");
    Scroll();
    for (int i = 1; i < 20; ++i) m_steps.Do("fault spectra: pointer", [this, i] { Point(i); });
    m_steps.Do("lower limit: enter", [this] { Enter(ScreenId::LowerSpectrum); });
    for (const int row : {2, 1}) Click("lower limit: another one", "limitGrid", row, 3);
    Expect(m_doc.lowerSpectra.At(0).lowerSelected, "the first limit");
  }
  void Print() const { m_steps.Print(); }
  CMorvaneDoc& Doc() { return m_doc; }

 private:
  void Enter(ScreenId id) {
    if (m_procedure.SwitchScreen(id) != SwitchOutcome::Open) qFatal("a screen did not open");
  }
  template <class Control>
  Control& Find(const char* name) {
    auto* const control = m_frame.ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    if (!control) qFatal("no control %s", name);
    return *control;
  }
  void Press(const char* name) { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }
  void Click(const char* step, const char* grid, int row, int column) {
    m_steps.Do(step, [=, this] {
      CSpread7& cells = Find<CSpread7>(grid);
      QTest::mouseClick(cells.viewport(), Qt::LeftButton, {},
                        cells.visualRect(cells.model()->index(row - 1, column - 1)).center());
    });
  }
  void ChangeClass() {
    CSpread7& cells = Find<CSpread7>("planeGrid");
    cells.setFocus();
    cells.SelectCell(2, kClass);
    for (const char letter : {'D', 'A'}) {
      m_steps.Do("fault spectra: another class", [&] { QTest::keyClick(&cells, Qt::Key_F2); });
      for (const Qt::Key key : {static_cast<Qt::Key>(letter), Qt::Key_Return})
        m_steps.Do("fault spectra: another class",
                   [key] { QTest::keyClick(FocusedWindow(), key, Qt::NoModifier); });
      Expect(m_doc.faults[0].groundClass[1] == QLatin1Char(letter), "another class");
    }
  }
  /// The list of the open editor, else what has the focus.
  static QWidget* FocusedWindow() {
    QWidget* const list = QApplication::activePopupWidget();
    return list && list->focusWidget() ? list->focusWidget() : QApplication::focusWidget();
  }
  void Scroll() {
    QScrollBar& bar = *Find<CSpread7>("planeGrid").verticalScrollBar();
    for (int i = 5; i >= 0; --i)
      m_steps.Do("fault spectra: scroll", [&bar, i] { bar.setValue(bar.maximum() * i / 5); });
  }
  void Point(int share) {
    QWidget& graph = Find<QWidget>("graph");
    const QPoint place(graph.width() * share / 20, graph.height() / 2);
    QTest::mouseMove(m_frame.windowHandle(), graph.mapTo(&m_frame, place));
  }

  CMorvaneDoc m_doc;
  NoPrompt m_prompt;
  NoFiles m_files;
  CMainFrame m_frame;
  WorkProcedure m_procedure{m_doc, m_prompt, m_frame, *m_frame.Pane()};
  ChangeRules m_rules{m_doc, m_prompt, m_procedure};
  CommandGate m_gate{m_prompt};
  OnlineMode m_online;
  ServiceSettings m_services;
  ScreenParts m_parts{m_doc,    m_prompt,   m_files, m_procedure,          m_rules,
                      m_online, m_services, m_gate,  [](SwitchOutcome) {}, {}};
  StepTable m_steps;
};

/// The formula as it stands, over all planes, periods and both forms, into vectors that are there already.
double PlainLoop(const CMorvaneDoc& doc, const std::array<DamCoefSet, 2>& forms,
                 std::vector<double>& values) {
  double sum = 0.0;
  for (const FaultInfo& fault : doc.faults) {
    const double m = fault.magnitude.toDouble();
    for (std::size_t plane = 0; plane < kPlanes; ++plane)
      for (const int form : {0, 1}) {
        const DamCoefSet& c = forms[static_cast<std::size_t>(form)];
        const double depth = fault.planeDepth[plane];
        const double x = form == 0 ? fault.shortestDistance[plane] : fault.equivalentDistance[plane];
        const double limit = form == 0 ? 5.0 : 6.0;
        values.resize(c.period.size());
        for (std::size_t j = 0; j < c.period.size(); ++j) {
          const double near = form == 0 ? c.coefNear[j] * std::pow(10.0, 0.5 * m) : c.coefNear[j];
          const double squared = m > limit ? c.coefM2[j] * (limit - m) * (limit - m) : 0.0;
          const double log = c.coefM[j] * m + squared + c.coefD[j] * depth - std::log10(x + near) -
                             (c.coefDX[j] * depth + c.coefX[j]) * x + c.coefC[j];
          values[j] = c.ampA[j] * std::pow(10.0, log);
        }
        sum += values.front();
      }
  }
  return sum;
}

template <class Run>
double MedianMs(Run run) {
  std::vector<double> times;
  for (int i = 0; i < kRepeats; ++i) {
    const auto begin = std::chrono::steady_clock::now();
    run();
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
  }
  std::nth_element(times.begin(), times.begin() + kRepeats / 2, times.end());
  return times[kRepeats / 2];
}

void CompareRelation(CMorvaneDoc& doc) {
  std::array<DamCoefSet, 2> forms;
  if (FetchDamCoefficients(doc.damCoefSets, doc.attenuationMethod, forms[0], forms[1])) qFatal("no tables");
  std::vector<double> values;
  double sum = 0.0;
  const double plain = MedianMs([&] { sum += PlainLoop(doc, forms, values); });
  const double own = MedianMs([&] {
    if (CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults)) qFatal("no tables");
  });
  Expect(sum > 0.0, "values of the plain loop");
  std::printf("\n| relation, %d planes, both forms, %zu periods | ms (median) |\n|---|---|\n",
              kFaults * static_cast<int>(kPlanes), forms[0].period.size());
  std::printf("| as stored | %.3f |\n| plain loop of the formula | %.3f |\n", own, plain);
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  const tremlo::ProgramFolder folder;
  tremlo::PaintOffscreenByDefault(folder.Path());
  const QApplication application(argc, argv);
  tremlo::InstallJapaneseFonts();
  tremlo::Work work(folder.Path());
  for (std::size_t i = 0; i < tremlo::kRounds; ++i) work.Run();
  work.Print();
  tremlo::CompareRelation(work.Doc());
  return 0;
}
