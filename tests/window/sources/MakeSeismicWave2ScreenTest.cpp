#include "core/graphs/CurvePalette.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/ProjectFile.h"
#include "support/OfferedAction.h"
#include "support/PaletteChange.h"
#include "support/StatusTips.h"
#include "window/sources/FaultProject.h"
#include "window/sources/FrmMakeSeismicWave2.h"
#include "window/sources/SourceScreenTest.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWindow>

#include <cmath>

namespace tremlo::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

enum Columns {
  kRank = 1,
  kName,
  kClass,
  kMagnitude,
  kIntensity,
  kShortest,
  kEquivalent,
  kColor,
  kShown,
  kUse
};
constexpr PromptAnswer kYes = PromptAnswer::Yes;
constexpr int kDoubleClickMs = 400;
const QString kSecondPlane = QStringLiteral("(等価震源距離)(2)北");  // row 3

/// The faults "南" (row 1) and "北" (rows 2 and 3).
class FaultSpectraScreen : public SourceScreenTest {
 protected:
  FaultSpectraScreen() : SourceScreenTest(ScreenId::MakeSeismicWave2) {
    AddFault(doc, QStringLiteral("南"), 1, QStringLiteral("7.2"));
    AddFault(doc, QStringLiteral("北"), 2, QStringLiteral("5.5"));
    ColorAsAcquired(doc);
  }

  void ChooseBase(const QString& label) {
    SetBase(doc, label);
    ASSERT_TRUE(MarkedBase(doc).has_value());
    doc.SetModified(false);
  }
  void ExpectBaseCleared() {
    EXPECT_FALSE(MarkedBase(doc).has_value());
    EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
    prompt.CheckUsedUp();
  }

  QComboBox* OpenList(int row) {
    driver->Click("planeGrid", row, kClass);
    auto* const combo = driver->Grid("planeGrid").viewport()->findChild<QComboBox*>();
    EXPECT_TRUE(combo && QTest::qWaitFor([&] { return combo->view()->isVisible(); }));
    return combo;
  }
  /// Picks a class by the mouse.
  void PickClass(int row, int choice) {
    QComboBox* const combo = OpenList(row);
    ASSERT_NE(combo, nullptr);
    QAbstractItemView* const view = combo->view();
    // Else a release so soon behind the press that has opened the list would count as the end of that one.
    QApplication::setDoubleClickInterval(0);
    const QRect item = view->visualRect(view->model()->index(choice, 0));
    const QPoint point = view->viewport()->mapTo(view->window(), QPoint(8, item.center().y()));
    QWindow* const window = view->window()->windowHandle();
    QTest::mouseMove(window, point);
    QTest::mouseClick(window, Qt::LeftButton, {}, point);
    Settle();
    QApplication::setDoubleClickInterval(kDoubleClickMs);
    Settle();
  }
  std::string Class(int row) { return driver->Cell("planeGrid", row, kClass); }
};

// What it shows

TEST_F(FaultSpectraScreen, ListsThePlanesWithAllTenColumns) {
  Open();
  CSpread7& grid = driver->Grid("planeGrid");
  EXPECT_EQ(grid.ColumnCount(), 10);
  EXPECT_EQ(grid.RowCount(), 3);
  std::vector<std::string> row;
  for (int column = 1; column <= 10; ++column) row.push_back(driver->Cell("planeGrid", 3, column));
  // 12.345678 + 1.7 + 0.31 and 21.98765 + 1.7 + 0.31 km
  EXPECT_THAT(row, ElementsAre("2", "(2)北", "A", "5.5", "5.1", "14.3557", "23.9977", "#3A9BD9", "1", "1"));
  EXPECT_THAT(ColumnTexts("planeGrid", kName), ElementsAre("南", "(1)北", "(2)北"));
}

TEST_F(FaultSpectraScreen, ShowsBothRelationsAndChecksTheOneInUse) {
  Open();
  EXPECT_THAT(ColumnTexts("relationGrid", 1), ElementsAre("(水平)H20ダム距離減衰", "(鉛直)H20ダム距離減衰"));
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("1", "0"));
}

