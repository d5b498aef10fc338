#include "core/project/ProjectFile.h"
#include "support/CliRun.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <cmath>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace tremlo {
namespace {

using test::CliResult;
using test::DocWithoutTables;
using test::FillSmallProject;
using test::RunCli;
using test::RunCliJson;
using test::SmallProjectBytes;
using test::TestFolder;

QStringList Words(const char* words) {
  return QString::fromLatin1(words).split(u' ');
}

QString WriteSmallProject(const TestFolder& folder) {
  return folder.Write(QStringLiteral("in 1.trml"), QByteArray::fromStdString(SmallProjectBytes()));
}

/// The run ends with `status`, prints nothing and tells the reason in one line that begins with `start`, a
/// path.
void ExpectRefused(const CliResult& result, int status, const QString& start) {
  EXPECT_EQ(result.status, status);
  EXPECT_EQ(result.out, QByteArray());
  EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(start).toUtf8())) << result.err.toStdString();
  EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
}

QJsonObject Shown(const QString& path) {
  return RunCliJson(Words("project show --json") << path);
}

TEST(CliProject, NewWritesANewProjectWithTheLimitsOfTheTables) {
  const TestFolder folder;
  CopyTables(folder);
  const QString path = folder.Path(QStringLiteral("新規 1.trml"));
  const CliResult result = RunCli(Words("project new --json --data") << folder.Path() << path);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, QByteArray("{}\n"));
  EXPECT_EQ(result.err, QByteArray());
  CMorvaneDoc doc(folder.Path());
  ASSERT_FALSE(doc.ResetDocument());
  EXPECT_EQ(test::ReadAll(path).toStdString(), ProjectBytes(doc));
}

TEST(CliProject, NewTakesTheTablesBesideTheProgram) {
  const TestFolder folder;
  const QString path = folder.Path(QStringLiteral("p.trml"));
  const CliResult result = RunCli(Words("project new") << path);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.out.contains(path.toUtf8())) << result.out.toStdString();
  CMorvaneDoc doc(QStringLiteral(TREMLO_PROGRAM_DIR));
  ASSERT_FALSE(doc.ResetDocument());
  EXPECT_EQ(test::ReadAll(path).toStdString(), ProjectBytes(doc));
}

TEST(CliProject, NewWithoutARequiredTableWritesNothing) {
  const TestFolder folder;
  const QString path = folder.Path(QStringLiteral("p.trml"));
  ExpectRefused(RunCli(Words("project new --data") << folder.Path() << path), 2, folder.Path());
  EXPECT_TRUE(folder.Names().isEmpty());
}

TEST(CliProject, CopyIsTheSameByteForByte) {
  const TestFolder folder;
  const QString copy = folder.Path(QStringLiteral("写し.trml"));
  const CliResult result = RunCli(Words("project copy --json") << WriteSmallProject(folder) << copy);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, QByteArray("{}\n"));
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_EQ(test::ReadAll(copy).toStdString(), SmallProjectBytes());
}

