#include "core/project/ProjectFile.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

using test::DocWithoutTables;
using test::FillSmallProject;
using test::SmallProjectBytes;
using test::TestFolder;

CMorvaneDoc Loaded(const std::string& bytes) {
  CMorvaneDoc doc = DocWithoutTables();
  const LoadOutcome outcome = LoadProject(doc, bytes);
  EXPECT_TRUE(outcome.whole);
  EXPECT_FALSE(outcome.tableFailure);
  return doc;
}

QByteArray AsFile(const std::string& bytes) {
  return QByteArray::fromStdString(bytes);
}

std::string Stored(const QString& text) {
  ArchiveWriter archive;
  archive.Value(text);
  return archive.TakeBytes();
}

// Offsets in a new project without lower limits.
constexpr std::size_t kFirstComment = 95;
constexpr std::size_t kFlowFlags = 147;
constexpr std::size_t kSeedWaves = 153;
constexpr std::size_t kGraphDamsite = 157;
constexpr std::size_t kLowerSpectra = 1259;
constexpr std::size_t kSeedAdopted = 1775;
constexpr std::size_t kNewProject = 2848;
constexpr std::size_t kBody = 512;
constexpr std::size_t kGraph = 224;

TEST(ProjectFile, ANewProjectHasTheKnownSizes) {
  const std::string bytes = ProjectBytes(DocWithoutTables());
  EXPECT_EQ(bytes.size(), kNewProject);
  std::string comments;
  for (int i = 0; i < 10; ++i) comments += Stored(QString());
  EXPECT_EQ(bytes.substr(kFirstComment, 40), comments);
  const std::string zone = Stored(QStringLiteral("I (1)"));
  EXPECT_EQ(bytes.substr(kFirstComment - zone.size(), zone.size()), zone);
  EXPECT_EQ(bytes.substr(kSeedWaves, 4), std::string(4, '\0'));
  EXPECT_EQ(bytes.substr(kLowerSpectra, 4), std::string(4, '\0'));
}

TEST(ProjectFile, CommentsFollowThePlaneZone) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.site.planeZone = QStringLiteral("XIX (19)");
  doc.site.comments[0] = QStringLiteral("first");
  const std::string bytes = ProjectBytes(doc);
  EXPECT_NE(bytes.find(Stored(doc.site.planeZone) + Stored(doc.site.comments[0])), std::string::npos);
}

TEST(ProjectFile, AWaveOfFourSamplesIsACountAndThirtyTwoBytes) {
  CMorvaneDoc doc = DocWithoutTables();
  const std::size_t empty = ProjectBytes(doc).size();
  doc.seedWaves.Add(QStringLiteral("w"));
  EXPECT_EQ(ProjectBytes(doc).size(), empty + 6 + kBody);
  doc.seedWaves.SetAcc(QStringLiteral("w"), {1.0, 2.0, 3.0, 4.0});
  const std::string bytes = ProjectBytes(doc);
  EXPECT_EQ(bytes.size(), empty + 6 + kBody + 32);
  EXPECT_EQ(bytes.substr(kSeedWaves, 4), std::string("\1\0\0\0", 4));
  EXPECT_EQ(bytes.substr(kSeedWaves + 4, 6), Stored(QStringLiteral("w")));
  const std::size_t acc = kSeedWaves + 10 + 1 + 8;
  EXPECT_EQ(bytes.substr(acc, 4), std::string("\4\0\0\0", 4));
  double last = 0.0;
  std::memcpy(&last, bytes.data() + acc + 4 + 24, 8);
  EXPECT_EQ(last, 4.0);
}

TEST(ProjectFile, AGraphBlockHas224Bytes) {
  CMorvaneDoc doc = DocWithoutTables();
  const std::string before = ProjectBytes(doc);
  // Its first and last word, with the fields around it.
  doc.graphDamsite.current = true;
  doc.graphDamsite.origGraph.autoRange = 0x11111111;
  doc.graphDamsite.origGraph.reserved[5] = 0x22222222;
  doc.graphDamsite.siteColor = 0x33333333;
  const std::string bytes = ProjectBytes(doc);
  const std::size_t graph = kGraphDamsite + 1 + 8 + 4 + 1;
  EXPECT_EQ(bytes[graph - 1], '\1');
  EXPECT_EQ(bytes.substr(graph, 4), "\x11\x11\x11\x11");
  EXPECT_EQ(bytes.substr(graph + kGraph - 4, 8), "\x22\x22\x22\x22\x33\x33\x33\x33");
  EXPECT_EQ(bytes.substr(graph + 4, kGraph - 8), before.substr(graph + 4, kGraph - 8));
}

