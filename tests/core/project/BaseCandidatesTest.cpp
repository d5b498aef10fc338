#include "core/files/TextScan.h"
#include "core/project/BaseCandidateRows.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/DocumentAcquisition.h"
#include "core/sources/DamSpectra.h"
#include "support/DocumentState.h"
#include "support/GridPress.h"
#include "support/LocalService.h"
#include "support/ProcedureParts.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::ColumnTexts;
using test::DocumentState;
using test::GiveText;
using test::PressCheck;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kLabel = 2, kArea = 3, kMaximum = 4, kColor = 5, kShown = 6, kBase = 7;

/// The wave "A", the planes of "南" and "北" and the lower limit "下限1".
struct Grid : test::ProcedureParts {
  explicit Grid(const char16_t* baseLabel = nullptr) {
    test::FillProject(doc);
    if (baseLabel) test::ChooseBase(doc, baseLabel);
    rows.Refresh();
  }
  QStringList Labels() { return Refreshed(kLabel); }
  QStringList Refreshed(int column) {
    rows.Refresh();
    return ColumnTexts(rows, column);
  }

  BaseCandidateRows rows{doc, rules};
};

TEST(BaseCandidates, WavesPlanesAndLowerLimitInThisOrder) {
  Grid grid;
  EXPECT_THAT(grid.Labels(),
              ElementsAre("A", "(最短距離)南", "(等価震源距離)南", "(最短距離)(1)北", "(等価震源距離)(1)北",
                          "(最短距離)(2)北", "(等価震源距離)(2)北", "下限1"));
  grid.doc.seedWaves.At(2).siteUse = true;
  grid.doc.faults[1].attenUse[0] = false;
  EXPECT_THAT(grid.Labels(), ElementsAre("A", "C", "(最短距離)南", "(等価震源距離)南", "(最短距離)(2)北",
                                         "(等価震源距離)(2)北", "下限1"));
}

TEST(BaseCandidates, WithBothSourcesOffTheLowerLimitIsLeft) {
  Grid grid;
  grid.doc.flowNeighbourWave = grid.doc.flowFaultSource = false;
  EXPECT_THAT(grid.Labels(), ElementsAre("下限1"));
  grid.doc.flowNeighbourWave = true;
  EXPECT_THAT(grid.Labels(), ElementsAre("A", "下限1"));
}

TEST(BaseCandidates, WithoutWavesAndFaultsTheLowerLimitIsLeft) {
  Grid grid;
  grid.doc.seedWaves.Clear();
  grid.doc.faults.clear();
  EXPECT_THAT(grid.Labels(), ElementsAre("下限1"));
}

TEST(BaseCandidates, WithoutASelectedLowerLimitThereIsNoRowForIt) {
  Grid grid;
  grid.doc.lowerSpectra.At(0).lowerSelected = false;
  EXPECT_EQ(grid.Labels().size(), 7);
  grid.doc.lowerSpectra.Clear();
  EXPECT_EQ(grid.Labels().size(), 7);
}

TEST(BaseCandidates, ARowTellsWhatIsKeptForTheItem) {
  Grid grid;
  grid.doc.faults[0].equivBaseShow[0] = false;
  test::ChooseBase(grid.doc, test::kEquivalentLabel);
  grid.rows.Refresh();
  EXPECT_THAT(test::RowTexts(grid.rows, 1), ElementsAre("1", "A", "0.30", "20.00", "#000000", "1", "0"));
  EXPECT_THAT(test::RowTexts(grid.rows, 2),
              ElementsAre("2", "(最短距離)南", "75.00", "200.00", "#302010", "1", "0"));
  EXPECT_THAT(test::RowTexts(grid.rows, 3),
              ElementsAre("3", "(等価震源距離)南", "210.00", "160.00", "#605040", "0", "1"));
  EXPECT_THAT(test::RowTexts(grid.rows, 8), ElementsAre("8", "下限1", "35.00", "40.00", "#000000", "1", "0"));
}

TEST(BaseCandidates, ASpectrumThatIsMissingHasNoAreaAndNoMaximum) {
  Grid grid;
  grid.doc.faults[0].shortestPeriods.clear();
  grid.doc.faults[0].shortestSpectrum[0].clear();
  grid.rows.Refresh();
  EXPECT_EQ(grid.rows.Text(2, kArea), QString("0.00"));
  EXPECT_EQ(grid.rows.Text(2, kMaximum), QString("0.00"));
}

TEST(BaseCandidates, RefreshChangesNoByteAndDropsRowsOfClearedFaults) {
  Grid grid(test::kWaveLabel);
  grid.doc.faults.clear();
  const DocumentState before(grid.doc);
  EXPECT_THAT(grid.Labels(), ElementsAre("A", "下限1"));
  EXPECT_THAT(before.DifferencesTo(DocumentState(grid.doc)), IsEmpty());
}