TEST(CliProject, CopyOfALargeProjectWithOddValuesIsTheSameByteForByte) {
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  constexpr char16_t half[] = {0xDC00, 0xD800};
  doc.site.title = QStringView(half, 2).toString();
  doc.site.subtitle = QString(70'000, u'長');
  std::vector<double> samples(65'536);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = std::sin(static_cast<double>(i));
  samples[3] = kBlankSample;
  samples[4] = std::nan("7");
  for (int i = 0; i < 5; ++i) {
    doc.seedWaves.Add(QStringLiteral("長い波 %1").arg(i));
    doc.seedWaves.At(doc.seedWaves.Count() - 1).acc = samples;
  }
  doc.faults.resize(20, doc.faults[0]);
  const std::string bytes = ProjectBytes(doc);
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("in.trml"), QByteArray::fromStdString(bytes));
  const QString copy = folder.Path(QStringLiteral("out.trml"));
  EXPECT_EQ(RunCli(Words("project copy") << path << copy).status, 0);
  EXPECT_EQ(test::ReadAll(copy).toStdString(), bytes);
}

TEST(CliProject, CopyOntoItselfAndOverAnOlderFile) {
  const TestFolder folder;
  const QString path = WriteSmallProject(folder);
  const QString other = folder.Write(QStringLiteral("older.trml"), QByteArray(100'000, 'x'));
  EXPECT_EQ(RunCli(Words("project copy") << path << path).status, 0);
  EXPECT_EQ(RunCli(Words("project copy") << path << other).status, 0);
  EXPECT_EQ(test::ReadAll(path).toStdString(), SmallProjectBytes());
  EXPECT_EQ(test::ReadAll(other).toStdString(), SmallProjectBytes());
  EXPECT_EQ(folder.Names().size(), 2);
}

TEST(CliProject, CopyAndShowDoNotNeedSoundTables) {
  const TestFolder folder;
  CopyTables(folder);
  folder.Write(QStringLiteral("DamCoef/H20_Ehd_H.csv"), "no relation\n");
  const QString copy = folder.Path(QStringLiteral("out.trml"));
  const QStringList data = {QStringLiteral("--data"), folder.Path()};
  EXPECT_EQ(RunCli(Words("project copy") << data << WriteSmallProject(folder) << copy).status, 0);
  EXPECT_EQ(test::ReadAll(copy).toStdString(), SmallProjectBytes());
  EXPECT_EQ(RunCli(Words("project show") << data << copy).status, 0);
}

TEST(CliProject, WhatIsNoProjectIsRefused) {
  const TestFolder folder;
  const QString out = folder.Write(QStringLiteral("out.trml"), "older");
  const std::string bytes = SmallProjectBytes();
  const QString whole = WriteSmallProject(folder);
  const QStringList bad = {
      folder.Path(QStringLiteral("missing.trml")),
      folder.Path(),
      whole + QStringLiteral("/below a file.trml"),
      folder.Write(QStringLiteral("empty.trml"), {}),
      folder.Write(QStringLiteral("text.trml"), "name,0.01,1\n0,1\n"),
      folder.Write(QStringLiteral("cut.trml"),
                   QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size() - 1))),
      folder.Write(QStringLiteral("huge.trml"), QByteArray(5000, '\xFF')),
  };
  for (const QString& path : bad) {
    ExpectRefused(RunCli(Words("project show --json") << path), 2, path + QStringLiteral(": "));
    ExpectRefused(RunCli(Words("project copy") << path << out), 2, path + QStringLiteral(": "));
  }
  EXPECT_EQ(test::ReadAll(out), QByteArray("older"));
}

TEST(CliProject, WhereNothingCanBeWrittenIsRefused) {
  const TestFolder folder;
  const QString in = WriteSmallProject(folder);
  for (const QString& path :
       {folder.Path(), in + QStringLiteral("/p.trml"), folder.Path(QStringLiteral("none/p.trml"))}) {
    ExpectRefused(RunCli(Words("project copy") << in << path), 2, path + QStringLiteral(": "));
    ExpectRefused(RunCli(Words("project new") << path), 2, path + QStringLiteral(": "));
  }
  EXPECT_EQ(folder.Names().size(), 1);
}

#ifndef _WIN32
/// Runs the program in a process that can write no file past `room` bytes.
CliResult RunCliWithRoom(rlim_t room, const QStringList& arguments) {
  return test::RunPreparedCli(arguments, [room] {
    const rlimit limit{room, room};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
}

TEST(CliProject, AFullDiskLeavesTheOlderFile) {
  const TestFolder folder;
  const QString in = WriteSmallProject(folder);
  const QString out = folder.Write(QStringLiteral("out.trml"), "older");
  for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{SmallProjectBytes().size() - 1}}) {
    ExpectRefused(RunCliWithRoom(room, Words("project copy") << in << out), 2, out + QStringLiteral(": "));
    EXPECT_EQ(test::ReadAll(out), QByteArray("older")) << room;
  }
  EXPECT_EQ(folder.Names().size(), 2);
}
#else
TEST(CliProject, AFullDiskLeavesTheOlderFile) {
  GTEST_SKIP() << "the largest size of a program's files is set by setrlimit";
}
#endif

TEST(CliProject, BadCommandLinesAreRefused) {
  for (const char* words :
       {"project", "project show", "project copy a.trml", "project new", "project show a.trml b.trml",
        "project move a.trml b.trml", "project show --no-such-option a.trml"}) {
    const CliResult result = RunCli(Words(words));
    EXPECT_EQ(result.status, 1) << words;
    EXPECT_EQ(result.out, QByteArray()) << words;
    EXPECT_TRUE(result.err.contains("Usage")) << words;
  }
}

const QStringList kGraphKeys = Words(
    "autoRange timeXMin timeXMax timeXStep timeYMin timeYMax timeYStep specLog specXMin specXMax specXStep "
    "specLogXMin "
    "specLogXMax specYMin specYMax specYStep fourierLog fourierXMin fourierXMax fourierXStep fourierLogXMin "
    "fourierLogXMax fourierYMin fourierYMax fourierYStep timeColor specColor fourierColor reserved");

QStringList BodyKeys() {
  return Words("spectrumValid timeStep acc current origGraph") + kGraphKeys +
         Words("siteColor siteShow siteUse periods accSpec lowerSelected lowerGraph") + kGraphKeys +
         Words(
             "baseColor baseShow baseSelected spectrumArea adjustColor baseAdjustShow adjustShow adopted "
             "adjustChecked adjustedAcc adjustedPeriods adjustedSpec adjusted");
}

QStringList RecordKeys() {
  return QStringList{QStringLiteral("name")} + BodyKeys();
}

const QStringList kFaultKeys = Words(
    "rank ltecode ltename groundClass magnitude ijma i45_ps i50_ps i55_ps i60_ps geomNum avract newact t30p "
    "t50p magu "
    "lon lat dep len wid str dip corner1Lon corner1Lat corner1Dep corner2Lon corner2Lat corner2Dep "
    "corner3Lon "
    "corner3Lat corner3Dep corner4Lon corner4Lat corner4Dep planeDepth furtherA furtherB shortestDistance "
    "equivalentDistance shortestPeriods shortestSpectrum equivalentPeriods equivalentSpectrum attenColor "
    "attenShow "
    "attenUse shortBaseColor shortBaseShow shortBaseSelected shortArea equivBaseColor equivBaseShow "
    "equivBaseSelected equivArea adjustShow adjustShowEquiv");

/// All keys of the small project, in the order of the file.
QStringList SmallProjectKeys() {
  return Words(
             "guidelineRoute title subtitle siteName workDate company phone fax address latDeg latMin latSec "
             "lonDeg "
             "lonMin lonSec planeZone comments mapZoom mapScale flowQ1Yes flowQ2Yes flowCollect "
             "flowFaultSource "
             "flowNeighbourWave flowFixed seedWaves") +
         RecordKeys() + Words("graphDamsite") + BodyKeys() + Words("faults") + kFaultKeys +
         Words("faultAcquireMode searchRangeKm attenuationMethod graphAttenuation") + BodyKeys() +
         Words(
             "intensityIndex catastropheWeight modeIndex versionIndex activityVersionIndex caseIndex "
             "periodIndex "
             "lowerSpectra") +
         RecordKeys() + RecordKeys() + Words("graphBase") + BodyKeys() +
         Words("seedAdopted seedAdoptedName baseSpectrumName graphAdjust") + BodyKeys() +
         Words("adjustMaxIterations adjustTolerancePercent graphSpare") + BodyKeys() +
         Words(
             "visualShowOrig visualShowAdjusted visualShowSpare visualColorOrig visualColorAdjusted "
             "visualColorSpare respSpectra") +
         RecordKeys();
}

TEST(CliProject, ShowNamesEveryStoredMemberInTheOrderOfTheFile) {
  const TestFolder folder;
  const CliResult result = RunCli(Words("project show --json") << WriteSmallProject(folder));
  QStringList keys;
  static const QRegularExpression kKey(QStringLiteral("\"(\\w+)\": "));
  for (auto match = kKey.globalMatch(QString::fromUtf8(result.out)); match.hasNext();)
    keys << match.next().captured(1);
  EXPECT_EQ(keys, SmallProjectKeys());
}

TEST(CliProject, ShowPrintsTheValues) {
  const TestFolder folder;
  const QJsonObject project = Shown(WriteSmallProject(folder));
  EXPECT_EQ(project[u"guidelineRoute"], QJsonValue(true));
  EXPECT_EQ(project[u"title"], QJsonValue(QStringLiteral("震度2")));
  EXPECT_EQ(project[u"latDeg"], QJsonValue(10.5));
  EXPECT_EQ(project[u"comments"].toArray().size(), 10);
  EXPECT_EQ(project[u"comments"].toArray()[9], QJsonValue(QStringLiteral("c10")));
  EXPECT_EQ(project[u"mapZoom"], QJsonValue(-18));
  EXPECT_EQ(project[u"periodIndex"], QJsonValue(40));
  const QJsonObject wave = project[u"seedWaves"].toArray()[0].toObject();
  EXPECT_EQ(wave[u"name"], QJsonValue(QStringLiteral("w")));
  EXPECT_EQ(wave[u"acc"], QJsonValue(QJsonArray{1003, 1003.25, 1003.5, 1003.75}));
  EXPECT_EQ(wave[u"origGraph"][u"reserved"], QJsonValue(QJsonArray{1129, 1130, 1131, 1132, 1133, 1134}));
  EXPECT_EQ(wave[u"lowerGraph"][u"fourierYStep"], QJsonValue(1225));
  const QJsonObject fault = project[u"faults"].toArray()[0].toObject();
  EXPECT_EQ(fault[u"ltename"], QJsonValue(QStringLiteral("断層3")));
  EXPECT_EQ(fault[u"dip"], QJsonValue(QJsonArray{QStringLiteral("a23"), QStringLiteral("b23")}));
  EXPECT_EQ(fault[u"corner2Lat"], QJsonValue(QJsonArray{28, 28.5}));
  EXPECT_EQ(fault[u"furtherB"], QJsonValue(QJsonArray{38, 38.5}));
  EXPECT_EQ(fault[u"shortestSpectrum"], QJsonValue(QJsonArray{QJsonArray{42}, QJsonArray{42.25, 42.5}}));
  EXPECT_EQ(fault[u"adjustShow"], QJsonValue(QJsonArray{false, false, false, true, true, true}));
  EXPECT_EQ(project[u"graphSpare"][u"siteColor"], QJsonValue(7006));
  EXPECT_EQ(project[u"lowerSpectra"].toArray().size(), 2);
  EXPECT_EQ(project[u"visualColorSpare"], QJsonValue(55));
  EXPECT_EQ(project[u"respSpectra"].toArray()[0][u"name"], QJsonValue(QStringLiteral("R")));
}

TEST(CliProject, ShowKeepsToJsonWithNumbersThatAreNotFiniteAndHalfPairs) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.site.title = QString(QChar(0xD800)) + QStringLiteral("\"\\\n\t");
  doc.searchRangeKm = std::nan("");
  doc.site.mapScale = 0.1;
  doc.seedWaves.Add(QStringLiteral("w"));
  doc.seedWaves.At(0).acc = {kBlankSample, -kBlankSample, 1.0 / 3.0};
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("p.trml"), QByteArray::fromStdString(ProjectBytes(doc)));
  const QJsonObject project = Shown(path);
  EXPECT_EQ(project[u"searchRangeKm"], QJsonValue(QStringLiteral("nan")));
  EXPECT_EQ(project[u"mapScale"], QJsonValue(0.1));
  EXPECT_EQ(project[u"seedWaves"].toArray()[0][u"acc"],
            QJsonValue(QJsonArray{QStringLiteral("inf"), QStringLiteral("-inf"), 1.0 / 3.0}));
  EXPECT_TRUE(project[u"title"].toString().endsWith(QStringLiteral("\"\\\n\t")));
}

