#pragma once

#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/sources/DamSpectra.h"
#include "support/DocumentState.h"
#include "support/NoThreads.h"
#include "support/OfferedAction.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/RunDialog.h"
#include "window/sources/OneScreenHost.h"
#include "window/waves/WaveRuns.h"

#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QLabel>

#include <gmock/gmock.h>
#include <memory>

namespace tremlo::test {

/// Notes the run dialogs that come up.
class RunDialogLog : public QObject {
 public:
  RunDialogLog() { qApp->installEventFilter(this); }
  QStringList Take() { return std::exchange(m_names, {}); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show && qobject_cast<RunDialog*>(watched)) m_names << watched->objectName();
    return false;
  }

 private:
  QStringList m_names;
};

/// Runs what the gates have to compute as the program does.
class ComputingHost : public OneScreenHost {
 public:
  ComputingHost(CMorvaneDoc& doc, QStringList& log, ScreenId id) : OneScreenHost(doc, log, id), m_doc(doc) {}

  bool ComputeMissingSpectra() override {
    return tremlo::ComputeMissingSpectra(m_doc, nullptr, std::chrono::milliseconds(0));
  }
  bool CalculateFaultSpectra() override {
    const bool works = !CalculateDamSpectra(m_doc.damCoefSets, m_doc.attenuationMethod, m_doc.faults);
    m_doc.SetModified(true);
    return works;
  }

 private:
  CMorvaneDoc& m_doc;
};

/// A project with the tables that the program ships and a screen of the spectra, which is entered through its
/// gate and worked by mouse and keys.
class SpectraScreenTest : public testing::Test {
 protected:
  static constexpr double kTimeStep = 0.01;

  explicit SpectraScreenTest(ScreenId tested) : id(tested), host(doc, log, tested) {
    EXPECT_EQ(doc.ResetDocument(), std::nullopt);
    doc.guidelineRoute = doc.flowFixed = doc.flowNeighbourWave = doc.flowFaultSource = true;
  }

  CSeismicWave& AddWave(const QString& name, bool use = true) {
    doc.seedWaves.Add(name);
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = kTimeStep;
    wave.acc = RecordLike(128, doc.seedWaves.Count());
    wave.siteUse = use;
    wave.siteColor = wave.baseColor = 0xD07000;
    return wave;
  }
  FaultInfo& AddFault(const QString& name, std::size_t planes) {
    FaultInfo fault;
    fault.ltename = name;
    fault.geomNum = static_cast<std::int32_t>(planes);
    fault.magnitude = QStringLiteral("7.2");
    fault.groundClass.assign(planes, QStringLiteral("A"));
    for (std::size_t i = 0; i < planes; ++i) {
      const auto more = static_cast<double>(doc.faults.size() + i);
      fault.planeDepth.push_back(10.0 + more);
      fault.shortestDistance.push_back(12.5 + 3.0 * more);
      fault.equivalentDistance.push_back(20.0 + 3.0 * more);
    }
    for (auto* spectra : {&fault.shortestPeriods, &fault.shortestSpectrum, &fault.equivalentPeriods,
                          &fault.equivalentSpectrum})
      spectra->resize(planes);
    fault.attenColor.assign(planes, 0x2040C0);
    fault.shortBaseColor.assign(planes, 0x2040C0);
    fault.equivBaseColor.assign(planes, 0x208040);
    for (auto* flags : {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow,
                        &fault.adjustShow, &fault.adjustShowEquiv})
      flags->assign(planes, true);
    fault.shortBaseSelected.assign(planes, false);
    fault.equivBaseSelected.assign(planes, false);
    fault.shortArea.assign(planes, 0.0);
    fault.equivArea.assign(planes, 0.0);
    doc.faults.push_back(fault);
    return doc.faults.back();
  }
  /// An adopted wave with its adjustment, which another base would cost.
  void Adopt(std::size_t index) {
    CSeismicWave& wave = doc.seedWaves.At(index);
    wave.adopted = wave.adjusted = wave.adjustChecked = true;
    wave.adjustedAcc = wave.adjustedPeriods = wave.adjustedSpec = {1.0, 2.0};
    doc.seedAdopted = true;
    doc.seedAdoptedName = wave.name;
  }

