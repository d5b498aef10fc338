#include "core/project/ProjectFile.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::DocWithoutTables;
using test::SmallProjectBytes;
using test::TestFolder;

/// Loads into a document that holds another project, and checks that the outcome can be saved and opened
/// again.
bool LoadsWhole(CMorvaneDoc& doc, std::string_view bytes) {
  const bool whole = LoadProject(doc, bytes).whole;
  const std::string saved = ProjectBytes(doc);
  CMorvaneDoc again = DocWithoutTables();
  EXPECT_TRUE(LoadProject(again, saved).whole);
  EXPECT_EQ(ProjectBytes(again), saved);
  return whole;
}

/// A project cut behind the first `size` bytes.
CMorvaneDoc Cut(std::size_t size) {
  CMorvaneDoc doc = DocWithoutTables();
  EXPECT_FALSE(LoadProject(doc, std::string_view(SmallProjectBytes()).substr(0, size)).whole)
      << "cut at " << size;
  return doc;
}

std::size_t OffsetOf(const std::string& part) {
  const std::size_t offset = SmallProjectBytes().find(part);
  EXPECT_NE(offset, std::string::npos);
  return offset;
}

std::string Stored(const QString& text) {
  ArchiveWriter archive;
  archive.Value(text);
  return archive.TakeBytes();
}

std::string Stored(double number) {
  ArchiveWriter archive;
  archive.Value(number);
  return archive.TakeBytes();
}

TEST(ProjectFileDamage, AFileCutAtAnyByteFails) {
  const std::string bytes = SmallProjectBytes();
  CMorvaneDoc doc = DocWithoutTables();
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_FALSE(LoadsWhole(doc, std::string_view(bytes).substr(0, size))) << "cut at " << size;
  EXPECT_TRUE(LoadsWhole(doc, bytes));
}

TEST(ProjectFileDamage, AnyBrokenByteFailsOrLoads) {
  const std::string bytes = SmallProjectBytes();
  CMorvaneDoc doc = DocWithoutTables();
  std::size_t loaded = 0;
  std::size_t failed = 0;
  for (const char mask : {'\x01', '\x80', '\xFF'}) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      std::string broken = bytes;
      broken[i] = static_cast<char>(broken[i] ^ mask);
      ++(LoadsWhole(doc, broken) ? loaded : failed);
    }
  }
  EXPECT_GT(loaded, failed) << "most bytes belong to numbers, of which any is one";
  EXPECT_GT(failed, 0U);
}

TEST(ProjectFileDamage, ACutInATextKeepsTheTextsBeforeIt) {
  const CMorvaneDoc doc = Cut(OffsetOf(Stored(QStringLiteral("P3"))) + 5);
  EXPECT_TRUE(doc.guidelineRoute);
  EXPECT_EQ(doc.site.title, QStringLiteral("震度2"));
  EXPECT_TRUE(doc.site.subtitle.isEmpty());
  EXPECT_EQ(doc.site.planeZone, QStringLiteral("I (1)"));
}

TEST(ProjectFileDamage, ACutInTheCommentsLeavesTenOfThem) {
  const CMorvaneDoc doc = Cut(OffsetOf(Stored(QStringLiteral("c4"))));
  std::array<QString, 10> comments;
  comments[0] = QStringLiteral("c1");
  comments[1] = QStringLiteral("c2");
  comments[2] = QStringLiteral("c3");
  EXPECT_EQ(doc.site.comments, comments);
}

TEST(ProjectFileDamage, ACutInAWaveKeepsItsNameAndTheFieldsBefore) {
  const CMorvaneDoc doc = Cut(OffsetOf(Stored(1003.75)));
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  CSeismicWave wave;
  wave.name = QStringLiteral("w");
  wave.spectrumValid = true;
  wave.timeStep = 1002.5;
  EXPECT_EQ(doc.seedWaves.At(0), wave) << "half of the samples would pass for all of them";
}

TEST(ProjectFileDamage, ACutBehindTheNamesLeavesRecordsWithDefaults) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());  // whose tables fill these records before the file does
  const std::string bytes = SmallProjectBytes();
  EXPECT_FALSE(
      LoadProject(doc, std::string_view(bytes).substr(0, OffsetOf(Stored(QStringLiteral("L2"))) + 8)).whole);
  EXPECT_EQ(doc.lowerSpectra.Names(), (std::vector<QString>{QStringLiteral("L1"), QStringLiteral("L2")}));
  CSeismicWave wave;
  wave.name = QStringLiteral("L2");
  EXPECT_EQ(doc.lowerSpectra.At(1), wave);
}

TEST(ProjectFileDamage, ACutInAFaultKeepsTheFieldsBefore) {
  const CMorvaneDoc doc = Cut(OffsetOf(Stored(QStringLiteral("b17"))));
  ASSERT_EQ(doc.faults.size(), 1U);
  EXPECT_EQ(doc.faults[0].magu, QStringLiteral("F16"));
  EXPECT_TRUE(doc.faults[0].lon.empty());
  EXPECT_EQ(doc.searchRangeKm, 50.0);
}

TEST(ProjectFileDamage, ACutBeforeTheLowerLimitsKeepsThoseOfTheTables) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());
  ASSERT_FALSE(doc.ResetDocument());
  const std::vector<CSeismicWave> fromTables = doc.lowerSpectra.Records();
  const std::size_t count = OffsetOf(Stored(QStringLiteral("L1"))) - 4;
  const std::string bytes = SmallProjectBytes();
  LoadProject(doc, std::string_view(bytes).substr(0, count - 1));
  EXPECT_EQ(doc.lowerSpectra.Records(), fromTables);
  LoadProject(doc, std::string_view(bytes).substr(0, count));
  EXPECT_TRUE(doc.lowerSpectra.IsEmpty()) << "emptied where the file's own begin";
}