TEST(CliProject, ShowWithoutJsonIsASummary) {
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  doc.seedWaves.At(0).name = QStringLiteral("波 %2%3");  // not to be taken for a place of another value
  const TestFolder folder;
  const CliResult result =
      RunCli(Words("project show") << folder.Write(QStringLiteral("p.trml"),
                                                   QByteArray::fromStdString(ProjectBytes(doc))));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, QByteArray());
  for (const QString& text :
       {QStringLiteral("震度2"), QStringLiteral("波 %2%3（4 点、"), QStringLiteral("断層3（2 面）"),
        QStringLiteral("P45"), QStringLiteral("指針に沿って解析波形を作成")})
    EXPECT_TRUE(result.out.contains(text.toUtf8())) << text.toStdString() << " in\n"
                                                    << result.out.toStdString();
}

TEST(CliProject, NarrowTextsAreCopiedWide) {
  const std::string wide = ProjectBytes(DocWithoutTables());
  std::string narrow = wide;
  narrow.replace(1, 4, "\x04\x92\x6E\x90\x6B");  // the title, empty before
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("p.trml"), QByteArray::fromStdString(narrow));
  const QString copy = folder.Path(QStringLiteral("out.trml"));
  EXPECT_EQ(Shown(path)[u"title"], QJsonValue(QStringLiteral("地震")));
  EXPECT_EQ(RunCli(Words("project copy") << path << copy).status, 0);
  EXPECT_EQ(test::ReadAll(copy).toStdString(),
            wide.substr(0, 4) + std::string("\x02\x30\x57\x07\x97", 5) + wide.substr(5));
}

}  // namespace
}  // namespace tremlo
