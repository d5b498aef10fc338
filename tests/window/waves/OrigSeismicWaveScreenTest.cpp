#include "core/graphs/CurvePalette.h"
#include "support/OfferedAction.h"
#include "support/PaletteChange.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/PendingEntry.h"
#include "window/waves/DlgSeismicWaveAdd.h"
#include "window/waves/FrmOrigSeismicWave.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QWheelEvent>

#include <set>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kBaseQuestion = QStringLiteral(
    "既に基準スペクトルとして「A」を選択済みですがよろしいですか？\n\n"
    "変更した場合、原種波形の選択、振幅調整が再度必要になります。");
const QString kShortQuestion = QStringLiteral("振幅調整がされていますがよろしいですか？");
const QString kLongQuestion = QStringLiteral(
    "振幅調整がされていますがよろしいですか？\n\n"
    "時間間隔を変更した場合、原種波形の選択、振幅調整が再度必要となります。");
const QString kDeleteQuestion = QStringLiteral("「A」を削除しますがよろしいですか？");

class OrigSeismicWaveScreen : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  OrigSeismicWaveScreen() {
    Add("A", {1.5, -2.0, 0.5});
    Add("B", {7.0, 8.0});
    doc.seedWaves.SelectCurrent("A");
    screen.Entered();
    doc.SetModified(false);
  }

  void Add(const QString& name, std::vector<double> acc) {
    doc.seedWaves.Add(name);
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = 0.01;
    wave.acc = std::move(acc);
    wave.spectrumValid = true;
  }
  CSeismicWave& Wave(std::size_t index = 0) { return doc.seedWaves.At(index); }
  void SetAdjusted(std::size_t index) {
    Wave(index).adjusted = true;
    Wave(index).adjustedAcc = Wave(index).adjustedPeriods = Wave(index).adjustedSpec = {1.0};
  }
  void MakeBase() {
    Wave().siteUse = Wave().baseSelected = true;
    doc.flowNeighbourWave = true;
    doc.baseSpectrumName = "A";
  }
  void Adopt(std::size_t index) {
    Wave(index).adopted = true;
    doc.seedAdopted = true;
    doc.seedAdoptedName = Wave(index).name;
  }
  QComboBox& Combo() { return driver.Find<QComboBox>("nameCombo"); }
  std::vector<QString> Entries() {
    std::vector<QString> entries;
    for (int i = 0; i < Combo().count(); ++i) entries.push_back(Combo().itemText(i));
    return entries;
  }
  void SelectNext() {
    Combo().setFocus();
    driver.Key(Qt::Key_Down);
  }
  void AddNamed(const QString& name) {
    ScreenDriver::InDialog([name](QWidget& dialog) {
      dialog.findChild<CExpEdit*>("nameEdit")->SetText(name);
      PressIn(dialog, "okButton");
    });
    driver.Press("addButton");
  }

  ProcedureParts parts;
  CMorvaneDoc& doc = parts.doc;
  ScriptedPrompt& prompt = parts.prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmOrigSeismicWave screen{doc, prompt, files, parts.rules, gate};
  ScreenDriver driver{screen};
  TestFolder folder;
};

TEST_F(OrigSeismicWaveScreen, TheCurrentWaveIsShown) {
  EXPECT_THAT(Entries(), ElementsAre("A", "B"));
  EXPECT_EQ(Combo().currentText(), "A");
  EXPECT_EQ(driver.Text("countEdit"), "3");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_FALSE(driver.Find<QAbstractButton>("dbButton").isEnabled());
}

TEST_F(OrigSeismicWaveScreen, ASelectionMakesTheWaveCurrent) {
  SelectNext();
  EXPECT_TRUE(Wave(1).current);
  EXPECT_FALSE(Wave(0).current);
  EXPECT_EQ(driver.Text("countEdit"), "2");
  EXPECT_EQ(driver.Cell("sampleGrid", 2, 2), "8");
  screen.Refresh();
  EXPECT_EQ(Combo().currentText(), "B");
}