TEST_F(FaultSpectraScreen, StatesTheSourceAndTheKindsOfLines) {
  Open();
  EXPECT_EQ(driver->Find<QLabel>("sourceLabel").text(), "J-SHIS2014年版（APIより取得）");
  EXPECT_EQ(driver->Find<QLabel>("solidLabel").text(), "実線 ： 最短距離");
  EXPECT_EQ(driver->Find<QLabel>("dottedLabel").text(), "点線 ： 等価震源距離");
  EXPECT_FALSE(driver->Find<QLabel>("acquisitionLine").isVisible());
}

TEST_F(FaultSpectraScreen, ALineTellsOfTheLastAcquisition) {
  AcquisitionReport report;
  report.activityVersion = 15;
  report.unread = {QStringLiteral("<b>南</b>")};
  doc.lastAcquisition = report;
  Open();
  auto& line = driver->Find<QLabel>("acquisitionLine");
  EXPECT_TRUE(line.isVisible());
  EXPECT_TRUE(line.text().contains(u"2021年版"));
  EXPECT_TRUE(line.text().endsWith(u"<b>南</b>")) << line.text().toStdString();
  EXPECT_EQ(line.textFormat(), Qt::PlainText);
  EXPECT_GT(line.y(), driver->Find<QLabel>("sourceLabel").y());
  doc.lastAcquisition.reset();
  screen->Refresh();
  EXPECT_FALSE(line.isVisible());
}

TEST_F(FaultSpectraScreen, WithoutFaultsTheGridIsEmptyAndNothingIsOffered) {
  doc.faults.clear();
  Open();
  EXPECT_EQ(driver->Grid("planeGrid").RowCount(), 0);
  for (const char* const name : {"showAllButton", "showNoneButton", "useAllButton", "useNoneButton"})
    EXPECT_FALSE(driver->Find<QAbstractButton>(name).isEnabled()) << name;
  EXPECT_TRUE(driver->Find<QAbstractButton>("resetButton").isEnabled());
  driver->Click("relationGrid", 2, 2);
  EXPECT_EQ(doc.attenuationMethod, QString::fromUtf16(kVerticalMethod));
  KeepPicture("fault-spectra-0");
}

TEST_F(FaultSpectraScreen, TheGraphNamesEachCurveThatIsShown) {
  Open();
  EXPECT_TRUE(GraphDescription().contains("(2)(等価震源距離)北")) << GraphDescription().toStdString();
  EXPECT_TRUE(driver->Shows("graph", qRgb(0x33, 0x22, 0x88)));
  driver->Click("planeGrid", 3, kShown);
  EXPECT_FALSE(GraphDescription().contains("(2)(等価震源距離)北"));
  EXPECT_TRUE(GraphDescription().contains("(1)(最短距離)北"));
  KeepPicture("fault-spectra-3");
}

TEST_F(FaultSpectraScreen, RefreshChangesNoByteAndComputesNothing) {
  Open();
  doc.faults[0].shortestSpectrum[0][0] = 1.25;  // as a file may hold it
  ExpectUnchanged([&] {
    procedure->RefreshScreens();
    Settle();
    driver->Picture();
  });
}

TEST_F(FaultSpectraScreen, ARefreshPaintsBothGridsAnew) {
  Open();
  const QSignalSpy relations(driver->Grid("relationGrid").model(), &QAbstractItemModel::dataChanged);
  const QSignalSpy planes(driver->Grid("planeGrid").model(), &QAbstractItemModel::dataChanged);
  procedure->RefreshFaultScreens();
  EXPECT_FALSE(relations.isEmpty());
  EXPECT_FALSE(planes.isEmpty());
}

TEST_F(FaultSpectraScreen, AProjectWithoutFaultsComesBehindThreePlanes) {
  Open();
  driver->Click("planeGrid", 3, kName);
  doc.ClearFaults();
  procedure->RefreshFaultScreens();
  Settle();
  EXPECT_EQ(driver->Grid("planeGrid").RowCount(), 0);
  EXPECT_FALSE(GraphDescription().contains("北"));
}

// The numbers

