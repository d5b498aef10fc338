#include "core/project/ResponseRoute.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/ScriptedPrompt.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/DlgGraphEdit.h"
#include "window/waves/FrmRespOrigSeismicWave.h"

#include <QClipboard>
#include <QLabel>

#include <cmath>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RespOrigSeismicWaveScreen : public testing::Test {
 protected:
  RespOrigSeismicWaveScreen() {
    EnsureRespWave(doc);
    Wave().acc = {1.5, -2.0, 0.5};
    screen.Entered();
    SetAdjusted();
  }

  CSeismicWave& Wave() { return doc.seedWaves.At(0); }
  void SetAdjusted() {
    Wave().adjusted = true;
    Wave().adjustedAcc = Wave().adjustedPeriods = Wave().adjustedSpec = {1.0};
    Wave().spectrumValid = true;
    doc.SetModified(false);
  }
  /// The one rule of a change of data on this route.
  void ExpectCleared() {
    EXPECT_FALSE(Wave().adjusted);
    EXPECT_THAT(Wave().adjustedAcc, IsEmpty());
    EXPECT_THAT(Wave().adjustedPeriods, IsEmpty());
    EXPECT_THAT(Wave().adjustedSpec, IsEmpty());
    EXPECT_FALSE(Wave().spectrumValid);
    EXPECT_TRUE(doc.IsModified());
  }
  void ExpectKept() {
    EXPECT_TRUE(Wave().adjusted);
    EXPECT_TRUE(Wave().spectrumValid);
  }
  std::string Caption() { return driver.Find<QLabel>("caption").text().toStdString(); }

  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmRespOrigSeismicWave screen{doc, prompt, files, gate};
  ScreenDriver driver{screen};
  TestFolder folder;
};

TEST_F(RespOrigSeismicWaveScreen, TheWaveIsShown) {
  EXPECT_EQ(driver.Text("nameEdit"), "地震波形");
  EXPECT_EQ(driver.Text("countEdit"), "3");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_EQ(driver.Cell("sampleGrid", 2, 1), "0.01");
  EXPECT_EQ(driver.Cell("sampleGrid", 2, 2), "-2");
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 1) + " " + driver.Cell("extremeGrid", 1, 2), "0.00 1.5");
  EXPECT_EQ(driver.Cell("extremeGrid", 2, 1) + " " + driver.Cell("extremeGrid", 2, 2), "0.01 -2");
  EXPECT_FALSE(driver.Find<QAbstractButton>("dbButton").isEnabled());
  EXPECT_EQ(driver.Find<QAbstractButton>("dbButton").text(), "DBから入力");
}

TEST_F(RespOrigSeismicWaveScreen, WithoutAWaveEverythingIsEmptyAndNothingIsAdded) {
  doc.seedWaves.Clear();
  doc.SetModified(false);
  screen.Refresh();
  Settle();
  EXPECT_EQ(driver.Text("nameEdit"), "");
  EXPECT_EQ(driver.Text("countEdit"), "");
  EXPECT_EQ(driver.Grid("sampleGrid").RowCount(), 0);
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 2), "");
  for (const char* control : {"nameEdit", "timeStepEdit", "sampleGrid"})
    EXPECT_FALSE(driver.Find<QWidget>(control).isEnabled()) << control;
  driver.Press("settingsButton");
  EXPECT_TRUE(doc.seedWaves.IsEmpty());
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, ARenameKeepsTheAdjustment) {
  driver.Enter("nameEdit", "El Centro");
  EXPECT_EQ(Wave().name, "El Centro");
  EXPECT_TRUE(doc.IsModified());
  ExpectKept();
}