TEST(ProjectFile, EveryFlagOfTheDocumentHasItsByte) {
  const std::string before = ProjectBytes(DocWithoutTables());
  const std::pair<bool CMorvaneDoc::*, std::size_t> flags[] = {
      {&CMorvaneDoc::guidelineRoute, 0},
      {&CMorvaneDoc::flowQ1Yes, kFlowFlags},
      {&CMorvaneDoc::flowQ2Yes, kFlowFlags + 1},
      {&CMorvaneDoc::flowCollect, kFlowFlags + 2},
      {&CMorvaneDoc::flowFaultSource, kFlowFlags + 3},
      {&CMorvaneDoc::flowNeighbourWave, kFlowFlags + 4},
      {&CMorvaneDoc::flowFixed, kFlowFlags + 5},
      {&CMorvaneDoc::seedAdopted, kSeedAdopted},
  };
  for (const auto& [flag, offset] : flags) {
    CMorvaneDoc doc = DocWithoutTables();
    doc.*flag = true;
    std::string expected = before;
    expected[offset] = '\1';
    EXPECT_EQ(ProjectBytes(doc), expected) << offset;
    EXPECT_TRUE(Loaded(expected).*flag) << offset;
  }
}

TEST(ProjectFile, EveryFieldIsWrittenWhereTheFormatHasIt) {
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  const std::string expected = SmallProjectBytes();
  const std::string bytes = ProjectBytes(doc);
  const auto difference = std::mismatch(bytes.begin(), bytes.end(), expected.begin(), expected.end());
  EXPECT_EQ(bytes.size(), expected.size());
  EXPECT_EQ(difference.first - bytes.begin(), std::ssize(expected)) << "first byte that differs";
}

TEST(ProjectFile, EveryFieldIsReadFromWhereTheFormatHasIt) {
  CMorvaneDoc expected = DocWithoutTables();
  FillSmallProject(expected);
  const CMorvaneDoc doc = Loaded(SmallProjectBytes());
  EXPECT_EQ(doc.guidelineRoute, expected.guidelineRoute);
  EXPECT_EQ(doc.site, expected.site);
  EXPECT_EQ(doc.seedWaves.Records(), expected.seedWaves.Records());
  EXPECT_EQ(doc.graphDamsite, expected.graphDamsite);
  EXPECT_EQ(doc.faults, expected.faults);
  EXPECT_EQ(doc.faultAcquireMode, expected.faultAcquireMode);
  EXPECT_EQ(doc.searchRangeKm, expected.searchRangeKm);
  EXPECT_EQ(doc.attenuationMethod, expected.attenuationMethod);
  EXPECT_EQ(doc.graphAttenuation, expected.graphAttenuation);
  EXPECT_EQ(doc.apiParameters, expected.apiParameters);
  EXPECT_EQ(doc.lowerSpectra.Records(), expected.lowerSpectra.Records());
  EXPECT_EQ(doc.graphBase, expected.graphBase);
  EXPECT_EQ(doc.seedAdoptedName, expected.seedAdoptedName);
  EXPECT_EQ(doc.baseSpectrumName, expected.baseSpectrumName);
  EXPECT_EQ(doc.graphAdjust, expected.graphAdjust);
  EXPECT_EQ(doc.adjustMaxIterations, expected.adjustMaxIterations);
  EXPECT_EQ(doc.adjustTolerancePercent, expected.adjustTolerancePercent);
  EXPECT_EQ(doc.graphSpare, expected.graphSpare);
  EXPECT_EQ(doc.visualShowOrig, expected.visualShowOrig);
  EXPECT_EQ(doc.visualShowAdjusted, expected.visualShowAdjusted);
  EXPECT_EQ(doc.visualShowSpare, expected.visualShowSpare);
  EXPECT_EQ(doc.visualColorOrig, expected.visualColorOrig);
  EXPECT_EQ(doc.visualColorAdjusted, expected.visualColorAdjusted);
  EXPECT_EQ(doc.visualColorSpare, expected.visualColorSpare);
  EXPECT_EQ(doc.respSpectra.Records(), expected.respSpectra.Records());
}

TEST(ProjectFile, NamesOfLooseRecordsAndTheSpareFlagsOfAFaultAreNotStored) {
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  doc.graphBase.name = QStringLiteral("loose");
  doc.faults[0].adjustSpare = {true, true};
  EXPECT_EQ(ProjectBytes(doc), SmallProjectBytes());
  LoadProject(doc, SmallProjectBytes());
  EXPECT_TRUE(doc.graphBase.name.isEmpty());
  EXPECT_TRUE(doc.faults[0].adjustSpare.empty());
}