/// The relation as its guideline writes it, over a table read by other means than the program's.
class Relation {
 public:
  Relation(const QString& path, bool shortest) : m_shortest(shortest) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no table");
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (qsizetype i = 4; i < lines.size(); ++i) {
      std::vector<double> row;
      for (const QByteArray& field : lines[i].split(',')) row.push_back(field.trimmed().toDouble());
      if (row.size() >= 12) m_rows.push_back(row);
    }
  }
  std::size_t Size() const { return m_rows.size(); }
  /// By falling period.
  double Period(std::size_t j) const { return Row(j)[0]; }
  double Value(std::size_t j, char groundClass, double m, double depth, double distance) const {
    const std::vector<double>& r = Row(j);
    const double limit = m_shortest ? 5.0 : 6.0;
    double log = r[5] * m + r[7] * depth - (r[9] * depth + r[8]) * distance + r[10];
    if (m > limit) log += r[6] * (limit - m) * (limit - m);
    log -= std::log10(distance + (m_shortest ? r[11] * std::pow(10.0, 0.5 * m) : r[11]));
    return r[static_cast<std::size_t>(groundClass - 'A' + 1)] * std::pow(10.0, log);
  }

 private:
  const std::vector<double>& Row(std::size_t j) const { return m_rows[m_rows.size() - 1 - j]; }

  bool m_shortest;
  std::vector<std::vector<double>> m_rows;
};

class FaultSpectraNumbers : public FaultSpectraScreen {
 protected:
  void ExpectSpectra(const char* suffix) {
    const Relation shortest(folder.Path(QStringLiteral("DamCoef/H20_MinDis_%1.csv").arg(suffix)), true);
    const Relation equivalent(folder.Path(QStringLiteral("DamCoef/H20_Ehd_%1.csv").arg(suffix)), false);
    ASSERT_GT(shortest.Size(), 5U);
    for (const FaultInfo& fault : doc.faults) {
      const double m = fault.magnitude.toDouble();
      for (std::size_t i = 0; i < static_cast<std::size_t>(fault.geomNum); ++i) {
        const char letter = fault.groundClass[i].toStdString()[0];
        ASSERT_EQ(fault.shortestPeriods[i].size(), shortest.Size());
        ASSERT_EQ(fault.equivalentPeriods[i].size(), equivalent.Size());
        for (std::size_t j = 0; j < shortest.Size(); ++j) {
          const double value = shortest.Value(j, letter, m, fault.planeDepth[i], fault.shortestDistance[i]);
          EXPECT_EQ(fault.shortestPeriods[i][j], shortest.Period(j));
          EXPECT_NEAR(fault.shortestSpectrum[i][j], value, 1e-12 * value);
        }
        for (std::size_t j = 0; j < equivalent.Size(); ++j) {
          const double value =
              equivalent.Value(j, letter, m, fault.planeDepth[i], fault.equivalentDistance[i]);
          EXPECT_EQ(fault.equivalentPeriods[i][j], equivalent.Period(j));
          EXPECT_NEAR(fault.equivalentSpectrum[i][j], value, 1e-12 * value);
        }
      }
    }
  }
};

TEST_F(FaultSpectraNumbers, EntryClassAndRelationComputeTheFormula) {
  Open();
  ExpectSpectra("H");
  PickClass(3, 3);
  EXPECT_EQ(doc.faults[1].groundClass[1], "D");
  ExpectSpectra("H");
  driver->Click("relationGrid", 2, 2);
  ExpectSpectra("V");
}

TEST_F(FaultSpectraNumbers, TheGraphReadsOutWhatTheFormulaGives) {
  doc.faults.pop_back();
  Open();
  const StatusTips tips(*screen);
  auto& graph = driver->Find<QWidget>("graph");
  graph.setFocus();
  driver->Key(Qt::Key_Home);
  driver->Key(Qt::Key_End);  // the frame ends behind the longest period
  for (int i = 0; i < 400 && tips.Last().isEmpty(); ++i) driver->Key(Qt::Key_Left);
  const Relation shortest(folder.Path("DamCoef/H20_MinDis_H.csv"), true);
  const Relation equivalent(folder.Path("DamCoef/H20_Ehd_H.csv"), false);
  const FaultInfo& fault = doc.faults[0];
  QStringList expected;
  for (std::size_t j = 0; j < shortest.Size(); ++j)
    for (const bool isShortest : {true, false}) {
      const Relation& relation = isShortest ? shortest : equivalent;
      const double distance = isShortest ? fault.shortestDistance[0] : fault.equivalentDistance[0];
      const double value = relation.Value(j, 'A', 7.2, fault.planeDepth[0], distance);
      expected << QStringLiteral("%1南：周期T %2 sec、加速度応答スペクトルS %3 gal")
                      .arg(isShortest ? "(最短距離)" : "(等価震源距離)")
                      .arg(relation.Period(j), 0, 'g', 6)
                      .arg(value, 0, 'g', 6);
    }
  EXPECT_TRUE(expected.contains(tips.Last())) << tips.Last().toStdString() << "\n"
                                              << expected.first().toStdString();
}

