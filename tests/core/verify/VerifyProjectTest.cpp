#include "core/project/BaseCandidates.h"
#include "core/sources/DamSpectra.h"
#include "core/sources/FaultConversion.h"
#include "core/verify/StoredResults.h"
#include "core/verify/VerifyProject.h"
#include "core/waves/SpectrumBatch.h"
#include "support/DocumentState.h"
#include "support/SmallProject.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;

const CMorvaneDoc& Sound() {
  static const CMorvaneDoc doc = test::SoundProject();
  return doc;
}

QStringList KeysWith(const VerifyReport& report, VerifyOutcome outcome) {
  QStringList keys;
  for (const VerifyItem& item : report.items)
    if (item.outcome == outcome) keys << item.key;
  return keys;
}

const VerifyItem& ItemOf(const VerifyReport& report, const char* key) {
  static const VerifyItem none;
  for (const VerifyItem& item : report.items)
    if (item.key == QLatin1String(key)) return item;
  ADD_FAILURE() << "no item " << key;
  return none;
}

TEST(VerifyProject, ASoundProjectAgreesBitForBit) {
  const VerifyReport report = VerifyProject(Sound());
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  QStringList keys;
  for (const VerifyItem& item : report.items) {
    EXPECT_EQ(item.outcome, VerifyOutcome::Equal)
        << item.key.toStdString() << " " << item.reason.toStdString();
    EXPECT_EQ(item.difference, 0.0);
    EXPECT_TRUE(item.at.isEmpty() && item.place.isEmpty() && item.reason.isEmpty());
    EXPECT_FALSE(item.name.isEmpty());
    keys << item.key;
  }
  EXPECT_EQ(keys, (QStringList{"invariants.base",           "invariants.adoption",
                               "invariants.adjusted",       "invariants.spectra",
                               "invariants.planes",         "invariants.procedure",
                               "seedWaves[0].periods",      "seedWaves[0].accSpec",
                               "seedWaves[0].adjustedAcc",  "seedWaves[0].adjustedPeriods",
                               "seedWaves[0].adjustedSpec", "seedWaves[1].periods",
                               "seedWaves[1].accSpec",      "faults.planeDepth",
                               "faults.shortestDistance",   "faults.equivalentDistance",
                               "faults.shortestPeriods",    "faults.shortestSpectrum",
                               "faults.equivalentPeriods",  "faults.equivalentSpectrum",
                               "seedWaves[1].spectrumArea", "faults.shortArea",
                               "faults.equivArea",          "lowerSpectra[0].spectrumArea"}));
}

TEST(VerifyProject, ChangesNothing) {
  const CMorvaneDoc doc = Sound();
  const test::DocumentState before(doc);
  VerifyProject(doc);
  EXPECT_EQ(test::DocumentState(doc), before);
}

TEST(VerifyProject, WithoutResultsOnlyTheRulesAreChecked) {
  const VerifyReport report = VerifyProject(test::DocWithoutTables());
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  EXPECT_EQ(report.items.size(), 6U);
  EXPECT_THAT(report.items, Each(Field(&VerifyItem::outcome, VerifyOutcome::Equal)));
}

TEST(VerifyProject, ADifferenceIsToldWithPlaceAndBothValues) {
  CMorvaneDoc doc = Sound();
  doc.faults[1].shortestDistance[1] += 0.5;
  doc.seedWaves.At(0).accSpec[7] *= 1.25;
  const VerifyReport report = VerifyProject(doc);
  const VerifyItem& distance = ItemOf(report, "faults.shortestDistance");
  EXPECT_EQ(distance.at, QStringLiteral("faults[1].shortestDistance[1]"));
  EXPECT_EQ(distance.place, QStringLiteral("断層 2「北」の面 2"));
  EXPECT_NEAR(distance.difference, 0.5 / doc.faults[1].shortestDistance[1], 1e-12);
  EXPECT_TRUE(distance.reason.contains(QString::number(doc.faults[1].shortestDistance[1], 'g', 17)));
  EXPECT_TRUE(distance.reason.contains(QString::number(Sound().faults[1].shortestDistance[1], 'g', 17)));
  const VerifyItem& spectrum = ItemOf(report, "seedWaves[0].accSpec");
  EXPECT_EQ(spectrum.at, QStringLiteral("seedWaves[0].accSpec[7]"));
  EXPECT_EQ(spectrum.place, QStringLiteral("周期 5.12 秒（8 番目）"));
  EXPECT_NEAR(spectrum.difference, 0.2, 1e-12);
  EXPECT_EQ(spectrum.name, QStringLiteral("「A」の加速度応答スペクトル"));
}

TEST(VerifyProject, OtherTablesMakeTheSpectraOfThePlanesDifferAndNothingElse) {
  CMorvaneDoc doc = Sound();
  for (DamCoefSet& set : doc.damCoefSets)
    if (set.distanceKind == 1 && set.method == doc.attenuationMethod) set.coefC.front() += 0.01;
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Differs), QStringList{"faults.equivalentSpectrum"});
  EXPECT_TRUE(KeysWith(report, VerifyOutcome::Unchecked).isEmpty());
  const VerifyItem& item = ItemOf(report, "faults.equivalentSpectrum");
  EXPECT_NEAR(item.difference, 1.0 - std::pow(10.0, -0.01), 1e-9);
  EXPECT_TRUE(item.at.startsWith("faults[")) << item.at.toStdString();
  EXPECT_TRUE(item.place.contains(QStringLiteral("周期"))) << item.place.toStdString();
}

