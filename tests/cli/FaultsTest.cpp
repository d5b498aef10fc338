#include "support/CliRun.h"
#include "support/LocalService.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

#include <gmock/gmock.h>

namespace tremlo {

namespace {

using test::CliResult;
using test::LocalService;
using test::RunCli;
using test::TestFolder;
using testing::IsEmpty;

class FaultsCommandTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(local.IsReady()); }

  /// Runs the command for the site of the fixtures. No run of these tests may reach the public service.
  CliResult Run(const QStringList& more, const char* wishes = "", const char* port = "http") const {
    const QStringList words = {"faults",
                               "--zone",
                               "7",
                               "--site",
                               kSite,
                               "--service",
                               local.Address(QString::fromLatin1(port), QString::fromLatin1(wishes))};
    return RunCli(words + more);
  }

  static QJsonArray Faults(const CliResult& result) {
    EXPECT_EQ(result.out.count('\n'), 1);
    const QJsonObject object = QJsonDocument::fromJson(result.out).object();
    EXPECT_EQ(object.keys(), QStringList{"faults"});
    return object[u"faults"].toArray();
  }

  void ExpectFailure(const CliResult& result, int status, const char* part) const {
    EXPECT_EQ(result.status, status) << part;
    EXPECT_EQ(result.out.toStdString(), "") << part;
    EXPECT_TRUE(result.err.contains(part)) << result.err.toStdString();
    if (status == 2) {
      EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    }
  }

  /// What is said of the sources of the fixtures that have no planes.
  const std::string kLeftOut =
      "1 個の断層は地震活動モデルに断層面がありません。\n"
      "    試験用の未登録断層（F099999）\n"
      "2 個の断層は矩形の断層面で表されないため除きました。\n"
      "    南海トラフの地震（ANNKI）\n"
      "    相模トラフ沿いのＭ８クラスの地震（ASG05）\n";

  const QString kSite = "36.56144,136.61409";
  const QStringList kJson = {"--json"};
  const QStringList kRange = {"--mode", "range", "--range"};
  LocalService local;
};

TEST_F(FaultsCommandTest, RankingIsOneObjectOfWholeRecords) {
  const CliResult result = Run(kJson);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err.toStdString(), kLeftOut);
  const QJsonArray faults = Faults(result);
  ASSERT_EQ(faults.size(), 8);
  const QJsonObject first = faults[0].toObject();
  EXPECT_EQ(first[u"rank"].toString(), u"1");
  EXPECT_EQ(first[u"ltename"].toString(), u"森本・富樫断層帯");
  EXPECT_EQ(first[u"magnitude"].toString(), u"7.21");
  EXPECT_EQ(first[u"i45_ps"].toString(), u"99.9");
  EXPECT_EQ(first[u"geomNum"].toInt(), 1);
  EXPECT_NEAR(first[u"shortestDistance"].toArray().at(0).toDouble(), 9.0158, 1e-4);
  EXPECT_NEAR(first[u"equivalentDistance"].toArray().at(0).toDouble(), 17.9940, 1e-4);
  EXPECT_EQ(first[u"attenUse"].toArray().at(0).toBool(), true);
  EXPECT_EQ(faults[6].toObject()[u"corner4Dep"].toArray().size(), 6);
}

TEST_F(FaultsCommandTest, EveryFieldStandsInTheOrderOfTheRecord) {
  const QByteArray text = Run(kJson).out;
  qsizetype at = 0;
  for (const char* key : {"rank",
                          "ltecode",
                          "ltename",
                          "groundClass",
                          "magnitude",
                          "ijma",
                          "i45_ps",
                          "i50_ps",
                          "i55_ps",
                          "i60_ps",
                          "geomNum",
                          "avract",
                          "newact",
                          "t30p",
                          "t50p",
                          "magu",
                          "lon",
                          "lat",
                          "dep",
                          "len",
                          "wid",
                          "str",
                          "dip",
                          "corner1Lon",
                          "corner1Lat",
                          "corner1Dep",
                          "corner2Lon",
                          "corner2Lat",
                          "corner2Dep",
                          "corner3Lon",
                          "corner3Lat",
                          "corner3Dep",
                          "corner4Lon",
                          "corner4Lat",
                          "corner4Dep",
                          "planeDepth",
                          "furtherA",
                          "furtherB",
                          "shortestDistance",
                          "equivalentDistance",
                          "shortestPeriods",
                          "shortestSpectrum",
                          "equivalentPeriods",
                          "equivalentSpectrum",
                          "attenColor",
                          "attenShow",
                          "attenUse",
                          "shortBaseColor",
                          "shortBaseShow",
                          "shortBaseSelected",
                          "shortArea",
                          "equivBaseColor",
                          "equivBaseShow",
                          "equivBaseSelected",
                          "equivArea",
                          "adjustSpare",
                          "adjustShow",
                          "adjustShowEquiv"}) {
    const qsizetype found = text.indexOf('"' + QByteArray(key) + "\":", at);
    ASSERT_GE(found, at) << key;
    at = found;
  }
}