TEST_F(FaultSpectraNumbers, DistancesStandWithFourDecimals) {
  doc.faults[0].shortestDistance[0] = 7.00005000001;
  doc.faults[0].equivalentDistance[0] = std::nan("");
  Open();
  EXPECT_EQ(driver->Cell("planeGrid", 1, kShortest), "7.0001");
  EXPECT_EQ(driver->Cell("planeGrid", 1, kEquivalent), "nan");
  driver->Picture();  // a spectrum of NaN crashes nothing
}

TEST_F(FaultSpectraNumbers, AMagnitudeThatIsNoNumberCountsAs0) {
  doc.faults[0].magnitude = QStringLiteral("-");
  Open();
  EXPECT_EQ(driver->Cell("planeGrid", 1, kMagnitude), "-");
  const Relation shortest(folder.Path("DamCoef/H20_MinDis_H.csv"), true);
  const double value =
      shortest.Value(0, 'A', 0.0, doc.faults[0].planeDepth[0], doc.faults[0].shortestDistance[0]);
  EXPECT_NEAR(doc.faults[0].shortestSpectrum[0][0], value, 1e-12 * value);
}

// Ground classes

TEST_F(FaultSpectraScreen, TheListOfAClassIsOpenedByAClick) {
  Open();
  QComboBox* const combo = OpenList(1);
  ASSERT_EQ(combo->count(), 4);
  EXPECT_EQ(combo->itemText(0) + combo->itemText(3), "AD");
  QTest::keyClick(combo->view(), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Class(1), "A");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FaultSpectraScreen, AClassIsPickedAndComputed) {
  Open();
  const std::vector<double> before = doc.faults[1].shortestSpectrum[0];
  const QImage picture = driver->Picture();
  PickClass(2, 2);
  EXPECT_EQ(Class(2), "C");
  EXPECT_EQ(doc.faults[1].groundClass, (std::vector<QString>{"C", "A"}));
  EXPECT_NE(doc.faults[1].shortestSpectrum[0], before);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_NE(driver->Picture(), picture);
}

TEST_F(FaultSpectraScreen, TheKeyboardAlonePicksAClass) {
  Open();
  driver->Grid("planeGrid").setFocus();
  driver->Grid("planeGrid").SelectCell(1, kName);
  driver->Key(Qt::Key_Right);
  QTest::keyClick(&driver->Grid("planeGrid"), Qt::Key_Space);
  auto* const combo = driver->Grid("planeGrid").viewport()->findChild<QComboBox*>();
  ASSERT_TRUE(combo && QTest::qWaitFor([&] { return combo->view()->isVisible(); }));
  QTest::keyClick(combo->view(), Qt::Key_Down);
  QTest::keyClick(combo->view(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(Class(1), "B");
  EXPECT_EQ(driver->Grid("planeGrid").ActiveRow(), 1);
}

TEST_F(FaultSpectraScreen, TheClassOfTheBaseAsksFirst) {
  Open();
  ChooseBase(kSecondPlane);
  ExpectDeclined([&] { PickClass(3, 1); });
  EXPECT_EQ(Class(3), "A");
  PickClass(2, 1);  // the other plane of the fault asks nothing
  EXPECT_EQ(doc.baseSpectrumName, kSecondPlane);
  ExpectQuestion(kYes);
  PickClass(3, 1);
  EXPECT_EQ(Class(3), "B");
  ExpectBaseCleared();
}

// The relation

TEST_F(FaultSpectraScreen, TheRelationGridIsARadioGroup) {
  Open();
  ExpectUnchanged([&] { driver->Click("relationGrid", 1, 2); });
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("1", "0"));
  driver->Click("relationGrid", 2, 2);
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("0", "1"));
  EXPECT_EQ(doc.attenuationMethod, QString::fromUtf16(kVerticalMethod));
  driver->Key(Qt::Key_Up);
  driver->Key(Qt::Key_Space);
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("1", "0"));
  ToggleByReader("relationGrid", 2, 2);
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("0", "1"));
  ToggleByReader("relationGrid", 2, 2);
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("0", "1"));
}

