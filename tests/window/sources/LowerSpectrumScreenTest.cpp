#include "core/project/BaseSpectrum.h"
#include "core/project/ProjectFile.h"
#include "support/StatusTips.h"
#include "window/sources/SourceScreenTest.h"

#include <QClipboard>
#include <QFile>
#include <QHeaderView>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Columns { kNumber = 1, kName, kSelected };
const QString kVertical = QStringLiteral("H20大規模地震に対するダム耐震性能照査指針（案）・同解説（鉛直版）");

class LowerSpectrumScreen : public SourceScreenTest {
 protected:
  LowerSpectrumScreen() : SourceScreenTest(ScreenId::LowerSpectrum) {}

  void ChooseBase(const QString& label) {
    SetBase(doc, label);
    ASSERT_TRUE(MarkedBase(doc).has_value());
    doc.SetModified(false);
  }
  std::vector<std::string> Marks() { return ColumnTexts("limitGrid", kSelected); }
  std::vector<bool> Stored() const {
    std::vector<bool> marks;
    for (const CSeismicWave& limit : doc.lowerSpectra.Records()) marks.push_back(limit.lowerSelected);
    return marks;
  }
  void Click(int row) { driver->Click("limitGrid", row, kSelected); }
};

TEST_F(LowerSpectrumScreen, ANewProjectHasTheHorizontalOneSelected) {
  Open();
  EXPECT_THAT(ColumnTexts("limitGrid", kName),
              ElementsAre(QString::fromUtf16(kDefaultLowerLongName).toStdString(), kVertical.toStdString(),
                          "H17大規模地震に対するダム耐震性能照査指針（案）・同解説"));
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "0"));
  EXPECT_FALSE(doc.IsModified());
  KeepPicture("lower");
}

TEST_F(LowerSpectrumScreen, TheInformationIsToldInItsWords) {
  Open();
  prompt.ExpectMessage(
      QStringLiteral(
          "下限スペクトルを設定します。\n\n照査下限スペクトルとは、加速度応答スペクトルの内でもっとも"
          "小さいものを意味します。現場近隣地震波形や距離減衰式から得られた加速度応答スペクトルが下限"
          "スペクトルを下回る場合には、下限スペクトルを基準スペクトルとして設定する必要があります。"),
      PromptIcon::Information);
  ExpectUnchanged([&] { driver->Press("infoButton"); });
}

TEST_F(LowerSpectrumScreen, AClickSelectsExactlyOne) {
  Open();
  const QImage before = driver->Picture();
  Click(3);
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "1"));
  EXPECT_EQ(Stored(), (std::vector<bool>{false, false, true}));
  EXPECT_TRUE(doc.IsModified());
  EXPECT_NE(driver->Picture(), before);
  EXPECT_EQ(doc.lowerSpectra.SelectedName(), doc.lowerSpectra.At(2).name);
  Click(3);  // the selected one stays
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "1"));
}

TEST_F(LowerSpectrumScreen, KeysAndReadersSelectToo) {
  Open();
  Click(1);
  driver->Key(Qt::Key_Down);
  driver->Key(Qt::Key_Space);
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
  ToggleByReader("limitGrid", 3, kSelected);
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "1"));
  ToggleByReader("limitGrid", 3, kSelected);
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "1"));
}

TEST_F(LowerSpectrumScreen, WhileAPlaneIsTheBaseNothingIsAsked) {
  doc.baseSpectrumName = QStringLiteral("(最短距離)南");
  Open();
  Click(2);
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
  EXPECT_EQ(doc.baseSpectrumName, "(最短距離)南");
}

TEST_F(LowerSpectrumScreen, WhileTheLimitIsTheBaseAnotherOneAsks) {
  Open();
  ChooseBase(doc.lowerSpectra.SelectedName());
  ExpectDeclined([&] { Click(2); });
  ExpectDeclined([&] { ToggleByReader("limitGrid", 3, kSelected); });
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "0"));
  ExpectQuestion(PromptAnswer::Yes);
  Click(2);
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  EXPECT_FALSE(MarkedBase(doc).has_value());
}

TEST_F(LowerSpectrumScreen, AClickOnTheLimitThatIsTheBaseChangesNothing) {
  Open();
  ChooseBase(doc.lowerSpectra.SelectedName());
  ExpectUnchanged([&] { Click(1); });
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "0"));
}

