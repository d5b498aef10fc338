#include "core/project/AdjustBaseRow.h"
#include "core/project/AdjustRows.h"
#include "core/project/BaseSpectrumView.h"
#include "core/waves/FitText.h"
#include "support/DocumentState.h"
#include "support/GridPress.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using test::ColumnTexts;
using test::DocumentState;
using test::GiveText;
using test::PressCheck;
using test::RowTexts;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kColor = 5, kShown = 6, kAdopted = 7, kAdjusted = 8;

AdjustResult Converged() {
  AdjustResult result;
  result.converged = true;
  result.passes = 3;
  result.acc = {1.0, 2.0, 3.0, 4.0};
  result.periods = {0.4, 0.2};
  result.spectrum = {7.0, 9.0};
  return result;
}

/// The waves "A" (adopted and adjusted), "B" (adjusted) and "C" against a base spectrum. A run writes down
/// what it was given and ends as told.
struct Grids : test::ProcedureParts {
  explicit Grids(const char16_t* baseLabel = test::kLowerLabel) {
    test::FillProject(doc);
    if (baseLabel) test::ChooseBase(doc, baseLabel);
  }
  /// Makes "C" the adopted wave, with samples of its own.
  void AdoptThird() {
    rules.AdoptWave(2);
    doc.seedWaves.At(2).acc = {1.0, kBlankSample, 3.0};
    doc.SetModified(false);
  }

  std::vector<AdjustInput> runs;
  AdjustResult outcome = Converged();
  AdjustRows rows{doc, rules, prompt, [this](const AdjustInput& input) {
                    runs.push_back(input);
                    return outcome;
                  }};
  AdjustBaseRow base{doc};
};

TEST(AdjustRows, AnAdjustedWaveShowsTheFiguresOfItsAdjustedSpectrum) {
  Grids grids;
  EXPECT_THAT(RowTexts(grids.rows, 1), ElementsAre("1", "A", "0.32", "21.00", "#000000", "1", "1", "1"));
  EXPECT_THAT(RowTexts(grids.rows, 3), ElementsAre("3", "C", "0.30", "20.00", "#000000", "1", "0", "0"));
  grids.doc.seedWaves.At(0).adjustChecked = false;  // the results stay in the record
  EXPECT_THAT(RowTexts(grids.rows, 1), ElementsAre("1", "A", "0.30", "20.00", "#000000", "1", "1", "0"));
}

TEST(AdjustRows, TheBoxOfTheAdjustmentIsOpenForTheAdoptedWaveAlone) {
  const Grids grids;
  EXPECT_FALSE(grids.rows.Format(1, kAdjusted).locked);
  EXPECT_EQ(grids.rows.Format(1, kAdjusted).backColor, 0xFFFFFF);
  for (const int row : {2, 3}) {
    EXPECT_TRUE(grids.rows.Format(row, kAdjusted).locked);
    EXPECT_EQ(grids.rows.Format(row, kAdjusted).backColor, 0xC8D4D0);
  }
  EXPECT_EQ(grids.rows.Format(1, kAdopted).backColor, std::nullopt);
}

TEST(AdjustRows, ALockedBoxTakesNothing) {
  Grids grids;
  PressCheck(grids.rows, 2, kAdjusted);
  grids.rows.SetText(2, kAdjusted, "0");
  EXPECT_TRUE(grids.doc.seedWaves.At(1).adjustChecked);
  EXPECT_FALSE(grids.doc.IsModified());
}

TEST(AdjustRows, AdoptionMovesAndTheOldBoxIsLockedWithItsValue) {
  Grids grids;
  PressCheck(grids.rows, 3, kAdopted);
  EXPECT_THAT(ColumnTexts(grids.rows, kAdopted), ElementsAre("0", "0", "1"));
  EXPECT_EQ(grids.doc.seedAdoptedName, QString("C"));
  EXPECT_TRUE(grids.doc.seedAdopted);
  EXPECT_TRUE(grids.rows.Format(1, kAdjusted).locked);
  EXPECT_EQ(grids.rows.Text(1, kAdjusted), QString("1"));
  EXPECT_FALSE(grids.rows.Format(3, kAdjusted).locked);
  EXPECT_TRUE(grids.doc.IsModified());
}