TEST_F(FaultSpectraScreen, AnotherRelationAsksWhileAPlaneIsTheBase) {
  Open();
  ChooseBase(kSecondPlane);
  ExpectDeclined([&] { driver->Click("relationGrid", 2, 2); });
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("1", "0"));
  ExpectQuestion(kYes);
  driver->Click("relationGrid", 2, 2);
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("0", "1"));
  ExpectBaseCleared();
}

TEST_F(FaultSpectraScreen, AnotherRelationAsksNothingWhileALowerLimitIsTheBase) {
  Open();
  ChooseBase(doc.lowerSpectra.SelectedName());
  driver->Click("relationGrid", 2, 2);
  PickClass(3, 1);
  driver->Press("useNoneButton");
  EXPECT_EQ(doc.baseSpectrumName, doc.lowerSpectra.SelectedName());
}

// Tables

TEST_F(FaultSpectraScreen, ARelationWithoutTablesGivesNoCurveWithoutAWord) {
  std::erase_if(doc.damCoefSets,
                [](const DamCoefSet& set) { return set.method == QString::fromUtf16(kVerticalMethod); });
  Open();
  driver->Click("relationGrid", 2, 2);
  EXPECT_THAT(doc.faults[0].shortestSpectrum, ElementsAre(IsEmpty()));
  EXPECT_THAT(doc.faults[1].equivalentPeriods, Each(IsEmpty()));
  EXPECT_TRUE(GraphDescription().indexOf("北") < 0);
  EXPECT_THAT(followed, IsEmpty());
}

TEST_F(FaultSpectraScreen, OnEntryADamagedTableEndsTheProgramAndChangesNothing) {
  Open();
  doc.damCoefSets[0].distanceKind = doc.damCoefSets[1].distanceKind = 2;
  prompt.ExpectMessage(QStringLiteral("ダム距離減衰式の係数取得においてエラーが発生しました。"),
                       PromptIcon::None);
  ExpectUnchanged(
      [&] { EXPECT_EQ(procedure->SwitchScreen(ScreenId::MakeSeismicWave2), SwitchOutcome::EndProgram); });
}

TEST_F(FaultSpectraScreen, ADamagedTableOfTheOtherRelationEndsTheProgramAndLeavesTheSpectra) {
  Open();
  const FaultInfo before = doc.faults[1];
  for (DamCoefSet& set : doc.damCoefSets)
    if (set.method == QString::fromUtf16(kVerticalMethod)) set.distanceKind = 7;
  prompt.ExpectMessage(QStringLiteral("ダム距離減衰式の係数取得においてエラーが発生しました。"),
                       PromptIcon::None);
  driver->Click("relationGrid", 2, 2);
  EXPECT_THAT(followed, ElementsAre(SwitchOutcome::EndProgram));
  EXPECT_EQ(doc.faults[1], before);
}

// Flags and colours

TEST_F(FaultSpectraScreen, AClickShowsAndHidesAPlane) {
  Open();
  ChooseBase(kSecondPlane);
  driver->Click("planeGrid", 3, kShown);  // the base's, too, without a question
  EXPECT_EQ(doc.faults[1].attenShow, (std::vector<bool>{true, false}));
  EXPECT_TRUE(doc.IsModified());
  driver->Key(Qt::Key_Space);
  EXPECT_EQ(doc.faults[1].attenShow, (std::vector<bool>{true, true}));
  ToggleByReader("planeGrid", 1, kShown);
  EXPECT_EQ(doc.faults[0].attenShow, (std::vector<bool>{false}));
  EXPECT_EQ(doc.faults[0].attenUse, (std::vector<bool>{true}));
}

TEST_F(FaultSpectraScreen, OutOfUseTheBaseAsksFirst) {
  Open();
  ChooseBase(kSecondPlane);
  driver->Click("planeGrid", 2, kUse);
  EXPECT_EQ(doc.faults[1].attenUse, (std::vector<bool>{false, true}));
  ExpectDeclined([&] { driver->Click("planeGrid", 3, kUse); });
  ExpectDeclined([&] { ToggleByReader("planeGrid", 3, kUse); });
  EXPECT_EQ(driver->Cell("planeGrid", 3, kUse), "1");
  ExpectQuestion(kYes);
  driver->Click("planeGrid", 3, kUse);
  EXPECT_EQ(driver->Cell("planeGrid", 3, kUse), "0");
  ExpectBaseCleared();
  driver->Click("planeGrid", 3, kUse);  // back into use
  EXPECT_EQ(doc.faults[1].attenUse, (std::vector<bool>{false, true}));
}

