#include "core/project/BaseItemFields.h"
#include "core/waves/FiguresText.h"
#include "core/waves/FitText.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/CliRun.h"
#include "support/DocumentState.h"
#include "support/GridPress.h"
#include "support/PaletteChange.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/DlgGraphEditBaseSpec.h"
#include "window/waves/FrmAdjustSeismicWave.h"
#include "window/waves/FrmVisualization.h"
#include "window/waves/WaveRuns.h"

#include <QAccessible>
#include <QColorDialog>
#include <QLabel>
#include <QStatusTipEvent>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kColor = 5, kShown = 6, kAdopted = 7, kAdjusted = 8;
constexpr int kBaseShown = 5;
constexpr std::chrono::milliseconds kNoPause{0};
const QString kFailed = QStringLiteral("地震波形調整の計算に失敗しました。");

AdjustResult Converged() {
  AdjustResult result;
  result.converged = true;
  result.passes = 3;
  result.fit.deviation = 0.0498;
  result.acc = {1.0, 2.0, 3.0, 4.0};
  result.periods = {0.4, 0.2};
  result.spectrum = {7.0, 9.0};
  return result;
}

AdjustResult Failed() {
  AdjustResult result;
  result.passes = 7;
  result.fit.deviation = 0.08;
  return result;
}

/// Reaches the screens as the window does.
class ScreenHolder : public RecordingHost {
 public:
  using RecordingHost::RecordingHost;
  void Prepare(ScreenId id) override {
    RecordingHost::Prepare(id);
    if (screens.contains(id)) screens[id]->Prepare();
  }
  void Refresh(ScreenId id) override {
    RecordingHost::Refresh(id);
    if (screens.contains(id)) screens[id]->Refresh();
  }
  std::map<ScreenId, Screen*> screens;
};

/// The waves "A" (adopted and adjusted), "B" (adjusted) and "C" against the lower limit "下限1", on display.
class AdjustSeismicWaveScreen : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  AdjustSeismicWaveScreen() {
    FillProject(doc);
    ChooseBase(doc, kLowerLabel);
    for (std::size_t i = 0; i < 3; ++i) doc.seedWaves.At(i).adjustColor = kColors[i];
    host.screens[ScreenId::AdjustSeismicWave] = &screen;
    EXPECT_EQ(Open(), SwitchOutcome::Open);
    Settle();
    log.clear();
    doc.SetModified(false);
  }

  SwitchOutcome Open() { return procedure.SwitchScreen(ScreenId::AdjustSeismicWave); }
  CSeismicWave& Wave(std::size_t index) { return doc.seedWaves.At(index); }
  void Click(int row, int column) { driver.Click("waveGrid", row, column); }
  std::string Cell(int row, int column) { return driver.Cell("waveGrid", row, column); }
  QStringList Column(int column) { return ColumnTexts(driver.Grid("waveGrid").Data(), column); }
  std::string Fit() { return driver.Find<QLabel>("fitLabel").text().toStdString(); }
  bool Draws(std::int32_t bgr) { return driver.Shows("graph", BgrToRgb(bgr)); }
  static QRgb BgrToRgb(std::int32_t bgr) { return qRgb(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }
  /// Makes "C" the adopted wave, with samples of its own.
  void AdoptThird() {
    rules.AdoptWave(2);
    Wave(2).acc = {1.0, 2.0, 3.0};
    screen.Refresh();
    doc.SetModified(false);
  }
  /// What the accessibility bus offers first on a cell, and does.
  void DoCellAction(int row, int column) {
    QAccessibleInterface* const grid = QAccessible::queryAccessibleInterface(&driver.Grid("waveGrid"));
    QAccessibleInterface* const cell = grid->tableInterface()->cellAt(row - 1, column - 1);
    QAccessibleActionInterface* const actions = cell->actionInterface();
    actions->doAction(actions->actionNames().first());
    Settle();
  }
  void ExpectUnchanged(const DocumentState& before) {
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  }

  static constexpr std::int32_t kColors[] = {0x1000F0, 0x20E020, 0xE03030};

  QStringList log;
  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt{&log};
  ScreenHolder host{doc, log};
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ChangeRules rules{doc, prompt, procedure};
  CommandGate gate{prompt};
  std::vector<AdjustInput> runs;
  std::function<AdjustResult(const AdjustInput&)> run = [](const AdjustInput&) { return Converged(); };
  CFrmAdjustSeismicWave screen{doc, prompt, rules, gate, [this](const AdjustInput& input) {
                                 runs.push_back(input);
                                 return run(input);
                               }};
  ScreenDriver driver{screen, {960, 700}};
};