TEST_F(OrigSeismicWaveScreen, ASelectionOfAnotherWaveMarksTheDocument) {
  Q_EMIT Combo().activated(0);
  EXPECT_FALSE(doc.IsModified());
  SelectNext();
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, ASelectionOfTheWaveOnDisplayWritesWhatTheDocumentLacks) {
  Wave(0).current = false;
  screen.Refresh();
  Q_EMIT Combo().activated(0);
  EXPECT_TRUE(Wave(0).current);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, TheActionOfferedOnAKindButtonSwitchesTheGraph) {
  const auto caption = [this] { return driver.Find<QLabel>("caption").text().toStdString(); };
  DoOfferedAction(driver.Find<QAbstractButton>("specButton"));
  EXPECT_EQ(caption(), "グラフ (周期－加速度応答スペクトル)");
  DoOfferedAction(driver.Find<QAbstractButton>("specButton"));  // it stays down, as after a click
  EXPECT_TRUE(driver.Find<QAbstractButton>("specButton").isChecked());
  EXPECT_EQ(caption(), "グラフ (周期－加速度応答スペクトル)");
  DoOfferedAction(driver.Find<QAbstractButton>("timeButton"));
  EXPECT_EQ(caption(), "グラフ (時間－加速度)");
}

TEST_F(OrigSeismicWaveScreen, WithoutSamplesTheFourierGraphIsNotOffered) {
  const auto offers = [this](const char* name) { return driver.Find<QAbstractButton>(name).isEnabled(); };
  driver.Press("fourierButton");
  Wave(1).acc.clear();
  EXPECT_TRUE(offers("fourierButton"));
  SelectNext();
  EXPECT_FALSE(offers("fourierButton"));
  EXPECT_TRUE(driver.Find<QAbstractButton>("timeButton").isChecked());
  EXPECT_EQ(driver.Find<QLabel>("caption").text(), "グラフ (時間－加速度)");
  EXPECT_TRUE(offers("specButton"));
  EXPECT_TRUE(offers("settingsButton"));
  driver.Press("specButton");
  driver.Picture();
  EXPECT_THAT(driver.Find<QWidget>("graph").accessibleDescription().toStdString(),
              testing::HasSubstr("0 ～ 1200"));  // the axes of the point (1000, 1000)
  Combo().setFocus();
  driver.Key(Qt::Key_Up);
  EXPECT_TRUE(offers("fourierButton"));
  EXPECT_TRUE(driver.Find<QAbstractButton>("specButton").isChecked());
}

TEST_F(OrigSeismicWaveScreen, WithoutAWaveThereAreNoSettings) {
  EXPECT_TRUE(driver.Find<QAbstractButton>("settingsButton").isEnabled());
  doc.seedWaves.Clear();
  screen.Refresh();
  EXPECT_FALSE(driver.Find<QAbstractButton>("settingsButton").isEnabled());
  EXPECT_FALSE(driver.Find<QAbstractButton>("fourierButton").isEnabled());
}

TEST_F(OrigSeismicWaveScreen, TheScreenFollowsThePalette) {
  PaletteChange palette;
  driver.Find<QWidget>("graph").setFocus();
  const QImage light = driver.Picture();
  palette.ToDark();
  const QImage dark = driver.Picture();
  palette.Back();
  EXPECT_EQ(driver.Picture(), light);
  palette.ToDark();
  CFrmOrigSeismicWave fresh(doc, prompt, files, parts.rules, gate);
  fresh.Entered();
  ScreenDriver another(fresh);
  another.Find<QWidget>("graph").setFocus();
  EXPECT_EQ(another.Picture(), dark);
}

TEST_F(OrigSeismicWaveScreen, ARefreshChangesNothingInTheDocument) {
  Wave(0).current = false;
  const std::vector<CSeismicWave> before = doc.seedWaves.Records();
  screen.Refresh();
  driver.Picture();
  EXPECT_EQ(Combo().currentText(), "A");
  EXPECT_EQ(doc.seedWaves.Records(), before);
  EXPECT_FALSE(doc.IsModified());
}

// Adding

