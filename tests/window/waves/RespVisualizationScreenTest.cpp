#include "core/project/ResponseRoute.h"
#include "core/waves/FiguresText.h"
#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/DocumentState.h"
#include "support/OfferedAction.h"
#include "support/PaletteChange.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/DlgGraphEditVisual.h"
#include "window/graphs/DrawGraph.h"
#include "window/waves/FrmRespAdjustSpectrum.h"
#include "window/waves/FrmRespVisualization.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QStatusTipEvent>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr QRgb kSeedRgb = 0xFF3232FF;      // 0xFF3232 as blue, green, red
constexpr QRgb kAdjustedRgb = 0xFFFF0000;  // 0x0000FF
constexpr QRgb kTargetRgb = 0xFF008000;

/// Works in a folder of its own: an export whose dialog was cancelled writes into the current one.
class CurrentFolder {
 public:
  explicit CurrentFolder(const QString& path) : m_before(QDir::currentPath()) { QDir::setCurrent(path); }
  ~CurrentFolder() { QDir::setCurrent(m_before); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  QString m_before;
};

class RespVisualizationScreen : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  RespVisualizationScreen() {
    doc.guidelineRoute = false;
    EnsureRespWave(doc);
    Wave().name = "W";
    Wave().acc = RecordLike(100, 1);
    Adjust();
    screen.Prepare();
    screen.Entered();
    Settle();
    doc.SetModified(false);
  }

  CSeismicWave& Wave() { return doc.seedWaves.At(0); }
  void Adjust() {
    Wave().adjusted = true;
    Wave().adjustedAcc = RecordLike(128, 2);
    ComputeResponseSpectrum(Wave().adjustedAcc, Wave().adjustedPeriods, Wave().adjustedSpec, 0.01);
  }
  /// Whether a curve of the colour is in the graph.
  bool Draws(QRgb color) { return driver.Shows("graph", color); }
  std::string Caption() { return driver.Find<QLabel>("caption").text().toStdString(); }
  AdjustResult RunOf(bool converged) {
    AdjustResult run;
    run.converged = converged;
    run.passes = 9;
    run.fit.deviation = converged ? 0.0498 : 0.08;
    if (converged) run.acc = Wave().adjustedAcc;
    return run;
  }
  static std::string FirstLine(const QString& path) {
    const QByteArray content = ReadAll(path);
    return content.left(content.indexOf('\n')).toStdString();
  }
  static qsizetype DataLines(const QString& path) { return ReadAll(path).count('\n') - 1; }

  CMorvaneDoc doc{QString()};
  ScriptedFiles files;
  ScriptedPrompt prompt;
  CommandGate gate{prompt};
  CFrmRespVisualization screen{doc, files, gate};
  ScreenDriver driver{screen};
  TestFolder folder;
};

TEST_F(RespVisualizationScreen, TheWaveIsShown) {
  auto& combo = driver.Find<QComboBox>("nameCombo");
  EXPECT_EQ(combo.currentText(), "W");
  EXPECT_EQ(combo.count(), 1);
  EXPECT_EQ(combo.accessibleName(), "波形データ名");
  EXPECT_EQ(driver.Text("countEdit"), "100");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_EQ(Caption(), "グラフ (時間－加速度)");
  EXPECT_TRUE(Draws(kSeedRgb));
  EXPECT_TRUE(Draws(kAdjustedRgb));
}

TEST_F(RespVisualizationScreen, CountAndTimeStepAreReadInTheNarrowestWindow) {
  Wave().acc.resize(1000000);
  Wave().timeStep = 0.0025;
  screen.Refresh();
  screen.window()->resize(screen.window()->minimumSizeHint());
  Settle();
  for (const char* name : {"countEdit", "timeStepEdit"}) {
    const auto& edit = driver.Find<CExpEdit>(name);
    auto& field = driver.Find<QLineEdit>(name);
    EXPECT_EQ(field.cursorPositionAt({0, 5}), 0) << name;
    EXPECT_EQ(field.cursorPositionAt({field.width() - 1, 5}), edit.GetText().size()) << name;
  }
}