TEST_F(AdjustSeismicWaveScreen, WavesAndBaseAreShown) {
  EXPECT_THAT(RowTexts(driver.Grid("waveGrid").Data(), 1),
              ElementsAre("1", "A", "0.32", "21.00", "#F00010", "1", "1", "1"));
  EXPECT_THAT(RowTexts(driver.Grid("waveGrid").Data(), 3),
              ElementsAre("3", "C", "0.30", "20.00", "#3030E0", "1", "0", "0"));
  EXPECT_THAT(RowTexts(driver.Grid("baseGrid").Data(), 1),
              ElementsAre("下限スペクトル", "下限1", "35.00", "40.00", "0"));
  EXPECT_EQ(driver.Find<QLabel>("caption").text(), "グラフ (周期－加速度応答スペクトル)");
  EXPECT_EQ(Fit(), "");
  EXPECT_TRUE(driver.Shows("waveGrid", BgrToRgb(0xC8D4D0))) << "the locked boxes of the others";
}

TEST_F(AdjustSeismicWaveScreen, ARefreshChangesNoByte) {
  const DocumentState before(doc);
  screen.Refresh();
  screen.Prepare();
  driver.Picture();
  ExpectUnchanged(before);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(AdjustSeismicWaveScreen, TheHelpIsTold) {
  prompt.ExpectMessage(
      "原種波形のスペクトルが、基準スペクトルを下回る場合には振幅調整を行います。\n\n"
      "原種波形のスペクトルが調整され、調整した地震波形を求めることができます。",
      PromptIcon::Information);
  const DocumentState before(doc);
  driver.Press("helpButton");
  ExpectUnchanged(before);
}

// --- The gate ---

TEST_F(AdjustSeismicWaveScreen, WithoutAWaveItDoesNotOpenAndItsGridIsEmpty) {
  doc.seedWaves.Clear();
  const DocumentState before(doc);
  prompt.ExpectMessage("原種波形が設定されていません。「波形登録」で波形を設定してください。");
  EXPECT_EQ(Open(), SwitchOutcome::Refused);
  ExpectUnchanged(before);
  screen.Refresh();
  EXPECT_EQ(driver.Grid("waveGrid").RowCount(), 0);
  EXPECT_FALSE(driver.Find<QAbstractButton>("showAllButton").isEnabled());
}

TEST_F(AdjustSeismicWaveScreen, TheBaseIsFoundByItsMarkAndNotByItsName) {
  doc.ClearSpectrumSelection();
  doc.baseSpectrumName = "下限1";
  const DocumentState before(doc);
  prompt.ExpectMessage(
      "基準スペクトルが選択されていません。「基準スペクトル設定」で基準スペクトルを選択してください。");
  EXPECT_EQ(Open(), SwitchOutcome::Refused);
  ExpectUnchanged(before);
}

TEST_F(AdjustSeismicWaveScreen, MissingSpectraAreComputedOnEntry) {
  Wave(2).spectrumValid = false;
  EXPECT_EQ(Open(), SwitchOutcome::Open);
  EXPECT_THAT(log, ElementsAre("compute spectra", "prepare 59660"));
}

// --- Columns 5 to 7, the base row, the buttons ---

TEST_F(AdjustSeismicWaveScreen, AdoptionMovesWithAClickAndLocksTheOldBox) {
  Click(3, kAdopted);
  EXPECT_THAT(Column(kAdopted), ElementsAre("0", "0", "1"));
  EXPECT_THAT(Column(kAdjusted), ElementsAre("1", "1", "0")) << "the old box keeps its value";
  EXPECT_TRUE(doc.seedAdopted);
  EXPECT_EQ(doc.seedAdoptedName, "C");
  EXPECT_TRUE(doc.IsModified());
  const CellFormat old = driver.Grid("waveGrid").Data().Format(1, kAdjusted);
  EXPECT_TRUE(old.locked);
  EXPECT_EQ(old.backColor, 0xC8D4D0);
  EXPECT_EQ(driver.Grid("waveGrid").Data().Format(3, kAdjusted).backColor, 0xFFFFFF);
  const DocumentState before(doc);
  Click(1, kAdjusted);
  ExpectUnchanged(before);
}

TEST_F(AdjustSeismicWaveScreen, AClickOnTheAdoptedRowLeavesItAdopted) {
  Click(1, kAdopted);
  EXPECT_THAT(Column(kAdopted), ElementsAre("1", "0", "0"));
  EXPECT_TRUE(Wave(0).adopted && doc.seedAdopted);
  EXPECT_EQ(doc.seedAdoptedName, "A");
}

TEST_F(AdjustSeismicWaveScreen, OfTwoThatAFileHasAdoptedOneStays) {
  Wave(1).adopted = true;
  screen.Refresh();
  Click(2, kAdopted);
  EXPECT_THAT(Column(kAdopted), ElementsAre("0", "1", "0"));
}

TEST_F(AdjustSeismicWaveScreen, TheKeyboardAndTheAccessibilityBusPressTheCells) {
  driver.Grid("waveGrid").setFocus();
  driver.Grid("waveGrid").SelectCell(2, kAdopted);
  driver.Key(Qt::Key_Space);
  EXPECT_EQ(doc.seedAdoptedName, "B");
  driver.Key(Qt::Key_Down);
  driver.Key(Qt::Key_Return);
  EXPECT_EQ(doc.seedAdoptedName, "C");
  DoCellAction(1, kAdopted);
  EXPECT_EQ(doc.seedAdoptedName, "A");
  DoCellAction(1, kShown);
  EXPECT_FALSE(Wave(0).adjustShow);
  DoCellAction(1, kAdjusted);
  EXPECT_FALSE(Wave(0).adjustChecked);
  const DocumentState before(doc);
  DoCellAction(2, kAdjusted);  // locked: it is given the focus
  ExpectUnchanged(before);
  QAccessibleInterface* const grid = QAccessible::queryAccessibleInterface(&driver.Grid("waveGrid"));
  EXPECT_EQ(grid->tableInterface()->cellAt(0, kAdopted - 1)->text(QAccessible::Name), "採用 オン");
}

TEST_F(AdjustSeismicWaveScreen, AWaveIsDrawnInItsColourUnlessItIsHidden) {
  for (const std::int32_t color : kColors) EXPECT_TRUE(Draws(color));
  Click(2, kShown);
  EXPECT_FALSE(Wave(1).adjustShow);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(Draws(kColors[1]));
  EXPECT_TRUE(Draws(kColors[0]) && Draws(kColors[2]));
}

TEST_F(AdjustSeismicWaveScreen, AColourIsChosenInADialog) {
  ScreenDriver::InDialog([](QWidget& dialog) {
    auto* const colors = qobject_cast<QColorDialog*>(&dialog);
    ASSERT_NE(colors, nullptr);
    EXPECT_EQ(colors->currentColor(), QColor(0xF0, 0, 0x10));
    colors->setCurrentColor(QColor(0x12, 0x34, 0x56));
    colors->accept();
  });
  Click(1, kColor);
  EXPECT_EQ(Wave(0).adjustColor, 0x563412);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_TRUE(Draws(0x563412));
  const DocumentState before(doc);
  ScreenDriver::InDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  Click(1, kColor);
  ExpectUnchanged(before);
}

TEST_F(AdjustSeismicWaveScreen, AColourForAnotherProjectIsDropped) {
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(doc.ResetDocument(), std::nullopt);
    FillProject(doc);
    auto* const colors = qobject_cast<QColorDialog*>(&dialog);
    colors->setCurrentColor(QColor(0x12, 0x34, 0x56));
    colors->accept();
  });
  Click(1, kColor);
  EXPECT_EQ(Wave(0).adjustColor, 0);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(AdjustSeismicWaveScreen, TheBaseIsDrawnInItsColourWhateverItsSource) {
  constexpr std::int32_t kBaseColor = 0xA050C0;
  for (const char16_t* label : {kWaveLabel, kPlaneLabel, kEquivalentLabel, kLowerLabel}) {
    ChooseBase(doc, label);
    SetBaseColor(doc, *MarkedBase(doc), kBaseColor);
    screen.Refresh();
    const QString name = QString::fromUtf16(label);
    EXPECT_EQ(driver.Cell("baseGrid", 1, 2), name.toStdString());
    EXPECT_FALSE(Draws(kBaseColor)) << name.toStdString();
    doc.SetModified(false);
    driver.Click("baseGrid", 1, kBaseShown);
    EXPECT_TRUE(IsTargetShown(doc, *MarkedBase(doc)));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_TRUE(Draws(kBaseColor)) << name.toStdString();
    driver.Click("baseGrid", 1, kBaseShown);
    EXPECT_FALSE(Draws(kBaseColor)) << name.toStdString();
  }
}