TEST_F(OrigSeismicWaveScreen, ANewWaveHasOneSampleAndIsSelected) {
  ScreenDriver::InDialog([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "波形追加");
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "波形名を入力してください。");
    EXPECT_EQ(dialog.findChild<CExpEdit*>("nameEdit")->GetText(), "地震波形3");
    QTest::keyClick(dialog.findChild<CExpEdit*>("nameEdit"), Qt::Key_Return);
  });
  driver.Press("addButton");
  ASSERT_EQ(doc.seedWaves.Count(), 3U);
  EXPECT_EQ(Wave(2).name, "地震波形3");
  EXPECT_EQ(Wave(2).timeStep, 0.01);
  EXPECT_THAT(Wave(2).acc, ElementsAre(0.0));
  EXPECT_FALSE(Wave(2).spectrumValid);
  EXPECT_TRUE(Wave(2).current);
  EXPECT_FALSE(Wave(0).current);
  for (const std::int32_t color : {Wave(2).siteColor, Wave(2).baseColor, Wave(2).adjustColor})
    EXPECT_EQ(color, PaletteColor(2));
  EXPECT_EQ(Combo().currentText(), "地震波形3");
  EXPECT_EQ(driver.Text("countEdit"), "1");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, AnEmptyNameIsRefusedAndTheDialogStays) {
  prompt.ExpectMessage("地震波形を入力してください。");
  ScreenDriver::InDialog([](QWidget& dialog) {
    dialog.findChild<CExpEdit*>("nameEdit")->SetText("");
    PressIn(dialog, "okButton");
    EXPECT_TRUE(dialog.isVisible());
    PressIn(dialog, "cancelButton");
  });
  driver.Press("addButton");
  EXPECT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, ANameOfTheSetIsRefusedAndTheDialogStays) {
  prompt.ExpectMessage("既に登録されている地震波形名です。");
  ScreenDriver::InDialog([](QWidget& dialog) {
    dialog.findChild<CExpEdit*>("nameEdit")->SetText("B");
    PressIn(dialog, "okButton");
    EXPECT_TRUE(dialog.isVisible());
    dialog.findChild<CExpEdit*>("nameEdit")->SetText("C");
    PressIn(dialog, "okButton");
  });
  driver.Press("addButton");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "B", "C"));
}

// Reading

TEST_F(OrigSeismicWaveScreen, AFileIsAddedUnderTheFirstFreeName) {
  const QString path = folder.Write("a.csv", "A, 0.02, 1\n0, 4\n0.02, 5\n");
  for (int i = 0; i < 2; ++i) {
    files.Choose(path);
    driver.Press("readButton");
  }
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "B", "A_1", "A_2"));
  EXPECT_THAT(Entries(), ElementsAre("A", "B", "A_1", "A_2"));
  EXPECT_EQ(Combo().currentText(), "A_2");
  EXPECT_EQ(Wave(3).timeStep, 0.02);
  EXPECT_THAT(Wave(3).acc, ElementsAre(4.0, 5.0));
  EXPECT_TRUE(Wave(3).current);
  EXPECT_FALSE(Wave(3).spectrumValid);
  EXPECT_EQ(Wave(3).siteColor, PaletteColor(3));
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, AColourThatADeletedWaveLeftIsGivenAgainBeforeOneIsGivenTwice) {
  const QString path = folder.Write("a.csv", "N, 0.02, 1\n0, 4\n");
  const auto read = [&] {
    files.Choose(path);
    driver.Press("readButton");
  };
  for (int i = 0; i < 2; ++i) read();
  EXPECT_EQ(Wave(3).siteColor, PaletteColor(3));
  doc.seedWaves.Remove("A");
  read();
  EXPECT_EQ(Wave(3).siteColor, PaletteColor(4));
  for (int i = 0; i < 5; ++i) read();
  std::set<std::int32_t> colors;
  for (std::size_t i = 1; i <= kPaletteSize; ++i) colors.insert(Wave(i).siteColor);
  EXPECT_EQ(colors.size(), kPaletteSize);
  EXPECT_EQ(Wave(8).baseColor, Wave(8).siteColor);
  EXPECT_EQ(Wave(8).adjustColor, Wave(8).siteColor);
  read();
  EXPECT_EQ(Wave(9).siteColor, PaletteColor(9));
}