TEST_F(RespVisualizationScreen, WithoutAnAdjustmentOnlyTheSeedIsShown) {
  Wave().adjusted = false;
  screen.Prepare();
  Settle();
  for (const char* button : {"timeButton", "specButton", "fourierButton"}) {
    driver.Press(button);
    EXPECT_TRUE(Draws(kSeedRgb)) << button;
    EXPECT_FALSE(Draws(kAdjustedRgb)) << button;
  }
}

TEST_F(RespVisualizationScreen, BlankSamplesCountAs0InEveryGraph) {
  Wave().adjusted = false;
  Wave().acc[50] = kBlankSample;
  screen.Prepare();
  for (const char* button : {"timeButton", "specButton", "fourierButton"}) {
    driver.Press(button);
    EXPECT_TRUE(Draws(kSeedRgb)) << button;
  }
}

TEST_F(RespVisualizationScreen, WithoutAWaveTheScreenIsEmpty) {
  doc.seedWaves.Clear();
  screen.Refresh();
  driver.Picture();
  EXPECT_EQ(driver.Find<QComboBox>("nameCombo").count(), 0);
  EXPECT_EQ(driver.Text("countEdit"), "");
  EXPECT_FALSE(driver.Find<QWidget>("exportSeedButton").isEnabled());
}

TEST_F(RespVisualizationScreen, TheKindButtonsSwitchGraphAndCaption) {
  driver.Press("specButton");
  EXPECT_EQ(Caption(), "グラフ (周期－加速度応答スペクトル)");
  EXPECT_TRUE(Draws(kAdjustedRgb));
  driver.Press("fourierButton");
  EXPECT_EQ(Caption(), "グラフ (フーリエスペクトル)");
  EXPECT_TRUE(Draws(kAdjustedRgb));
  screen.Prepare();
  EXPECT_EQ(Caption(), "グラフ (時間－加速度)");
  EXPECT_TRUE(driver.Find<QAbstractButton>("timeButton").isChecked());
}

TEST_F(RespVisualizationScreen, TheSwitchesStoreAndHideTheirCurve) {
  driver.Press("seedCheck");
  EXPECT_EQ(doc.visualShowOrig, 0);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(Draws(kSeedRgb));
  EXPECT_TRUE(Draws(kAdjustedRgb));
  driver.Press("adjustedCheck");
  EXPECT_EQ(doc.visualShowAdjusted, 0);
  EXPECT_FALSE(Draws(kAdjustedRgb));
  driver.Press("seedCheck");
  EXPECT_EQ(doc.visualShowOrig, 1);
  EXPECT_TRUE(Draws(kSeedRgb));
}

TEST_F(RespVisualizationScreen, ASwitchOtherThan1IsOffAndIsKept) {
  doc.visualShowOrig = 2;
  doc.visualShowAdjusted = -1;
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QCheckBox>("seedCheck").isChecked());
  EXPECT_FALSE(driver.Find<QCheckBox>("adjustedCheck").isChecked());
  EXPECT_FALSE(Draws(kSeedRgb));
  EXPECT_FALSE(Draws(kAdjustedRgb));
  EXPECT_EQ(doc.visualShowOrig, 2);
  EXPECT_EQ(doc.visualShowAdjusted, -1);
}

TEST_F(RespVisualizationScreen, TheSeedSpectrumIsComputedWhenItIsPaintedAndOnlyThen) {
  driver.Picture();
  EXPECT_FALSE(Wave().spectrumValid);
  driver.Press("seedCheck");
  driver.Press("specButton");
  driver.Picture();
  EXPECT_FALSE(Wave().spectrumValid);
  doc.SetModified(false);
  doc.visualShowOrig = 1;
  screen.Refresh();
  driver.Picture();
  EXPECT_TRUE(Wave().spectrumValid);
  EXPECT_TRUE(doc.IsModified());
  std::vector<double> periods, values;
  ComputeResponseSpectrum(Wave().acc, periods, values, 0.01);
  EXPECT_EQ(Wave().accSpec, values);
}

