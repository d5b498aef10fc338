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
#include "window/waves/FrmVisualization.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>

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

/// The waves "A", "B" and "C", of which "B" is adopted, adjusted and has valid spectra, against a lower
/// limit.
class VisualizationScreen : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  class Host : public RecordingHost {
   public:
    using RecordingHost::RecordingHost;
    void Prepare(ScreenId id) override {
      RecordingHost::Prepare(id);
      if (id == ScreenId::Visualization) screen->Prepare();
    }
    void Refresh(ScreenId id) override {
      RecordingHost::Refresh(id);
      if (id == ScreenId::Visualization) screen->Refresh();
    }
    CFrmVisualization* screen = nullptr;
  };

  VisualizationScreen() {
    host.screen = &screen;
    FillProject(doc);
    ChooseBase(doc, kLowerLabel);
    rules.AdoptWave(1);
    Wave().acc = RecordLike(100, 1);
    ComputeResponseSpectrum(Wave().acc, Wave().periods, Wave().accSpec, 0.01);
    Wave().adjustedAcc = RecordLike(128, 2);
    ComputeResponseSpectrum(Wave().adjustedAcc, Wave().adjustedPeriods, Wave().adjustedSpec, 0.01);
    doc.SetModified(false);
    EXPECT_EQ(Open(), SwitchOutcome::Open);
    EXPECT_TRUE(doc.IsModified()) << "as each entry does";
    Settle();
    doc.SetModified(false);
  }

  SwitchOutcome Open() { return procedure.SwitchScreen(ScreenId::Visualization); }
  CSeismicWave& Wave() { return doc.seedWaves.At(1); }
  bool Draws(QRgb color) { return driver.Shows("graph", color); }
  std::string Label(const char* name) { return driver.Find<QLabel>(name).text().toStdString(); }
  void Forget() {
    doc.seedWaves.ClearAdjustedAcc("B");
    doc.seedWaves.ClearAdjustedPeriods("B");
    doc.seedWaves.ClearAdjustedSpec("B");
    Wave().adjusted = Wave().adjustChecked = false;
    doc.SetModified(false);
  }
  static QByteArray Spectrum(const CSeismicWave& wave, const std::vector<double>& acc) {
    std::vector<double> periods, values;
    ComputeResponseSpectrum(WithoutBlanks(acc), periods, values, wave.timeStep);
    return QByteArray::fromStdString(CsvContent(AccSpecName(wave.name), wave.timeStep, periods, values));
  }

  QStringList log;
  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt{&log};
  Host host{doc, log};
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ChangeRules rules{doc, prompt, procedure};
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmVisualization screen{doc, files, gate};
  ScreenDriver driver{screen, {960, 700}};
  TestFolder folder;
};

TEST_F(VisualizationScreen, TheFiguresAreThoseOfTheAdoptedWave) {
  auto& label = screen.findChild<QLabel*>("figuresLabel")[0];
  const std::vector<FiguresLine> lines = FiguresOf(Wave());
  EXPECT_EQ(label.text(), lines[0].Text() + "\n" + lines[1].Text());
  rules.AdoptWave(2);
  screen.Refresh();
  EXPECT_EQ(label.text(), FiguresOf(doc.seedWaves.At(2))[0].Text());
  doc.seedWaves.At(2).adopted = false;
  screen.Refresh();
  EXPECT_FALSE(label.isVisible());
}

TEST_F(VisualizationScreen, TheAdoptedWaveIsShown) {
  EXPECT_EQ(driver.Text("nameEdit"), "B");
  EXPECT_EQ(driver.Text("countEdit"), "100");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_EQ(Label("caption"), "グラフ (時間－加速度)");
  EXPECT_TRUE(Draws(kSeedRgb) && Draws(kAdjustedRgb));
  EXPECT_FALSE(Draws(kTargetRgb));
}

TEST_F(VisualizationScreen, WithoutAnAdoptedWaveEachEntryIsRefusedAndTheScreenIsEmpty) {
  doc.ClearAdjustment();
  doc.SetModified(false);
  const DocumentState before(doc);
  for (int i = 0; i < 2; ++i) {
    prompt.ExpectMessage("「原種波形の振幅調整」にて採用する原種波形が選択されていません。");
    EXPECT_EQ(Open(), SwitchOutcome::Refused);
  }
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  screen.Refresh();
  EXPECT_EQ(driver.Text("nameEdit") + driver.Text("countEdit") + driver.Text("timeStepEdit"), "");
  for (const char* button : {"exportSeedButton", "exportAdjustedButton", "settingsButton", "targetCheck"})
    EXPECT_FALSE(driver.Find<QAbstractButton>(button).isEnabled()) << button;
  EXPECT_FALSE(Draws(kSeedRgb) || Draws(kAdjustedRgb));
}