TEST_F(OrigSeismicWaveScreen, AnEmptyFileGivesAWaveWithoutANameThatCanBeNamedAndDeleted) {
  files.Choose(folder.Write("e.csv", ""));
  driver.Press("readButton");
  ASSERT_EQ(doc.seedWaves.Count(), 3U);
  EXPECT_EQ(Wave(2).name, "");
  EXPECT_EQ(Wave(2).timeStep, 0.0);
  EXPECT_THAT(Wave(2).acc, IsEmpty());
  EXPECT_EQ(Combo().currentIndex(), 2);
  driver.Enter("nameEdit", "N");
  EXPECT_EQ(Wave(2).name, "N");
  prompt.ExpectQuestion("「N」を削除しますがよろしいですか？", PromptAnswer::Yes);
  driver.Press("deleteButton");
  EXPECT_THAT(Entries(), ElementsAre("A", "B"));
}

TEST_F(OrigSeismicWaveScreen, AFileThatIsNoTextIsShownAsWhatItScansTo) {
  QByteArray bytes;
  for (int i = 0; i < 5000; ++i) bytes.append(static_cast<char>((i * 7919) >> 3));
  files.Choose(folder.Write("b.bin", bytes));
  driver.Press("readButton");
  ASSERT_EQ(doc.seedWaves.Count(), 3U);
  EXPECT_EQ(driver.Grid("sampleGrid").RowCount(), static_cast<int>(Wave(2).acc.size()));
  for (const char* button : {"timeButton", "specButton", "fourierButton"}) {
    driver.Press(button);
    EXPECT_FALSE(driver.Picture().isNull());
  }
}

TEST_F(OrigSeismicWaveScreen, AFileWithoutDataLinesGivesAnEmptyWave) {
  files.Choose(folder.Write("e.csv", "E, 0, 1\n"));
  driver.Press("readButton");
  EXPECT_EQ(Wave(2).timeStep, 0.0);
  EXPECT_EQ(driver.Text("countEdit"), "0");
  EXPECT_EQ(driver.Cell("extremeGrid", 1, 2), "");
  driver.Press("specButton");
  EXPECT_FALSE(driver.Picture().isNull());
  EXPECT_TRUE(Wave(2).spectrumValid);
  EXPECT_THAT(Wave(2).accSpec, IsEmpty());
}

TEST_F(OrigSeismicWaveScreen, ACancelledReadAndAMissingFileChangeNothing) {
  files.Cancel();
  driver.Press("readButton");
  files.Choose(folder.Path("no.csv"));
  prompt.ExpectMessage(folder.Path("no.csv") + "を開けません。（読み取りオープン）");
  driver.Press("readButton");
  EXPECT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_FALSE(doc.IsModified());
}

// Deleting

TEST_F(OrigSeismicWaveScreen, ADeletedWaveGoesAndTheFirstIsShown) {
  SelectNext();
  prompt.ExpectQuestion("「B」を削除しますがよろしいですか？", PromptAnswer::Yes);
  driver.Press("deleteButton");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A"));
  EXPECT_THAT(Entries(), ElementsAre("A"));
  EXPECT_TRUE(Wave(0).current);
  EXPECT_EQ(driver.Text("countEdit"), "3");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, NoKeepsTheWave) {
  prompt.ExpectQuestion(kDeleteQuestion, PromptAnswer::No);
  driver.Press("deleteButton");
  EXPECT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, TheLastWaveLeavesAnEmptyScreen) {
  doc.seedWaves.Remove("B");
  screen.Refresh();
  prompt.ExpectQuestion(kDeleteQuestion, PromptAnswer::Yes);
  driver.Press("deleteButton");
  driver.Picture();
  EXPECT_EQ(Combo().currentText(), "");
  EXPECT_EQ(driver.Text("countEdit") + driver.Text("timeStepEdit"), "");
  EXPECT_EQ(driver.Grid("sampleGrid").RowCount(), 0);
  for (const char* control : {"nameCombo", "deleteButton", "timeStepEdit", "sampleGrid"})
    EXPECT_FALSE(driver.Find<QWidget>(control).isEnabled()) << control;
  EXPECT_EQ(driver.Find<QWidget>("graph").grab().toImage().pixelColor(5, 5), QColor(0xD4, 0xD0, 0xC8));
}