TEST_F(RespVisualizationScreen, ARefreshChangesNothingInTheDocument) {
  const CSeismicWave before = Wave();
  screen.Refresh();
  screen.Prepare();
  driver.Picture();
  EXPECT_EQ(Wave(), before);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespVisualizationScreen, TheFitIsToldUntilTheResultIsGone) {
  auto& label = driver.Find<QLabel>("fitLabel");
  EXPECT_EQ(label.text(), "");
  EXPECT_FALSE(label.isVisible());
  screen.ShowRun(RunOf(true));
  EXPECT_TRUE(label.isVisible());
  EXPECT_EQ(label.accessibleName(), "適合度 偏差（RMS） 4.98 %");
  screen.Refresh();
  EXPECT_EQ(label.text(), "偏差（RMS） 4.98 %");
  Wave().adjustedAcc[0] += 1.0;  // another result
  screen.Refresh();
  EXPECT_EQ(label.text(), "");
  screen.ShowRun(RunOf(true));
  EXPECT_EQ(label.text(), "偏差（RMS） 4.98 %");
  ChangeRespWave(doc, [] {});
  screen.Refresh();
  EXPECT_EQ(label.text(), "");
}

TEST_F(RespVisualizationScreen, AFailedRunIsToldAsSuchUntilThereIsAResult) {
  auto& label = driver.Find<QLabel>("fitLabel");
  ChangeRespWave(doc, [] {});
  screen.ShowRun(RunOf(false));
  screen.Prepare();
  EXPECT_EQ(label.text(), "収束しなかった計算：偏差（RMS） 8.00 %");
  EXPECT_TRUE(label.isVisible());
  Adjust();
  screen.Refresh();
  EXPECT_EQ(label.text(), "");
}

TEST_F(RespVisualizationScreen, TheFiguresOfBothWavesAreToldUntilTheyAreOthers) {
  auto& label = driver.Find<QLabel>("figuresLabel");
  const auto text = [&](const std::vector<double>& seed) {
    return MakeFiguresLine("原種波形", ComputeWaveFigures(seed, 0.01)).Text();
  };
  EXPECT_TRUE(label.isVisible());
  EXPECT_EQ(label.text(),
            text(Wave().acc) + "\n" +
                MakeFiguresLine("調整後波形", ComputeWaveFigures(Wave().adjustedAcc, 0.01)).Text());
  ChangeRespWave(doc, [this] { Wave().acc[50] = 999.0; });
  screen.Prepare();
  EXPECT_EQ(label.text(), text(Wave().acc));
  EXPECT_THAT(label.text().toStdString(), testing::HasSubstr("最大加速度 999.0 gal"));
  doc.seedWaves.Clear();
  screen.Refresh();
  EXPECT_FALSE(label.isVisible());
}

TEST_F(RespVisualizationScreen, PaintingComputesNoFigure) {
  auto& label = driver.Find<QLabel>("figuresLabel");
  const QString before = label.text();
  Wave().acc[50] = 999.0;  // behind the back of the screen
  driver.Picture();
  label.resize(label.width() + 1, label.height());
  driver.Picture();
  EXPECT_EQ(label.text(), before);
}

TEST_F(RespVisualizationScreen, AnotherProjectShowsNothingOfTheLastRun) {
  const CSeismicWaveSet waves = doc.seedWaves;
  screen.ShowRun(RunOf(true));
  EXPECT_EQ(doc.ResetDocument(), std::nullopt);
  doc.seedWaves = waves;
  screen.Refresh();
  EXPECT_EQ(driver.Find<QLabel>("fitLabel").text(), "");
}