TEST_F(FaultSpectraScreen, AColourIsChosenForOnePlane) {
  Open();
  std::int32_t offered = 0;
  driver->Grid("planeGrid").SetColorChooser([&](QWidget*, std::int32_t color) {
    offered = color;
    return std::optional<std::int32_t>(0x00FF00);
  });
  driver->Click("planeGrid", 2, kColor);
  EXPECT_EQ(offered, PaletteColor(1));
  EXPECT_EQ(doc.faults[1].attenColor, (std::vector<std::int32_t>{0x00FF00, PaletteColor(2)}));
  EXPECT_EQ(doc.faults[1].shortBaseColor[0], PaletteColor(1));
  EXPECT_TRUE(driver->Shows("graph", qRgb(0x00, 0xFF, 0x00)));
  driver->Grid("planeGrid").SetColorChooser([](QWidget*, std::int32_t) {
    return std::optional<std::int32_t>();
  });
  ExpectUnchanged([&] { driver->Click("planeGrid", 3, kColor); });
}

TEST_F(FaultSpectraScreen, TheButtonsReachAllPlanes) {
  Open();
  driver->Press("showNoneButton");
  EXPECT_THAT(ColumnTexts("planeGrid", kShown), Each("0"));
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(GraphDescription().contains("北"));
  driver->Press("showAllButton");
  EXPECT_THAT(ColumnTexts("planeGrid", kShown), Each("1"));
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("1"));
  driver->Press("useNoneButton");
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("0"));
  EXPECT_THAT(ColumnTexts("planeGrid", kShown), Each("1"));
  DoOfferedAction(driver->Find<QAbstractButton>("useAllButton"));  // holds the button down for a moment
  EXPECT_TRUE(QTest::qWaitFor([&] { return driver->Cell("planeGrid", 3, kUse) == "1"; }));
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("1"));
}

TEST_F(FaultSpectraScreen, AllOutOfUseAsksWhileAPlaneIsTheBase) {
  Open();
  ChooseBase(kSecondPlane);
  ExpectDeclined([&] { driver->Press("useNoneButton"); });
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("1"));
  driver->Press("useAllButton");  // asks nothing
  ExpectQuestion(kYes);
  driver->Press("useNoneButton");
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("0"));
  ExpectBaseCleared();
}

TEST_F(FaultSpectraScreen, WhenTheBaseOfTheAdoptedWaveGoesItsAdjustmentGoesToo) {
  Open();
  doc.seedWaves.Add(QStringLiteral("A"));
  doc.seedWaves.At(0).adopted = doc.seedWaves.At(0).adjusted = true;
  doc.seedAdopted = true;
  doc.seedAdoptedName = QStringLiteral("A");
  ChooseBase(kSecondPlane);
  ExpectDeclined([&] { driver->Press("useNoneButton"); });
  ExpectQuestion(kYes);
  driver->Press("useNoneButton");
  EXPECT_FALSE(doc.seedAdopted || doc.seedWaves.At(0).adjusted);
}

TEST_F(FaultSpectraScreen, OfFaultsWithOneNameTheClickedRowCounts) {
  doc.faults.clear();
  for (int i = 0; i < 2; ++i) AddFault(doc, QStringLiteral("同名"), 1, QStringLiteral("7.0"));
  ColorAsAcquired(doc);
  Open();
  EXPECT_THAT(ColumnTexts("planeGrid", kName), ElementsAre("同名", "同名"));
  doc.faults[1].equivBaseSelected[0] = true;
  doc.baseSpectrumName = QStringLiteral("(等価震源距離)同名");
  driver->Click("planeGrid", 1, kUse);  // not the base: its flag is clear
  EXPECT_FALSE(doc.faults[0].attenUse[0]);
  ExpectDeclined([&] { driver->Click("planeGrid", 2, kUse); });
}