TEST_F(OrigSeismicWaveScreen, TheBaseWaveAsksTwiceAndTheFirstYesHolds) {
  MakeBase();
  prompt.ExpectQuestion(kBaseQuestion, PromptAnswer::Yes);
  prompt.ExpectQuestion(kDeleteQuestion, PromptAnswer::No);
  driver.Press("deleteButton");
  EXPECT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  EXPECT_FALSE(Wave().baseSelected);
}

TEST_F(OrigSeismicWaveScreen, NoToTheBaseQuestionStopsTheDeletion) {
  MakeBase();
  prompt.ExpectQuestion(kBaseQuestion, PromptAnswer::No);
  driver.Press("deleteButton");
  EXPECT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_EQ(doc.baseSpectrumName, "A");
}

TEST_F(OrigSeismicWaveScreen, DeletingTheAdoptedWaveClearsTheAdjustmentWithoutAQuestionOfItsOwn) {
  Adopt(0);
  SetAdjusted(1);
  prompt.ExpectQuestion(kDeleteQuestion, PromptAnswer::Yes);
  driver.Press("deleteButton");
  EXPECT_FALSE(doc.seedAdopted);
  EXPECT_FALSE(Wave(0).adjusted);
}

// Renaming

TEST_F(OrigSeismicWaveScreen, ARenameReachesRecordEntryAndWhatRefersToThem) {
  MakeBase();
  Adopt(0);
  driver.Enter("nameEdit", "X");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("X", "B"));
  EXPECT_THAT(Entries(), ElementsAre("X", "B"));
  EXPECT_EQ(doc.baseSpectrumName, "X");
  EXPECT_EQ(doc.seedAdoptedName, "X");
  EXPECT_EQ(driver.Text("countEdit"), "3");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, AnEmptyNameIsRefusedAndTheComboKeepsTheFocus) {
  prompt.ExpectMessage("波形名の入力エラーです。");
  driver.Enter("nameEdit", "");
  EXPECT_EQ(driver.Text("nameEdit"), "A");
  EXPECT_TRUE(Combo().hasFocus());
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "B"));
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, ARefusedNameGoesBackToTheOneChosenLast) {
  Combo().setFocus();
  driver.Key(Qt::Key_Down);
  prompt.ExpectMessage("波形名の入力エラーです。");
  driver.Enter("nameEdit", "");
  EXPECT_EQ(driver.Text("nameEdit"), "B");
  EXPECT_THAT(Entries(), ElementsAre("A", "B"));
}

TEST_F(OrigSeismicWaveScreen, ARenameToAnExistingNameIsNotRefusedAndByNameTheFirstIsReached) {
  SelectNext();
  driver.Enter("nameEdit", "A");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "A"));
  EXPECT_THAT(Entries(), ElementsAre("A", "A"));
  EXPECT_EQ(Combo().currentIndex(), 1);
  EXPECT_EQ(driver.Text("countEdit"), "3");
  prompt.ExpectQuestion(kDeleteQuestion, PromptAnswer::Yes);
  driver.Press("deleteButton");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(OrigSeismicWaveScreen, ARenameToAnExistingNameByEnterStaysWithItsEntry) {
  SelectNext();
  driver.Type("nameEdit", "A");
  driver.Key(Qt::Key_Return);
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "A"));
  EXPECT_EQ(Combo().currentIndex(), 1);
  driver.Enter("nameEdit", "C");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("A", "C"));
}