TEST_F(AdjustSeismicWaveScreen, TheButtonsShowAndHideAllAndTheBase) {
  driver.Press("hideAllButton");
  EXPECT_THAT(Column(kShown), ElementsAre("0", "0", "0"));
  EXPECT_TRUE(doc.IsModified());
  for (const std::int32_t color : kColors) EXPECT_FALSE(Draws(color));
  doc.SetModified(false);
  driver.Press("showAllButton");
  EXPECT_THAT(Column(kShown), ElementsAre("1", "1", "1"));
  EXPECT_EQ(driver.Cell("baseGrid", 1, kBaseShown), "1");
  EXPECT_TRUE(doc.IsModified());
  driver.Press("hideAllButton");
  EXPECT_EQ(driver.Cell("baseGrid", 1, kBaseShown), "0");
}

// --- Column 8 ---

TEST_F(AdjustSeismicWaveScreen, UncheckedTheOwnFiguresComeBackAndCheckedNothingIsRun) {
  Click(1, kAdjusted);
  EXPECT_FALSE(Wave(0).adjustChecked);
  EXPECT_TRUE(Wave(0).adjusted);
  EXPECT_EQ(Cell(1, 3) + " " + Cell(1, 4), "0.30 20.00");
  EXPECT_TRUE(doc.IsModified());
  Click(1, kAdjusted);
  EXPECT_TRUE(Wave(0).adjustChecked);
  EXPECT_EQ(Cell(1, 3) + " " + Cell(1, 4), "0.32 21.00");
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(AdjustSeismicWaveScreen, CheckedWithoutAResultTheWaveIsRunForOnce) {
  AdoptThird();
  Click(3, kAdjusted);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].acc, ElementsAre(1.0, 2.0, 3.0));
  EXPECT_THAT(runs[0].target, ElementsAre(30.0, 40.0));
  EXPECT_TRUE(Wave(2).adjusted && Wave(2).adjustChecked && doc.IsModified());
  EXPECT_EQ(Cell(3, 3) + " " + Cell(3, 4) + " " + Cell(3, kAdjusted), "1.60 9.00 1");
  EXPECT_EQ(Fit(), "「C」　偏差（RMS） 4.98 %");
  EXPECT_TRUE(driver.Find<QLabel>("fitLabel").isVisible());
  EXPECT_EQ(driver.Find<QLabel>("fitLabel").accessibleName(), "適合度 「C」　偏差（RMS） 4.98 %");
  Click(3, kAdjusted);
  Click(3, kAdjusted);
  EXPECT_EQ(runs.size(), 1U) << "the second check finds the result";
}