TEST(BaseCandidates, AreasAreKeptWithTheirRecords) {
  Grid grid;
  StoreCandidateAreas(grid.doc);
  EXPECT_NEAR(grid.doc.seedWaves.At(0).spectrumArea, 0.3, 1e-15);
  EXPECT_EQ(grid.doc.seedWaves.At(1).spectrumArea, 0.0);  // no candidate
  EXPECT_EQ(grid.doc.faults[1].shortArea, (std::vector<double>{75.0, 75.0}));
  EXPECT_EQ(grid.doc.faults[1].equivArea, (std::vector<double>{210.0, 210.0}));
  EXPECT_EQ(grid.doc.lowerSpectra.At(0).spectrumArea, 35.0);
  EXPECT_EQ(grid.doc.lowerSpectra.At(1).spectrumArea, 0.0);
  EXPECT_TRUE(grid.doc.IsModified());
}

TEST(BaseCandidates, AreasThatAreKeptAlreadyAreNoChange) {
  Grid grid;
  grid.doc.faults[0].shortestSpectrum[0][0] = std::nan("");
  StoreCandidateAreas(grid.doc);
  EXPECT_TRUE(std::isnan(grid.doc.faults[0].shortArea[0]));
  grid.doc.SetModified(false);
  StoreCandidateAreas(grid.doc);
  EXPECT_FALSE(grid.doc.IsModified());
}

TEST(BaseCandidates, ColourAndShownBelongToTheKindOfTheRow) {
  Grid grid;
  GiveText(grid.rows, 7, kColor, "#010203");
  PressCheck(grid.rows, 7, kShown);
  EXPECT_EQ(grid.doc.faults[1].equivBaseColor, (std::vector<std::int32_t>{0x405060, 0x030201}));
  EXPECT_EQ(grid.doc.faults[1].equivBaseShow, (std::vector<bool>{true, false}));
  EXPECT_EQ(grid.doc.faults[1].shortBaseShow, (std::vector<bool>{true, true}));
  EXPECT_EQ(grid.rows.Text(7, kColor), QString("#010203"));
  EXPECT_EQ(grid.rows.Text(7, kShown), QString("0"));
  PressCheck(grid.rows, 8, kShown);
  EXPECT_FALSE(grid.doc.lowerSpectra.SelectedBaseShow());
  PressCheck(grid.rows, 1, kShown);
  EXPECT_FALSE(grid.doc.seedWaves.At(0).baseShow);
  EXPECT_TRUE(grid.doc.IsModified());
}

TEST(BaseCandidates, TheButtonsReachEveryRow) {
  Grid grid;
  SetAllCandidatesShown(grid.doc, false);
  EXPECT_THAT(grid.Refreshed(kShown), Each(QString("0")));
  EXPECT_TRUE(grid.doc.seedWaves.At(1).baseShow);  // no candidate
  SetAllCandidatesShown(grid.doc, true);
  EXPECT_THAT(grid.Refreshed(kShown), Each(QString("1")));
}

TEST(BaseCandidates, OneRowIsTheBase) {
  Grid grid;
  grid.doc.ClearAdjustment();
  for (const int row : {3, 1, 8, 6}) {
    PressCheck(grid.rows, row, kBase);
    QStringList expected(8, QStringLiteral("0"));
    expected[row - 1] = QStringLiteral("1");
    EXPECT_EQ(ColumnTexts(grid.rows, kBase), expected);
    EXPECT_EQ(grid.doc.baseSpectrumName, grid.rows.Text(row, kLabel));
  }
}

TEST(BaseCandidates, TheBaseStaysTheBaseWhenItIsClicked) {
  for (const bool adopted : {true, false}) {
    Grid grid(test::kPlaneLabel);
    grid.doc.seedAdopted = adopted;
    PressCheck(grid.rows, 6, kBase);
    EXPECT_EQ(grid.rows.Text(6, kBase), QString("1"));
    EXPECT_EQ(grid.doc.baseSpectrumName, QString::fromUtf16(test::kPlaneLabel));
  }
}

TEST(BaseCandidates, AnotherBaseIsGuardedOnceAWaveIsAdopted) {
  Grid grid(test::kPlaneLabel);
  const DocumentState before(grid.doc);
  grid.prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(test::kPlaneLabel)), PromptAnswer::No);
  PressCheck(grid.rows, 1, kBase);
  EXPECT_THAT(before.DifferencesTo(DocumentState(grid.doc)), IsEmpty());
  EXPECT_EQ(grid.rows.Text(1, kBase), QString("0"));
  EXPECT_EQ(grid.rows.Text(6, kBase), QString("1"));
  grid.prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(test::kPlaneLabel)), PromptAnswer::Yes);
  PressCheck(grid.rows, 1, kBase);
  EXPECT_EQ(grid.rows.Text(1, kBase), QString("1"));
  EXPECT_EQ(grid.rows.Text(6, kBase), QString("0"));
  EXPECT_FALSE(grid.doc.seedAdopted);
}