TEST_F(RespOrigSeismicWaveScreen, TheSameNameTypedAgainIsNoChange) {
  driver.Enter("nameEdit", "N");
  doc.SetModified(false);
  driver.Enter("nameEdit", "N");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, AnEmptyNameIsRefusedAndTheOldOneComesBack) {
  prompt.ExpectMessage("地震波形名の入力エラーです。");
  driver.Enter("nameEdit", "");
  EXPECT_EQ(driver.Text("nameEdit"), "地震波形");
  EXPECT_TRUE(driver.Find<QLineEdit>("nameEdit").hasFocus());
  EXPECT_EQ(Wave().name, "地震波形");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, ANewTimeStepClearsWithoutAQuestion) {
  driver.Enter("timeStepEdit", "0.005");
  EXPECT_EQ(Wave().timeStep, 0.005);
  EXPECT_EQ(driver.Cell("sampleGrid", 2, 1), "0.005");
  EXPECT_EQ(driver.Cell("extremeGrid", 2, 1), "0.005");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, ATimeStepWrittenAnotherWayChangesNothing) {
  driver.Enter("timeStepEdit", "0.0100");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  ExpectKept();
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, AnEmptyTimeStepIsRefusedAndKeepsTheFocus) {
  prompt.ExpectMessage("時間間隔の入力エラーです。");
  driver.Enter("timeStepEdit", "");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_TRUE(driver.Find<QLineEdit>("timeStepEdit").hasFocus());
  ExpectKept();
}

TEST_F(RespOrigSeismicWaveScreen, ATimeStepThatDoesNotParseCountsAs0) {
  driver.Enter("timeStepEdit", "abc");
  EXPECT_EQ(Wave().timeStep, 0.0);
  EXPECT_EQ(driver.Text("timeStepEdit"), "0");
  driver.Enter("timeStepEdit", "0.02s");
  EXPECT_EQ(Wave().timeStep, 0.02);
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.02");
}

TEST_F(RespOrigSeismicWaveScreen, FullWidthDigitsOfATimeStepAreRead) {
  driver.Type("timeStepEdit", "");
  QInputMethodEvent input;
  input.setCommitString(QStringLiteral("０．０２"));
  QApplication::sendEvent(&driver.Find<QLineEdit>("timeStepEdit"), &input);
  driver.Key(Qt::Key_Tab);
  EXPECT_EQ(Wave().timeStep, 0.02);
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.02");
}

TEST_F(RespOrigSeismicWaveScreen, ATimeStepBeyondTheDoublesIsRefused) {
  prompt.ExpectMessage("時間間隔の入力エラーです。");
  driver.Enter("timeStepEdit", "1e400");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  ExpectKept();
}

TEST_F(RespOrigSeismicWaveScreen, AnEditedSampleClears) {
  driver.EnterCell("sampleGrid", 2, 2, "-7.25");
  EXPECT_THAT(Wave().acc, ElementsAre(1.5, -7.25, 0.5));
  EXPECT_EQ(driver.Cell("extremeGrid", 2, 2), "-7.25");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, TimesShowNoRoundingErrors) {
  driver.Enter("timeStepEdit", "0.1");
  driver.Key(Qt::Key_Tab);
  driver.Click("sampleGrid", 1, 2);
  QApplication::clipboard()->setText("1\n2\n3\n4\n");
  driver.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(driver.Cell("sampleGrid", 4, 1), "0.3");
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 1), "0.3");
}

TEST_F(RespOrigSeismicWaveScreen, ABlankCellStoresInfinityAndIsLeftOutOfTheExtremes) {
  driver.EnterCell("sampleGrid", 1, 2, "");
  EXPECT_THAT(Wave().acc, ElementsAre(kBlankSample, -2.0, 0.5));
  EXPECT_EQ(driver.Cell("sampleGrid", 1, 2), "");
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 2), "0.5");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, AllCellsBlankLeaveTheExtremesEmpty) {
  driver.Click("sampleGrid", 1, 2);
  driver.Click("sampleGrid", 3, 2, Qt::ShiftModifier);
  driver.Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_THAT(Wave().acc, ElementsAre(kBlankSample, kBlankSample, kBlankSample));
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "1.5\n-2\n0.5\n");
  for (const int row : {1, 2})
    for (const int column : {1, 2}) EXPECT_EQ(driver.Cell("extremeGrid", row, column), "");
  EXPECT_EQ(driver.Text("countEdit"), "3");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, TheKeysInsertAppendAndRemoveRows) {
  driver.Click("sampleGrid", 2, 2);
  driver.Key(Qt::Key_Insert);
  EXPECT_THAT(Wave().acc, ElementsAre(1.5, 0.0, -2.0, 0.5));
  ExpectCleared();
  SetAdjusted();
  driver.Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_THAT(Wave().acc, ElementsAre(1.5, 0.0, -2.0, 0.5, 0.0));
  EXPECT_EQ(driver.Text("countEdit"), "5");
  ExpectCleared();
  SetAdjusted();
  driver.Click("sampleGrid", 1, 2);
  driver.Click("sampleGrid", 2, 2, Qt::ShiftModifier);
  driver.Key(Qt::Key_Delete);
  EXPECT_THAT(Wave().acc, ElementsAre(-2.0, 0.5, 0.0));
  EXPECT_EQ(driver.Text("countEdit"), "3");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, APasteOverwritesAndAppends) {
  QApplication::clipboard()->setText("10\n20\n30\n");
  driver.Click("sampleGrid", 2, 2);
  driver.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(Wave().acc, ElementsAre(1.5, 10.0, 20.0, 30.0));
  EXPECT_EQ(driver.Cell("sampleGrid", 4, 1), "0.03");
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 2), "30");
  ExpectCleared();
}