TEST_F(FaultsCommandTest, SummaryNamesSourceMapVersionsAndSamples) {
  const CliResult result = Run({});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err.toStdString(), "");
  EXPECT_TRUE(result.out.contains(kLeftOut.c_str()));
  const QString text = QString::fromUtf8(result.out);
  for (const char16_t* part :
       {u"断層：8 個", u"試験用の未登録断層（F099999）", u"相模トラフ沿いのＭ８クラスの地震（ASG05）",
        u"1 森本・富樫断層帯（F005701）M 7.21", u"最短距離 9.0158 km", u"J-SHIS", u"被害地検索 2019年版",
        u"地震活動モデル 2021年版", u"見本の表を使用中"})
    EXPECT_TRUE(text.contains(QStringView(part))) << QString::fromUtf16(part).toStdString();
}

TEST_F(FaultsCommandTest, EveryParameterReachesTheService) {
  const auto result = Run({"--json", "--intensity-index", "1", "--catastrophe-weight", "-0.25",
                           "--mode-index", "1", "--version-index", "2", "--activity-version-index", "14",
                           "--case-index", "1", "--period-index", "1"});
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  const QStringList paths = local.Paths();
  ASSERT_GT(paths.size(), 1);
  EXPECT_EQ(paths[0],
            u"/map/api/fltsearch?position=136.61409,36.56144&epsg=4612&mode=S&version=Y2013_M2&case=MAX"
            u"&period=P_T50&format=json&param=-0.2500000&ijma=50");
  EXPECT_TRUE(paths[1].startsWith(u"/map/api/pshm/Y2020/MAX/"));
}

TEST_F(FaultsCommandTest, RangeTakesTheFaultsOfTheTable) {
  const CliResult result = Run(kRange + QStringList{"20"} + kJson);
  EXPECT_EQ(result.status, 0);
  const QJsonArray faults = Faults(result);
  ASSERT_FALSE(faults.isEmpty());
  EXPECT_EQ(faults[0].toObject()[u"ltecode"].toString(), u"F005701");
  EXPECT_EQ(faults[0].toObject()[u"ijma"].toString(), u"-");
  EXPECT_EQ(faults[0].toObject()[u"magnitude"].toString(), u"7.21");
  for (const QString& path : local.Paths()) EXPECT_TRUE(path.startsWith(u"/map/api/pshm/"));
}

TEST_F(FaultsCommandTest, NothingToShowIsStatusThreeWithAnEmptyList) {
  const auto expectNone = [&](const CliResult& result) {
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err.toStdString(), "");
    EXPECT_EQ(result.out.toStdString(), "{\"faults\": []}\n");
  };
  expectNone(Run(kJson, "ranking=file:fltsearch_error.json"));
  expectNone(Run(kJson, "ranking=file:fltsearch_none.json"));
  expectNone(Run(kRange + QStringList{"0"} + kJson));
  const CliResult summary = Run(kRange + QStringList{"0"});
  EXPECT_EQ(summary.status, 3);
  EXPECT_TRUE(summary.out.contains("指定された現場位置の主要断層データはありません。"));
}

TEST_F(FaultsCommandTest, ServiceThatDoesNotAnswerIsStatusTwo) {
  ExpectFailure(Run(kJson, "ranking=cut"), 2, "/map/api/fltsearch?");
  ExpectFailure(Run(kJson, "ranking=drop"), 2, "回答が途絶えました。");
  ExpectFailure(Run(kJson, "", "refused"), 2, "サービスに接続できないか");
}