TEST_F(FaultSpectraScreen, LockedCellsTakeNothing) {
  Open();
  QApplication::clipboard()->setText(QStringLiteral("9\t9\t9"));
  ExpectUnchanged([&] {
    for (const int column : {kRank, kName, kMagnitude, kIntensity, kShortest, kEquivalent}) {
      driver->Click("planeGrid", 1, column);
      QTest::keyClicks(&driver->Grid("planeGrid"), QStringLiteral("9"));
      driver->Key(Qt::Key_V, Qt::ControlModifier);
      driver->Key(Qt::Key_Delete);
      driver->Key(Qt::Key_F2);
    }
    driver->Click("relationGrid", 2, 1);
    driver->Key(Qt::Key_V, Qt::ControlModifier);
  });
  driver->Click("planeGrid", 2, kName);
  driver->Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("(1)北"));
}

// The other commands

TEST_F(FaultSpectraScreen, TheFaultsAreSetAnewOnTheirOwnScreen) {
  Open();
  ExpectUnchanged([&] { driver->Press("resetButton"); });
  EXPECT_EQ(procedure->ActiveScreen(), ScreenId::MakeSeismicWave1);
  EXPECT_THAT(followed, ElementsAre(SwitchOutcome::Open));
}

TEST_F(FaultSpectraScreen, TheButtonBesideTheRelationExplainsIt) {
  Open();
  QString title;
  ScreenDriver::InDialog([&](QWidget& dialog) {
    title = dialog.windowTitle();
    PressIn(dialog, "close");
  });
  ExpectUnchanged([&] { driver->Press("referButton"); });
  EXPECT_EQ(title, "距離減衰式について");
}

TEST_F(FaultSpectraScreen, WithinACommandNoButtonActs) {
  Open();
  ExpectUnchanged([&] {
    EXPECT_TRUE(gate->Run([&] {
      for (const char* const name :
           {"resetButton", "referButton", "showAllButton", "showNoneButton", "useAllButton", "useNoneButton"})
        driver->Find<QAbstractButton>(name).click();
    }));
  });
  EXPECT_THAT(followed, IsEmpty());
}

TEST_F(FaultSpectraScreen, TheSettingsDialogWorksOnItsRecordAndThePlanesColours) {
  doc.graphAttenuation.name = QStringLiteral("x");
  Open();
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditAccSpec");
    auto& colors = *dialog.findChild<CSpread7*>(QStringLiteral("colorGrid"));
    ASSERT_EQ(colors.RowCount(), 3);
    EXPECT_EQ(colors.GetCellText(3, 1), "(2)北");
    colors.SetColorChooser([](QWidget*, std::int32_t) { return std::optional<std::int32_t>(0x0000FF); });
    const QSignalSpy shown(driver->Grid("planeGrid").model(), &QAbstractItemModel::dataChanged);
    colors.Press(3, 2);
    Settle();
    EXPECT_FALSE(shown.isEmpty());  // the patch in the grid behind the dialog is painted anew
    EXPECT_EQ(doc.faults[1].attenColor[1], 0x0000FF);
    EXPECT_EQ(driver->Cell("planeGrid", 3, kColor), "#FF0000");
    PressIn(dialog, "spectrumLogCheck");
    EXPECT_EQ(doc.graphAttenuation.origGraph.specLog, 0);
    PressIn(dialog, "resetColorsButton");
    EXPECT_EQ(doc.faults[1].attenColor[1], PaletteColor(2));
    EXPECT_EQ(doc.graphAttenuation.origGraph.specLog, 0);
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "cancelButton");
  });
  driver->Press("settingsButton");
  EXPECT_EQ(doc.graphAttenuation, CSeismicWave());
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(driver->Cell("planeGrid", 3, kColor), "#3A9BD9");
}

TEST_F(FaultSpectraScreen, TheTabKeyFollowsTheReadingOrder) {
  Open();
  EXPECT_THAT(
      TabOrder("resetButton", 11),
      ElementsAre("resetButton", "relationGrid", "referButton", "showAllButton", "showNoneButton",
                  "useAllButton", "useNoneButton", "planeGrid", "graph", "copyButton", "settingsButton"));
}

/// The graph keeps its white ground, on which the colours of the curves can be read.
TEST_F(FaultSpectraScreen, OnADarkPaletteTheGraphStaysAsItIs) {
  Open();
  const QImage graph = driver->Find<QWidget>("graph").grab().toImage();
  PaletteChange palette;
  palette.ToDark();
  EXPECT_EQ(driver->Find<QWidget>("graph").grab().toImage(), graph);
  KeepPicture("fault-spectra-dark");
}