TEST(VerifyProject, AWaveAdjustedToAPlaneAgreesWhateverTheTablesAre) {
  CMorvaneDoc doc = Sound();
  SetBase(doc, ShortestLabel(doc.faults[0], 0));
  CSeismicWave& wave = doc.seedWaves.At(0);
  // A target of the wave's own response is met at once.
  doc.faults[0].shortestPeriods[0] = wave.periods;
  doc.faults[0].shortestSpectrum[0] = wave.accSpec;
  wave.adjustedAcc = wave.acc;
  wave.adjustedPeriods = wave.periods;
  wave.adjustedSpec = wave.accSpec;
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(ItemOf(report, "seedWaves[0].adjustedAcc").outcome, VerifyOutcome::Equal);
  EXPECT_EQ(ItemOf(report, "faults.shortestSpectrum").outcome, VerifyOutcome::Differs);
}

TEST(VerifyProject, MissingTablesLeaveTheSpectraUnchecked) {
  CMorvaneDoc doc = Sound();
  doc.damCoefSets.clear();
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Unchecked),
            (QStringList{"faults.shortestPeriods", "faults.shortestSpectrum", "faults.equivalentPeriods",
                         "faults.equivalentSpectrum"}));
  const VerifyItem& item = ItemOf(report, "faults.shortestSpectrum");
  EXPECT_TRUE(item.reason.contains(doc.attenuationMethod)) << item.reason.toStdString();
  EXPECT_TRUE(std::isnan(item.difference));
}

TEST(VerifyProject, AMissingFormLeavesItsSpectraUnchecked) {
  CMorvaneDoc doc = Sound();
  std::erase_if(doc.damCoefSets, [](const DamCoefSet& set) { return set.distanceKind == 0; });
  EXPECT_EQ(KeysWith(VerifyProject(doc), VerifyOutcome::Unchecked),
            (QStringList{"faults.shortestPeriods", "faults.shortestSpectrum"}));
}

TEST(VerifyProject, TablesThatCouldNotBeReadCountAsMissing) {
  const VerifyReport report = VerifyProject(Sound(), TableFailure{"DamCoef\\a.csvの1行目", 1});
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Unchecked).size(), 4);
  EXPECT_EQ(ItemOf(report, "faults.equivalentSpectrum").reason, QString("DamCoef\\a.csvの1行目"));
}

TEST(VerifyProject, FaultsJustAcquiredHaveDistancesOnly) {
  CMorvaneDoc doc = Sound();
  for (FaultInfo& fault : doc.faults)
    for (auto* rows : {&fault.shortestPeriods, &fault.shortestSpectrum, &fault.equivalentPeriods,
                       &fault.equivalentSpectrum})
      rows->clear();
  for (FaultInfo& fault : doc.faults)
    for (auto* areas : {&fault.shortArea, &fault.equivArea}) areas->assign(areas->size(), 0.0);
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  EXPECT_THAT(report.items, Each(Field(&VerifyItem::outcome, VerifyOutcome::Equal)));
  for (const VerifyItem& item : report.items)
    EXPECT_FALSE(item.key.contains("Spectrum")) << item.key.toStdString();
}

TEST(VerifyProject, OneFaultWithoutSpectraAmongOthersDiffers) {
  CMorvaneDoc doc = Sound();
  doc.faults[0].shortestSpectrum.clear();
  const VerifyItem item = ItemOf(VerifyProject(doc), "faults.shortestSpectrum");
  EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
  EXPECT_EQ(item.at, QStringLiteral("faults[0].shortestSpectrum[0][0]"));
}

TEST(VerifyProject, WithoutAZoneDistancesAreUnchecked) {
  CMorvaneDoc doc = Sound();
  doc.site.planeZone = "XX (20)";
  EXPECT_EQ(KeysWith(VerifyProject(doc), VerifyOutcome::Unchecked),
            (QStringList{"faults.planeDepth", "faults.shortestDistance", "faults.equivalentDistance"}));
}

TEST(VerifyProject, AnotherSiteMakesTheDistancesDiffer) {
  CMorvaneDoc doc = Sound();
  doc.site.latMin += 1.0;
  EXPECT_EQ(KeysWith(VerifyProject(doc), VerifyOutcome::Differs),
            (QStringList{"faults.shortestDistance", "faults.equivalentDistance"}));
}

TEST(VerifyProject, APlaneTooSmallForAnEquivalentDistanceAgrees) {
  CMorvaneDoc doc = Sound();
  doc.faults[0].len[0] = "0.5";
  const double east = 0.0;
  FaultInfo& fault = doc.faults[0];
  ComputeFaultDistances(fault, 8, east, 0.0);
  ASSERT_TRUE(std::isnan(fault.equivalentDistance[0]));
  EXPECT_NE(ItemOf(VerifyProject(doc), "faults.equivalentDistance").outcome, VerifyOutcome::Differs);
}