TEST(ProjectFile, ALoadReplacesAllOfTheFormerProject) {
  CMorvaneDoc doc = Loaded(SmallProjectBytes());
  const std::string fresh = ProjectBytes(DocWithoutTables());
  ASSERT_TRUE(LoadProject(doc, fresh).whole);
  EXPECT_EQ(ProjectBytes(doc), fresh);
}

TEST(ProjectFile, AResetLeavesNothingOfTheFormerProjectButTheSpareSwitch) {
  CMorvaneDoc doc = Loaded(SmallProjectBytes());
  doc.ResetDocument();
  EXPECT_EQ(doc.visualShowSpare, 52);
  doc.visualShowSpare = 0;
  EXPECT_EQ(ProjectBytes(doc), ProjectBytes(DocWithoutTables()));
}

TEST(ProjectFile, ALoadStartsWithTheTablesAndKeepsTheLowerLimitsOfTheFile) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());
  const LoadOutcome outcome = LoadProject(doc, SmallProjectBytes());
  EXPECT_TRUE(outcome.whole);
  EXPECT_FALSE(doc.damCoefSets.empty());
  EXPECT_FALSE(doc.mainFaultRows.empty());
  EXPECT_EQ(doc.lowerSpectra.Names(), (std::vector<QString>{QStringLiteral("L1"), QStringLiteral("L2")}));
}

TEST(ProjectFile, ANewProjectStoresTheLowerLimitsOfTheTables) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());
  ASSERT_FALSE(doc.ResetDocument());
  const CMorvaneDoc copy = Loaded(ProjectBytes(doc));
  EXPECT_GT(copy.lowerSpectra.Count(), 0U);
  EXPECT_EQ(copy.lowerSpectra.Records(), doc.lowerSpectra.Records());
}

TEST(ProjectFile, AFaultOfTheTablesIsKeptApartFromTheFile) {
  const TestFolder folder;
  CopyTables(folder);
  folder.Write(QStringLiteral("DamCoef/H20_Ehd_H.csv"), "not a relation\n");
  CMorvaneDoc doc(folder.Path());
  const QString path = folder.Write(QStringLiteral("p.trml"), AsFile(SmallProjectBytes()));
  const OpenOutcome outcome = OpenProject(doc, path);
  EXPECT_EQ(outcome.result, OpenResult::kOpened);
  ASSERT_TRUE(outcome.tableFailure);
  EXPECT_EQ(outcome.tableFailure->exitStatus, 1);
  EXPECT_EQ(ProjectBytes(doc), SmallProjectBytes());
}

TEST(ProjectFile, BytesBehindTheEndAreLeftAlone) {
  const CMorvaneDoc doc = Loaded(SmallProjectBytes() + std::string("\xFF tail", 6));
  EXPECT_EQ(ProjectBytes(doc), SmallProjectBytes());
}

TEST(ProjectFile, AnyByteIsAFlagAndIsWrittenBackAsOne) {
  std::string bytes = ProjectBytes(DocWithoutTables());
  bytes[kFlowFlags] = '\x80';
  const CMorvaneDoc doc = Loaded(bytes);
  EXPECT_TRUE(doc.flowQ1Yes);
  bytes[kFlowFlags] = '\1';
  EXPECT_EQ(ProjectBytes(doc), bytes);
}

TEST(ProjectFile, FlagsThatContradictEachOtherAreTakenAsStored) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.flowFixed = true;
  doc.seedAdopted = true;
  const CMorvaneDoc copy = Loaded(ProjectBytes(doc));
  EXPECT_TRUE(copy.flowFixed);
  EXPECT_FALSE(copy.flowQ2Yes);
  EXPECT_TRUE(copy.seedAdopted);
  EXPECT_TRUE(copy.seedAdoptedName.isEmpty());
}

TEST(ProjectFile, NarrowTextsAreReadAndWrittenWide) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.site.title = QStringLiteral("地震");
  doc.seedWaves.Add(QStringLiteral("波1"));
  const std::string wide = ProjectBytes(doc);
  std::string narrow = wide;
  for (const auto& [text, bytes] : {std::pair{doc.site.title, "\x04\x92\x6E\x90\x6B"},
                                    std::pair{doc.seedWaves.At(0).name, "\x03\x94\x67\x31"}}) {
    const std::string stored = Stored(text);
    narrow.replace(narrow.find(stored), stored.size(), bytes);
  }
  ASSERT_LT(narrow.size(), wide.size());
  EXPECT_EQ(ProjectBytes(Loaded(narrow)), wide);
}