TEST_F(RespVisualizationScreen, TheTargetIsDrawnAmongTheResponseSpectraInTheOrderStored) {
  auto& check = driver.Find<QCheckBox>("targetCheck");
  EXPECT_EQ(check.text(), "目標スペクトル");
  EXPECT_TRUE(check.isChecked()) << "on at first";
  EXPECT_FALSE(check.isEnabled()) << "the time graph has no target";
  driver.Press("specButton");
  EXPECT_FALSE(check.isEnabled()) << "there is none";
  EXPECT_FALSE(Draws(kTargetRgb));
  doc.respSpectra.AddSpectrum("T", {0.02, 0.1, 0.5}, {100.0, 300.0, 50.0});  // rising, as the run turns it
  screen.Refresh();
  EXPECT_TRUE(check.isEnabled());
  EXPECT_TRUE(Draws(kTargetRgb));
  driver.Press("timeButton");
  EXPECT_FALSE(check.isEnabled());
  EXPECT_FALSE(Draws(kTargetRgb));
  driver.Press("fourierButton");
  EXPECT_FALSE(check.isEnabled());
  EXPECT_FALSE(Draws(kTargetRgb));
}

TEST_F(RespVisualizationScreen, TheSwitchOfTheTargetIsNotStored) {
  doc.respSpectra.AddSpectrum("T", {0.5, 0.02}, {300.0, 50.0});
  driver.Press("specButton");
  driver.Picture();
  doc.SetModified(false);
  const DocumentState before(doc);
  driver.Press("targetCheck");
  EXPECT_FALSE(Draws(kTargetRgb));
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QCheckBox>("targetCheck").isChecked()) << "a refresh is none of the user's";
  DoOfferedAction(driver.Find<QCheckBox>("targetCheck"));
  EXPECT_TRUE(Draws(kTargetRgb));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(RespVisualizationScreen, TheSeedExportWritesThreeFilesAndStoresTheSpectrum) {
  files.Choose(folder.Path("out.csv"));
  EXPECT_EQ(driver.Find<QAbstractButton>("exportSeedButton").text(), "原種波形の出力");
  driver.Press("exportSeedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("out.csv", "out_AccSpec.csv", "out_FFT.csv"));
  EXPECT_EQ(FirstLine(folder.Path("out.csv")), "W, 0.01, 1");
  EXPECT_EQ(DataLines(folder.Path("out.csv")), 100);
  EXPECT_EQ(DataLines(folder.Path("out_AccSpec.csv")), 50);
  EXPECT_EQ(DataLines(folder.Path("out_FFT.csv")), 64);
  EXPECT_TRUE(Wave().spectrumValid);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(files.saved.at(0).nameFilters, "CSVファイル (*.csv)");
  EXPECT_EQ(files.saved.at(0).suffix, "csv");
  EXPECT_EQ(files.saved.at(0).proposedName, "W.csv");
}

TEST_F(RespVisualizationScreen, TheSeedExportUsesAStoredSpectrum) {
  Wave().spectrumValid = true;
  Wave().periods = {2.5};
  Wave().accSpec = {77.0};
  files.Choose(folder.Path("out.csv"));
  driver.Press("exportSeedButton");
  EXPECT_TRUE(ReadAll(folder.Path("out_AccSpec.csv")).endsWith("\n2.5, 77\n"));
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespVisualizationScreen, TheAdjustedExportUsesTheStoredVectors) {
  Wave().adjustedPeriods = {2.5};
  Wave().adjustedSpec = {88.0};
  files.Choose(folder.Path("adj.csv"));
  EXPECT_EQ(driver.Find<QAbstractButton>("exportAdjustedButton").text(), "調整後波形の出力");
  driver.Press("exportAdjustedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("adj.csv", "adj_AccSpec.csv", "adj_FFT.csv"));
  EXPECT_EQ(DataLines(folder.Path("adj.csv")), 128);
  EXPECT_TRUE(ReadAll(folder.Path("adj_AccSpec.csv")).endsWith("\n2.5, 88\n"));
  EXPECT_FALSE(Wave().spectrumValid);
  EXPECT_EQ(files.saved.at(0).proposedName, "W_調整後.csv") << "not that of the seed wave's file";
}

TEST_F(RespVisualizationScreen, TheAdjustedExportWithoutAResultWritesNoFile) {
  ChangeRespWave(doc, [] {});
  files.Choose(folder.Path("adj.csv"));
  driver.Press("exportAdjustedButton");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(RespVisualizationScreen, ACancelledExportStillWritesTheTwoSpectra) {
  const CurrentFolder here(folder.Path());
  files.Cancel();
  driver.Press("exportSeedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("_AccSpec", "_FFT"));
  EXPECT_EQ(DataLines(folder.Path("_AccSpec")), 50);
  EXPECT_TRUE(Wave().spectrumValid);
}

TEST_F(RespVisualizationScreen, AnExportThatFailsSaysNothing) {
  folder.Write("file", "x");
  files.Choose(folder.Path("file") + "/out.csv");
  driver.Press("exportSeedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST_F(RespVisualizationScreen, TheActionOfferedOnASwitchIsAClick) {
  DoOfferedAction(driver.Find<QCheckBox>("seedCheck"));
  EXPECT_EQ(doc.visualShowOrig, 0);
  EXPECT_EQ(doc.visualShowAdjusted, 1);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(Draws(kSeedRgb));
  DoOfferedAction(driver.Find<QCheckBox>("adjustedCheck"));
  EXPECT_EQ(doc.visualShowAdjusted, 0);
  DoOfferedAction(driver.Find<QCheckBox>("seedCheck"));
  EXPECT_EQ(doc.visualShowOrig, 1);
  EXPECT_TRUE(Draws(kSeedRgb));
}

TEST_F(RespVisualizationScreen, ARefreshOfTheSwitchesIsNoChange) {
  doc.visualShowOrig = 2;  // of a file: only 1 is on
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QCheckBox>("seedCheck").isChecked());
  EXPECT_EQ(doc.visualShowOrig, 2);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespVisualizationScreen, WhatIsOfferedDependsOnTheWave) {
  const auto offers = [this](const char* name) { return driver.Find<QAbstractButton>(name).isEnabled(); };
  driver.Press("fourierButton");
  Wave().acc.clear();
  screen.Refresh();
  EXPECT_TRUE(offers("fourierButton"));  // the adjusted wave has one
  Wave().adjustedAcc.clear();
  Wave().adjusted = false;
  screen.Refresh();
  EXPECT_FALSE(offers("fourierButton"));
  EXPECT_EQ(Caption(), "グラフ (時間－加速度)");
  EXPECT_TRUE(offers("settingsButton"));
  EXPECT_TRUE(offers("specButton"));
  doc.seedWaves.Clear();
  screen.Refresh();
  EXPECT_FALSE(offers("settingsButton"));
}

TEST_F(RespVisualizationScreen, TheScreenFollowsThePalette) {
  PaletteChange palette;
  driver.Find<QWidget>("graph").setFocus();
  const QImage light = driver.Picture();
  palette.ToDark();
  const QImage dark = driver.Picture();
  palette.Back();
  EXPECT_EQ(driver.Picture(), light);
  palette.ToDark();
  CFrmRespVisualization fresh(doc, files, gate);
  fresh.Prepare();
  fresh.Entered();
  ScreenDriver another(fresh);
  another.Find<QWidget>("graph").setFocus();
  EXPECT_EQ(another.Picture(), dark);
}

TEST_F(RespVisualizationScreen, TheSettingsDialogWorksOnTheBlockAndTheTwoColours) {
  doc.visualColorOrig = 1;
  doc.visualColorAdjusted = 2;
  screen.Refresh();
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<CSpread7*>("timeGrid")->GetCellText(0, 1), "グラフ(時間-平均応答加速度)");
    auto* const colors = dialog.findChild<CSpread7*>("colorGrid");
    EXPECT_EQ(colors->GetCellText(1, 1) + colors->GetCellText(2, 1), "原種波形調整後波形");
    PressIn(dialog, "autoCheck");
    EXPECT_EQ(doc.graphAdjust.origGraph.autoRange, 0);
    EXPECT_FALSE(driver.Shows("seedCheck", kSeedRgb));
    PressIn(dialog, "resetColorsButton");
    EXPECT_TRUE(driver.Shows("seedCheck", kSeedRgb));
    EXPECT_TRUE(driver.Shows("adjustedCheck", kAdjustedRgb));
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_EQ(doc.visualColorOrig, 0xFF3232);
  EXPECT_EQ(doc.visualColorAdjusted, 0x0000FF);
  EXPECT_EQ(doc.graphAdjust, CSeismicWave());
  EXPECT_TRUE(doc.IsModified());
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

TEST_F(RespVisualizationScreen, TheValuesUnderThePointerGoToTheStatusBar) {
  StatusTips tips(*screen.window());
  auto& graph = driver.Find<QWidget>("graph");
  graph.setFocus();
  driver.Key(Qt::Key_Home);
  EXPECT_THAT(tips.last, testing::HasSubstr("波形：時間 0."));
}

TEST_F(RespVisualizationScreen, TheTabKeyFollowsTheReadingOrder) {
  driver.Find<QWidget>("nameCombo").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 10; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("nameCombo", "seedCheck", "adjustedCheck", "exportSeedButton",
                                 "exportAdjustedButton", "timeButton", "graph", "copyButton",
                                 "settingsButton", "figuresLabel"));
}

// The gate and the screen together.

class RespVisualizationGate : public testing::Test {
 protected:
  /// Reaches the screen as the window does.
  class Host : public RecordingHost {
   public:
    using RecordingHost::RecordingHost;
    void Prepare(ScreenId id) override {
      RecordingHost::Prepare(id);
      if (id == ScreenId::RespVisualization) screen->Prepare();
    }
    CFrmRespVisualization* screen = nullptr;
  };

  RespVisualizationGate() {
    host.screen = &screen;
    doc.guidelineRoute = false;
    EnsureRespWave(doc);
    doc.respSpectra.AddSpectrum("T", {0.02, 2.0}, {100.0, 50.0});
  }
  SwitchOutcome Open() { return procedure.SwitchScreen(ScreenId::RespVisualization); }
  qsizetype Runs() const { return log.count("adjust"); }

  QStringList log;
  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt;
  Host host{doc, log};
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmRespVisualization screen{doc, files, gate};
};

TEST_F(RespVisualizationGate, AMissingWaveIsTold) {
  doc.seedWaves.At(0).timeStep = 0.0;
  prompt.ExpectMessage("原種波形が設定されていません。");
  EXPECT_EQ(Open(), SwitchOutcome::Refused);
}

TEST_F(RespVisualizationGate, AMissingTargetIsTold) {
  doc.respSpectra.At(0).periods.clear();
  prompt.ExpectMessage("調整用スペクトルのデータがありません。");
  EXPECT_EQ(Open(), SwitchOutcome::Refused);
}

TEST_F(RespVisualizationGate, AFailedRunIsToldAndLeavesTheSeedAlone) {
  host.respAdjustmentWorks = false;
  prompt.ExpectMessage("地震波形調整の計算に失敗しました。", PromptIcon::Warning,
                       "繰り返し 4 回で収束しませんでした（最後の偏差 12.50 %）。\n"
                       "繰り返し回数と収束判定は「波形調整設定」で設定します。");
  EXPECT_EQ(Open(), SwitchOutcome::Refused);
  EXPECT_FALSE(doc.seedWaves.At(0).adjusted);
  EXPECT_EQ(screen.findChild<QComboBox*>("nameCombo")->currentText(), "地震波形");
}

TEST_F(RespVisualizationGate, ASecondEntryRunsAgainOnlyAfterAChange) {
  EXPECT_EQ(Open(), SwitchOutcome::Open);
  EXPECT_EQ(Open(), SwitchOutcome::Open);
  EXPECT_EQ(Runs(), 1);
  const TestFolder folder;
  CFrmRespAdjustSpectrum spectrum(doc, prompt, files, gate);
  files.Choose(folder.Write("s.csv", "N, 0, 1\n0.02, 300\n"));
  spectrum.findChild<QAbstractButton*>("readButton")->click();
  EXPECT_EQ(Open(), SwitchOutcome::Open);
  EXPECT_EQ(Runs(), 2);
}

}  // namespace
}  // namespace tremlo::test