TEST(VerifyProject, ASpectrumThatIsNotValidIsUnchecked) {
  CMorvaneDoc doc = Sound();
  CSeismicWave& wave = doc.seedWaves.At(1);
  wave.acc[100] += 1.0;
  wave.spectrumValid = false;
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Unchecked),
            (QStringList{"seedWaves[1].periods", "seedWaves[1].accSpec"}));
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  wave.periods.clear();
  wave.accSpec.clear();
  wave.spectrumArea = 0.0;
  EXPECT_TRUE(KeysWith(VerifyProject(doc), VerifyOutcome::Unchecked).isEmpty());
}

TEST(VerifyProject, ABlankSampleCountsAsZero) {
  CMorvaneDoc doc = Sound();
  CSeismicWave& wave = doc.seedWaves.At(1);
  wave.acc[500] = 0.0;
  wave.spectrumValid = false;
  SpectrumBatch batch(doc.seedWaves);
  batch.Compute();
  batch.Store(doc.seedWaves);
  wave.acc[500] = kBlankSample;
  EXPECT_EQ(ItemOf(VerifyProject(doc), "seedWaves[1].accSpec").outcome, VerifyOutcome::Equal);
}

TEST(VerifyProject, AnAreaThatWasNeverComputedIsUnchecked) {
  CMorvaneDoc doc = Sound();
  doc.faults[1].shortArea[0] = 0.0;
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Unchecked), QStringList{"faults.shortArea"});
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
}

TEST(VerifyProject, BeforeABaseIsChosenThereNeedBeNoAreas) {
  CMorvaneDoc doc(test::SourcePath("data"));
  ASSERT_FALSE(doc.ResetDocument());
  EXPECT_EQ(VerifyProject(doc).items.size(), 6U);
  doc.lowerSpectra.At(0).spectrumArea = 1.0;
  EXPECT_EQ(VerifyProject(doc).outcome, VerifyOutcome::Differs);
}

TEST(VerifyProject, AnAreaLeftFromAnEarlierListIsUnchecked) {
  CMorvaneDoc doc = Sound();
  doc.faults[1].attenUse[0] = false;
  EXPECT_TRUE(KeysWith(VerifyProject(doc), VerifyOutcome::Unchecked).isEmpty());
  doc.faults[1].groundClass[0] = "A";
  CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults);
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Unchecked),
            (QStringList{"faults.shortArea", "faults.equivArea"}));
}

TEST(VerifyProject, AnAreaOfACandidateThatHasChangedDiffersAndTellsWhy) {
  CMorvaneDoc doc = Sound();
  doc.faults[1].groundClass[0] = "A";
  CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults);
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(KeysWith(report, VerifyOutcome::Differs), (QStringList{"faults.shortArea", "faults.equivArea"}));
  const VerifyItem& item = ItemOf(report, "faults.shortArea");
  EXPECT_EQ(item.at, QString("faults[1].shortArea[0]"));
  EXPECT_TRUE(item.reason.contains(QStringLiteral("基準スペクトル設定"))) << item.reason.toStdString();
}

TEST(VerifyProject, AllMarkedLimitsKeepTheAreaOfTheFirst) {
  CMorvaneDoc doc = Sound();
  doc.lowerSpectra.At(1).lowerSelected = true;
  StoreCandidateAreas(doc);
  doc.lowerSpectra.SetSelectedSpectrumArea(doc.lowerSpectra.At(0).spectrumArea);
  const VerifyReport report = VerifyProject(doc);
  EXPECT_EQ(report.outcome, VerifyOutcome::Equal);
  EXPECT_EQ(ItemOf(report, "lowerSpectra[1].spectrumArea").outcome, VerifyOutcome::Equal);
}

TEST(VerifyProject, TellsHowFarItIs) {
  std::vector<std::string> steps;
  VerifyProject(Sound(), {}, [&](int done, int count, const QString& name) {
    steps.push_back(std::to_string(done) + "/" + std::to_string(count) + " " + name.toStdString());
  });
  EXPECT_THAT(steps, ElementsAre("1/3 A", "2/3 近隣", "3/3 断層"));
}

TEST(VerifyReport, TheWorstOutcomeCountsAndUncheckedOnlyAlone) {
  const auto outcome = [](std::vector<VerifyOutcome> outcomes) {
    std::vector<VerifyItem> items(outcomes.size());
    for (std::size_t i = 0; i < items.size(); ++i) items[i].outcome = outcomes[i];
    return OutcomeOf(items);
  };
  using enum VerifyOutcome;
  EXPECT_EQ(outcome({}), Equal);
  EXPECT_EQ(outcome({Equal, Unchecked}), Equal);
  EXPECT_EQ(outcome({Equal, Unchecked, Close}), Close);
  EXPECT_EQ(outcome({Differs, Close, Unchecked}), Differs);
  EXPECT_EQ(outcome({Unchecked}), Unchecked);
}

}  // namespace
}  // namespace tremlo
