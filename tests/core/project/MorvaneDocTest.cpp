#include "core/project/MorvaneDoc.h"
#include "core/project/ProjectFile.h"
#include "support/TestFolder.h"

#include <QFile>

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace tremlo {
namespace {

class MorvaneDocTest : public testing::Test {
 protected:
  MorvaneDocTest() { test::CopyTables(m_folder); }

  /// A document with something in every member that a clearing operation touches.
  void Fill() {
    ASSERT_FALSE(m_doc.ResetDocument());
    for (const char* name : {"a", "b"}) {
      m_doc.seedWaves.Add(name);
      CSeismicWave& wave = m_doc.seedWaves.At(m_doc.seedWaves.Count() - 1);
      wave.acc = {1.0, 2.0};
      wave.baseSelected = wave.adopted = wave.adjustChecked = wave.adjusted = true;
      wave.baseAdjustShow = false;
      wave.adjustedAcc = wave.adjustedPeriods = wave.adjustedSpec = {3.0};
    }
    FaultInfo& fault = m_doc.faults.emplace_back();
    fault.geomNum = 2;
    fault.shortBaseSelected = fault.equivBaseSelected = {true, false};
    fault.adjustShow = fault.adjustShowEquiv = {false, false};
    m_doc.lowerSpectra.At(0).baseSelected = true;
    m_doc.lowerSpectra.At(0).baseAdjustShow = false;
    m_doc.seedAdopted = true;
    m_doc.seedAdoptedName = "a";
    m_doc.baseSpectrumName = "base";
    m_doc.SetModified(false);
  }
  bool AnyBaseMark() const {
    const auto marked = [](const CSeismicWave& wave) { return wave.baseSelected; };
    const auto& seeds = m_doc.seedWaves.Records();
    const auto& lowers = m_doc.lowerSpectra.Records();
    bool any =
        std::any_of(seeds.begin(), seeds.end(), marked) || std::any_of(lowers.begin(), lowers.end(), marked);
    for (const FaultInfo& fault : m_doc.faults)
      for (const auto* flags : {&fault.shortBaseSelected, &fault.equivBaseSelected})
        any = any || std::find(flags->begin(), flags->end(), true) != flags->end();
    return any;
  }
  void ExpectAdjustmentCleared() const {
    for (const CSeismicWave& wave : m_doc.seedWaves.Records()) {
      EXPECT_TRUE(wave.baseAdjustShow);
      EXPECT_FALSE(wave.adopted || wave.adjustChecked || wave.adjusted);
      EXPECT_TRUE(wave.adjustedAcc.empty() && wave.adjustedPeriods.empty() && wave.adjustedSpec.empty());
      EXPECT_EQ(wave.acc, (std::vector<double>{1.0, 2.0}));
    }
    EXPECT_TRUE(m_doc.lowerSpectra.At(0).baseAdjustShow);
    EXPECT_FALSE(m_doc.seedAdopted);
    EXPECT_EQ(m_doc.seedAdoptedName, QString());
  }

  test::TestFolder m_folder;
  CMorvaneDoc m_doc{m_folder.Path()};
};

TEST_F(MorvaneDocTest, ResetGivesTheStateOfANewProject) {
  Fill();
  m_doc.guidelineRoute = m_doc.flowFixed = m_doc.flowCollect = true;
  m_doc.site.title = "t";
  m_doc.site.comments[9] = "c";
  m_doc.site.mapZoom = 9;
  m_doc.respSpectra.Add("s");
  m_doc.graphSpare.origGraph.timeXMax = 1.0;
  m_doc.apiParameters.intensityIndex = 3;
  m_doc.visualColorSpare = 5;
  ASSERT_FALSE(m_doc.ResetDocument());
  EXPECT_FALSE(m_doc.guidelineRoute || m_doc.flowFixed || m_doc.flowCollect);
  EXPECT_EQ(m_doc.site, SiteRecord());
  EXPECT_EQ(m_doc.site.comments.size(), 10U);
  EXPECT_EQ(m_doc.site.comments[9], QString());
  EXPECT_EQ(m_doc.site.mapZoom, 5);
  EXPECT_EQ(m_doc.site.mapScale, 0.8128668946369415);
  EXPECT_EQ(m_doc.site.planeZone, QString("I (1)"));
  EXPECT_EQ(m_doc.site.latSec, 20.66);
  EXPECT_TRUE(m_doc.seedWaves.IsEmpty() && m_doc.respSpectra.IsEmpty() && m_doc.faults.empty());
  EXPECT_EQ(m_doc.graphSpare, CSeismicWave());
  EXPECT_EQ(m_doc.adjustMaxIterations, 100);
  EXPECT_EQ(m_doc.adjustTolerancePercent, 0.05);
  EXPECT_EQ(m_doc.searchRangeKm, 50.0);
  EXPECT_EQ(m_doc.faultAcquireMode, 0);
  EXPECT_EQ(m_doc.attenuationMethod, QStringLiteral("(水平)H20ダム距離減衰"));
  EXPECT_EQ(m_doc.apiParameters.intensityIndex, 2);
  EXPECT_EQ(m_doc.apiParameters.catastropheWeight, 0.6);
  EXPECT_EQ(m_doc.apiParameters.versionIndex, 13);
  EXPECT_EQ(m_doc.apiParameters.activityVersionIndex, 15);
  EXPECT_FALSE(m_doc.seedAdopted);
  EXPECT_EQ(m_doc.baseSpectrumName, QString());
  EXPECT_EQ(m_doc.visualColorOrig, 0xFF3232);
  EXPECT_EQ(m_doc.visualColorAdjusted, 0x0000FF);
  EXPECT_EQ(m_doc.visualColorSpare, 0x00FF00);
  EXPECT_EQ(m_doc.damCoefSets.size(), 4U);
  EXPECT_EQ(m_doc.mainFaultRows.size(), 168U);
  ASSERT_EQ(m_doc.lowerSpectra.Count(), 3U);
}

TEST_F(MorvaneDocTest, ResetMarksTheDefaultLowerLimitAlone) {
  ASSERT_FALSE(m_doc.ResetDocument());
  EXPECT_TRUE(m_doc.lowerSpectra.At(0).lowerSelected);
  EXPECT_FALSE(m_doc.lowerSpectra.At(1).lowerSelected || m_doc.lowerSpectra.At(2).lowerSelected);
}

TEST_F(MorvaneDocTest, ResetReadsTheTablesAgain) {
  ASSERT_FALSE(m_doc.ResetDocument());
  ASSERT_TRUE(QFile::remove(m_folder.Path("LowSpec/h17.csv")));
  ASSERT_TRUE(QFile::remove(m_folder.Path("SystemData/FaultData.csv")));
  ASSERT_FALSE(m_doc.ResetDocument());
  EXPECT_EQ(m_doc.lowerSpectra.Count(), 2U);
  EXPECT_TRUE(m_doc.mainFaultRows.empty());
}

TEST_F(MorvaneDocTest, ResetLeavesTheSpareFlagAndTheModifiedMark) {
  EXPECT_EQ(m_doc.visualShowSpare, 0);
  m_doc.visualShowSpare = 7;
  m_doc.SetModified(true);
  ASSERT_FALSE(m_doc.ResetDocument());
  EXPECT_EQ(m_doc.visualShowSpare, 7);
  EXPECT_TRUE(m_doc.IsModified());
}

TEST_F(MorvaneDocTest, ABadTableIsReturnedAndTheMembersAreAtTheirDefaultsAllTheSame) {
  Fill();
  m_folder.Write("DamCoef/H20_Ehd_H.csv", "wrong\n");
  const auto failure = m_doc.ResetDocument();
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, QStringLiteral("DamCoef\\H20_Ehd_H.csvの1行目が正しい文字列ではありません。"));
  EXPECT_EQ(failure->exitStatus, 1);
  EXPECT_TRUE(m_doc.seedWaves.IsEmpty() && m_doc.faults.empty());
  EXPECT_EQ(m_doc.baseSpectrumName, QString());
}

TEST_F(MorvaneDocTest, ClearFaultsEmptiesTheListAlone) {
  Fill();
  m_doc.ClearFaults();
  EXPECT_TRUE(m_doc.faults.empty());
  EXPECT_TRUE(m_doc.seedAdopted);
  EXPECT_TRUE(m_doc.IsModified());
}

TEST_F(MorvaneDocTest, ClearSpectrumSelectionTakesEveryMarkButNotTheName) {
  Fill();
  ASSERT_TRUE(AnyBaseMark());
  m_doc.ClearSpectrumSelection();
  EXPECT_FALSE(AnyBaseMark());
  EXPECT_EQ(m_doc.baseSpectrumName, QString("base"));
  EXPECT_TRUE(m_doc.IsModified());
}

TEST_F(MorvaneDocTest, ClearAdjustmentTakesTheAdoptedWaveAndAllResults) {
  Fill();
  m_doc.ClearAdjustment();
  ExpectAdjustmentCleared();
  EXPECT_EQ(m_doc.faults[0].adjustShow, (std::vector<bool>{true, true}));
  EXPECT_EQ(m_doc.faults[0].adjustShowEquiv, (std::vector<bool>{true, true}));
  EXPECT_TRUE(AnyBaseMark());
  EXPECT_TRUE(m_doc.IsModified());
}

TEST_F(MorvaneDocTest, ClearResultsKeepsTheAdoptedWave) {
  Fill();
  m_doc.ClearResults();
  for (const CSeismicWave& wave : m_doc.seedWaves.Records()) {
    EXPECT_TRUE(wave.adopted);
    EXPECT_FALSE(wave.adjustChecked || wave.adjusted || wave.baseAdjustShow);
    EXPECT_TRUE(wave.adjustedAcc.empty());
  }
  EXPECT_TRUE(m_doc.seedAdopted);
  EXPECT_TRUE(m_doc.IsModified());
}

TEST_F(MorvaneDocTest, ClearBaseSpectrumAndAdjustmentTakesBoth) {
  Fill();
  m_doc.ClearBaseSpectrumAndAdjustment();
  EXPECT_FALSE(AnyBaseMark());
  EXPECT_EQ(m_doc.baseSpectrumName, QString());
  EXPECT_EQ(m_doc.faults.size(), 1U);
  ExpectAdjustmentCleared();
}

TEST_F(MorvaneDocTest, ClearFaultsAndAfterWorksWithoutFaults) {
  Fill();
  m_doc.faults.clear();
  m_doc.ClearFaultsAndAfter();
  EXPECT_FALSE(AnyBaseMark());
  EXPECT_EQ(m_doc.baseSpectrumName, QString());
  ExpectAdjustmentCleared();
}

TEST_F(MorvaneDocTest, EachProjectHasAGenerationOfItsOwnAndAChangeKeepsIt) {
  std::set<std::uint64_t> seen{m_doc.Generation()};
  Fill();
  EXPECT_TRUE(seen.insert(m_doc.Generation()).second) << "a new project";
  const std::string bytes = ProjectBytes(m_doc);
  m_doc.ClearFaultsAndAfter();
  m_doc.seedWaves.Clear();
  m_doc.SetPathName(QStringLiteral("/a.trml"));
  EXPECT_FALSE(seen.insert(m_doc.Generation()).second);
  EXPECT_TRUE(LoadProject(m_doc, bytes).whole);
  EXPECT_TRUE(seen.insert(m_doc.Generation()).second) << "an open";
  EXPECT_FALSE(LoadProject(m_doc, bytes.substr(0, 100)).whole);
  EXPECT_TRUE(seen.insert(m_doc.Generation()).second) << "an open that fails leaves another content too";
}

TEST_F(MorvaneDocTest, MarkDefaultLowerSpectrumKnowsBothNamesAndClearsNone) {
  m_doc.lowerSpectra.Clear();
  for (const QString& name :
       {QStringLiteral("x"), QStringLiteral("H20大規模地震"),
        QStringLiteral("H20大規模地震に対するダム耐震性能照査指針（案）・同解説（水平版）"),
        QStringLiteral("H20大規模地震2")})
    m_doc.lowerSpectra.Add(name);
  m_doc.lowerSpectra.At(0).lowerSelected = true;
  m_doc.MarkDefaultLowerSpectrum();
  EXPECT_TRUE(m_doc.lowerSpectra.At(0).lowerSelected);
  EXPECT_TRUE(m_doc.lowerSpectra.At(1).lowerSelected);
  EXPECT_TRUE(m_doc.lowerSpectra.At(2).lowerSelected);
  EXPECT_FALSE(m_doc.lowerSpectra.At(3).lowerSelected);
}

TEST_F(MorvaneDocTest, MarkDefaultLowerSpectrumWithoutThatNameChangesNothing) {
  m_doc.lowerSpectra.Add("x");
  m_doc.MarkDefaultLowerSpectrum();
  EXPECT_FALSE(m_doc.lowerSpectra.At(0).lowerSelected);
  EXPECT_EQ(m_doc.lowerSpectra.SelectedName(), QString());
}

}  // namespace
}  // namespace tremlo