TEST(BaseCandidates, OfRowsWithOneLabelTheFirstIsReached) {
  Grid grid;
  grid.doc.ClearAdjustment();
  grid.doc.faults[1] = grid.doc.faults[0];
  grid.rows.Refresh();
  EXPECT_EQ(grid.rows.Text(4, kLabel), grid.rows.Text(2, kLabel));
  PressCheck(grid.rows, 4, kBase);
  EXPECT_EQ(grid.doc.faults[0].shortBaseSelected, (std::vector<bool>{true}));
  EXPECT_EQ(grid.doc.faults[1].shortBaseSelected, (std::vector<bool>{false}));
  PressCheck(grid.rows, 4, kShown);
  EXPECT_FALSE(grid.doc.faults[0].shortBaseShow[0]);
  EXPECT_TRUE(grid.doc.faults[1].shortBaseShow[0]);
  SetAllCandidatesShown(grid.doc, false);
  EXPECT_FALSE(grid.doc.faults[1].shortBaseShow[0]);
}

// --- Against figures reckoned apart: a ranking of the local service, the tables that the program ships ---

struct Figures {
  long double area = 0.0L;
  long double maximum = 0.0L;
};

/// log10 of the response: the relation of form 0 on the shortest or form 1 on the equivalent distance.
long double LogResponse(const DamCoefSet& set, std::size_t j, long double magnitude, long double depth,
                        long double distance) {
  const bool shortest = set.distanceKind == 0;
  const long double threshold = shortest ? 5.0L : 6.0L;
  long double sum = set.coefM[j] * magnitude + set.coefD[j] * depth + set.coefC[j];
  if (magnitude > threshold) sum += set.coefM2[j] * std::pow(threshold - magnitude, 2.0L);
  const long double near = shortest ? set.coefNear[j] * std::pow(10.0L, 0.5L * magnitude)
                                    : static_cast<long double>(set.coefNear[j]);
  return sum - std::log10(distance + near) - (set.coefDX[j] * depth + set.coefX[j]) * distance;
}

Figures FiguresOf(const DamCoefSet& set, const std::vector<double>& amp, long double magnitude,
                  long double depth, long double distance) {
  Figures figures;
  long double before = 0.0L;
  for (std::size_t j = 0; j < set.period.size(); ++j) {
    const long double value = amp[j] * std::pow(10.0L, LogResponse(set, j, magnitude, depth, distance));
    figures.maximum = std::max(figures.maximum, value);
    if (j > 0)
      figures.area +=
          (before + value) / 2.0L * std::fabs(static_cast<long double>(set.period[j]) - set.period[j - 1]);
    before = value;
  }
  return figures;
}

const DamCoefSet& TableOf(const CMorvaneDoc& doc, int kind) {
  for (const DamCoefSet& set : doc.damCoefSets)
    if (set.method == doc.attenuationMethod && set.distanceKind == kind) return set;
  ADD_FAILURE() << "no table";
  return doc.damCoefSets.front();
}

TEST(BaseCandidates, AreaAndMaximumOfAcquiredPlanesAreThoseReckonedApart) {
  CMorvaneDoc doc(test::SourcePath(QStringLiteral("data")));
  ASSERT_FALSE(doc.ResetDocument());
  doc.flowFaultSource = true;
  test::LocalService local;
  ASSERT_TRUE(local.IsReady());
  test::RecordedMessages messages;
  FaultAcquisitionInput input = AcquisitionInput(doc);
  input.latitude = 36.56144;
  input.longitude = 136.61409;
  input.zone = 7;
  std::vector<FaultInfo> faults;
  const FaultAcquisitionResult result = AcquireFaults(input, local.Settings(), messages, faults);
  StoreAcquisition(doc, input, result, std::move(faults));
  doc.faults[6].groundClass = {"B", "C", "D", "A", "B", "C"};
  for (const char16_t* method : {kHorizontalMethod, kVerticalMethod}) {
    doc.attenuationMethod = QString::fromUtf16(method);
    ASSERT_FALSE(CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults));
    const std::vector<BaseCandidate> candidates = BaseCandidates(doc);
    std::size_t row = 0;
    for (const FaultInfo& fault : doc.faults) {
      for (std::size_t plane = 0; plane < fault.planeDepth.size(); ++plane) {
        for (const int kind : {0, 1}) {
          const DamCoefSet& set = TableOf(doc, kind);
          const QString& groundClass = fault.groundClass[plane];
          const std::vector<double>& amp = groundClass == u"A"   ? set.ampA
                                           : groundClass == u"B" ? set.ampB
                                           : groundClass == u"C" ? set.ampC
                                                                 : set.ampD;
          const double distance = kind == 0 ? fault.shortestDistance[plane] : fault.equivalentDistance[plane];
          const Figures figures =
              FiguresOf(set, amp, TextToDouble(fault.magnitude), fault.planeDepth[plane], distance);
          ASSERT_LT(row, candidates.size());
          const std::string place = candidates[row].label.toStdString();
          EXPECT_NEAR(candidates[row].area, static_cast<double>(figures.area), 1e-9 * candidates[row].area)
              << place;
          EXPECT_NEAR(candidates[row].maximum, static_cast<double>(figures.maximum),
                      1e-9 * candidates[row].maximum)
              << place;
          EXPECT_GT(candidates[row].maximum, 1.0);
          ++row;
        }
      }
    }
    EXPECT_EQ(row, 26U);
    EXPECT_EQ(candidates.size(), 27U);  // and the lower limit
  }
}

}  // namespace
}  // namespace tremlo
