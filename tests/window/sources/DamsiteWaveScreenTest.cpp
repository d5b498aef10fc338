#include "SpectraScreenTest.h"
#include "core/graphs/CurvePalette.h"
#include "window/sources/FrmDamsiteWave.h"

namespace tremlo::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kName = 2, kColor = 3, kShown = 4, kUse = 5;
constexpr char kGrid[] = "waveGrid";

class DamsiteWaveScreen : public SpectraScreenTest {
 protected:
  DamsiteWaveScreen() : SpectraScreenTest(ScreenId::DamsiteWave) { Make<CFrmDamsiteWave>(); }

  /// The waves "A" (in use), "B" and "C".
  void EnterThree() {
    AddWave(QStringLiteral("A")).siteColor = 0x0000C0;
    AddWave(QStringLiteral("B"), false).siteColor = 0x00A000;
    AddWave(QStringLiteral("C"), false).siteColor = 0xB00000;
    Enter();
  }
  /// The same, with "A" as base spectrum and its adjustment.
  void EnterWithBase() {
    EnterThree();
    SetBase(doc, QStringLiteral("A"));
    Adopt(1);
    screen->Refresh();
    doc.SetModified(false);
  }
  void ExpectBaseCleared() {
    EXPECT_EQ(doc.baseSpectrumName, "");
    EXPECT_EQ(MarkedBase(doc), std::nullopt);
    EXPECT_FALSE(doc.seedAdopted || doc.seedWaves.At(1).adjusted);
    EXPECT_TRUE(doc.IsModified());
  }
};

TEST_F(DamsiteWaveScreen, ARowForEachRegisteredWave) {
  EnterThree();
  QStringList titles;
  for (int column = 1; column <= 5; ++column) titles << driver->Grid(kGrid).GetCellText(0, column);
  EXPECT_THAT(titles, ElementsAre("No.", "波形名", "色", "表示", "利用"));
  EXPECT_THAT(Column(kGrid, kName), ElementsAre("A", "B", "C"));
  EXPECT_THAT(Column(kGrid, kColor), ElementsAre("#C00000", "#00A000", "#0000B0"));
  EXPECT_THAT(Column(kGrid, kShown), Each(QString("1")));
  EXPECT_THAT(Column(kGrid, kUse), ElementsAre("1", "0", "0"));
  EXPECT_EQ(driver->Find<QLabel>("caption").text(), "グラフ (周期－加速度応答スペクトル)");
}

// --- What entering computes ---

TEST_F(DamsiteWaveScreen, WithoutAWaveItIsRefusedWithOneWarning) {
  const QStringList rows = Column(kGrid, kName);
  prompt.ExpectMessage(QStringLiteral("「波形登録」で波形を登録してください。"));
  ExpectNoChange([&] { EXPECT_EQ(Press(), SwitchOutcome::Refused); });
  EXPECT_FALSE(HasOpened());
  EXPECT_EQ(Column(kGrid, kName), rows);
}