TEST_F(FaultsCommandTest, AnswerThatDoesNotParseIsStatusTwo) {
  ExpectFailure(Run(kJson, "ranking=file:fltsearch_broken.json"), 2,
                "Jsonファイルの文法エラーです。(メッシュ別被害地震)");
  ExpectFailure(Run(kJson, "ranking=status:500"), 2, "文法エラー");
}

TEST_F(FaultsCommandTest, WhatIsThereIsPrintedWhenSingleModelsFail) {
  const CliResult result = Run(kJson, "F005501=cut/F004701=garbage");
  EXPECT_EQ(result.status, 2);
  const QJsonArray faults = Faults(result);
  ASSERT_EQ(faults.size(), 6);
  EXPECT_EQ(faults[1].toObject()[u"ltecode"].toString(), u"F005601");
  EXPECT_EQ(faults[1].toObject()[u"rank"].toString(), u"2");
  const QString asked = local.Address("http", "F005501=cut/F004701=garbage");
  EXPECT_EQ(result.err.toStdString(), kLeftOut + asked.toStdString() +
                                          "/map/api/pshm/Y2021/AVR/F005501/fltinfo.geojson?epsg=4612&jp: "
                                          "サービスに接続できないか、回答が途絶えました。\n"
                                          "2 個の断層の情報を取得できませんでした。\n"
                                          "    邑知潟断層帯（F005501）\n"
                                          "    跡津川断層帯（F004701）\n");

  const CliResult summary = Run({}, "F005501=cut");
  EXPECT_EQ(summary.status, 2);
  EXPECT_TRUE(summary.out.contains("断層：7 個"));
  EXPECT_TRUE(summary.out.contains(kLeftOut.c_str()));
  EXPECT_TRUE(
      summary.err.endsWith("1 個の断層の情報を取得できませんでした。\n    邑知潟断層帯（F005501）\n"));
}

TEST_F(FaultsCommandTest, WhatIsThereIsPrintedWhenOneModelDoesNotParse) {
  const CliResult grammar = Run(kJson, "F005601=garbage");
  EXPECT_EQ(grammar.status, 2);
  EXPECT_EQ(Faults(grammar).size(), 7);
  EXPECT_TRUE(grammar.err.contains("Jsonファイルの文法エラーです。(地震活動モデル情報, F005601)\n"));
  EXPECT_TRUE(grammar.err.contains("1 個の断層の情報を取得できませんでした。\n"));

  const CliResult kind = Run(kJson, "F005601=file:fltsearch_C.json");
  EXPECT_EQ(kind.status, 2);
  EXPECT_EQ(Faults(kind).size(), 2);
  EXPECT_TRUE(kind.err.contains("is<object>()"));
  EXPECT_TRUE(
      kind.err.contains("9 個の断層の情報を取得できませんでした。\n    砺波平野断層帯（西部）（F005601）\n"));
}

TEST_F(FaultsCommandTest, NoModelAtAllIsAnEmptyListAndStatusTwo) {
  const CliResult result = Run(kJson, "model=cut");
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(Faults(result), IsEmpty());
  EXPECT_TRUE(result.err.contains("10 個の断層の情報を取得できませんでした。"));
}

TEST_F(FaultsCommandTest, FaultOfTheRangeThatCannotBeReadIsStatusTwo) {
  const CliResult result = Run(kRange + QStringList{"20"} + kJson, "F005701=cut");
  EXPECT_EQ(result.status, 2);
  EXPECT_FALSE(Faults(result).isEmpty());
  EXPECT_TRUE(result.err.contains("（F005701）\n"));
}

TEST_F(FaultsCommandTest, AddressThatIsNoneIsStatusTwo) {
  const CliResult result = RunCli({"faults", "--zone", "7", "--site", kSite, "--service", "nonsense"});
  ExpectFailure(result, 2,
                "J-SHISにアクセスするためのセッションが確立できませんでした。(nonsense/map/api/fltsearch");
}

