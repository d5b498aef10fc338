#include "core/project/ResponseRoute.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/ScriptedPrompt.h"
#include "support/TestFolder.h"
#include "window/graphs/DlgGraphEditBaseSpec.h"
#include "window/waves/FrmRespAdjustSpectrum.h"

#include <QClipboard>
#include <QLabel>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RespAdjustSpectrumScreen : public testing::Test {
 protected:
  RespAdjustSpectrumScreen() {
    EnsureRespWave(doc);
    EnsureRespSpectrum(doc);
    screen.Prepare();
    screen.Entered();
    SetAdjusted();
  }

  CSeismicWave& Wave() { return doc.seedWaves.At(0); }
  CSeismicWave& Target() { return doc.respSpectra.At(0); }
  void SetTarget(std::vector<double> periods, std::vector<double> values) {
    Target().periods = std::move(periods);
    Target().accSpec = std::move(values);
    screen.Refresh();
    Settle();
  }
  void SetAdjusted() {
    Wave().adjusted = Wave().spectrumValid = true;
    Wave().adjustedAcc = Wave().adjustedPeriods = Wave().adjustedSpec = {1.0};
    doc.SetModified(false);
  }
  void ExpectCleared() {
    EXPECT_FALSE(Wave().adjusted);
    EXPECT_THAT(Wave().adjustedAcc, IsEmpty());
    EXPECT_THAT(Wave().adjustedPeriods, IsEmpty());
    EXPECT_THAT(Wave().adjustedSpec, IsEmpty());
    EXPECT_TRUE(Wave().spectrumValid);
    EXPECT_TRUE(doc.IsModified());
  }
  void ExpectKept() { EXPECT_TRUE(Wave().adjusted); }

  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmRespAdjustSpectrum screen{doc, prompt, files, gate};
  ScreenDriver driver{screen};
  TestFolder folder;
};

TEST_F(RespAdjustSpectrumScreen, ANewTargetHasOnePeriodAndOneValue) {
  EXPECT_EQ(driver.Text("nameEdit"), "基準スペクトル");
  EXPECT_EQ(driver.Grid("spectrumGrid").RowCount(), 1);
  EXPECT_EQ(driver.Cell("spectrumGrid", 1, 1) + driver.Cell("spectrumGrid", 1, 2), "00");
  EXPECT_EQ(driver.Find<QLabel>("caption").text(), "グラフ (周期－加速度応答スペクトル)");
  EXPECT_FALSE(driver.Picture().isNull());
}

TEST_F(RespAdjustSpectrumScreen, WithoutATargetEverythingIsEmpty) {
  doc.respSpectra.Clear();
  screen.Refresh();
  driver.Picture();
  EXPECT_EQ(driver.Text("nameEdit"), "");
  EXPECT_EQ(driver.Grid("spectrumGrid").RowCount(), 0);
  EXPECT_FALSE(driver.Find<QWidget>("nameEdit").isEnabled());
  EXPECT_TRUE(doc.respSpectra.IsEmpty());
}

TEST_F(RespAdjustSpectrumScreen, AFileReplacesNamePeriodsAndValues) {
  files.Choose(folder.Write("s.csv", "L2, 0, 1\n0.02, 300\n0.1, 700\n2, 150\n"));
  driver.Press("readButton");
  EXPECT_EQ(Target().name, "L2");
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.1, 2.0));
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 700.0, 150.0));
  EXPECT_EQ(driver.Text("nameEdit"), "L2");
  EXPECT_EQ(driver.Cell("spectrumGrid", 3, 1) + " " + driver.Cell("spectrumGrid", 3, 2), "2 150");
  ExpectCleared();
  EXPECT_EQ(files.opened.at(0).nameFilters, "CSVファイル (*.csv);;All Files (*.*)");
}

TEST_F(RespAdjustSpectrumScreen, AFileMakesTheTargetWhenThereIsNone) {
  doc.respSpectra.Clear();
  screen.Refresh();
  files.Choose(folder.Write("s.csv", "L2, 0, 1\n0.02, 300\n"));
  driver.Press("readButton");
  ASSERT_EQ(doc.respSpectra.Count(), 1U);
  EXPECT_EQ(driver.Text("nameEdit"), "L2");
  EXPECT_EQ(driver.Cell("spectrumGrid", 1, 2), "300");
}

TEST_F(RespAdjustSpectrumScreen, AnEmptyFileLeavesATargetWithoutData) {
  files.Choose(folder.Write("e.csv", ""));
  driver.Press("readButton");
  EXPECT_EQ(driver.Text("nameEdit"), "");
  EXPECT_EQ(driver.Grid("spectrumGrid").RowCount(), 0);
  EXPECT_FALSE(driver.Picture().isNull());
  ExpectCleared();
  EXPECT_FALSE(HasRespTarget(doc));
}

