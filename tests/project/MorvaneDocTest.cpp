#include "project/MorvaneDoc.h"
#include "project/ProjectFile.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::DocWithoutTables;
using test::FillProject;
using test::TestFolder;

CMorvaneDoc FilledDoc() {
  CMorvaneDoc doc = DocWithoutTables();
  FillProject(doc);
  return doc;
}

TEST(MorvaneDoc, ResetGivesTheDefaults) {
  CMorvaneDoc doc = FilledDoc();
  doc.ResetDocument();
  EXPECT_EQ(doc.site, SiteRecord());
  EXPECT_EQ(doc.site.comments, (std::array<QString, 10>()));
  EXPECT_EQ(doc.site.latDeg, 38.0);
  EXPECT_EQ(doc.site.latMin, 15.0);
  EXPECT_EQ(doc.site.latSec, 20.66);
  EXPECT_EQ(doc.site.lonDeg, 137.0);
  EXPECT_EQ(doc.site.lonMin, 46.0);
  EXPECT_EQ(doc.site.lonSec, 37.0);
  EXPECT_EQ(doc.site.planeZone, QStringLiteral("I (1)"));
  EXPECT_EQ(doc.site.mapZoom, 5);
  EXPECT_EQ(doc.site.mapScale, 0.8128668946369415);
  EXPECT_FALSE(doc.guidelineRoute);
  EXPECT_FALSE(doc.flowFixed);
  EXPECT_EQ(doc.searchRangeKm, 50.0);
  EXPECT_EQ(doc.attenuationMethod, QStringLiteral("(水平)H20ダム距離減衰"));
  EXPECT_EQ(doc.apiParameters.intensityIndex, 2);
  EXPECT_EQ(doc.apiParameters.catastropheWeight, 0.6);
  EXPECT_EQ(doc.apiParameters.versionIndex, 13);
  EXPECT_EQ(doc.apiParameters.activityVersionIndex, 15);
  EXPECT_EQ(doc.adjustMaxIterations, 100);
  EXPECT_EQ(doc.adjustTolerancePercent, 0.05);
  EXPECT_EQ(doc.visualShowOrig, 1);
  EXPECT_EQ(doc.visualColorOrig, 0xFF3232);
  EXPECT_EQ(doc.visualColorAdjusted, 0x0000FF);
  EXPECT_EQ(doc.visualColorSpare, 0x00FF00);
  EXPECT_TRUE(doc.seedWaves.IsEmpty());
  EXPECT_TRUE(doc.lowerSpectra.IsEmpty());
  EXPECT_TRUE(doc.respSpectra.IsEmpty());
  EXPECT_TRUE(doc.faults.empty());
}

TEST(MorvaneDoc, ResetLeavesNothingOfTheFormerProjectButTheSpareSwitch) {
  CMorvaneDoc fresh = DocWithoutTables();
  CMorvaneDoc doc = FilledDoc();
  doc.ResetDocument();
  EXPECT_EQ(doc.visualShowSpare, 52);
  doc.visualShowSpare = fresh.visualShowSpare;
  EXPECT_EQ(ProjectBytes(doc), ProjectBytes(fresh));
}

TEST(MorvaneDoc, ResetReadsTheTablesAgain) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());
  ASSERT_FALSE(doc.ResetDocument());
  EXPECT_FALSE(doc.damCoefSets.empty());
  EXPECT_FALSE(doc.mainFaultRows.empty());
  const std::size_t spectra = doc.lowerSpectra.Count();
  ASSERT_GT(spectra, 0U);
  EXPECT_TRUE(doc.lowerSpectra.At(0).lowerSelected);
  folder.Write(QStringLiteral("LowSpec/more.csv"), "more,0,1\n0.1,10\n1,20\n");
  ASSERT_FALSE(doc.ResetDocument());
  EXPECT_EQ(doc.lowerSpectra.Count(), spectra + 1);
}

TEST(MorvaneDoc, ClearFaultsAndAfterWithoutFaultsStillClearsTheBaseAndTheAdoptedWave) {
  CMorvaneDoc doc = FilledDoc();
  doc.faults.clear();
  doc.seedAdopted = true;
  doc.seedAdoptedName = QStringLiteral("w");
  doc.seedWaves.SetAdopted(QStringLiteral("w"), true);
  doc.seedWaves.SetBaseSelected(QStringLiteral("w"), true);
  doc.ClearFaultsAndAfter();
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  EXPECT_FALSE(doc.seedAdopted);
  EXPECT_TRUE(doc.seedAdoptedName.isEmpty());
  EXPECT_FALSE(doc.seedWaves.GetAdopted(QStringLiteral("w")));
  EXPECT_FALSE(doc.seedWaves.GetBaseSelected(QStringLiteral("w")));
  EXPECT_TRUE(doc.IsModified());
}

TEST(MorvaneDoc, MarkDefaultLowerSpectrumWithoutTheNameChangesNothing) {
  CMorvaneDoc doc = FilledDoc();
  const std::string before = ProjectBytes(doc);
  doc.MarkDefaultLowerSpectrum();
  EXPECT_EQ(ProjectBytes(doc), before);
}

TEST(MorvaneDoc, MarkDefaultLowerSpectrumTakesBothNamesExactlyAndClearsNone) {
  CMorvaneDoc doc = DocWithoutTables();
  const QString longName =
      QStringLiteral("H20大規模地震に対するダム耐震性能照査指針（案）・同解説（水平版）");
  for (const QString& name : {QStringLiteral("other"), QStringLiteral("H20大規模地震"), longName,
                              QStringLiteral("H20大規模地震 "), QStringLiteral("H20大規模地震に対する")})
    doc.lowerSpectra.Add(name);
  doc.lowerSpectra.At(0).lowerSelected = true;
  doc.MarkDefaultLowerSpectrum();
  std::vector<bool> marks;
  for (const CSeismicWave& spectrum : doc.lowerSpectra.Records()) marks.push_back(spectrum.lowerSelected);
  EXPECT_EQ(marks, (std::vector<bool>{true, true, true, false, false}));
}

}  // namespace
}  // namespace tremlo