TEST_F(VisualizationScreen, ARefreshAndEveryGraphChangeNoByte) {
  const DocumentState before(doc);
  for (const char* button : {"specButton", "fourierButton", "timeButton"}) {
    driver.Press(button);
    screen.Refresh();
    screen.Prepare();
    driver.Picture();
  }
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(VisualizationScreen, TheKindButtonsSwitchGraphAndCaption) {
  driver.Press("specButton");
  EXPECT_EQ(Label("caption"), "グラフ (周期－加速度応答スペクトル)");
  EXPECT_TRUE(Draws(kSeedRgb) && Draws(kAdjustedRgb) && Draws(kTargetRgb));
  driver.Press("fourierButton");
  EXPECT_EQ(Label("caption"), "グラフ (フーリエスペクトル)");
  EXPECT_TRUE(Draws(kSeedRgb) && Draws(kAdjustedRgb));
  EXPECT_FALSE(Draws(kTargetRgb));
  EXPECT_EQ(Open(), SwitchOutcome::Open);
  EXPECT_EQ(Label("caption"), "グラフ (時間－加速度)");
}

TEST_F(VisualizationScreen, AnAdoptedWaveThatWasNotAdjustedIsDrawnAlone) {
  Forget();
  screen.Prepare();
  for (const char* button : {"timeButton", "specButton", "fourierButton"}) {
    driver.Press(button);
    EXPECT_TRUE(Draws(kSeedRgb)) << button;
    EXPECT_FALSE(Draws(kAdjustedRgb)) << button;
  }
  files.Choose(folder.Path("adj.csv"));
  driver.Press("exportAdjustedButton");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(VisualizationScreen, ASpectrumOfOtherSamplesIsNotDrawnAndThatIsSaid) {
  Wave().spectrumValid = false;  // its samples were changed after the spectrum was computed
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QLabel>("missingLabel").isVisible()) << "the time graph is right";
  driver.Press("specButton");
  EXPECT_FALSE(Draws(kSeedRgb));
  EXPECT_TRUE(driver.Find<QLabel>("missingLabel").isVisible());
  EXPECT_EQ(Label("missingLabel"),
            "原種波形の加速度応答スペクトルは、波形データの変更後に計算されていません。"
            "「原種波形の振幅調整」を開くと計算されます。");
  EXPECT_FALSE(Wave().spectrumValid);
  driver.Press("seedCheck");
  EXPECT_FALSE(driver.Find<QLabel>("missingLabel").isVisible());
  driver.Press("seedCheck");
  EXPECT_TRUE(driver.Find<QLabel>("missingLabel").isVisible());
  Wave().spectrumValid = true;
  screen.Refresh();
  EXPECT_TRUE(Draws(kSeedRgb));
  EXPECT_FALSE(driver.Find<QLabel>("missingLabel").isVisible());
}

TEST_F(VisualizationScreen, TheSwitchesStoreAndHideTheirCurve) {
  driver.Press("seedCheck");
  EXPECT_EQ(doc.visualShowOrig, 0);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(Draws(kSeedRgb));
  DoOfferedAction(driver.Find<QCheckBox>("adjustedCheck"));
  EXPECT_EQ(doc.visualShowAdjusted, 0);
  EXPECT_FALSE(Draws(kAdjustedRgb));
  doc.visualShowOrig = 2;  // of a file: only 1 is on
  doc.visualShowAdjusted = -1;
  screen.Refresh();
  EXPECT_FALSE(Draws(kSeedRgb) || Draws(kAdjustedRgb));
  EXPECT_EQ(doc.visualShowOrig, 2);
}

TEST_F(VisualizationScreen, TheTargetIsTheMarkedBaseWhateverItsSource) {
  driver.Press("specButton");
  for (const char16_t* label : {kWaveLabel, kPlaneLabel, kEquivalentLabel, kLowerLabel}) {
    ChooseBase(doc, label);
    screen.Refresh();
    EXPECT_TRUE(driver.Find<QCheckBox>("targetCheck").isEnabled());
    EXPECT_TRUE(Draws(kTargetRgb)) << QString::fromUtf16(label).toStdString();
  }
  doc.lowerSpectra.At(0).accSpec.clear();
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QCheckBox>("targetCheck").isEnabled()) << "it has no points";
  doc.ClearSpectrumSelection();
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QCheckBox>("targetCheck").isEnabled());
  EXPECT_FALSE(Draws(kTargetRgb));
}