TEST_F(RespOrigSeismicWaveScreen, WhatIsGivenUpByEscapeIsNotTaken) {
  for (const auto& [edit, shown] : {std::pair{"nameEdit", "地震波形"}, std::pair{"timeStepEdit", "0.01"}}) {
    driver.Type(edit, "7");
    driver.Key(Qt::Key_Escape);
    driver.Key(Qt::Key_Tab);
    EXPECT_EQ(driver.Text(edit), shown);
  }
  ExpectKept();
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, TheExtremesAreReadOnly) {
  QApplication::clipboard()->setText("9\t9\n");
  driver.Click("extremeGrid", 1, 2);
  QTest::keyClicks(&driver.Grid("extremeGrid"), "5");
  driver.Key(Qt::Key_Return);
  for (const Qt::Key key : {Qt::Key_V, Qt::Key_X}) driver.Key(key, Qt::ControlModifier);
  driver.Key(Qt::Key_Delete);
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 2), "1.5");
  EXPECT_EQ(driver.Grid("extremeGrid").RowCount(), 2);
}

TEST_F(RespOrigSeismicWaveScreen, TheTimeColumnIsLocked) {
  driver.Click("sampleGrid", 2, 1);
  QTest::keyClicks(&driver.Grid("sampleGrid"), "5");
  driver.Key(Qt::Key_Return);
  EXPECT_EQ(driver.Cell("sampleGrid", 2, 1), "0.01");
  ExpectKept();
}

TEST_F(RespOrigSeismicWaveScreen, AFileReplacesNameTimeStepAndSamples) {
  files.Choose(folder.Write("a.csv", "A, 0.02, 1\n0, 4\n0.02, 5\n0.04, 6\n0.06, 7\n"));
  driver.Press("readButton");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().name, "A");
  EXPECT_EQ(Wave().timeStep, 0.02);
  EXPECT_THAT(Wave().acc, ElementsAre(4.0, 5.0, 6.0, 7.0));
  EXPECT_EQ(driver.Text("nameEdit") + driver.Text("timeStepEdit") + driver.Text("countEdit"), "A0.024");
  EXPECT_EQ(driver.Cell("sampleGrid", 4, 2), "7");
  ExpectCleared();
  ASSERT_EQ(files.opened.size(), 1U);
  EXPECT_TRUE(files.opened[0].nameFilters.startsWith("CSVファイル (*.csv);;All Files (*.*)"));
  EXPECT_EQ(files.opened[0].suffix, "csv");
}

TEST_F(RespOrigSeismicWaveScreen, AFileOfTheSameNameGetsNoNumber) {
  files.Choose(folder.Write("a.csv", "地震波形, 0.02, 1\n0, 4\n"));
  driver.Press("readButton");
  EXPECT_EQ(doc.seedWaves.Names().size(), 1U);
  EXPECT_EQ(Wave().timeStep, 0.02);
}

TEST_F(RespOrigSeismicWaveScreen, AFileMakesTheWaveWhenThereIsNone) {
  doc.seedWaves.Clear();
  screen.Refresh();
  files.Choose(folder.Write("a.csv", "A, 0.02, 1\n0, 4\n"));
  driver.Press("readButton");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(driver.Text("nameEdit") + driver.Text("timeStepEdit") + driver.Text("countEdit"), "A0.021");
}

TEST_F(RespOrigSeismicWaveScreen, AnEmptyFileLeavesAWaveWithoutData) {
  files.Choose(folder.Write("e.csv", ""));
  driver.Press("readButton");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(driver.Text("nameEdit") + driver.Text("timeStepEdit") + driver.Text("countEdit"), "00");
  ExpectCleared();
  EXPECT_FALSE(HasRespWaveData(doc));
}