TEST(AdjustRows, AdoptionCannotBeTakenAway) {
  Grids grids;
  PressCheck(grids.rows, 1, kAdopted);
  EXPECT_THAT(ColumnTexts(grids.rows, kAdopted), ElementsAre("1", "0", "0"));
  EXPECT_TRUE(grids.doc.seedAdopted);
}

TEST(AdjustRows, ColourAndShownAreTheWavesOwn) {
  Grids grids;
  GiveText(grids.rows, 2, kColor, "#0000FF");
  PressCheck(grids.rows, 2, kShown);
  EXPECT_EQ(grids.doc.seedWaves.At(1).adjustColor, 0xFF0000);
  EXPECT_FALSE(grids.doc.seedWaves.At(1).adjustShow);
  EXPECT_TRUE(grids.doc.seedWaves.At(0).adjustShow);
  EXPECT_TRUE(grids.doc.IsModified());
}

TEST(AdjustRows, TheButtonsReachTheWavesAndTheBase) {
  for (const char16_t* label :
       {test::kWaveLabel, test::kPlaneLabel, test::kEquivalentLabel, test::kLowerLabel}) {
    Grids grids(label);
    grids.rows.ShowAll(true);
    EXPECT_THAT(ColumnTexts(grids.rows, kShown), ElementsAre("1", "1", "1"));
    EXPECT_EQ(grids.base.Text(1, 5), QString("1"));
    grids.rows.ShowAll(false);
    EXPECT_THAT(ColumnTexts(grids.rows, kShown), ElementsAre("0", "0", "0"));
    EXPECT_EQ(grids.base.Text(1, 5), QString("0"));
    EXPECT_TRUE(grids.doc.IsModified());
  }
  Grids none(nullptr);
  none.rows.ShowAll(false);
}

// --- The box of the adjustment ---

TEST(AdjustRows, UncheckedTheWaveKeepsItsResults) {
  Grids grids;
  PressCheck(grids.rows, 1, kAdjusted);
  EXPECT_FALSE(grids.doc.seedWaves.At(0).adjustChecked);
  EXPECT_TRUE(grids.doc.seedWaves.At(0).adjusted);
  EXPECT_THAT(grids.doc.seedWaves.At(0).adjustedAcc, testing::SizeIs(4));
  EXPECT_EQ(grids.rows.Text(1, 4), QString("20.00"));
  EXPECT_TRUE(grids.doc.IsModified());
  EXPECT_THAT(grids.runs, IsEmpty());
}

TEST(AdjustRows, CheckedAgainTheWaveIsNotRunForAgain) {
  Grids grids;
  PressCheck(grids.rows, 1, kAdjusted);
  PressCheck(grids.rows, 1, kAdjusted);
  EXPECT_TRUE(grids.doc.seedWaves.At(0).adjustChecked);
  EXPECT_EQ(grids.rows.Text(1, 4), QString("21.00"));
  EXPECT_THAT(grids.runs, IsEmpty());
  EXPECT_FALSE(grids.rows.LastRun());
  EXPECT_EQ(grids.rows.LastRunText(), QString());
}

TEST(AdjustRows, CheckedWithoutAResultTheWaveIsRunForAndTheResultStored) {
  Grids grids;
  grids.AdoptThird();
  PressCheck(grids.rows, 3, kAdjusted);
  ASSERT_EQ(grids.runs.size(), 1U);
  const AdjustInput& input = grids.runs.front();
  EXPECT_EQ(input.timeStep, 0.01);
  EXPECT_THAT(input.acc, ElementsAre(1.0, 0.0, 3.0));
  EXPECT_THAT(input.periods, ElementsAre(2.0, 1.0));
  EXPECT_THAT(input.target, ElementsAre(30.0, 40.0));
  EXPECT_EQ(input.iterations, 7);
  EXPECT_EQ(input.tolerance, 0.125);
  const CSeismicWave& wave = grids.doc.seedWaves.At(2);
  EXPECT_TRUE(wave.adjusted && wave.adjustChecked);
  EXPECT_THAT(wave.adjustedAcc, ElementsAre(1.0, 2.0, 3.0, 4.0));
  EXPECT_EQ(grids.rows.Text(3, 3), QString("1.60"));
  EXPECT_EQ(grids.rows.Text(3, 4), QString("9.00"));
  EXPECT_TRUE(grids.doc.IsModified());
  ASSERT_TRUE(grids.rows.LastRun());
  EXPECT_EQ(grids.rows.LastRun()->result.passes, 3);
  PressCheck(grids.rows, 3, kAdjusted);
  PressCheck(grids.rows, 3, kAdjusted);
  EXPECT_EQ(grids.runs.size(), 1U);
}

