#include "SpectraScreenTest.h"
#include "core/graphs/ColorText.h"
#include "core/project/ProjectFile.h"
#include "support/IndependentSpectrum.h"
#include "support/PaletteChange.h"
#include "window/sources/FrmBaseSpectrum.h"

#include <QHeaderView>

#include <cstdio>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kLabel = 2, kArea = 3, kMaximum = 4, kColor = 5, kShown = 6, kBase = 7;
constexpr char kGrid[] = "candidateGrid";

const QString kLimit = QStringLiteral("H20大規模地震に対するダム耐震性能照査指針（案）・同解説（水平版）");

class BaseSpectrumScreen : public SpectraScreenTest {
 protected:
  BaseSpectrumScreen() : SpectraScreenTest(ScreenId::BaseSpectrum) { Make<CFrmBaseSpectrum>(); }

  /// The wave "A", a fault of one plane, one of two, and the lower limit: eight rows.
  void EnterFull() {
    AddWave(QStringLiteral("A"));
    AddWave(QStringLiteral("B"), false);
    AddFault(QStringLiteral("南"), 1);
    AddFault(QStringLiteral("北"), 2);
    Enter();
  }
  QStringList Labels() { return Column(kGrid, kLabel); }
  QString Told() { return driver->Find<QLabel>("candidateText").text(); }
  /// A lower limit of 100 gal at all periods, and a wave that is below it at some of them.
  void EnterSimple() {
    CSeismicWave& limit = doc.lowerSpectra.At(0);
    limit.name = QStringLiteral("下限");
    limit.periods = {5.0, 0.02};
    limit.accSpec = {100.0, 100.0};
    for (std::size_t i = 0; i < doc.lowerSpectra.Count(); ++i) doc.lowerSpectra.At(i).lowerSelected = i == 0;
    CSeismicWave& wave = AddWave(QStringLiteral("A"));
    wave.spectrumValid = true;
    wave.periods = {1.0, 0.5, 0.25, 0.125};
    wave.accSpec = {50.0, 250.0, 150.0, 90.0};
    Enter();
  }
  void ExpectOneBase(int row) {
    QStringList expected(driver->Grid(kGrid).RowCount(), QStringLiteral("0"));
    expected[row - 1] = QStringLiteral("1");
    EXPECT_EQ(Column(kGrid, kBase), expected);
    EXPECT_EQ(doc.baseSpectrumName, Labels()[row - 1]);
  }
};

// --- The list ---

TEST_F(BaseSpectrumScreen, AllCandidatesStandInOneListWithTheirTitles) {
  EnterFull();
  QStringList titles;
  for (int column = 1; column <= 7; ++column) titles << driver->Grid(kGrid).GetCellText(0, column);
  EXPECT_THAT(titles,
              ElementsAre("No.", "スペクトル名", "面積 (gal・sec)", "最大値 (gal)", "色", "表示", "基準"));
  EXPECT_THAT(Labels(), ElementsAre("A", "(最短距離)南", "(等価震源距離)南", "(最短距離)(1)北",
                                    "(等価震源距離)(1)北", "(最短距離)(2)北", "(等価震源距離)(2)北", kLimit));
  EXPECT_THAT(Column(kGrid, kShown), testing::Each(QString("1")));
  EXPECT_THAT(Column(kGrid, kBase), testing::Each(QString("0")));
  EXPECT_EQ(Column(kGrid, kColor)[1], ColorToText(0x2040C0));
  EXPECT_EQ(driver->Find<QLabel>("guide").text(),
            "一覧から、現場への影響が一番大きいスペクトルを基準スペクトルとして選択してください。");
  EXPECT_EQ(driver->Find<QLabel>("caption").text(), "グラフ (周期－加速度応答スペクトル)");
}

TEST_F(BaseSpectrumScreen, WithBothSourcesOffThereIsTheLowerLimitAlone) {
  doc.flowNeighbourWave = doc.flowFaultSource = false;
  EnterFull();
  EXPECT_THAT(Labels(), ElementsAre(kLimit));
  EXPECT_THAT(runs.Take(), IsEmpty());
  EXPECT_TRUE(doc.faults[0].shortestSpectrum[0].empty()) << "no source, no run";
}

TEST_F(BaseSpectrumScreen, ItOpensWithoutWavesAndFaults) {
  Enter();
  EXPECT_THAT(Labels(), ElementsAre(kLimit));
  EXPECT_TRUE(HasOpened());
}