/// Whether it is the base goes by the name here, whatever bears that name.
TEST_F(LowerSpectrumScreen, AWaveOfTheSameNameCountsAsTheLimit) {
  doc.seedWaves.Add(kVertical);
  doc.seedWaves.At(0).baseSelected = true;
  doc.baseSpectrumName = kVertical;
  Open();
  ExpectDeclined([&] { Click(3); });
  ExpectUnchanged([&] { Click(2); });
}

TEST_F(LowerSpectrumScreen, OfTwoMarkedTheFirstCountsUntilAClick) {
  doc.lowerSpectra.At(1).lowerSelected = true;  // as a change of the procedure leaves it
  Open();
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "0"));
  Click(3);
  EXPECT_EQ(Stored(), (std::vector<bool>{false, false, true}));
}

TEST_F(LowerSpectrumScreen, WithNoneMarkedNothingIsDrawnAndNothingSet) {
  doc.lowerSpectra.At(0).lowerSelected = false;
  Open();
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "0"));
  EXPECT_FALSE(driver->Find<QAbstractButton>("settingsButton").isEnabled());
  driver->Picture();
  Click(2);
  EXPECT_TRUE(driver->Find<QAbstractButton>("settingsButton").isEnabled());
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
}

TEST_F(LowerSpectrumScreen, OfEqualNamesBothRowsShowTheMark) {
  doc.lowerSpectra.At(2).name = doc.lowerSpectra.At(0).name;
  Open();
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "1"));
  Click(2);
  EXPECT_EQ(Stored(), (std::vector<bool>{false, true, false}));
}

TEST_F(LowerSpectrumScreen, FurtherFilesStandBehindAndTheListScrolls) {
  for (int i = 0; i < 30; ++i)
    doc.lowerSpectra.AddSpectrum(QStringLiteral("追加%1").arg(i), {2.0, 1.0}, {30.0, 40.0});
  Open();
  EXPECT_EQ(driver->Grid("limitGrid").RowCount(), 33);
  EXPECT_LT(driver->Grid("limitGrid").height(), 300);
  driver->Grid("limitGrid").scrollToBottom();
  Click(33);
  EXPECT_TRUE(doc.lowerSpectra.At(32).lowerSelected);
  KeepPicture("lower-33");
}

TEST_F(LowerSpectrumScreen, ASpectrumWithoutPointsIsSelectedAllTheSame) {
  doc.lowerSpectra.At(1).periods.clear();
  doc.lowerSpectra.At(1).accSpec.clear();
  Open();
  Click(2);
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
  driver->Picture();
}

TEST_F(LowerSpectrumScreen, RefreshChangesNoByte) {
  doc.lowerSpectra.At(1).lowerSelected = true;
  Open();
  ExpectUnchanged([&] {
    procedure->RefreshScreens();
    Settle();
    driver->Picture();
  });
}

TEST_F(LowerSpectrumScreen, OnEntryItReadsTheDocument) {
  Open();
  doc.lowerSpectra.At(0).lowerSelected = false;
  doc.lowerSpectra.At(2).lowerSelected = true;
  screen->Entered();
  EXPECT_THAT(Marks(), ElementsAre("0", "0", "1"));
}