TEST(AdjustRows, ARunThatFailsIsToldAndChangesNothing) {
  Grids grids;
  grids.AdoptThird();
  grids.outcome = AdjustResult{};
  grids.outcome.passes = 7;
  const DocumentState before(grids.doc);
  grids.prompt.ExpectMessage(QStringLiteral("地震波形調整の計算に失敗しました。"), PromptIcon::Warning,
                             FailedRunText(grids.outcome));
  PressCheck(grids.rows, 3, kAdjusted);
  EXPECT_THAT(before.DifferencesTo(DocumentState(grids.doc)), IsEmpty());
  EXPECT_EQ(grids.rows.Text(3, kAdjusted), QString("0"));
  EXPECT_EQ(grids.rows.LastRun()->result.passes, 7);
}

TEST(AdjustRows, AResultWhoseWaveIsGoneIsDropped) {
  Grids grids;
  grids.AdoptThird();
  AdjustRows rows(grids.doc, grids.rules, grids.prompt, [&](const AdjustInput&) {
    grids.doc.seedWaves.Remove(QStringLiteral("C"));
    return Converged();
  });
  PressCheck(rows, 3, kAdjusted);
  EXPECT_EQ(grids.doc.seedWaves.Count(), 2U);
  EXPECT_FALSE(grids.doc.IsModified());
}

TEST(AdjustRows, ARunWhoseProjectIsGoneLeavesTheNextOneAloneAndIsNotToldThere) {
  for (const bool converged : {true, false}) {
    Grids grids;
    grids.AdoptThird();
    AdjustRows rows(grids.doc, grids.rules, grids.prompt, [&](const AdjustInput&) {
      EXPECT_EQ(grids.doc.ResetDocument(), std::nullopt);
      test::FillProject(grids.doc);
      grids.AdoptThird();
      return converged ? Converged() : AdjustResult{};
    });
    PressCheck(rows, 3, kAdjusted);
    EXPECT_FALSE(grids.doc.seedWaves.At(2).adjusted);
    EXPECT_FALSE(grids.doc.seedWaves.At(2).adjustChecked);
    EXPECT_FALSE(grids.doc.IsModified());
    EXPECT_FALSE(rows.LastRun());
    EXPECT_EQ(rows.LastRunText(), QString());
  }
}

TEST(AdjustRows, ABaseWithoutASpectrumIsToldByItsLabel) {
  Grids grids;
  grids.AdoptThird();
  grids.doc.lowerSpectra.At(0).accSpec.clear();
  const DocumentState before(grids.doc);
  grids.prompt.ExpectMessage(
      QStringLiteral("基準スペクトルとして「下限1」が選択されていますが，その波形データがありません。"));
  PressCheck(grids.rows, 3, kAdjusted);
  EXPECT_THAT(before.DifferencesTo(DocumentState(grids.doc)), IsEmpty());
  EXPECT_THAT(grids.runs, IsEmpty());
}

TEST(AdjustRows, WithoutABaseTheRunEndsTheSameWay) {
  Grids grids(nullptr);
  grids.AdoptThird();
  grids.prompt.ExpectMessage(
      QStringLiteral("基準スペクトルとして「」が選択されていますが，その波形データがありません。"));
  PressCheck(grids.rows, 3, kAdjusted);
  EXPECT_THAT(grids.runs, IsEmpty());
}