TEST_F(DamsiteWaveScreen, MissingSpectraAreComputedBehindTheirDialog) {
  AddWave(QStringLiteral("A"));
  AddWave(QStringLiteral("B"), false);
  doc.seedWaves.At(0).spectrumValid = true;
  ASSERT_EQ(Press(), SwitchOutcome::Open);
  EXPECT_THAT(runs.Take(), ElementsAre("CDlgNowCalcAccSpec"));
  EXPECT_TRUE(doc.seedWaves.At(1).spectrumValid);
  EXPECT_EQ(doc.seedWaves.At(1).periods.size(), 64U);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(DamsiteWaveScreen, WhenAllSpectraAreThereNothingIsComputed) {
  EnterThree();
  runs.Take();
  ExpectNoChange([&] { EXPECT_EQ(Press(), SwitchOutcome::Open); });
  EXPECT_THAT(runs.Take(), IsEmpty());
}

#ifdef __GLIBC__

TEST_F(DamsiteWaveScreen, AFailedBatchIsToldAndOpensNothing) {
  AddWave(QStringLiteral("A"));
  prompt.ExpectMessage(QStringLiteral("加速度応答スペクトルの計算に失敗しました。"));
  ExpectNoChange([&] {
    const NoThreads none;
    EXPECT_EQ(Press(), SwitchOutcome::Refused);
  });
  EXPECT_FALSE(HasOpened());
  Enter();
  EXPECT_THAT(Column(kGrid, kName), ElementsAre("A")) << "and the next one works";
}

#endif

// --- Clicks ---

TEST_F(DamsiteWaveScreen, AShownWaveIsDrawnInItsColour) {
  EnterThree();
  EXPECT_TRUE(driver->Shows("graph", 0xFFC00000));
  EXPECT_THAT(GraphDescription().toStdString(), HasSubstr("B"));
  driver->Click(kGrid, 1, kShown);
  EXPECT_FALSE(doc.seedWaves.At(0).siteShow);
  EXPECT_TRUE(doc.seedWaves.At(0).baseShow);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(driver->Shows("graph", 0xFFC00000));
  EXPECT_TRUE(driver->Shows("graph", 0xFF00A000));
  driver->Click(kGrid, 1, kShown);
  EXPECT_TRUE(driver->Shows("graph", 0xFFC00000));
}

TEST_F(DamsiteWaveScreen, AColourIsChosen) {
  EnterThree();
  driver->Grid(kGrid).SetColorChooser([](QWidget*, std::int32_t color) {
    EXPECT_EQ(color, 0x00A000);
    return std::optional<std::int32_t>(0x0A0B0C);
  });
  driver->Click(kGrid, 2, kColor);
  EXPECT_EQ(doc.seedWaves.At(1).siteColor, 0x0A0B0C);
  EXPECT_EQ(driver->Cell(kGrid, 2, kColor), "#0C0B0A");
  EXPECT_TRUE(driver->Shows("graph", 0xFF0C0B0A));
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(DamsiteWaveScreen, AWaveThatIsNotTheBaseAsksNothing) {
  EnterWithBase();
  driver->Click(kGrid, 2, kUse);
  driver->Click(kGrid, 3, kUse);
  driver->Click(kGrid, 2, kUse);
  EXPECT_THAT(Column(kGrid, kUse), ElementsAre("1", "0", "1"));
  EXPECT_EQ(doc.baseSpectrumName, "A");
  EXPECT_TRUE(doc.seedAdopted);
}

TEST_F(DamsiteWaveScreen, NoKeepsTheBaseInUse) {
  EnterWithBase();
  ExpectBaseQuestion(PromptAnswer::No);
  ExpectNoChange([&] { driver->Click(kGrid, 1, kUse); });
  EXPECT_EQ(driver->Cell(kGrid, 1, kUse), "1");
}

TEST_F(DamsiteWaveScreen, YesTakesTheBaseOutOfUse) {
  EnterWithBase();
  ExpectBaseQuestion(PromptAnswer::Yes);
  driver->Click(kGrid, 1, kUse);
  EXPECT_EQ(driver->Cell(kGrid, 1, kUse), "0");
  EXPECT_FALSE(doc.seedWaves.At(0).siteUse);
  ExpectBaseCleared();
}

TEST_F(DamsiteWaveScreen, ALowerLimitOfTheSameNameIsNotTheWave) {
  EnterThree();
  doc.baseSpectrumName = QStringLiteral("A");
  doc.lowerSpectra.At(0).baseSelected = true;
  driver->Click(kGrid, 1, kUse);
  EXPECT_FALSE(doc.seedWaves.At(0).siteUse);
  EXPECT_EQ(doc.baseSpectrumName, "A");
}

TEST_F(DamsiteWaveScreen, KeysAndTheAccessibleActionDoWhatAClickDoes) {
  EnterWithBase();
  driver->Grid(kGrid).setFocus();
  driver->Grid(kGrid).SelectCell(2, kUse);
  driver->Key(Qt::Key_Space);
  EXPECT_TRUE(doc.seedWaves.At(1).siteUse);
  Toggle(kGrid, 3, kShown);
  EXPECT_FALSE(doc.seedWaves.At(2).siteShow);
  ExpectBaseQuestion(PromptAnswer::Yes);
  Toggle(kGrid, 1, kUse);
  ExpectBaseCleared();
}

TEST_F(DamsiteWaveScreen, EveryWaveOfANameIsReached) {
  for (const char* name : {"A, \"b\" & [*]", "①髙～", "①髙～"}) AddWave(QString::fromUtf8(name), false);
  Enter();
  EXPECT_THAT(Column(kGrid, kName), ElementsAre("A, \"b\" & [*]", "①髙～", "①髙～"));
  driver->Click(kGrid, 3, kUse);
  EXPECT_THAT(Column(kGrid, kUse), ElementsAre("0", "1", "1"));
  driver->Click(kGrid, 1, kShown);
  EXPECT_THAT(Column(kGrid, kShown), ElementsAre("0", "1", "1"));
}

// --- Buttons ---

TEST_F(DamsiteWaveScreen, TheButtonsShowAndHideAll) {
  EnterThree();
  driver->Press("hideAllButton");
  EXPECT_THAT(Column(kGrid, kShown), Each(QString("0")));
  EXPECT_FALSE(driver->Shows("graph", 0xFF00A000));
  EXPECT_TRUE(doc.IsModified());
  PressAccessibly("showAllButton", [&] { return !Column(kGrid, kShown).contains(QStringLiteral("0")); });
  EXPECT_TRUE(driver->Shows("graph", 0xFF00A000));
}

TEST_F(DamsiteWaveScreen, WithoutABaseAmongThemAllGoInAndOutOfUseUnasked) {
  EnterThree();
  SetBase(doc, doc.lowerSpectra.SelectedName());
  Adopt(1);
  driver->Press("useAllButton");
  EXPECT_THAT(Column(kGrid, kUse), Each(QString("1")));
  driver->Press("useNoneButton");
  EXPECT_THAT(Column(kGrid, kUse), Each(QString("0")));
  EXPECT_TRUE(doc.seedAdopted);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(DamsiteWaveScreen, WithTheBaseAmongThemNoEndsTheCommand) {
  EnterWithBase();
  ExpectBaseQuestion(PromptAnswer::No);
  ExpectNoChange([&] { driver->Press("useNoneButton"); });
  EXPECT_THAT(Column(kGrid, kUse), ElementsAre("1", "0", "0"));
}

TEST_F(DamsiteWaveScreen, WithTheBaseAmongThemYesClearsItAndGoesOn) {
  EnterWithBase();
  driver->Press("useAllButton");
  EXPECT_EQ(doc.baseSpectrumName, "A") << "asks nothing, clears nothing";
  ExpectBaseQuestion(PromptAnswer::Yes);
  driver->Press("useNoneButton");
  EXPECT_THAT(Column(kGrid, kUse), Each(QString("0")));
  ExpectBaseCleared();
}

TEST_F(DamsiteWaveScreen, TheInformationTellsWhatToDo) {
  EnterThree();
  prompt.ExpectMessage(
      QStringLiteral("現場近隣地震波形の加速度応答スペクトルを選択します。\n\n登録した地震波形の中から、"
                     "現場近隣の地震波形の加速度応答スペクトルを選択してください。"),
      PromptIcon::Information);
  ExpectNoChange([&] { driver->Press("infoButton"); });
}

TEST_F(DamsiteWaveScreen, TheSettingsDialogWorksOnItsBlockAndTheColoursOfTheWaves) {
  EnterThree();
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditAccSpec");
    auto* const colors = dialog.findChild<CSpread7*>("colorGrid");
    ASSERT_NE(colors, nullptr);
    EXPECT_EQ(colors->RowCount(), 3);
    EXPECT_EQ(colors->GetCellText(2, 1), "B");
    EXPECT_EQ(colors->GetCellColor(2, 2), 0x00A000);
    PressIn(dialog, "spectrumLogCheck");
    EXPECT_EQ(doc.graphDamsite.origGraph.specLog, 0);
    EXPECT_TRUE(doc.IsModified());
    doc.graphDamsite.name = QStringLiteral("x");
    PressIn(dialog, "resetRangeButton");
    EXPECT_EQ(doc.graphDamsite, CSeismicWave());
    PressIn(dialog, "resetColorsButton");
    PressIn(dialog, "okButton");
  });
  driver->Press("settingsButton");
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(doc.seedWaves.At(i).siteColor, PaletteColor(i));
  EXPECT_EQ(driver->Grid(kGrid).GetCellColor(3, kColor), PaletteColor(2));
}

// --- What every screen keeps to ---

TEST_F(DamsiteWaveScreen, RefreshChangesNoByte) {
  EnterThree();
  driver->Click(kGrid, 3, kName);
  doc.seedWaves.At(0).spectrumValid = false;
  doc.seedWaves.At(0).periods.clear();
  runs.Take();
  ExpectNoChange([&] {
    screen->Refresh();
    driver->Picture();
  });
  EXPECT_EQ(driver->Grid(kGrid).ActiveRow(), 3);
  EXPECT_THAT(runs.Take(), IsEmpty());
}

TEST_F(DamsiteWaveScreen, WithoutWavesARefreshLeavesNoRow) {
  EnterThree();
  doc.seedWaves.Clear();
  screen->Refresh();
  EXPECT_FALSE(driver->Picture().isNull());
  EXPECT_EQ(driver->Grid(kGrid).RowCount(), 0);
}

TEST_F(DamsiteWaveScreen, BehindADialogNothingIsReached) {
  EnterWithBase();
  ExpectDeafBehindDialog(
      {"showAllButton", "hideAllButton", "useAllButton", "useNoneButton", "infoButton", "settingsButton"},
      kGrid, kUse);
}

TEST_F(DamsiteWaveScreen, TheTabKeyFollowsTheReadingOrder) {
  EnterThree();
  EXPECT_THAT(TabOrder(kGrid, 9),
              ElementsAre(kGrid, "showAllButton", "hideAllButton", "useAllButton", "useNoneButton",
                          "infoButton", "graph", "copyButton", "settingsButton"));
}

// --- Commands ---

TEST_F(DamsiteWaveScreen, ASwitchThatIsPressedWithinACommandDoesNothing) {
  EnterThree();
  int asked = 0;
  driver->Grid(kGrid).SetColorChooser([&](QWidget*, std::int32_t) {
    ++asked;
    return std::optional<std::int32_t>();
  });
  ExpectNoChange([&] {
    EXPECT_TRUE(gate.Run([&] {
      for (const int column : {kColor, kShown, kUse}) driver->Click(kGrid, 1, column);
    }));
  });
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace tremlo::test