// --- The figures of the adopted wave ---

TEST_F(AdjustSeismicWaveScreen, TheFiguresAreThoseOfTheAdoptedWave) {
  auto& label = driver.Find<QLabel>("figuresLabel");
  const auto told = [](const CSeismicWave& wave) {
    QStringList lines;
    for (const FiguresLine& line : FiguresOf(wave)) lines << line.Text();
    return lines.join("\n");
  };
  EXPECT_EQ(label.text(), told(Wave(0)));
  EXPECT_EQ(label.text().count("\n"), 1);
  Click(3, kAdopted);
  Wave(2).acc = {1.0, 2.0, 3.0};
  screen.Refresh();
  EXPECT_EQ(label.text(), told(Wave(2)));
  EXPECT_EQ(label.text().count("\n"), 0) << "there is no result yet";
  EXPECT_THAT(label.accessibleName().toStdString(), HasSubstr("「C」"));
  Click(3, kAdjusted);
  EXPECT_EQ(label.text(), told(Wave(2)));
  EXPECT_THAT(label.text().toStdString(), HasSubstr("\n調整後波形　最大加速度 4.000 gal"));
  doc.ClearAdjustment();
  screen.Refresh();
  EXPECT_EQ(label.text(), "") << "no wave is adopted";
  EXPECT_FALSE(label.isVisible());
}