TEST_F(RespOrigSeismicWaveScreen, ACancelledReadAndAMissingFileChangeNothing) {
  files.Cancel();
  driver.Press("readButton");
  files.Choose(folder.Path("no.csv"));
  prompt.ExpectMessage(folder.Path("no.csv") + "を開けません。（読み取りオープン）");
  driver.Press("readButton");
  EXPECT_THAT(Wave().acc, ElementsAre(1.5, -2.0, 0.5));
  ExpectKept();
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, TheKindButtonsSwitchGraphAndCaption) {
  EXPECT_EQ(Caption(), "グラフ (時間－加速度)");
  driver.Press("specButton");
  EXPECT_EQ(Caption(), "グラフ (周期－加速度応答スペクトル)");
  driver.Press("fourierButton");
  EXPECT_EQ(Caption(), "グラフ (フーリエスペクトル)");
  driver.Press("timeButton");
  EXPECT_EQ(Caption(), "グラフ (時間－加速度)");
}

TEST_F(RespOrigSeismicWaveScreen, TheArrowKeysSwitchTheGraphToo) {
  driver.Find<QWidget>("timeButton").setFocus();
  driver.Key(Qt::Key_Right);
  EXPECT_EQ(Caption(), "グラフ (周期－加速度応答スペクトル)");
  driver.Key(Qt::Key_Right);
  EXPECT_EQ(Caption(), "グラフ (フーリエスペクトル)");
}

TEST_F(RespOrigSeismicWaveScreen, TheSpectrumIsComputedWhenItsGraphIsPaintedAndOnlyThen) {
  Wave().acc = Noise(64, 1);
  Wave().acc[5] = kBlankSample;
  Wave().spectrumValid = false;
  doc.SetModified(false);
  screen.Refresh();
  driver.Picture();
  EXPECT_FALSE(Wave().spectrumValid);
  EXPECT_FALSE(doc.IsModified());
  driver.Press("specButton");
  driver.Picture();
  EXPECT_TRUE(Wave().spectrumValid);
  EXPECT_TRUE(doc.IsModified());
  std::vector<double> periods, values;
  ComputeResponseSpectrum(WithoutBlanks(Wave().acc), periods, values, 0.01);
  EXPECT_EQ(Wave().accSpec, values);
  EXPECT_EQ(Wave().periods, periods);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(RespOrigSeismicWaveScreen, AStoredSpectrumIsNotComputedAgain) {
  Wave().periods = Wave().accSpec = {1.0};
  driver.Press("specButton");
  driver.Picture();
  EXPECT_THAT(Wave().accSpec, ElementsAre(1.0));
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespOrigSeismicWaveScreen, EachGraphIsDrawnInItsColourOfTheBlockAndBlanksCountAs0) {
  Wave().acc = Noise(64, 1);
  Wave().acc[5] = kBlankSample;
  Wave().origGraph.timeColor = 0x0000F1;
  Wave().origGraph.specColor = 0x0000F2;
  Wave().origGraph.fourierColor = 0x0000F3;
  Wave().spectrumValid = false;
  screen.Refresh();
  EXPECT_TRUE(driver.Shows("graph", 0xFFF10000));
  driver.Press("specButton");
  EXPECT_TRUE(driver.Shows("graph", 0xFFF20000));
  driver.Press("fourierButton");
  EXPECT_TRUE(driver.Shows("graph", 0xFFF30000));
}

TEST_F(RespOrigSeismicWaveScreen, AnEmptySpectrumHasTheAxesOfOnePoint) {
  Wave().acc.clear();
  Wave().spectrumValid = false;
  screen.Refresh();
  driver.Press("specButton");
  driver.Picture();
  EXPECT_THAT(driver.Find<QWidget>("graph").accessibleDescription().toStdString(),
              testing::HasSubstr("0 ～ 1200"));
}

TEST_F(RespOrigSeismicWaveScreen, EveryGraphPaintsWithoutATimeStep) {
  for (const char* timeStep : {"-0.01", "0", "inf", "nan"}) {
    driver.Enter("timeStepEdit", timeStep);
    for (const char* button : {"timeButton", "specButton", "fourierButton"}) {
      driver.Press(button);
      EXPECT_FALSE(driver.Picture().isNull());
    }
    EXPECT_TRUE(Wave().spectrumValid);
    EXPECT_THAT(Wave().accSpec, IsEmpty());
  }
}

TEST_F(RespOrigSeismicWaveScreen, TheSettingsDialogWorksOnTheBlockOfTheWave) {
  Wave().origGraph.timeXMax = 77.0;
  Wave().origGraph.timeColor = 5;
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_NE(qobject_cast<GraphEditDialog*>(&dialog), nullptr);
    PressIn(dialog, "autoCheck");
    EXPECT_EQ(Wave().origGraph.autoRange, 0);
    PressIn(dialog, "resetColorsButton");
    EXPECT_EQ(Wave().origGraph.timeColor, 0xFF3232);
    EXPECT_EQ(Wave().origGraph.timeXMax, 77.0);
    PressIn(dialog, "resetRangeButton");
    EXPECT_EQ(Wave().origGraph, WaveGraphSetting());
    PressIn(dialog, "cancelButton");
  });
  driver.Press("settingsButton");
  EXPECT_TRUE(doc.IsModified());
  ExpectKept();
}