TEST_F(OrigSeismicWaveScreen, TheSameNameTypedAgainIsNoChange) {
  driver.Enter("nameEdit", "A");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, ATypedNameIsTakenBeforeAnotherWaveIsChosen) {
  driver.Type("nameEdit", "X");
  driver.Key(Qt::Key_Down);
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("X", "B"));
  EXPECT_EQ(Combo().currentText(), "B");
  driver.Type("nameEdit", "Y");
  const QPointF at(5.0, 5.0);
  QWheelEvent up(at, Combo().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                 false);
  QApplication::sendEvent(&Combo(), &up);
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("X", "Y"));
  EXPECT_THAT(Entries(), ElementsAre("X", "Y"));
  EXPECT_EQ(Combo().currentText(), "X");
}

TEST_F(OrigSeismicWaveScreen, ARefusedNameKeepsTheWaveOnDisplay) {
  prompt.ExpectMessage("波形名の入力エラーです。");
  driver.Type("nameEdit", "");
  driver.Key(Qt::Key_Down);
  EXPECT_EQ(Combo().currentIndex(), 0);
  EXPECT_EQ(driver.Text("nameEdit"), "A");
  EXPECT_FALSE(Wave(1).current);
}

TEST_F(OrigSeismicWaveScreen, ATypedNameIsTakenBeforeACommandOfTheMenu) {
  driver.Type("nameEdit", "X");
  EXPECT_TRUE(FinishPendingEntry());
  EXPECT_EQ(Wave().name, "X");
}

TEST_F(OrigSeismicWaveScreen, ANameGivenUpByEscapeIsNotTaken) {
  driver.Type("nameEdit", "X");
  driver.Key(Qt::Key_Escape);
  driver.Key(Qt::Key_Tab);
  EXPECT_EQ(Wave().name, "A");
  EXPECT_EQ(driver.Text("nameEdit"), "A");
}

// Changes of data

TEST_F(OrigSeismicWaveScreen, AWaveWithoutAnAdjustmentAsksNothingAndOnlyClearsItsSpectrum) {
  SetAdjusted(1);
  driver.Enter("timeStepEdit", "0.02");
  EXPECT_EQ(Wave().timeStep, 0.02);
  EXPECT_FALSE(Wave().spectrumValid);
  EXPECT_TRUE(Wave(1).adjusted);
  EXPECT_TRUE(Wave(1).spectrumValid);
  EXPECT_EQ(driver.Cell("sampleGrid", 3, 1), "0.04");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, NoPutsTheOldTimeStepBack) {
  SetAdjusted(0);
  prompt.ExpectQuestion(kLongQuestion, PromptAnswer::No);
  driver.Enter("timeStepEdit", "0.02");
  EXPECT_EQ(Wave().timeStep, 0.01);
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_TRUE(Wave().adjusted);
  EXPECT_TRUE(Wave().spectrumValid);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, YesClearsTheAdjustment) {
  SetAdjusted(0);
  Adopt(0);
  prompt.ExpectQuestion(kLongQuestion, PromptAnswer::Yes);
  driver.Enter("timeStepEdit", "0.02");
  EXPECT_EQ(Wave().timeStep, 0.02);
  EXPECT_FALSE(Wave().adjusted);
  EXPECT_FALSE(doc.seedAdopted);
}

TEST_F(OrigSeismicWaveScreen, ABaseWaveAsksBothQuestionsBeforeAnythingIsCleared) {
  MakeBase();
  SetAdjusted(1);
  prompt.ExpectQuestion(kBaseQuestion, PromptAnswer::Yes);
  prompt.ExpectQuestion(kShortQuestion, PromptAnswer::No);
  driver.EnterCell("sampleGrid", 1, 2, "9");
  EXPECT_EQ(Wave().acc[0], 1.5);
  EXPECT_EQ(driver.Cell("sampleGrid", 1, 2), "1.5");
  EXPECT_EQ(doc.baseSpectrumName, "A");
  EXPECT_TRUE(Wave(1).adjusted);
  prompt.ExpectQuestion(kBaseQuestion, PromptAnswer::Yes);
  prompt.ExpectQuestion(kShortQuestion, PromptAnswer::Yes);
  driver.EnterCell("sampleGrid", 1, 2, "9");
  EXPECT_EQ(Wave().acc[0], 9.0);
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  EXPECT_FALSE(Wave(1).adjusted);
  EXPECT_FALSE(Wave().spectrumValid);
}