/// The file as a program opens it; the document held another project.
CMorvaneDoc Opened(const QString& path, OpenResult result) {
  CMorvaneDoc doc = DocWithoutTables();
  test::FillSmallProject(doc);
  doc.SetPathName(QStringLiteral("former.trml"));
  doc.SetModified(true);
  EXPECT_EQ(OpenProject(doc, path).result, result) << path.toStdString();
  return doc;
}

void ExpectUntouched(const QString& path) {
  const CMorvaneDoc doc = Opened(path, OpenResult::kUnreadable);
  EXPECT_EQ(ProjectBytes(doc), SmallProjectBytes());
  EXPECT_EQ(doc.PathName(), QStringLiteral("former.trml"));
  EXPECT_TRUE(doc.IsModified());
}

TEST(ProjectFileDamage, WhatCannotBeReadLeavesTheDocumentAlone) {
  const TestFolder folder;
  folder.Write(QStringLiteral("file"), "content");
  ExpectUntouched(QString());
  ExpectUntouched(folder.Path());
  ExpectUntouched(folder.Path(QStringLiteral("missing.trml")));
  ExpectUntouched(folder.Path(QStringLiteral("file/p.trml")));
}

TEST(ProjectFileDamage, ABrokenFileLeavesAnUnnamedDocumentWithWhatWasRead) {
  const TestFolder folder;
  const std::string bytes = SmallProjectBytes();
  const QString path = folder.Write(QStringLiteral("p.trml"),
                                    QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size() / 2)));
  const CMorvaneDoc doc = Opened(path, OpenResult::kBroken);
  EXPECT_TRUE(doc.PathName().isEmpty());
  EXPECT_FALSE(doc.IsModified());
  EXPECT_EQ(doc.site.title, QStringLiteral("震度2"));
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
}

TEST(ProjectFileDamage, AnEmptyFileLeavesANewProject) {
  const TestFolder folder;
  CMorvaneDoc doc = Opened(folder.Write(QStringLiteral("p.trml"), {}), OpenResult::kBroken);
  EXPECT_TRUE(doc.PathName().isEmpty());
  doc.visualShowSpare = 0;
  EXPECT_EQ(ProjectBytes(doc), ProjectBytes(DocWithoutTables()));
}

TEST(ProjectFileDamage, AFileOfAnotherKindFails) {
  const TestFolder folder;
  for (const QByteArray& content : {QByteArray("name,0.01,1\n1,2\n"), QByteArray(100'000, '\xFF'),
                                    QByteArray(1000, '\0'), QByteArray("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n")})
    Opened(folder.Write(QStringLiteral("p.trml"), content), OpenResult::kBroken);
}

/// A project whose first set holds `names` and `bodies`, and what follows up to the end of a new project.
std::string WithSeedWaves(std::uint32_t count, const std::string& names, const std::string& bodies) {
  constexpr std::size_t kSeedWaves = 153;
  const std::string fresh = ProjectBytes(DocWithoutTables());
  ArchiveWriter archive;
  archive.Count(count);
  return fresh.substr(0, kSeedWaves) + archive.TakeBytes() + names + bodies + fresh.substr(kSeedWaves + 4);
}

/// The body of a wave with `samples` samples and defaults otherwise.
std::string Body(std::size_t samples) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.graphDamsite.acc.assign(samples, 1.5);
  constexpr std::size_t kGraphDamsite = 157;
  return ProjectBytes(doc).substr(kGraphDamsite, 512 + 8 * samples);
}

std::string Repeated(const std::string& part, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += part;
  return text;
}

TEST(ProjectFileDamage, ManyRecordsOfOneNameLoad) {
  const std::size_t count = 300;
  const std::string bytes =
      WithSeedWaves(count, std::string(2 * count, '\1'), Repeated(Body(0), count - 1) + Body(1000));
  CMorvaneDoc doc = DocWithoutTables();
  ASSERT_TRUE(LoadProject(doc, bytes).whole);
  ASSERT_EQ(doc.seedWaves.Count(), count);
  EXPECT_EQ(doc.seedWaves.At(0).name, QString(QChar(1)));
  EXPECT_EQ(doc.seedWaves.At(0).acc.size(), 1000U);
  EXPECT_EQ(doc.seedWaves.At(0), doc.seedWaves.At(count - 1));
}

TEST(ProjectFileDamage, NamesakesThatWouldFillTheMemoryFail) {
  // 400 records of one name, the last with 4 MB: 1.6 GB from a file of 4.2 MB.
  const std::size_t count = 400;
  const std::size_t samples = 500'000;
  const std::string bytes =
      WithSeedWaves(count, std::string(2 * count, '\1'), Repeated(Body(0), count - 1) + Body(samples));
  CMorvaneDoc doc = DocWithoutTables();
  EXPECT_FALSE(LoadProject(doc, bytes).whole);
  ASSERT_EQ(doc.seedWaves.Count(), count);
  EXPECT_EQ(doc.seedWaves.At(0).acc.size(), samples);
  EXPECT_TRUE(doc.seedWaves.At(1).acc.empty());
}

TEST(ProjectFileDamage, NamesWithoutBodiesThatWouldFillTheMemoryFail) {
  const std::size_t count = 3'000'000;  // of one byte each
  CMorvaneDoc doc = DocWithoutTables();
  EXPECT_FALSE(LoadProject(doc, WithSeedWaves(count, std::string(count, '\0'), {})).whole);
  EXPECT_TRUE(doc.seedWaves.IsEmpty());
}

}  // namespace
}  // namespace tremlo