TEST(AdjustRows, AWaveWithoutDataIsToldByItsName) {
  for (const bool withSamples : {true, false}) {
    Grids grids;
    grids.AdoptThird();
    if (withSamples) {
      grids.doc.seedWaves.At(2).timeStep = 0.0;
    } else {
      grids.doc.seedWaves.At(2).acc.clear();
    }
    const DocumentState before(grids.doc);
    grids.prompt.ExpectMessage(QStringLiteral("調整する「C」の波形データがありません。"));
    PressCheck(grids.rows, 3, kAdjusted);
    EXPECT_THAT(before.DifferencesTo(DocumentState(grids.doc)), IsEmpty());
    EXPECT_THAT(grids.runs, IsEmpty());
  }
}

TEST(AdjustRows, EveryKindOfBaseIsTheTargetOfARun) {
  const std::pair<const char16_t*, std::vector<double>> cases[] = {
      {test::kWaveLabel, {10.0, 20.0}},
      {test::kPlaneLabel, {100.0, 200.0}},
      {test::kEquivalentLabel, {80.0, 160.0}},
      {test::kLowerLabel, {30.0, 40.0}},
  };
  for (const auto& [label, target] : cases) {
    Grids grids(label);
    grids.AdoptThird();
    PressCheck(grids.rows, 3, kAdjusted);
    EXPECT_EQ(grids.runs.at(0).target, target);
  }
}

TEST(AdjustRows, ATargetThatRisesIsTurnedForTheRun) {
  Grids grids;
  grids.AdoptThird();
  grids.doc.lowerSpectra.At(0).periods = {1.0, 2.0};
  PressCheck(grids.rows, 3, kAdjusted);
  EXPECT_THAT(grids.runs.at(0).periods, ElementsAre(2.0, 1.0));
  EXPECT_THAT(grids.runs.at(0).target, ElementsAre(40.0, 30.0));
  EXPECT_THAT(grids.doc.lowerSpectra.At(0).periods, ElementsAre(1.0, 2.0));
}

TEST(AdjustRows, WithOnePassNearlyEveryWaveFails) {
  Grids grids;
  grids.AdoptThird();
  grids.doc.adjustMaxIterations = 1;
  grids.doc.seedWaves.At(2).acc.assign(256, 0.0);
  for (std::size_t i = 0; i < 256; ++i) grids.doc.seedWaves.At(2).acc[i] = i % 7 == 0 ? 50.0 : -10.0;
  AdjustResult failed;
  AdjustRows rows(grids.doc, grids.rules, grids.prompt, [&](const AdjustInput& input) {
    failed = RunAdjustment(input);
    grids.prompt.ExpectMessage(QStringLiteral("地震波形調整の計算に失敗しました。"), PromptIcon::Warning,
                               FailedRunText(failed));
    return failed;
  });
  PressCheck(rows, 3, kAdjusted);
  EXPECT_FALSE(grids.doc.seedWaves.At(2).adjusted);
  EXPECT_EQ(rows.Text(3, kAdjusted), QString("0"));
  EXPECT_EQ(rows.LastRun()->result.passes, 1);
}

// --- What the last run came to ---

TEST(AdjustRows, TheLastRunIsToldBehindItsWaveForAsLongAsItsResultStays) {
  Grids grids;
  EXPECT_EQ(grids.rows.LastRunText(), QString());
  grids.AdoptThird();
  grids.outcome.fit.deviation = 0.0498;
  PressCheck(grids.rows, 3, kAdjusted);
  const QString told = QStringLiteral("「C」　偏差（RMS） 4.98 %");
  EXPECT_EQ(grids.rows.LastRunText(), told);
  PressCheck(grids.rows, 3, kAdjusted);  // off: the result stays
  PressCheck(grids.rows, 1, kAdopted);
  EXPECT_EQ(grids.rows.LastRunText(), told);
  const CMorvaneDoc before = grids.doc;
  grids.doc.seedWaves.At(2).adjustedAcc[1] = 7.0;
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "another result";
  grids.doc = before;
  grids.doc.ClearAdjustment();
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "none";
  grids.doc = before;
  grids.doc.seedWaves.Remove(QStringLiteral("C"));
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "no wave";
  grids.doc = before;
  EXPECT_EQ(grids.rows.LastRunText(), told);
  EXPECT_EQ(grids.doc.ResetDocument(), std::nullopt);
  grids.doc.seedWaves = before.seedWaves;
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "the same waves in another project";
}