TEST_F(FaultSpectraScreen, ReadersHearTheColumnAndStateOfACheckCell) {
  Open();
  QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&driver->Grid("planeGrid"));
  EXPECT_EQ(heard->tableInterface()->cellAt(0, kUse - 1)->text(QAccessible::Name), "利用 オン");
  driver->Click("planeGrid", 1, kUse);
  EXPECT_EQ(heard->tableInterface()->cellAt(0, kUse - 1)->text(QAccessible::Name), "利用 オフ");
}

TEST_F(FaultSpectraScreen, AHundredFaultsOfThreePlanes) {
  doc.faults.clear();
  for (int i = 0; i < 100; ++i)
    AddFault(doc, QStringLiteral("断層帯%1（とても長い名前の主要活断層帯の一部）").arg(i + 1), 3,
             QStringLiteral("7.%1").arg(i % 10));
  ColorAsAcquired(doc);
  Open();
  EXPECT_EQ(driver->Grid("planeGrid").RowCount(), 300);
  EXPECT_EQ(driver->Cell("planeGrid", 300, kName), "(3)断層帯100（とても長い名前の主要活断層帯の一部）");
  KeepPicture("fault-spectra-300");
  driver->Grid("planeGrid").scrollToBottom();
  driver->Click("planeGrid", 300, kUse);
  EXPECT_FALSE(doc.faults[99].attenUse[2]);
  PickClass(299, 3);
  EXPECT_EQ(doc.faults[99].groundClass[1], "D");
  driver->Press("useNoneButton");
  EXPECT_THAT(ColumnTexts("planeGrid", kUse), Each("0"));
}

TEST_F(FaultSpectraScreen, ARecordCutShortSurvivesEveryClick) {
  Open();
  FaultInfo& fault = doc.faults[1];
  fault.groundClass.clear();
  fault.attenColor.clear();
  fault.attenShow.clear();
  fault.shortestDistance.clear();
  screen->Refresh();
  for (int column = 1; column <= 10; ++column) {
    if (column == kColor) continue;
    driver->Click("planeGrid", 2, column);
    driver->Key(Qt::Key_Escape);
  }
  driver->Press("showAllButton");
  driver->Press("useAllButton");
  driver->Picture();
  EXPECT_EQ(driver->Grid("planeGrid").RowCount(), 3);
}

TEST_F(FaultSpectraScreen, SavedAndOpenedItGivesTheSameBytes) {
  Open();
  PickClass(2, 3);
  driver->Click("relationGrid", 2, 2);
  driver->Click("planeGrid", 1, kUse);
  const std::string bytes = ProjectBytes(doc);
  ASSERT_TRUE(LoadProject(doc, bytes).whole);
  procedure->RefreshScreens();
  Settle();
  EXPECT_EQ(Class(2), "D");
  EXPECT_THAT(ColumnTexts("relationGrid", 2), ElementsAre("0", "1"));
  EXPECT_EQ(ProjectBytes(doc), bytes);
}

/// Nothing is cut in the window's client area, nor in the smallest that it is used in.
TEST_F(FaultSpectraScreen, ButtonsAndTitlesHaveTheirRoom) {
  Open({820, 640});
  for (const QAbstractButton* const button : screen->findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
    EXPECT_TRUE(screen->rect().contains(QRect(button->mapTo(screen, QPoint()), button->size())));
  }
  CSpread7& grid = driver->Grid("planeGrid");
  for (int column = 1; column <= 10; ++column)
    EXPECT_GT(grid.columnWidth(column - 1),
              grid.fontMetrics().horizontalAdvance(grid.GetCellText(0, column)) + 4)
        << column;
  EXPECT_GT(grid.columnWidth(kName - 1), 100);
  EXPECT_FALSE(grid.horizontalScrollBar()->isVisible());
  KeepPicture("fault-spectra-small");
}

TEST_F(FaultSpectraScreen, ASwitchThatIsPressedWithinACommandDoesNothing) {
  Open();
  int asked = 0;
  driver->Grid("planeGrid").SetColorChooser([&](QWidget*, std::int32_t) {
    ++asked;
    return std::optional<std::int32_t>();
  });
  ExpectUnchanged([&] {
    EXPECT_TRUE(gate->Run([&] {
      for (const int column : {kColor, kShown, kUse}) driver->Click("planeGrid", 1, column);
      driver->Click("relationGrid", 2, 2);
    }));
  });
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace tremlo::test