TEST_F(VisualizationScreen, TheSwitchOfTheTargetIsNotStored) {
  driver.Press("specButton");
  const DocumentState before(doc);
  EXPECT_TRUE(driver.Find<QCheckBox>("targetCheck").isChecked()) << "on at first";
  driver.Press("targetCheck");
  EXPECT_FALSE(Draws(kTargetRgb));
  DoOfferedAction(driver.Find<QCheckBox>("targetCheck"));
  EXPECT_TRUE(Draws(kTargetRgb));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(VisualizationScreen, TheExportsComputeAfreshAndStoreNothing) {
  Wave().spectrumValid = true;
  Wave().periods = Wave().adjustedPeriods = {2.5};
  Wave().accSpec = Wave().adjustedSpec = {77.0};
  Wave().acc[50] = kBlankSample;
  const DocumentState before(doc);
  EXPECT_EQ(driver.Find<QAbstractButton>("exportSeedButton").text(), "原種波形のCSV出力");
  EXPECT_EQ(driver.Find<QAbstractButton>("exportAdjustedButton").text(), "調整後波形のCSV出力");
  files.Choose(folder.Path("seed.csv"));
  driver.Press("exportSeedButton");
  files.Choose(folder.Path("adj.csv"));
  driver.Press("exportAdjustedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("adj.csv", "adj_AccSpec.csv", "adj_FFT.csv", "seed.csv",
                                          "seed_AccSpec.csv", "seed_FFT.csv"));
  EXPECT_EQ(ReadAll(folder.Path("seed_AccSpec.csv")), Spectrum(Wave(), Wave().acc));
  EXPECT_EQ(ReadAll(folder.Path("adj_AccSpec.csv")), Spectrum(Wave(), Wave().adjustedAcc));
  EXPECT_EQ(ReadAll(folder.Path("adj.csv")).count('\n'), 129);
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(files.saved.at(0).proposedName, "B.csv");
  EXPECT_EQ(files.saved.at(1).proposedName, "B_調整後.csv");
}

TEST_F(VisualizationScreen, ACancelledExportStillWritesTheTwoSpectra) {
  const CurrentFolder here(folder.Path());
  files.Cancel();
  driver.Press("exportAdjustedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("_AccSpec", "_FFT"));
}

TEST_F(VisualizationScreen, AnExportThatFailsSaysNothing) {
  folder.Write("file", "x");
  files.Choose(folder.Path("file") + "/out.csv");
  driver.Press("exportSeedButton");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST_F(VisualizationScreen, AnyNameIsShownAsItIs) {
  const QString name = ", \" & [*] <b>①髙～";
  Wave().name = name;
  screen.Refresh();
  EXPECT_EQ(driver.Text("nameEdit"), name.toStdString());
  files.Choose(folder.Path("out.csv"));
  driver.Press("exportSeedButton");
  EXPECT_EQ(files.saved.at(0).proposedName, FileNameOfWave(name, {}));
  EXPECT_EQ(folder.Names().size(), 3);
}

TEST_F(VisualizationScreen, OfEqualNamesTheAdoptedOneIsShown) {
  doc.seedWaves.At(0).name = "B";
  doc.seedWaves.At(0).acc = {1.0};
  screen.Refresh();
  EXPECT_EQ(driver.Text("countEdit"), "100");
}

TEST_F(VisualizationScreen, AfterTheAdjustmentSettingsTheResultIsGoneFromTheScreen) {
  const QString question =
      "振幅調整をしていますがよろしいですか？\n\n"
      "振幅調整の設定を変更した場合、振幅調整が再度必要になります。";
  const DocumentState before(doc);
  prompt.ExpectQuestion(question, PromptAnswer::No);
  EXPECT_FALSE(rules.BeginAdjustSettings());
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_TRUE(Draws(kAdjustedRgb));
  prompt.ExpectQuestion(question, PromptAnswer::Yes);
  EXPECT_TRUE(rules.BeginAdjustSettings());
  EXPECT_TRUE(Draws(kSeedRgb));
  EXPECT_FALSE(Draws(kAdjustedRgb));
}

TEST_F(VisualizationScreen, TheSettingsDialogWorksOnTheBlockAndTheTwoColours) {
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditVisual");
    EXPECT_EQ(dialog.findChild<CSpread7*>("timeGrid")->GetCellText(0, 1), "グラフ(時間-平均応答加速度)");
    PressIn(dialog, "autoCheck");
    EXPECT_EQ(doc.graphAdjust.origGraph.autoRange, 0);
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_EQ(doc.graphAdjust, CSeismicWave());
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(VisualizationScreen, TheTabKeyFollowsTheReadingOrder) {
  driver.Press("specButton");
  driver.Find<QWidget>("seedCheck").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 9; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              ElementsAre("seedCheck", "adjustedCheck", "targetCheck", "exportSeedButton",
                          "exportAdjustedButton", "specButton", "graph", "copyButton", "settingsButton"));
}

TEST_F(VisualizationScreen, TheScreenFollowsThePalette) {
  PaletteChange palette;
  driver.Find<QWidget>("graph").setFocus();
  const QImage light = driver.Picture();
  palette.ToDark();
  EXPECT_NE(driver.Picture(), light);
  palette.Back();
  EXPECT_EQ(driver.Picture(), light);
}

}  // namespace
}  // namespace tremlo::test