/// Each point of the file is on the graph, at its pixel of the axes.
TEST_F(LowerSpectrumScreen, TheGraphReadsOutThePointsOfTheFile) {
  Open();
  QFile file(folder.Path(QStringLiteral("LowSpec/h20_h.csv")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QList<QByteArray> lines = file.readAll().split('\n');
  QStringList points;
  for (qsizetype i = 1; i < lines.size(); ++i) {
    const QList<QByteArray> fields = lines[i].split(',');
    if (fields.size() < 2) continue;
    points << QStringLiteral("%1：周期T %2 sec、加速度応答スペクトルS %3 gal")
                  .arg(doc.lowerSpectra.SelectedName())
                  .arg(fields[0].toDouble(), 0, 'g', 6)
                  .arg(fields[1].toDouble(), 0, 'g', 6);
  }
  StatusTips tips(*screen);
  driver->Find<QWidget>("graph").setFocus();
  driver->Key(Qt::Key_Home);
  for (int i = 0; i < 60; ++i) driver->Key(Qt::Key_Right, Qt::ShiftModifier);
  tips.heard.removeAll(QString());
  EXPECT_GT(tips.heard.size(), 20);
  for (const QString& heard : tips.heard) EXPECT_TRUE(points.contains(heard)) << heard.toStdString();
}

TEST_F(LowerSpectrumScreen, TheSettingsDialogWorksOnTheBlockOfTheSelectedOne) {
  Open();
  Click(2);
  const CSeismicWave first = doc.lowerSpectra.At(0);
  doc.lowerSpectra.At(1).lowerGraph.timeColor = 1;
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditAccSpec");
    const WaveGraphSetting& block = doc.lowerSpectra.At(1).lowerGraph;
    auto& colors = *dialog.findChild<CSpread7*>(QStringLiteral("colorGrid"));
    ASSERT_EQ(colors.RowCount(), 1);
    EXPECT_EQ(colors.GetCellText(1, 1), kVertical);
    colors.SetColorChooser([](QWidget*, std::int32_t) { return std::optional<std::int32_t>(0x00FF00); });
    colors.Press(1, 2);
    Settle();
    EXPECT_EQ(block.specColor, 0x00FF00);
    EXPECT_TRUE(driver->Shows("graph", qRgb(0, 0xFF, 0)));
    PressIn(dialog, "spectrumLogCheck");
    EXPECT_EQ(block.specLog, 0);
    PressIn(dialog, "resetColorsButton");
    EXPECT_EQ(block.specColor, 0xFF3232);
    EXPECT_EQ(block.timeColor, 0xFF3232);
    EXPECT_EQ(block.specLog, 0);
    PressIn(dialog, "resetRangeButton");
    EXPECT_EQ(block, DefaultLowerGraph());
    PressIn(dialog, "okButton");
  });
  driver->Press("settingsButton");
  EXPECT_EQ(doc.lowerSpectra.At(0), first);
  EXPECT_EQ(doc.lowerSpectra.At(1).lowerGraph.specXMax, 5.0);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(LowerSpectrumScreen, LockedCellsTakeNothing) {
  Open();
  QApplication::clipboard()->setText(QStringLiteral("x"));
  ExpectUnchanged([&] {
    for (const int column : {kNumber, kName}) {
      driver->Click("limitGrid", 2, column);
      QTest::keyClicks(&driver->Grid("limitGrid"), QStringLiteral("x"));
      driver->Key(Qt::Key_V, Qt::ControlModifier);
      driver->Key(Qt::Key_Delete);
      driver->Key(Qt::Key_F2);
    }
  });
}

TEST_F(LowerSpectrumScreen, WithinACommandNothingIsTold) {
  Open();
  EXPECT_TRUE(gate->Run([&] { driver->Find<QAbstractButton>("infoButton").click(); }));
}

TEST_F(LowerSpectrumScreen, TheTabKeyFollowsTheReadingOrder) {
  Open();
  EXPECT_THAT(TabOrder("infoButton", 5),
              ElementsAre("infoButton", "limitGrid", "graph", "copyButton", "settingsButton"));
}

TEST_F(LowerSpectrumScreen, SavedAndOpenedItGivesTheSameBytes) {
  Open();
  Click(2);
  const std::string bytes = ProjectBytes(doc);
  ASSERT_TRUE(LoadProject(doc, bytes).whole);
  procedure->RefreshScreens();
  Settle();
  EXPECT_THAT(Marks(), ElementsAre("0", "1", "0"));
  EXPECT_EQ(ProjectBytes(doc), bytes);
}

TEST_F(LowerSpectrumScreen, TheLongNamesHaveTheirRoom) {
  Open({820, 640});
  CSpread7& grid = driver->Grid("limitGrid");
  EXPECT_GT(grid.columnWidth(kName - 1),
            grid.fontMetrics().horizontalAdvance(grid.GetCellText(2, kName)) + 4);
  EXPECT_GE(grid.height(), grid.horizontalHeader()->height() + 3 * grid.rowHeight(0));
  KeepPicture("lower-small");
}

TEST_F(LowerSpectrumScreen, AClickWithinACommandSelectsNothing) {
  Open();
  ExpectUnchanged([&] { EXPECT_TRUE(gate->Run([&] { Click(2); })); });
  EXPECT_THAT(Marks(), ElementsAre("1", "0", "0"));
}

}  // namespace
}  // namespace tremlo::test