TEST_F(AdjustSeismicWaveScreen, AFailedRunTellsWhatItCameToAndChangesNothing) {
  AdoptThird();
  run = [](const AdjustInput&) { return Failed(); };
  const DocumentState before(doc);
  prompt.ExpectMessage(kFailed, PromptIcon::Warning,
                       "繰り返し 7 回で収束しませんでした（最後の偏差 8.00 %）。\n"
                       "繰り返し回数と収束判定は「波形調整設定」で設定します。");
  Click(3, kAdjusted);
  ExpectUnchanged(before);
  EXPECT_EQ(Cell(3, kAdjusted), "0");
  EXPECT_EQ(Fit(), "「C」　収束しなかった計算：偏差（RMS） 8.00 %");
  // A next one that converges takes its place.
  run = [](const AdjustInput&) { return Converged(); };
  Click(3, kAdjusted);
  EXPECT_EQ(Fit(), "「C」　偏差（RMS） 4.98 %");
}

TEST_F(AdjustSeismicWaveScreen, ABaseWithoutASpectrumIsTold) {
  AdoptThird();
  doc.lowerSpectra.At(0).accSpec.clear();
  screen.Refresh();
  const DocumentState before(doc);
  prompt.ExpectMessage("基準スペクトルとして「下限1」が選択されていますが，その波形データがありません。");
  Click(3, kAdjusted);
  ExpectUnchanged(before);
  EXPECT_THAT(runs, IsEmpty());
  EXPECT_EQ(Cell(3, kAdjusted), "0");
  EXPECT_EQ(Fit(), "");
}