TEST(AdjustRows, AFailedRunIsToldForAsLongAsItsWaveAndTargetStay) {
  Grids grids;
  grids.AdoptThird();
  grids.doc.seedWaves.At(2).acc.push_back(std::numeric_limits<double>::quiet_NaN());
  grids.outcome = AdjustResult{};
  grids.outcome.passes = 7;
  grids.outcome.fit.deviation = 0.08;
  grids.prompt.ExpectMessage(QStringLiteral("地震波形調整の計算に失敗しました。"), PromptIcon::Warning,
                             FailedRunText(grids.outcome));
  PressCheck(grids.rows, 3, kAdjusted);
  const QString told = QStringLiteral("「C」　収束しなかった計算：偏差（RMS） 8.00 %");
  EXPECT_EQ(grids.rows.LastRunText(), told);
  grids.doc.adjustMaxIterations = 500;
  PressCheck(grids.rows, 1, kAdopted);
  EXPECT_EQ(grids.rows.LastRunText(), told);
  const CMorvaneDoc before = grids.doc;
  grids.doc.seedWaves.At(2).acc[0] += 1.0;
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "other samples";
  grids.doc = before;
  grids.doc.seedWaves.At(2).timeStep = 0.02;
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "another time step";
  grids.doc = before;
  test::ChooseBase(grids.doc, test::kPlaneLabel);
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "another base";
  grids.doc = before;
  grids.doc.ClearBaseSpectrumAndAdjustment();
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "no base";
  grids.doc = before;
  StoreAdjustment(grids.doc.seedWaves.At(2), Converged());
  EXPECT_EQ(grids.rows.LastRunText(), QString()) << "a result of another time";
}

// --- The row of the base ---

TEST(AdjustBaseRow, TellsTheBaseWhateverItsSource) {
  EXPECT_THAT(RowTexts(Grids(test::kWaveLabel).base, 1),
              ElementsAre("現場近隣地震波形", "A", "0.30", "20.00", "0"));
  EXPECT_THAT(RowTexts(Grids(test::kPlaneLabel).base, 1),
              ElementsAre("距離減衰式（断層）", "(最短距離)(2)北", "75.00", "200.00", "0"));
  EXPECT_THAT(RowTexts(Grids(test::kEquivalentLabel).base, 1),
              ElementsAre("距離減衰式（断層）", "(等価震源距離)南", "210.00", "160.00", "0"));
  EXPECT_THAT(RowTexts(Grids(test::kLowerLabel).base, 1),
              ElementsAre("下限スペクトル", "下限1", "35.00", "40.00", "0"));
}

TEST(AdjustBaseRow, ATargetOfOnePointHasNoArea) {
  Grids grids;
  grids.doc.lowerSpectra.At(0).periods = {1.0};
  grids.doc.lowerSpectra.At(0).accSpec = {55.0};
  EXPECT_THAT(RowTexts(grids.base, 1), ElementsAre("下限スペクトル", "下限1", "0.00", "55.00", "0"));
}

TEST(AdjustBaseRow, ItsBoxShowsAndHidesTheBase) {
  for (const char16_t* label :
       {test::kWaveLabel, test::kPlaneLabel, test::kEquivalentLabel, test::kLowerLabel}) {
    Grids grids(label);
    EXPECT_FALSE(grids.base.Format(1, 5).locked);
    PressCheck(grids.base, 1, 5);
    EXPECT_TRUE(ViewOfBase(grids.doc).show);
    EXPECT_TRUE(grids.doc.IsModified());
    PressCheck(grids.base, 1, 5);
    EXPECT_FALSE(ViewOfBase(grids.doc).show);
  }
}

TEST(AdjustBaseRow, WithoutABaseItIsEmptyAndLocked) {
  Grids grids(nullptr);
  EXPECT_EQ(grids.base.RowCount(), 1);
  EXPECT_THAT(RowTexts(grids.base, 1), ElementsAre("", "", "", "", ""));
  EXPECT_TRUE(grids.base.Format(1, 5).locked);
  grids.base.SetText(1, 5, "1");
  EXPECT_FALSE(grids.doc.IsModified());
}

}  // namespace
}  // namespace tremlo