  template <class MadeScreen>
  void Make() {
    screen = std::make_unique<MadeScreen>(doc, prompt, files, rules, gate);
    host.screen = screen.get();
    driver = std::make_unique<ScreenDriver>(*screen, QSize(1000, 700));
  }
  /// Presses its step; after that the project counts as not modified.
  void Enter() {
    ASSERT_EQ(Press(), SwitchOutcome::Open);
    // Behind a run the window is in front again.
    screen->window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(screen->window()));
    Settle();
    doc.SetModified(false);
  }
  SwitchOutcome Press() {
    SwitchOutcome outcome = SwitchOutcome::Refused;
    EXPECT_TRUE(gate.Run([&] { outcome = procedure.SwitchScreen(id); }));
    return outcome;
  }

  /// Whether the procedure has put the screen on display.
  bool HasOpened() const { return log.contains(QStringLiteral("show %1").arg(static_cast<int>(id))); }

  /// Nothing of the document may change, and the screen shows it so.
  template <class Action>
  void ExpectNoChange(Action action) {
    const DocumentState before(doc);
    action();
    EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), testing::IsEmpty());
    prompt.CheckUsedUp();
  }
  void ExpectBaseQuestion(PromptAnswer answer) {
    prompt.ExpectQuestion(QStringLiteral("既に基準スペクトルとして「") + doc.baseSpectrumName +
                              QStringLiteral("」を選択済みですがよろしいですか？\n\n変更した場合、"
                                             "原種波形の選択、振幅調整が再度必要になります。"),
                          answer);
  }

  QStringList Column(const char* grid, int column) {
    QStringList texts;
    for (int row = 1; row <= driver->Grid(grid).RowCount(); ++row)
      texts << driver->Grid(grid).GetCellText(row, column);
    return texts;
  }
  /// What a screen reader does with a check cell.
  void Toggle(const char* name, int row, int column) {
    CSpread7& grid = driver->Grid(name);
    QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&grid);
    ASSERT_NE(heard, nullptr);
    QAccessibleInterface* const cell = heard->tableInterface()->cellAt(row - 1, column - 1);
    ASSERT_NE(cell, nullptr);
    const bool before = cell->state().checked;
    cell->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Settle();
    EXPECT_EQ(heard->tableInterface()->cellAt(row - 1, column - 1)->state().checked, !before);
  }
  /// What it does with a button, which is then seen to go down before it acts.
  void PressAccessibly(const char* button, const std::function<bool()>& done) {
    DoOfferedAction(driver->Find<QWidget>(button));
    EXPECT_TRUE(QTest::qWaitFor(done)) << button;
  }
  QString GraphDescription() {
    driver->Picture();
    return driver->Find<QWidget>("graph").accessibleDescription();
  }
  /// The controls that the tab key leads to, from the first on.
  std::vector<std::string> TabOrder(const char* first, int count) {
    driver->Find<QWidget>(first).setFocus();
    std::vector<std::string> order;
    for (int i = 0; i < count; ++i) {
      order.push_back(QApplication::focusWidget()->objectName().toStdString());
      EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty()) << order.back();
      driver->Key(Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), first);
    return order;
  }
  /// What the accessibility bus reaches while a dialog is up.
  void ExpectDeafBehindDialog(const std::vector<const char*>& buttons, const char* name, int column) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ExpectNoChange([&] {
      for (const char* button : buttons) driver->Find<QAbstractButton>(button).click();
      CSpread7& grid = driver->Grid(name);
      grid.Press(1, column);
      grid.model()->setData(grid.model()->index(0, column - 1), Qt::Checked, Qt::CheckStateRole);
      Settle();
    });
    dialog.hide();
  }

  ScreenId id;
  CMorvaneDoc doc{SourcePath(QStringLiteral("data"))};
  QStringList log;
  ScriptedPrompt prompt;
  ScriptedFiles files;
  ComputingHost host;
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ChangeRules rules{doc, prompt, procedure};
  CommandGate gate{prompt};
  RunDialogLog runs;
  std::unique_ptr<Screen> screen;
  std::unique_ptr<ScreenDriver> driver;

  ~SpectraScreenTest() override {
    driver.reset();
    screen.reset();
  }
};

}  // namespace tremlo::test