TEST_F(RespOrigSeismicWaveScreen, TheCopyButtonPutsThePictureOnTheClipboard) {
  QApplication::clipboard()->clear();
  EXPECT_EQ(driver.Find<QAbstractButton>("copyButton").toolTip(), "グラフの画像コピー");
  driver.Press("copyButton");
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

TEST_F(RespOrigSeismicWaveScreen, TheHelpButtonTellsOfTheRegistration) {
  prompt.ExpectMessage(
      "使用する地震波形を登録します。\n\n"
      "地震波形作成の種となる原種波形と、ダム基礎の観測波形、近隣で観測された波形、それらの波形が無い場合には"
      "公開"
      "されている既往の地震波形を設定します。",
      PromptIcon::Information);
  driver.Press("helpButton");
}

TEST_F(RespOrigSeismicWaveScreen, TheSameWaveShownAgainStaysWhereItWasRead) {
  Wave().acc = RecordLike(500, 1);
  screen.Refresh();
  CSpread7& grid = driver.Grid("sampleGrid");
  grid.SelectCell(400, 2);
  grid.scrollTo(grid.currentIndex());
  const int top = grid.rowAt(0);
  screen.Refresh();
  EXPECT_EQ(grid.ActiveRow(), 400);
  EXPECT_EQ(grid.rowAt(0), top);
  EXPECT_GT(top, 300);
  Wave().acc = RecordLike(499, 2);
  screen.Refresh();
  EXPECT_EQ(grid.rowAt(0), 0) << "another wave begins at its first sample";
}

TEST_F(RespOrigSeismicWaveScreen, TheTabKeyFollowsTheReadingOrder) {
  driver.Find<QWidget>("nameEdit").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 9; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("nameEdit", "readButton", "helpButton", "timeStepEdit", "sampleGrid",
                                 "extremeGrid", "timeButton", "graph", "copyButton"));
}

TEST_F(RespOrigSeismicWaveScreen, LongTimesFitTheirColumns) {
  Wave().acc = Noise(65536, 3);
  driver.Enter("timeStepEdit", "0.123456789");
  const int needed = screen.fontMetrics().horizontalAdvance("8090.740667115");
  EXPECT_EQ(driver.Cell("sampleGrid", 65536, 1), "8090.740667115");
  for (const char* grid : {"sampleGrid", "extremeGrid"}) EXPECT_GT(driver.Grid(grid).columnWidth(0), needed);
  driver.Enter("timeStepEdit", "1e300");
  EXPECT_LT(driver.Grid("sampleGrid").columnWidth(0), driver.Grid("sampleGrid").width() / 2);
  driver.Enter("timeStepEdit", "0.01");
  for (const char* grid : {"sampleGrid", "extremeGrid"}) EXPECT_LT(driver.Grid(grid).columnWidth(0), needed);
}

TEST_F(RespOrigSeismicWaveScreen, ALongWaveIsShownAtOnce) {
  Wave().acc = Noise(65536, 3);
  QElapsedTimer timer;
  timer.start();
  screen.Refresh();
  driver.Picture();
  RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
  EXPECT_EQ(driver.Grid("sampleGrid").RowCount(), 65536);
  EXPECT_EQ(driver.Cell("sampleGrid", 65536, 1), "655.35");
}

}  // namespace
}  // namespace tremlo::test