TEST_F(BaseSpectrumScreen, OfFewCandidatesTheGraphHasTheRoom) {
  Enter();
  const auto& grid = *screen->findChild<CSpread7*>(QStringLiteral("candidateGrid"));
  const auto& graph = *screen->findChild<QWidget*>(QStringLiteral("graph"));
  const int rowHeight = grid.verticalHeader()->defaultSectionSize();
  EXPECT_LT(grid.height(), 6 * rowHeight) << "one row, and room for three";
  const int graphHeight = graph.height();
  EnterFull();
  Settle();
  EXPECT_GT(grid.height(), 6 * rowHeight);
  EXPECT_LT(graph.height(), graphHeight);
}

TEST_F(BaseSpectrumScreen, WithoutASelectedLowerLimitTheListMayBeEmpty) {
  doc.lowerSpectra.Clear();
  Enter();
  EXPECT_THAT(Labels(), IsEmpty());
  EXPECT_EQ(Told(), "");
  EXPECT_FALSE(driver->Picture().isNull());
  driver->Press("showAllButton");
  driver->Press("hideAllButton");
  EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(BaseSpectrumScreen, NamesAreShownAsTheyAre) {
  for (const char* name : {"A, \"b\" & [*]", "①髙～", "<b>太字</b>", "%1 %2", "①髙～"})
    AddWave(QString::fromUtf8(name));
  AddFault(QStringLiteral("一, \"二\" & [*] ①髙～"), 1);
  Enter();
  EXPECT_THAT(Labels(), ElementsAre("A, \"b\" & [*]", "①髙～", "<b>太字</b>", "%1 %2", "①髙～",
                                    "(最短距離)一, \"二\" & [*] ①髙～",
                                    "(等価震源距離)一, \"二\" & [*] ①髙～", kLimit));
  for (int row = 1; row <= 7; ++row) {
    driver->Click(kGrid, row, kLabel);
    EXPECT_TRUE(Told().startsWith(Labels()[row - 1] + u'　')) << Told().toStdString();
  }
  EXPECT_EQ(driver->Find<QLabel>("candidateText").textFormat(), Qt::PlainText);
  driver->Click(kGrid, 6, kBase);
  EXPECT_EQ(doc.baseSpectrumName, "(最短距離)一, \"二\" & [*] ①髙～");
}

// --- Figures: each reckoned here once more, in another precision and by another road ---

std::string TwoPlaces(long double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2Lf", value);
  return text;
}

TEST_F(BaseSpectrumScreen, AreaAndMaximumOfAWaveAreThoseReckonedApart) {
  EnterFull();
  const std::vector<double>& acc = doc.seedWaves.At(0).acc;
  long double area = 0.0L, largest = 0.0L, before = 0.0L;
  const auto period = [&](std::size_t k) {
    return static_cast<long double>(acc.size()) * kTimeStep / static_cast<long double>(k);
  };
  for (std::size_t k = 1; k <= acc.size() / 2; ++k) {
    const long double value =
        IndependentPeak(acc, static_cast<double>(1.0L / period(k)), kTimeStep, LoadIntegral::MethodsOwn);
    largest = std::max(largest, value);
    if (k > 1) area += (before + value) / 2.0L * (period(k - 1) - period(k));
    before = value;
  }
  EXPECT_EQ(driver->Cell(kGrid, 1, kArea), TwoPlaces(area));
  EXPECT_EQ(driver->Cell(kGrid, 1, kMaximum), TwoPlaces(largest));
  EXPECT_GT(largest, 10.0L);
}

void ExpectFigures(ScreenDriver& driver, int row, const std::vector<double>& periods,
                   const std::vector<double>& values) {
  ASSERT_GT(periods.size(), 5U);
  long double area = 0.0L, largest = 0.0L;
  for (std::size_t j = 0; j < periods.size(); ++j) {
    largest = std::max(largest, static_cast<long double>(values[j]));
    if (j == 0) continue;
    const long double width = static_cast<long double>(periods[j]) - periods[j - 1];
    area += (static_cast<long double>(values[j]) + values[j - 1]) / 2.0L * std::fabs(width);
  }
  EXPECT_EQ(driver.Cell(kGrid, row, kArea), TwoPlaces(area)) << row;
  EXPECT_EQ(driver.Cell(kGrid, row, kMaximum), TwoPlaces(largest)) << row;
}

TEST_F(BaseSpectrumScreen, AreaAndMaximumOfPlanesAndLimitAreThoseReckonedApart) {
  EnterFull();
  int row = 2;
  for (const FaultInfo& fault : doc.faults)
    for (std::size_t plane = 0; plane < fault.attenUse.size(); ++plane) {
      ExpectFigures(*driver, row++, fault.shortestPeriods[plane], fault.shortestSpectrum[plane]);
      ExpectFigures(*driver, row++, fault.equivalentPeriods[plane], fault.equivalentSpectrum[plane]);
    }
  ExpectFigures(*driver, row, doc.lowerSpectra.SelectedPeriods(), doc.lowerSpectra.SelectedAccSpec());
  EXPECT_EQ(row, 8);
}

TEST_F(BaseSpectrumScreen, EnteringKeepsTheAreas) {
  AddWave(QStringLiteral("A"));
  AddFault(QStringLiteral("北"), 2);
  ASSERT_EQ(Press(), SwitchOutcome::Open);
  EXPECT_TRUE(doc.IsModified());
  const auto kept = [](double area) { return QString::fromStdString(TwoPlaces(area)); };
  EXPECT_THAT(Column(kGrid, kArea),
              ElementsAre(kept(doc.seedWaves.At(0).spectrumArea), kept(doc.faults[0].shortArea[0]),
                          kept(doc.faults[0].equivArea[0]), kept(doc.faults[0].shortArea[1]),
                          kept(doc.faults[0].equivArea[1]), kept(doc.lowerSpectra.At(0).spectrumArea)));
  EXPECT_GT(doc.faults[0].shortArea[0], 0.0);
}

TEST_F(BaseSpectrumScreen, EnteringOnceMoreChangesNothing) {
  doc.flowFaultSource = false;
  EnterFull();
  ExpectNoChange([&] { EXPECT_EQ(Press(), SwitchOutcome::Open); });
}

TEST_F(BaseSpectrumScreen, AWaveWithoutASpectrumHasNoFigures) {
  AddWave(QStringLiteral("A")).timeStep = 0.0;
  Enter();
  EXPECT_EQ(driver->Cell(kGrid, 1, kArea) + " " + driver->Cell(kGrid, 1, kMaximum), "0.00 0.00");
  EXPECT_EQ(Told(), "A　ダムの固有周期での応答：-\n下限スペクトルを下回る周期：-");
  driver->Click(kGrid, 1, kBase);
  ExpectOneBase(1);
}

TEST_F(BaseSpectrumScreen, FaultsThatACommandClearsLeaveTheListAtOnce) {
  EnterFull();
  driver->Click(kGrid, 6, kBase);
  prompt.ExpectQuestion(ApiParametersQuestion(doc.apiParameters), PromptAnswer::Yes);
  ExpectBaseQuestion(PromptAnswer::Yes);
  EXPECT_TRUE(rules.BeginApiParameters());
  EXPECT_THAT(Labels(), ElementsAre("A", kLimit));
  EXPECT_THAT(Column(kGrid, kBase), ElementsAre("0", "0"));
  EXPECT_FALSE(driver->Shows("graph", 0xFF408020));
}

// --- What entering computes ---

TEST_F(BaseSpectrumScreen, MissingSpectraOfWavesInUseAreComputedBehindTheirDialog) {
  EnterFull();
  EXPECT_THAT(runs.Take(), ElementsAre("CDlgNowCalcAccSpec"));
  EXPECT_TRUE(doc.seedWaves.At(0).spectrumValid);
  EXPECT_TRUE(doc.seedWaves.At(1).spectrumValid) << "then all that are missing";
  ASSERT_EQ(Press(), SwitchOutcome::Open);
  EXPECT_THAT(runs.Take(), IsEmpty()) << "all are there";
}

TEST_F(BaseSpectrumScreen, WavesThatAreNotInUseNeedNoSpectrum) {
  AddWave(QStringLiteral("B"), false);
  Enter();
  EXPECT_THAT(runs.Take(), IsEmpty());
  EXPECT_FALSE(doc.seedWaves.At(0).spectrumValid);
}

TEST_F(BaseSpectrumScreen, WithoutTheSourceOfWavesNoSpectrumIsComputed) {
  doc.flowNeighbourWave = false;
  AddWave(QStringLiteral("A"));
  Enter();
  EXPECT_THAT(runs.Take(), IsEmpty());
}

#ifdef __GLIBC__

TEST_F(BaseSpectrumScreen, AFailedBatchIsToldAndOpensNothing) {
  AddWave(QStringLiteral("A"));
  prompt.ExpectMessage(QStringLiteral("加速度応答スペクトルの計算に失敗しました。"));
  ExpectNoChange([&] {
    const NoThreads none;
    EXPECT_EQ(Press(), SwitchOutcome::Refused);
  });
  EXPECT_FALSE(HasOpened());
  Enter();
  EXPECT_THAT(Labels(), ElementsAre("A", kLimit)) << "and the next one works";
}

#endif

// --- Choosing ---

TEST_F(BaseSpectrumScreen, WithoutAnAdoptedWaveAChoiceAsksNothing) {
  EnterFull();
  for (const int row : {3, 1, 8, 6, 2}) {
    driver->Click(kGrid, row, kBase);
    ExpectOneBase(row);
    EXPECT_TRUE(doc.IsModified());
  }
  EXPECT_EQ(MarkedBase(doc), (BaseItem{BaseSource::ShortestPlane, 0, 0}));
}

TEST_F(BaseSpectrumScreen, NoToAnotherBaseLeavesEverything) {
  EnterFull();
  driver->Click(kGrid, 6, kBase);
  Adopt(1);
  doc.SetModified(false);
  ExpectBaseQuestion(PromptAnswer::No);
  ExpectNoChange([&] { driver->Click(kGrid, 3, kBase); });
  ExpectOneBase(6);
}

TEST_F(BaseSpectrumScreen, YesToAnotherBaseCostsTheAdjustment) {
  EnterFull();
  driver->Click(kGrid, 6, kBase);
  Adopt(1);
  ExpectBaseQuestion(PromptAnswer::Yes);
  driver->Click(kGrid, 3, kBase);
  ExpectOneBase(3);
  EXPECT_EQ(MarkedBase(doc), (BaseItem{BaseSource::EquivalentPlane, 0, 0}));
  EXPECT_FALSE(doc.seedAdopted || doc.seedWaves.At(1).adopted || doc.seedWaves.At(1).adjusted);
  EXPECT_THAT(doc.seedWaves.At(1).adjustedAcc, IsEmpty());
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(BaseSpectrumScreen, TheBaseItselfAsksNothing) {
  EnterFull();
  driver->Click(kGrid, 6, kBase);
  Adopt(1);
  doc.SetModified(false);
  ExpectNoChange([&] { driver->Click(kGrid, 6, kBase); });
  ExpectOneBase(6);
  doc.seedAdopted = false;
  driver->Click(kGrid, 6, kBase);
  ExpectOneBase(6);
}

TEST_F(BaseSpectrumScreen, OfEqualLabelsTheFirstIsReached) {
  AddFault(QStringLiteral("南"), 1);
  AddFault(QStringLiteral("南"), 1);
  Enter();
  driver->Click(kGrid, 3, kBase);
  ExpectOneBase(1);
  EXPECT_TRUE(doc.faults[0].shortBaseSelected[0]);
  EXPECT_FALSE(doc.faults[1].shortBaseSelected[0]);
  driver->Click(kGrid, 4, kShown);
  EXPECT_FALSE(doc.faults[0].equivBaseShow[0]);
  EXPECT_TRUE(doc.faults[1].equivBaseShow[0]);
}

TEST_F(BaseSpectrumScreen, KeysAndTheAccessibleActionChooseToo) {
  EnterFull();
  driver->Grid(kGrid).setFocus();
  driver->Grid(kGrid).SelectCell(2, kBase);
  driver->Key(Qt::Key_Space);
  ExpectOneBase(2);
  driver->Key(Qt::Key_Down);
  driver->Key(Qt::Key_Return);
  ExpectOneBase(3);
  Toggle(kGrid, 8, kBase);
  ExpectOneBase(8);
  Toggle(kGrid, 5, kShown);
  EXPECT_FALSE(doc.faults[1].equivBaseShow[0]);
}

TEST_F(BaseSpectrumScreen, AChosenBaseIsSavedAsItIs) {
  const TestFolder folder;
  EnterFull();
  for (const int row : {1, 3, 6, 8}) {
    driver->Click(kGrid, row, kBase);
    ASSERT_TRUE(SaveProject(doc, folder.Path(QStringLiteral("a.trml"))));
    CMorvaneDoc opened{SourcePath(QStringLiteral("data"))};
    ASSERT_EQ(OpenProject(opened, folder.Path(QStringLiteral("a.trml"))).result, OpenResult::kOpened);
    ASSERT_TRUE(SaveProject(opened, folder.Path(QStringLiteral("b.trml"))));
    EXPECT_EQ(ReadAll(folder.Path(QStringLiteral("a.trml"))), ReadAll(folder.Path(QStringLiteral("b.trml"))));
    EXPECT_EQ(MarkedBase(opened), MarkedBase(doc));
  }
}

// --- Colour and drawing ---

TEST_F(BaseSpectrumScreen, AShownCandidateIsDrawnInItsColour) {
  EnterFull();
  EXPECT_TRUE(driver->Shows("graph", 0xFFC04020));  // the shortest distances
  EXPECT_THAT(GraphDescription().toStdString(), HasSubstr("(2)(最短距離)北"));
  for (const int row : {2, 4, 6}) driver->Click(kGrid, row, kShown);
  EXPECT_THAT(Column(kGrid, kShown), ElementsAre("1", "0", "1", "0", "1", "0", "1", "1"));
  EXPECT_FALSE(driver->Shows("graph", 0xFFC04020));
  EXPECT_TRUE(driver->Shows("graph", 0xFF408020));
  EXPECT_EQ(doc.faults[1].shortBaseShow, (std::vector<bool>{false, false}));
  EXPECT_EQ(doc.faults[1].equivBaseShow, (std::vector<bool>{true, true}));
  EXPECT_TRUE(doc.IsModified());
  driver->Click(kGrid, 2, kShown);
  EXPECT_TRUE(driver->Shows("graph", 0xFFC04020));
}

TEST_F(BaseSpectrumScreen, TheButtonsShowAndHideAll) {
  EnterFull();
  driver->Press("hideAllButton");
  EXPECT_THAT(Column(kGrid, kShown), testing::Each(QString("0")));
  EXPECT_FALSE(driver->Shows("graph", 0xFF408020));
  EXPECT_TRUE(doc.seedWaves.At(1).baseShow) << "no candidate";
  EXPECT_TRUE(doc.IsModified());
  PressAccessibly("showAllButton", [&] { return !Column(kGrid, kShown).contains(QStringLiteral("0")); });
  EXPECT_TRUE(driver->Shows("graph", 0xFF408020));
}

TEST_F(BaseSpectrumScreen, AColourIsChosenForEachKindOfARow) {
  EnterFull();
  std::vector<std::int32_t> offered;
  driver->Grid(kGrid).SetColorChooser([&](QWidget*, std::int32_t color) {
    offered.push_back(color);
    return std::optional<std::int32_t>(0x0A0B0C + static_cast<std::int32_t>(offered.size()));
  });
  for (const int row : {1, 6, 7, 8}) driver->Click(kGrid, row, kColor);
  EXPECT_THAT(offered, ElementsAre(0xD07000, 0x2040C0, 0x208040, 0));
  EXPECT_EQ(doc.seedWaves.At(0).baseColor, 0x0A0B0D);
  EXPECT_EQ(doc.seedWaves.At(0).siteColor, 0xD07000);
  EXPECT_EQ(doc.faults[1].shortBaseColor[1], 0x0A0B0E);
  EXPECT_EQ(doc.faults[1].equivBaseColor[1], 0x0A0B0F);
  EXPECT_EQ(doc.lowerSpectra.SelectedBaseColor(), 0x0A0B10);
  EXPECT_TRUE(driver->Shows("graph", 0xFF0E0B0A));
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(BaseSpectrumScreen, ACancelledColourChangesNothing) {
  EnterFull();
  ScreenDriver::InDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  ExpectNoChange([&] { driver->Click(kGrid, 2, kColor); });
}

TEST_F(BaseSpectrumScreen, TheSettingsDialogWorksOnTheBlockOfTheBase) {
  EnterFull();
  doc.graphBase.name = QStringLiteral("x");
  ScreenDriver::InDialog([this](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgGraphEditBaseSpec");
    EXPECT_EQ(dialog.findChild<QWidget*>("colorGrid"), nullptr);
    PressIn(dialog, "spectrumLogCheck");
    EXPECT_EQ(doc.graphBase.origGraph.specLog, 0);
    EXPECT_TRUE(doc.IsModified());
    PressIn(dialog, "resetRangeButton");
    PressIn(dialog, "okButton");
  });
  driver->Press("settingsButton");
  EXPECT_EQ(doc.graphBase, CSeismicWave());
}

// --- The text that helps to choose ---

TEST_F(BaseSpectrumScreen, TheTextTellsOfTheActiveRow) {
  EnterSimple();
  EXPECT_EQ(Told(), "A　ダムの固有周期での応答：-\n下限スペクトルを下回る周期：0.125 s、1 s");
  driver->Click(kGrid, 2, kLabel);
  EXPECT_EQ(Told(), "下限　ダムの固有周期での応答：-\n下限スペクトルを下回る周期：なし");
  driver->Key(Qt::Key_Up);
  EXPECT_EQ(Told(), "A　ダムの固有周期での応答：-\n下限スペクトルを下回る周期：0.125 s、1 s");
}

TEST_F(BaseSpectrumScreen, TheTextReadsTheResponseAtTheDamsPeriod) {
  EnterSimple();
  EXPECT_EQ(driver->Text("damPeriodEdit"), "");
  ExpectNoChange([&] {
    driver->Enter("damPeriodEdit", QStringLiteral("0.375"));
    EXPECT_EQ(Told(), "A　ダムの固有周期での応答：200.00 gal\n下限スペクトルを下回る周期：0.125 s、1 s");
    driver->Type("damPeriodEdit", QStringLiteral("0.5"));
    driver->Key(Qt::Key_Return);
    EXPECT_THAT(Told().toStdString(), HasSubstr("応答：250.00 gal"));
    EXPECT_EQ(driver->Text("damPeriodEdit"), "0.500");
    driver->Enter("damPeriodEdit", QStringLiteral("2"));
    EXPECT_THAT(Told().toStdString(), HasSubstr("応答：-\n")) << "outside the candidate's periods";
    driver->Click(kGrid, 2, kLabel);
    EXPECT_THAT(Told().toStdString(), HasSubstr("応答：100.00 gal"));
    driver->Enter("damPeriodEdit", QString());
    EXPECT_THAT(Told().toStdString(), HasSubstr("応答：-\n"));
  });
}

TEST_F(BaseSpectrumScreen, APeriodOutOfRangeIsRefusedAndTheOldOneHolds) {
  EnterSimple();
  driver->Enter("damPeriodEdit", QStringLiteral("0.5"));
  for (const char* text : {"5.1", "0.019", "-"}) {
    prompt.ExpectBox(
        {.text = QStringLiteral("数値が範囲外です。\n\n（0.020 ～ 5.000 までの範囲で入力してください。）"),
         .title = QStringLiteral("入力確認")},
        PromptAnswer::Ok);
    driver->Enter("damPeriodEdit", QString::fromLatin1(text));
    prompt.CheckUsedUp();
    EXPECT_EQ(driver->Text("damPeriodEdit"), "0.500");
    EXPECT_THAT(Told().toStdString(), HasSubstr("応答：250.00 gal"));
  }
}

TEST_F(BaseSpectrumScreen, APeriodGivenUpByEscapeIsNotTaken) {
  EnterSimple();
  driver->Enter("damPeriodEdit", QStringLiteral("0.5"));
  driver->Type("damPeriodEdit", QStringLiteral("0.25"));
  driver->Key(Qt::Key_Escape);
  driver->Key(Qt::Key_Tab);
  EXPECT_EQ(driver->Text("damPeriodEdit"), "0.500");
  EXPECT_THAT(Told().toStdString(), HasSubstr("応答：250.00 gal"));
}

TEST_F(BaseSpectrumScreen, PeriodAndActiveRowSurviveARefresh) {
  EnterSimple();
  driver->Enter("damPeriodEdit", QStringLiteral("0.5"));
  driver->Click(kGrid, 2, kLabel);
  doc.lowerSpectra.At(0).accSpec = {300.0, 300.0};
  screen->Refresh();
  EXPECT_EQ(driver->Text("damPeriodEdit"), "0.500");
  EXPECT_EQ(driver->Grid(kGrid).ActiveRow(), 2);
  EXPECT_THAT(Told().toStdString(), HasSubstr("応答：300.00 gal"));
  driver->Type("damPeriodEdit", QStringLiteral("0.2"));
  screen->Refresh();
  EXPECT_EQ(driver->Text("damPeriodEdit"), "0.2") << "what is being typed";
}

TEST_F(BaseSpectrumScreen, AnotherProjectStartsWithoutThem) {
  EnterSimple();
  driver->Enter("damPeriodEdit", QStringLiteral("0.5"));
  driver->Click(kGrid, 2, kLabel);
  ASSERT_EQ(doc.ResetDocument(), std::nullopt);
  doc.guidelineRoute = true;
  screen->Refresh();
  EXPECT_EQ(driver->Text("damPeriodEdit"), "");
  EXPECT_EQ(driver->Grid(kGrid).ActiveRow(), 1);
  EXPECT_THAT(Told().toStdString(), HasSubstr("応答：-\n"));
}

TEST_F(BaseSpectrumScreen, TheTextKeepsItsSizeWhateverItSays) {
  AddWave(QString(300, u'W'));
  AddWave(QStringLiteral("短"));
  Enter();
  const QSize before = driver->Find<QWidget>("candidateText").size();
  driver->Click(kGrid, 2, kLabel);
  EXPECT_EQ(driver->Find<QWidget>("candidateText").size(), before);
  EXPECT_LE(screen->minimumSizeHint().width(), 820) << "in sight in a window of 1024 pixels";
  EXPECT_FALSE(driver->Find<QLabel>("candidateText").toolTip().isEmpty());
  QAccessibleInterface* const heard =
      QAccessible::queryAccessibleInterface(&driver->Find<QLabel>("candidateText"));
  EXPECT_EQ(heard->text(QAccessible::Name), Told());
  EXPECT_THAT(heard->text(QAccessible::Description).toStdString(), HasSubstr("直線"));
}

// --- What every screen keeps to ---

TEST_F(BaseSpectrumScreen, RefreshChangesNoByteAndDropsTheRowsOfClearedFaults) {
  EnterFull();
  driver->Click(kGrid, 7, kLabel);
  doc.faults.clear();
  doc.seedWaves.At(0).spectrumValid = false;
  doc.seedWaves.At(0).spectrumArea = -1.0;
  runs.Take();
  ExpectNoChange([&] {
    screen->Refresh();
    driver->Picture();
  });
  EXPECT_THAT(Labels(), ElementsAre("A", kLimit));
  EXPECT_THAT(runs.Take(), IsEmpty());
  EXPECT_TRUE(Told().startsWith(Labels()[driver->Grid(kGrid).ActiveRow() - 1] + u'　'));
}

TEST_F(BaseSpectrumScreen, ListedCellsAreNotWritten) {
  EnterFull();
  ExpectNoChange([&] {
    driver->Click(kGrid, 2, kLabel);
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_V}) driver->Key(key, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Z}) driver->Key(key);
    driver->Key(Qt::Key_C, Qt::ControlModifier);
  });
  EXPECT_EQ(QApplication::clipboard()->text().trimmed(), "(最短距離)南");
}

TEST_F(BaseSpectrumScreen, BehindADialogNothingIsReached) {
  EnterFull();
  ExpectDeafBehindDialog({"showAllButton", "hideAllButton", "settingsButton", "copyButton"}, kGrid, kBase);
  ExpectDeafBehindDialog({}, kGrid, kShown);
}

TEST_F(BaseSpectrumScreen, TheTabKeyFollowsTheReadingOrder) {
  EnterFull();
  EXPECT_THAT(TabOrder(kGrid, 7), ElementsAre(kGrid, "showAllButton", "hideAllButton", "damPeriodEdit",
                                              "graph", "copyButton", "settingsButton"));
}

// --- Commands ---

TEST_F(BaseSpectrumScreen, ASwitchThatIsPressedWithinACommandDoesNothing) {
  EnterFull();
  int asked = 0;
  driver->Grid(kGrid).SetColorChooser([&](QWidget*, std::int32_t) {
    ++asked;
    return std::optional<std::int32_t>();
  });
  ExpectNoChange([&] {
    EXPECT_TRUE(gate.Run([&] {
      for (const int column : {kColor, kShown, kBase}) driver->Click(kGrid, 1, column);
    }));
  });
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace tremlo::test