TEST_F(FaultsCommandTest, CertificateFileNamesWhomToTrust) {
  const QStringList trusted = kJson + QStringList{"--ca-file", local.CertificateFile()};
  EXPECT_EQ(Run(trusted, "", "https").status, 0);
  for (const char* port : {"https-expired", "https-foreign", "https-host"})
    ExpectFailure(Run(trusted, "", port), 2, "サービスに接続できないか");
  ExpectFailure(Run(kJson, "", "https"), 2, "サービスに接続できないか");
  const TestFolder folder;
  ExpectFailure(Run({"--ca-file", folder.Path("missing.pem")}, "", "https"), 2, "missing.pem");
}

TEST_F(FaultsCommandTest, ParameterOutOfItsRangeIsStatusOneAndAsksNothing) {
  const QStringList options[] = {{"--intensity-index", "4"},
                                 {"--catastrophe-weight", "1.1"},
                                 {"--catastrophe-weight", "nan"},
                                 {"--mode-index", "2"},
                                 {"--version-index", "14"},
                                 {"--activity-version-index", "16"},
                                 {"--case-index", "-1"},
                                 {"--period-index", "x"},
                                 {"--mode", "nearest"},
                                 {"--range", "far"},
                                 {"--range", "inf"},
                                 {"--zone", "0"},
                                 {"--zone", "20"},
                                 {"--site", "36.5"},
                                 {"--site", "19.9,136.6"},
                                 {"--site", "36.5,154.1"},
                                 {"--site", "nan,136.6"},
                                 {"--unknown", "1"}};
  for (const QStringList& option : options)
    for (const QStringList& mode : {QStringList{}, kRange + QStringList{"50"}}) {
      if (option[0] == u"--site" && !mode.isEmpty()) continue;
      ExpectFailure(Run(mode + option), 1, "Usage: tremlo-cli");
    }
  EXPECT_THAT(local.Paths(), IsEmpty());
}

TEST_F(FaultsCommandTest, ZoneAndSiteMustBeGiven) {
  const QString service = local.Address();
  ExpectFailure(RunCli({"faults", "--site", kSite, "--service", service}), 1, "--zone");
  ExpectFailure(RunCli({"faults", "--zone", "7", "--service", service}), 1, "--site");
}

TEST_F(FaultsCommandTest, RangeNeedsTheTables) {
  const TestFolder folder;
  ExpectFailure(Run(kRange + QStringList{"50", "--data", folder.Path()}), 2, "がありません。");
  EXPECT_THAT(local.Paths(), IsEmpty());
}

#ifdef Q_OS_UNIX
TEST_F(FaultsCommandTest, DiskThatIsFullIsStatusTwo) {
  QProcess process;
  process.setChildProcessModifier([] {
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
  });
  process.start(TREMLO_PROGRAM_DIR "/tremlo-cli",
                {"faults", "--zone", "7", "--site", kSite, "--service", local.Address()});
  ASSERT_TRUE(process.waitForFinished(-1));
  const CliResult result{process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
  ExpectFailure(result, 2, "J-SHISからの断層データを書き込むファイルを開けませんでした。(");
}
#endif

/// The folder for temporary files, for the length of a test.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const QString& path) : m_before(qEnvironmentVariable(kVariable)) {
    qputenv(kVariable, QDir::toNativeSeparators(path).toLocal8Bit());
  }
  ~TemporaryFolder() {
    m_before.isNull() ? qunsetenv(kVariable) : qputenv(kVariable, m_before.toLocal8Bit());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

 private:
#ifdef Q_OS_WIN
  static constexpr const char* kVariable = "TMP";
#else
  static constexpr const char* kVariable = "TMPDIR";
#endif
  QString m_before;
};

TEST_F(FaultsCommandTest, AnswersLeaveNoFileBehind) {
  const TestFolder folder;
  const TemporaryFolder temporary(folder.Path());
  const CliResult result = Run(kJson);
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(FaultsCommandTest, WithoutRoomForAnswersTheFolderIsNamedInJapanese) {
  const TestFolder folder;
  const QString file = folder.Write(QStringLiteral("file"), "");
  const TemporaryFolder temporary(file);
  const CliResult result = Run(kJson);
  ExpectFailure(result, 2, "");
  EXPECT_EQ(QString::fromUtf8(result.err),
            QDir::toNativeSeparators(file) + QStringLiteral(": 一時フォルダを作れませんでした。\n"));
}

}  // namespace

}  // namespace tremlo