TEST_F(OrigSeismicWaveScreen, ABaseWaveWithoutAnyAdjustmentAsksOnce) {
  MakeBase();
  prompt.ExpectQuestion(kBaseQuestion, PromptAnswer::Yes);
  driver.EnterCell("sampleGrid", 1, 2, "9");
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  EXPECT_EQ(Wave().acc[0], 9.0);
}

TEST_F(OrigSeismicWaveScreen, WhatTheGridRefusesIsToldBeforeAnyQuestion) {
  SetAdjusted(0);
  const std::vector<double> before = Wave().acc;
  prompt.ExpectMessage("数値が大きすぎます。\n\n行：1\n列：加速度 (gal)\n内容：1e400");
  driver.EnterCell("sampleGrid", 1, 2, "1e400");
  prompt.ExpectMessage("貼り付ける列が表に入りきりません。\n\n行：1\n内容：1,5");
  QApplication::clipboard()->setText("1,5");
  driver.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Wave().acc, before);
  EXPECT_TRUE(Wave().adjusted);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(OrigSeismicWaveScreen, EachActionOnTheGridAsksOnceBeforeTheGridChanges) {
  SetAdjusted(0);
  QApplication::clipboard()->setText("1\n2\n3\n4\n5\n");
  driver.Click("sampleGrid", 1, 2);
  driver.Click("sampleGrid", 2, 2, Qt::ShiftModifier);
  const std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> actions{{Qt::Key_Insert, {}},
                                                                       {Qt::Key_Insert, Qt::ControlModifier},
                                                                       {Qt::Key_Delete, {}},
                                                                       {Qt::Key_X, Qt::ControlModifier},
                                                                       {Qt::Key_V, Qt::ControlModifier}};
  for (const auto& [key, modifiers] : actions) {
    prompt.ExpectQuestion(kLongQuestion, PromptAnswer::No);
    driver.Key(key, modifiers);
    prompt.CheckUsedUp();
    EXPECT_THAT(Wave().acc, ElementsAre(1.5, -2.0, 0.5));
    EXPECT_TRUE(Wave().adjusted);
  }
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "1\n2\n3\n4\n5\n");
  prompt.ExpectQuestion(kLongQuestion, PromptAnswer::Yes);
  driver.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(Wave().acc, ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0));
  EXPECT_EQ(driver.Text("countEdit"), "5");
  EXPECT_FALSE(Wave().adjusted);
}

TEST_F(OrigSeismicWaveScreen, AnEmptyTimeStepIsRefused) {
  prompt.ExpectMessage("時間間隔の入力エラーです。");
  driver.Enter("timeStepEdit", "");
  EXPECT_EQ(driver.Text("timeStepEdit"), "0.01");
  EXPECT_TRUE(driver.Find<QLineEdit>("timeStepEdit").hasFocus());
}

TEST_F(OrigSeismicWaveScreen, TheHelpButtonTellsWhatTheScreenIsFor) {
  prompt.ExpectMessage(
      "使用する地震波形を登録します。\n\n"
      "地震波形作成の種となる原種波形と、ダム基礎の観測波形、近隣で観測された波形、それらの波形が無い場合には"
      "公開"
      "されている既往の地震波形を設定します。",
      PromptIcon::Information);
  driver.Press("helpButton");
}

TEST_F(OrigSeismicWaveScreen, TheTabKeyFollowsTheReadingOrder) {
  EXPECT_EQ(screen.nextInFocusChain(), &Combo());
  Combo().setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 9; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
    driver.Key(Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("nameCombo", "addButton", "deleteButton", "readButton", "helpButton",
                                 "timeStepEdit", "sampleGrid", "extremeGrid", "timeButton"));
}

}  // namespace
}  // namespace tremlo::test