TEST(ProjectFile, HalfPairsNanBitsAndReservedWordsSurvive) {
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  constexpr char16_t halves[] = {0xD800, u'a', 0xDFFF};
  doc.site.title = QStringView(halves, std::size(halves)).toString();
  doc.seedWaves.At(0).name = QString(QChar(0xDC01));
  const auto oddNan = std::bit_cast<double>(0xFFF0'0000'0000'0123ULL);
  doc.searchRangeKm = oddNan;
  doc.seedWaves.At(0).acc = {oddNan, kBlankSample, -0.0};
  doc.seedWaves.At(0).lowerGraph.reserved = {-1, 2, std::numeric_limits<std::int32_t>::min(), 4, 5, 6};
  const std::string bytes = ProjectBytes(doc);
  const CMorvaneDoc copy = Loaded(bytes);
  EXPECT_EQ(ProjectBytes(copy), bytes);
  EXPECT_EQ(copy.site.title, doc.site.title);
  EXPECT_EQ(copy.seedWaves.At(0).lowerGraph.reserved, doc.seedWaves.At(0).lowerGraph.reserved);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(copy.seedWaves.At(0).acc[0]), 0xFFF0'0000'0000'0123ULL);
}

/// A document with seed waves of these names; wave i has the time step i + 1 and i + 1 samples.
CMorvaneDoc DocWithWaves(const std::vector<QString>& names) {
  CMorvaneDoc doc = DocWithoutTables();
  for (const QString& name : names) {
    doc.seedWaves.Add(name);
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = static_cast<double>(doc.seedWaves.Count());
    wave.acc.assign(doc.seedWaves.Count(), wave.timeStep);
  }
  return doc;
}

std::vector<double> TimeSteps(const CMorvaneDoc& doc) {
  std::vector<double> steps;
  for (const CSeismicWave& wave : doc.seedWaves.Records()) steps.push_back(wave.timeStep);
  return steps;
}

TEST(ProjectFile, RecordsOfOneNameAreWrittenEachWithItsOwnBody) {
  const std::string bytes = ProjectBytes(DocWithWaves({"a", "b", "a"}));
  const std::string other = ProjectBytes(DocWithWaves({"a", "b", "c"}));
  EXPECT_EQ(bytes.size(), other.size());
  std::size_t differences = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) differences += bytes[i] != other[i] ? 1U : 0U;
  EXPECT_EQ(differences, 1U) << "all but the last name is the same";
}

TEST(ProjectFile, RecordsOfOneNameBothGetTheLaterBody) {
  const CMorvaneDoc doc = Loaded(ProjectBytes(DocWithWaves({"a", "b", "a", "b", "c"})));
  EXPECT_EQ(doc.seedWaves.Names(), (std::vector<QString>{"a", "b", "a", "b", "c"}));
  EXPECT_EQ(TimeSteps(doc), (std::vector<double>{3.0, 4.0, 3.0, 4.0, 5.0}));
  EXPECT_EQ(doc.seedWaves.At(0), doc.seedWaves.At(2));
}

TEST(ProjectFile, RecordsOfOneNameInACutFileBothGetWhatWasRead) {
  CMorvaneDoc saved = DocWithWaves({"a", "a"});
  saved.seedWaves.At(0).siteColor = 7;
  const std::string bytes = ProjectBytes(saved);
  const std::size_t secondBody = kSeedWaves + 4 + 2 * 6 + kBody + 8;
  const std::size_t behindTimeStep = secondBody + 1 + 8;
  CMorvaneDoc doc = DocWithoutTables();
  EXPECT_FALSE(LoadProject(doc, std::string_view(bytes).substr(0, behindTimeStep)).whole);
  ASSERT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_EQ(doc.seedWaves.At(0), doc.seedWaves.At(1));
  EXPECT_EQ(doc.seedWaves.At(0).timeStep, 2.0) << "of the second body";
  EXPECT_EQ(doc.seedWaves.At(0).acc, std::vector<double>{1.0})
      << "of the first body, behind the cut of the second";
  EXPECT_EQ(doc.seedWaves.At(0).siteColor, 7);
}

