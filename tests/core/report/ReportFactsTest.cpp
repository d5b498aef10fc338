#include "core/project/ProjectFile.h"
#include "core/report/ReportFacts.h"
#include "core/report/ReportWave.h"
#include "core/waves/WaveFile.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

constexpr int kYear = 2026;

QString HashOfFile(const QString& path) {
  return QString::fromLatin1(
      QCryptographicHash::hash(test::ReadAll(path), QCryptographicHash::Sha256).toHex());
}

ReportFacts FactsOf(const CMorvaneDoc& doc) {
  return GatherReportFacts(doc, QDate(kYear, 1, 2));
}

TEST(ReportFactsTest, TheHashesAreThoseOfTheFiles) {
  const test::TestFolder folder;
  CMorvaneDoc doc = test::SoundProject();
  const QString path = folder.Path("p.trml");
  ASSERT_TRUE(SaveProject(doc, path));
  const ReportFacts facts = FactsOf(doc);
  EXPECT_EQ(facts.projectHash, HashOfFile(path));
  EXPECT_EQ(facts.projectName, u"p.trml");
  EXPECT_FALSE(facts.unsaved);

  const CSeismicWave& wave = doc.seedWaves.At(0);
  ExportWave(SplitSavePath(folder.Path("w.csv")), wave.name, wave.timeStep, wave.adjustedAcc,
             wave.adjustedPeriods, wave.adjustedSpec);
  EXPECT_EQ(facts.waveHash, HashOfFile(folder.Path("w.csv")));
}

TEST(ReportFactsTest, TheHashIsThatOfTheFileWhateverItHoldsBehindTheProject) {
  const test::TestFolder folder;
  const QString path = folder.Write(
      "p.trml", QByteArray::fromStdString(ProjectBytes(test::SoundProject())) + QByteArray("more"));
  CMorvaneDoc doc(test::SourcePath("data"));
  ASSERT_EQ(OpenProject(doc, path).result, OpenResult::kOpened);
  EXPECT_EQ(FactsOf(doc).projectHash, HashOfFile(path));
  EXPECT_FALSE(FactsOf(doc).unsaved);
}

TEST(ReportFactsTest, AnUnnamedProjectIsUnsaved) {
  EXPECT_TRUE(FactsOf(test::SoundProject()).unsaved);
}

TEST(ReportFactsTest, AProjectIsSavedWhileItsFileHoldsTheSame) {
  const test::TestFolder folder;
  CMorvaneDoc doc = test::SoundProject();
  const QString path = folder.Path("p.trml");
  ASSERT_TRUE(SaveProject(doc, path));
  // To look at a screen is enough for the mark.
  doc.SetModified(true);
  EXPECT_FALSE(FactsOf(doc).unsaved);

  doc.site.title = QStringLiteral("別");
  EXPECT_TRUE(FactsOf(doc).unsaved);
  EXPECT_NE(FactsOf(doc).projectHash, HashOfFile(path));
}

TEST(ReportFactsTest, AFileThatAnotherHasReplacedIsNotTheProjects) {
  const test::TestFolder folder;
  CMorvaneDoc doc = test::SoundProject();
  ASSERT_TRUE(SaveProject(doc, folder.Path("p.trml")));
  const QString hash = FactsOf(doc).projectHash;
  folder.Write("p.trml", "something else");
  EXPECT_TRUE(FactsOf(doc).unsaved);
  EXPECT_EQ(FactsOf(doc).projectHash, hash);
  ASSERT_TRUE(QFile::remove(folder.Path("p.trml")));
  EXPECT_TRUE(FactsOf(doc).unsaved);
}

TEST(ReportFactsTest, TheRunIsMadeWithTheSettingsOfNow) {
  CMorvaneDoc doc = test::SoundProject();
  const ReportFacts facts = FactsOf(doc);
  EXPECT_TRUE(facts.run.converged);
  EXPECT_EQ(facts.run.acc, doc.seedWaves.At(0).adjustedAcc);
  doc.adjustMaxIterations = 1;
  EXPECT_FALSE(FactsOf(doc).run.converged);
}

TEST(ReportFactsTest, SampleTablesAreToldWhereTablesWereInUse) {
  const test::TestFolder folder;
  test::CopyTables(folder);
  const CMorvaneDoc sample = test::SoundProject(folder.Path());
  EXPECT_TRUE(FactsOf(sample).sampleTables);
  for (const TableOrigin& table : FactsOf(sample).tables)
    EXPECT_TRUE(table.sample) << table.name.toStdString();

  for (const char* name : {"DamCoef/見本.txt", "LowSpec/見本.txt", "SystemData/見本.txt"})
    ASSERT_TRUE(QFile::remove(folder.Path(QString::fromUtf8(name))));
  const ReportFacts own = FactsOf(sample);
  EXPECT_FALSE(own.sampleTables);
  ASSERT_FALSE(own.tables.empty());
  EXPECT_EQ(own.tables[0].hash, HashOfFile(folder.Path("DamCoef/H20_Ehd_H.csv")));

  EXPECT_FALSE(FactsOf(test::SoundResponseProject()).sampleTables);
}

TEST(ReportWaveTest, AReportIsOfferedForAnAdjustedWave) {
  CMorvaneDoc doc = test::SoundProject();
  EXPECT_TRUE(OffersReport(doc));
  EXPECT_EQ(ReportWave(doc), &doc.seedWaves.At(0));
  doc.ClearResults();
  EXPECT_FALSE(OffersReport(doc));

  doc = test::SoundProject();
  doc.seedWaves.At(0).adopted = false;
  EXPECT_EQ(ReportWave(doc), nullptr);
  EXPECT_FALSE(OffersReport(doc));

  CMorvaneDoc response = test::SoundResponseProject();
  EXPECT_TRUE(OffersReport(response));
  response.seedWaves.At(0).adjusted = false;
  EXPECT_FALSE(OffersReport(response));
  response.seedWaves = {};
  EXPECT_FALSE(OffersReport(response));
}

TEST(ReportWaveTest, TheTargetIsTheOneInUseNow) {
  CMorvaneDoc doc = test::SoundProject();
  EXPECT_EQ(TargetName(doc), doc.lowerSpectra.SelectedName());
  const CMorvaneDoc response = test::SoundResponseProject();
  EXPECT_EQ(TargetName(response), response.respSpectra.At(0).name);
}

}  // namespace
}  // namespace tremlo