TEST_F(AdjustSeismicWaveScreen, AWaveWithoutDataIsTold) {
  AdoptThird();
  Wave(2).timeStep = 0.0;
  const DocumentState noStep(doc);
  prompt.ExpectMessage("調整する「C」の波形データがありません。");
  Click(3, kAdjusted);
  ExpectUnchanged(noStep);
  Wave(2).timeStep = 0.01;
  Wave(2).acc.clear();
  const DocumentState noSamples(doc);
  prompt.ExpectMessage("調整する「C」の波形データがありません。");
  Click(3, kAdjusted);
  ExpectUnchanged(noSamples);
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(AdjustSeismicWaveScreen, OfEqualNamesTheClickedOneIsAdoptedAndAdjusted) {
  Wave(2).name = "A";
  Wave(2).acc = {1.0, 2.0, 3.0};
  screen.Refresh();
  Click(3, kAdopted);
  EXPECT_FALSE(Wave(0).adopted);
  EXPECT_TRUE(Wave(2).adopted);
  Wave(0).adjusted = Wave(0).adjustChecked = false;
  Wave(0).adjustedAcc.clear();
  Click(3, kAdjusted);
  EXPECT_TRUE(Wave(2).adjusted);
  EXPECT_FALSE(Wave(0).adjusted);
  EXPECT_THAT(Wave(0).adjustedAcc, IsEmpty());
}

TEST_F(AdjustSeismicWaveScreen, AnyNameIsShownAndToldAsItIs) {
  const QString name = ", \" & [*] <b>①髙～";
  Wave(2).name = name;
  AdoptThird();
  Wave(2).acc.clear();
  screen.Refresh();
  EXPECT_EQ(Cell(3, 2), name.toStdString());
  prompt.ExpectMessage("調整する「" + name + "」の波形データがありません。");
  Click(3, kAdjusted);
  Wave(2).acc = {1.0};
  Click(3, kAdjusted);
  EXPECT_EQ(Fit(), ("「" + name + "」　偏差（RMS） 4.98 %").toStdString());
}

// --- Real runs ---

/// The one wave of 256 samples, adopted, with a target that one correction meets.
class AdjustSeismicWaveRun : public AdjustSeismicWaveScreen {
 protected:
  AdjustSeismicWaveRun() {
    doc.seedWaves.Resize(1);
    Wave(0) = CSeismicWave();
    Wave(0).name = "W";
    Wave(0).timeStep = 0.01;
    Wave(0).acc = CenteredRecord(256, 6);
    ComputeResponseSpectrum(Wave(0).acc, Wave(0).periods, Wave(0).accSpec, 0.01);
    Wave(0).spectrumValid = true;
    for (std::size_t i = 0; i < doc.lowerSpectra.Count(); ++i)
      doc.lowerSpectra.At(i).periods = Wave(0).periods;
    doc.lowerSpectra.At(0).accSpec = Wave(0).accSpec;
    for (double& value : doc.lowerSpectra.At(0).accSpec) value *= 2.0;
    doc.adjustMaxIterations = 5;
    doc.adjustTolerancePercent = 0.05;
    rules.AdoptWave(0);
    screen.Refresh();
    doc.SetModified(false);
    run = [](const AdjustInput& input) { return AdjustBehindDialog(input, nullptr, kNoPause); };
  }
};

TEST_F(AdjustSeismicWaveRun, ARunThatConvergesIsStored) {
  Click(1, kAdjusted);
  EXPECT_TRUE(Wave(0).adjusted && Wave(0).adjustChecked);
  EXPECT_EQ(Wave(0).adjustedAcc.size(), 256U);
  EXPECT_EQ(Wave(0).adjustedSpec.size(), 128U);
  EXPECT_EQ(Cell(1, kAdjusted), "1");
  EXPECT_THAT(Fit(), testing::StartsWith("「W」　偏差（RMS） "));
}

TEST_F(AdjustSeismicWaveRun, WithOnePassItFails) {
  doc.adjustMaxIterations = 1;
  const DocumentState before(doc);
  const AdjustResult expected = RunAdjustment(AdjustInputOf(doc, Wave(0)));
  EXPECT_NEAR(expected.fit.deviation, 1.0, 1e-9);
  prompt.ExpectMessage(kFailed, PromptIcon::Warning, FailedRunText(expected));
  Click(1, kAdjusted);
  ExpectUnchanged(before);
  EXPECT_EQ(Cell(1, kAdjusted), "0");
  EXPECT_THAT(Fit(), testing::StartsWith("「W」　収束しなかった計算：偏差（RMS） 100.00 %"));
}

TEST_F(AdjustSeismicWaveRun, BehindTheRunTheScreenIsDeaf) {
  bool seen = false;
  run = [&](const AdjustInput& input) {
    QTimer::singleShot(0, &screen, [&] {
      QWidget* const dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      seen = dialog->objectName() == "CDlgNowCalc";
      const DocumentState before(doc);
      DoCellAction(1, kShown);
      DoCellAction(1, kAdjusted);
      driver.Find<QAbstractButton>("hideAllButton").click();
      driver.Find<QAbstractButton>("settingsButton").click();
      QTest::keyClick(dialog, Qt::Key_Escape);
      QTest::keyClick(dialog, Qt::Key_Return);
      ExpectUnchanged(before);
    });
    return AdjustBehindDialog(input, nullptr, kNoPause);
  };
  Click(1, kAdjusted);
  EXPECT_TRUE(seen);
  EXPECT_EQ(runs.size(), 1U);
  EXPECT_TRUE(Wave(0).adjusted);
  EXPECT_TRUE(Wave(0).adjustShow);
}

TEST_F(AdjustSeismicWaveRun, AResultOfAnotherProjectIsDropped) {
  run = [&](const AdjustInput& input) {
    QTimer::singleShot(0, &screen, [&] {
      EXPECT_EQ(doc.ResetDocument(), std::nullopt);
      FillProject(doc);
      Wave(0).name = "W";
      Wave(0).adjusted = Wave(0).adjustChecked = false;
    });
    return AdjustBehindDialog(input, nullptr, kNoPause);
  };
  Click(1, kAdjusted);
  EXPECT_FALSE(Wave(0).adjusted || Wave(0).adjustChecked);
  EXPECT_FALSE(doc.IsModified());
  EXPECT_EQ(Fit(), "");
}

TEST_F(AdjustSeismicWaveRun, WhileACommandIsUnderWayNothingIsPressed) {
  const DocumentState before(doc);
  gate.Run([this] {
    Click(1, kAdjusted);
    Click(1, kShown);
    driver.Click("baseGrid", 1, kBaseShown);
  });
  ExpectUnchanged(before);
  EXPECT_THAT(runs, IsEmpty());
}

// --- After the settings have cleared something ---

TEST_F(AdjustSeismicWaveScreen, AfterTheAdjustmentSettingsTheScreenIsFilledAgainWithoutMessages) {
  const QString question =
      "振幅調整をしていますがよろしいですか？\n\n"
      "振幅調整の設定を変更した場合、振幅調整が再度必要になります。";
  const DocumentState before(doc);
  prompt.ExpectQuestion(question, PromptAnswer::No);
  EXPECT_FALSE(rules.BeginAdjustSettings());
  ExpectUnchanged(before);
  EXPECT_EQ(Cell(1, kAdjusted), "1");
  prompt.ExpectQuestion(question, PromptAnswer::Yes);
  EXPECT_TRUE(rules.BeginAdjustSettings());
  EXPECT_THAT(Column(kAdjusted), ElementsAre("0", "0", "0"));
  EXPECT_THAT(Column(kAdopted), ElementsAre("1", "0", "0")) << "the adoption stays";
  EXPECT_EQ(Cell(1, 4), "20.00");
}

TEST_F(AdjustSeismicWaveScreen, AfterTheServiceParametersTheBaseRowIsEmptyAndARunSaysSo) {
  ChooseBase(doc, kPlaneLabel);
  screen.Refresh();
  EXPECT_EQ(driver.Cell("baseGrid", 1, 1), "距離減衰式（断層）");
  doc.ClearFaults();
  doc.ClearBaseSpectrumAndAdjustment();
  procedure.RefreshActiveScreen();
  EXPECT_THAT(RowTexts(driver.Grid("baseGrid").Data(), 1), ElementsAre("", "", "", "", ""));
  AdoptThird();
  const DocumentState before(doc);
  driver.Click("baseGrid", 1, kBaseShown);
  ExpectUnchanged(before);
  prompt.ExpectMessage("基準スペクトルとして「」が選択されていますが，その波形データがありません。");
  Click(3, kAdjusted);
  ExpectUnchanged(before);
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(AdjustSeismicWaveScreen, AnotherProjectShowsNothingOfTheLastRun) {
  AdoptThird();
  Click(3, kAdjusted);
  EXPECT_NE(Fit(), "");
  EXPECT_EQ(doc.ResetDocument(), std::nullopt);
  screen.Refresh();
  EXPECT_EQ(Fit(), "");
  EXPECT_FALSE(driver.Find<QLabel>("fitLabel").isVisible());
  EXPECT_EQ(driver.Grid("waveGrid").RowCount(), 0);
}

// --- The graph and the screen as a whole ---

TEST_F(AdjustSeismicWaveScreen, TheSettingsDialogWorksOnTheBlockOfTheAdjustment) {
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditBaseSpec");
    PressIn(dialog, "autoCheck");
    EXPECT_EQ(doc.graphAdjust.origGraph.autoRange, 0);
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_TRUE(doc.IsModified());
  ScreenDriver::InDialog([](QWidget& dialog) {
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_EQ(doc.graphAdjust, CSeismicWave());
}

/// Notes what a window is told for its status bar.
class StatusTips : public QObject {
 public:
  explicit StatusTips(QWidget& window) { window.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::StatusTip) last = static_cast<QStatusTipEvent*>(event)->tip().toStdString();
    return false;
  }
  std::string last;
};

TEST_F(AdjustSeismicWaveScreen, ACurveBearsTheNameOfItsWave) {
  doc.graphAdjust.origGraph.specLog = 0;
  for (const std::size_t hidden : {std::size_t{0}, std::size_t{2}}) Wave(hidden).adjustShow = false;
  screen.Refresh();
  driver.Picture();
  const StatusTips tips(*screen.window());
  driver.Find<QWidget>("graph").setFocus();
  driver.Key(Qt::Key_Home);
  EXPECT_THAT(tips.last, HasSubstr("B"));
}

TEST_F(AdjustSeismicWaveScreen, TheTabKeyFollowsTheReadingOrder) {
  driver.Find<QWidget>("baseGrid").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 8; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("baseGrid", "waveGrid", "helpButton", "showAllButton", "hideAllButton",
                                 "graph", "copyButton", "settingsButton"));
}

TEST_F(AdjustSeismicWaveScreen, TheScreenFollowsThePalette) {
  PaletteChange palette;
  driver.Find<QWidget>("graph").setFocus();
  const QImage light = driver.Picture();
  palette.ToDark();
  EXPECT_NE(driver.Picture(), light);
  palette.Back();
  EXPECT_EQ(driver.Picture(), light);
}

TEST_F(AdjustSeismicWaveScreen, ACheckedBoxIsToldFromAnOpenOneInEitherPalette) {
  CSpread7& grid = driver.Grid("waveGrid");
  const auto picture = [&](bool checked) {
    Wave(0).adjustChecked = checked;
    screen.Refresh();
    return grid.viewport()->grab(grid.visualRect(grid.model()->index(0, kAdjusted - 1))).toImage();
  };
  EXPECT_NE(picture(true), picture(false));
  PaletteChange palette;
  palette.ToDark();
  EXPECT_NE(picture(true), picture(false));
}

TEST_F(AdjustSeismicWaveScreen, TheGraphGivesWayToTheLinesBelowItInASmallWindow) {
  AdoptThird();
  run = [](const AdjustInput&) {
    AdjustResult result = Converged();
    result.fit.overshoot = result.fit.undershoot = 0.125;
    result.fit.overshootPeriod = result.fit.undershootPeriod = 0.5;
    return result;
  };
  Click(3, kAdjusted);
  EXPECT_FALSE(screen.layout()->hasHeightForWidth());
  screen.window()->resize(700, 560);
  Settle();
  EXPECT_EQ(screen.height(), 560);
  auto& label = driver.Find<QLabel>("fitLabel");
  EXPECT_LT(label.height(), 2 * label.fontMetrics().height()) << "one line";
  EXPECT_TRUE(screen.rect().contains(label.geometry()));
}

TEST_F(AdjustSeismicWaveScreen, SevenWavesAreSeenAndTheOthersScrolledTo) {
  CSpread7& grid = driver.Grid("waveGrid");
  const auto seen = [&](int row) {
    return grid.viewport()->rect().contains(grid.visualRect(grid.model()->index(row - 1, 0)));
  };
  EXPECT_TRUE(seen(3));
  for (int i = 0; i < 17; ++i) doc.seedWaves.Add(QString("W%1").arg(i));
  screen.Refresh();
  Settle();
  EXPECT_TRUE(seen(7));
  EXPECT_FALSE(seen(8));
  EXPECT_GE(driver.Find<QWidget>("graph").height(), 250);
}

// --- One wave from its file to the three files of its result ---

TEST_F(AdjustSeismicWaveScreen, WhatTheRoadExportsIsWhatTheCommandLineWrites) {
  const QString seed = SourcePath("samples/waves/hses_2016_n80w_0005_8192.csv");
  const QString target = SourcePath("data/LowSpec/h20_h.csv");
  const TestFolder folder;
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc, periods, values;
  ASSERT_EQ(ReadWaveFile(seed, name, timeStep, acc), std::nullopt);
  AddImportedWave(doc.seedWaves, name, timeStep, acc);
  ASSERT_EQ(ReadSpectrumFile(target, name, periods, values), std::nullopt);
  PutLongestFirst(periods, values);  // as the tables of the system have it
  doc.lowerSpectra.At(0).periods = periods;
  doc.lowerSpectra.At(0).accSpec = values;
  doc.adjustMaxIterations = 100;
  doc.adjustTolerancePercent = 0.05;
  const CliResult adjusted =
      RunCli({"adjust", "--seed", seed, "--target", target, "--out", folder.Path("cli.csv")});
  ASSERT_EQ(adjusted.status, 0) << adjusted.err.toStdString();
  EXPECT_EQ(RunCli({"response", seed, "--out", folder.Path("seed.csv")}).status, 0);
  ComputeResponseSpectrum(acc, Wave(3).periods, Wave(3).accSpec, timeStep);
  Wave(3).spectrumValid = true;
  run = [](const AdjustInput& input) { return AdjustBehindDialog(input, nullptr, kNoPause); };
  screen.Refresh();
  Click(4, kAdopted);
  Click(4, kAdjusted);
  ASSERT_TRUE(Wave(3).adjusted);

  ScriptedFiles files;
  CFrmVisualization visualization(doc, files, gate);
  ScreenDriver result(visualization);
  const DocumentState before(doc);
  files.Choose(folder.Path("window.csv"));
  result.Press("exportAdjustedButton");
  for (const char* ending : {".csv", "_AccSpec.csv", "_FFT.csv"}) {
    const QByteArray written = ReadAll(folder.Path("window") + ending);
    EXPECT_FALSE(written.isEmpty());
    EXPECT_TRUE(written == ReadAll(folder.Path("cli") + ending)) << ending;
  }
  files.Choose(folder.Path("own.csv"));
  result.Press("exportSeedButton");
  EXPECT_TRUE(ReadAll(folder.Path("own_AccSpec.csv")) == ReadAll(folder.Path("seed.csv")));
  ExpectUnchanged(before);
}

}  // namespace
}  // namespace tremlo::test