TEST(ProjectFile, OpenNamesTheDocumentAndClearsTheMark) {
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("案件 1.trml"), AsFile(SmallProjectBytes()));
  CMorvaneDoc doc = DocWithoutTables();
  doc.SetModified(true);
  EXPECT_EQ(OpenProject(doc, path).result, OpenResult::kOpened);
  EXPECT_EQ(doc.PathName(), path);
  EXPECT_FALSE(doc.IsModified());
  EXPECT_EQ(ProjectBytes(doc), SmallProjectBytes());
}

TEST(ProjectFile, SaveNamesTheDocumentAndClearsTheMark) {
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("案件 1.trml"), "older and longer than nothing");
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  doc.SetModified(true);
  EXPECT_TRUE(SaveProject(doc, path));
  EXPECT_EQ(doc.PathName(), path);
  EXPECT_FALSE(doc.IsModified());
  EXPECT_EQ(test::ReadAll(path).toStdString(), SmallProjectBytes());
  EXPECT_EQ(folder.Names(), QStringList{QStringLiteral("案件 1.trml")});
}

/// A save to `path` fails and leaves the document as it was.
void ExpectNoSave(const QString& path) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.SetPathName(QStringLiteral("former.trml"));
  doc.SetModified(true);
  EXPECT_FALSE(SaveProject(doc, path));
  EXPECT_EQ(doc.PathName(), QStringLiteral("former.trml"));
  EXPECT_TRUE(doc.IsModified());
}

TEST(ProjectFile, ASaveThatFailsKeepsNameAndMark) {
  const TestFolder folder;
  folder.Write(QStringLiteral("file"), "content");
  ExpectNoSave(QString());
  ExpectNoSave(folder.Path());
  ExpectNoSave(folder.Path(QStringLiteral("file/p.trml")));
  ExpectNoSave(folder.Path(QStringLiteral("no such folder/p.trml")));
  EXPECT_EQ(folder.Names(), QStringList{QStringLiteral("file")});
}

TEST(ProjectFile, LeftoversOfAKilledSaveDoNotDisturbTheNext) {
  const TestFolder folder;
  const QString path = folder.Path(QStringLiteral("p.trml"));
  CMorvaneDoc doc = DocWithoutTables();
  for (const char* name : {"p.trml.AbCdEf", "p.trml.000000", "p.trml~", "p.trml.tmp"})
    folder.Write(QString::fromLatin1(name), "left over");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(SaveProject(doc, path));
  EXPECT_EQ(test::ReadAll(path).toStdString(), ProjectBytes(doc));
  EXPECT_EQ(folder.Names().size(), 5);
}

TEST(ProjectFile, TheMessagesNameThePathOnASecondLine) {
  EXPECT_EQ(OpenFailureText(QStringLiteral("a b.trml")),
            QStringLiteral("ファイルを開けませんでした。\na b.trml"));
  EXPECT_EQ(SaveFailureText(QStringLiteral("a b.trml")),
            QStringLiteral("ファイルを保存できませんでした。\na b.trml"));
}

void ExpectProposed(const QString& title, const QString& name) {
  EXPECT_EQ(ProposedFileName(title), name);
}

TEST(ProjectFile, TheProposedNameIsTheTitleWithOneExtension) {
  ExpectProposed(QStringLiteral("無題"), QStringLiteral("無題.trml"));
  ExpectProposed(QStringLiteral("ダム.trml"), QStringLiteral("ダム.trml"));
  ExpectProposed(QStringLiteral("ダム.TRML"), QStringLiteral("ダム.trml"));
  ExpectProposed(QStringLiteral("a.trml.trml"), QStringLiteral("a.trml.trml"));
  ExpectProposed(QStringLiteral("a.v2"), QStringLiteral("a.v2.trml"));
}

TEST(ProjectFile, TheProposedNameIsCutAtSeparatorsAndAt256Characters) {
  ExpectProposed(QStringLiteral("a:b/c\\d"), QStringLiteral("a.trml"));
  ExpectProposed(QStringLiteral("a/b:c"), QStringLiteral("a.trml"));
  ExpectProposed(QStringLiteral("a\\b.trml"), QStringLiteral("a.trml"));
  ExpectProposed(QString(256, u'x'), QString(256, u'x') + QStringLiteral(".trml"));
  ExpectProposed(QString(257, u'x'), QString(256, u'x') + QStringLiteral(".trml"));
  const QString pair = QString::fromUtf8("\xF0\xA0\xAE\x9F");
  ExpectProposed(QString(255, u'x') + pair, QString(255, u'x') + QStringLiteral(".trml"));
}

}  // namespace
}  // namespace tremlo