TEST_F(RespAdjustSpectrumScreen, ACancelledReadAndAMissingFileChangeNothing) {
  files.Cancel();
  driver.Press("readButton");
  files.Choose(folder.Path("no.csv"));
  prompt.ExpectMessage(folder.Path("no.csv") + "を開けません。（読み取りオープン）");
  driver.Press("readButton");
  EXPECT_EQ(Target().name, "基準スペクトル");
  ExpectKept();
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespAdjustSpectrumScreen, ARenameKeepsTheAdjustment) {
  driver.Enter("nameEdit", "L2");
  EXPECT_EQ(Target().name, "L2");
  ExpectKept();
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(RespAdjustSpectrumScreen, ANameGivenUpByEscapeIsNotTaken) {
  driver.Type("nameEdit", "X");
  driver.Key(Qt::Key_Escape);
  driver.Key(Qt::Key_Tab);
  EXPECT_EQ(driver.Text("nameEdit"), "基準スペクトル");
  EXPECT_EQ(Target().name, "基準スペクトル");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespAdjustSpectrumScreen, TheSameNameTypedAgainIsNoChange) {
  driver.Enter("nameEdit", "N");
  doc.SetModified(false);
  driver.Enter("nameEdit", "N");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RespAdjustSpectrumScreen, AnEmptyNameIsRefusedInTheWordsOfTheWave) {
  prompt.ExpectMessage("地震波形名の入力エラーです。");
  driver.Enter("nameEdit", "");
  EXPECT_EQ(driver.Text("nameEdit"), "基準スペクトル");
  EXPECT_TRUE(driver.Find<QLineEdit>("nameEdit").hasFocus());
  EXPECT_EQ(Target().name, "基準スペクトル");
}

TEST_F(RespAdjustSpectrumScreen, AnEditedPeriodOrValueClears) {
  SetTarget({0.02, 0.1}, {300.0, 700.0});
  driver.EnterCell("spectrumGrid", 2, 1, "0.2");
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.2));
  ExpectCleared();
  SetAdjusted();
  driver.EnterCell("spectrumGrid", 1, 2, "350.5");
  EXPECT_THAT(Target().accSpec, ElementsAre(350.5, 700.0));
  ExpectCleared();
}

TEST_F(RespAdjustSpectrumScreen, AnEmptiedCellIs0) {
  SetTarget({0.02, 0.1}, {300.0, 700.0});
  driver.EnterCell("spectrumGrid", 2, 2, "");
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 0.0));
  EXPECT_EQ(driver.Cell("spectrumGrid", 2, 2), "0");
  ExpectCleared();
}

TEST_F(RespAdjustSpectrumScreen, TheKeysInsertAppendAndRemoveRows) {
  SetTarget({0.02, 0.1}, {300.0, 700.0});
  driver.Click("spectrumGrid", 2, 1);
  driver.Key(Qt::Key_Insert);
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.0, 0.1));
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 0.0, 700.0));
  ExpectCleared();
  SetAdjusted();
  driver.Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(Target().periods.size(), 4U);
  ExpectCleared();
  SetAdjusted();
  driver.Click("spectrumGrid", 2, 1);
  driver.Key(Qt::Key_Delete);
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.1, 0.0));
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 700.0, 0.0));
  ExpectCleared();
}

TEST_F(RespAdjustSpectrumScreen, CutAndPasteMoveBothColumns) {
  SetTarget({0.02, 0.1}, {300.0, 700.0});
  driver.Click("spectrumGrid", 2, 1);
  driver.Click("spectrumGrid", 2, 2, Qt::ShiftModifier);
  driver.Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.0));
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 0.0));
  ExpectCleared();
  SetAdjusted();
  QApplication::clipboard()->setText("0.1\t700\n0.5\t400\n");
  driver.Click("spectrumGrid", 2, 1);
  driver.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(Target().periods, ElementsAre(0.02, 0.1, 0.5));
  EXPECT_THAT(Target().accSpec, ElementsAre(300.0, 700.0, 400.0));
  ExpectCleared();
}

TEST_F(RespAdjustSpectrumScreen, TheSettingsDialogWorksOnTheBlockOfTheBase) {
  doc.graphBase.name = "x";
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QWidget*>("colorGrid"), nullptr);
    PressIn(dialog, "spectrumLogCheck");
    EXPECT_EQ(doc.graphBase.origGraph.specLog, 0);
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_EQ(doc.graphBase, CSeismicWave());
  EXPECT_TRUE(doc.IsModified());
  ExpectKept();
}

TEST_F(RespAdjustSpectrumScreen, TheTabKeyFollowsTheReadingOrder) {
  driver.Find<QWidget>("nameEdit").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 6; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              ElementsAre("nameEdit", "readButton", "spectrumGrid", "graph", "copyButton", "settingsButton"));
}

}  // namespace
}  // namespace tremlo::test
