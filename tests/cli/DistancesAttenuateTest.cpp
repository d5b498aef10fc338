#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;
using test::TestFolder;

/// The object on standard output of a run that must end well and say nothing else.
QJsonObject ObjectOf(const QStringList& arguments) {
  const CliResult result = RunCli(QStringList(arguments) << "--json");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err.toStdString(), "");
  EXPECT_EQ(result.out.count('\n'), 1);
  return QJsonDocument::fromJson(result.out).object();
}

/// Whether the keys stand in the text in this order, each once.
void ExpectKeysInOrder(const QByteArray& text, const QList<QByteArray>& keys) {
  qsizetype at = 0;
  for (const QByteArray& key : keys) {
    const qsizetype found = text.indexOf('"' + key + "\":");
    EXPECT_GE(found, at) << key.toStdString();
    EXPECT_EQ(text.count('"' + key + "\":"), 1) << key.toStdString();
    at = found;
  }
}

void ExpectUsageError(const QStringList& arguments) {
  const CliResult result = RunCli(arguments);
  EXPECT_EQ(result.status, 1) << arguments.join(u' ').toStdString();
  EXPECT_EQ(result.out.toStdString(), "");
  EXPECT_TRUE(result.err.contains("Usage: tremlo-cli")) << result.err.toStdString();
}

std::vector<double> NumbersOf(const QJsonValue& array) {
  std::vector<double> numbers;
  for (const QJsonValue& value : array.toArray()) numbers.push_back(value.toDouble());
  return numbers;
}

const QStringList kDistances = {"distances", "--zone", "6", "--site", "36,136"};
const QString kSquare = QStringLiteral("136,36,0,4,4,0,90");

QStringList DistancesWith(const QStringList& more) {
  return QStringList(kDistances) << more;
}

TEST(DistancesCommand, PlaneUnderItsCornerAtTheOriginOfAZone) {
  const QJsonObject object = ObjectOf(DistancesWith({"--plane", kSquare}));
  EXPECT_NEAR(object["northing"].toDouble(), 0.0, 1e-7);
  EXPECT_NEAR(object["easting"].toDouble(), 0.0, 1e-7);
  ASSERT_EQ(object["planes"].toArray().size(), 1);
  const QJsonObject plane = object["planes"].toArray()[0].toObject();
  EXPECT_NEAR(plane["planeDepth"].toDouble(), 2.0, 1e-14);
  EXPECT_NEAR(plane["shortestDistance"].toDouble(), 0.0, 1e-9);
  EXPECT_NEAR(plane["equivalentDistance"].toDouble(),
              std::sqrt(4.0 / (1.0 / 2 + 1.0 / 10 + 1.0 / 10 + 1.0 / 18)), 1e-9);
}

TEST(DistancesCommand, EveryPlaneHasItsEntryInOrder) {
  const QJsonObject object = ObjectOf({"distances", "--zone", "7", "--site", "36.56144,136.61409", "--plane",
                                       "136.933,36.267,2.0,74.0,16.0,59.6,90.0", "--plane",
                                       "136.933,36.267,7.0,0.5,16.0,59.6,90.0"});
  EXPECT_NEAR(object["northing"].toDouble(), 62435.600, 0.001);
  EXPECT_NEAR(object["easting"].toDouble(), -49462.089, 0.001);
  const QJsonArray planes = object["planes"].toArray();
  ASSERT_EQ(planes.size(), 2);
  EXPECT_NEAR(planes[0].toObject()["shortestDistance"].toDouble(), 43.4665, 0.0001);
  EXPECT_NEAR(planes[0].toObject()["equivalentDistance"].toDouble(), 60.2158, 0.0001);
  EXPECT_EQ(planes[1].toObject()["planeDepth"].toDouble(), 15.0);
  EXPECT_EQ(planes[1].toObject()["equivalentDistance"].toString(), QString("nan"));
}

TEST(DistancesCommand, KeysComeInOrder) {
  const CliResult result = RunCli(DistancesWith({"--plane", kSquare, "--json"}));
  ExpectKeysInOrder(
      result.out, {"northing", "easting", "planes", "planeDepth", "shortestDistance", "equivalentDistance"});
}

TEST(DistancesCommand, SummaryNamesTheThreeMeasures) {
  const CliResult result = RunCli({"distances", "--zone", "7", "--site", "36.56144,136.61409", "--plane",
                                   "136.933,36.267,2.0,74.0,16.0,59.6,90.0"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(QString::fromUtf8(result.out),
            QString("現場位置（7 系）：X（北）62435.600 m、Y（東）-49462.089 m\n"
                    "断層面 1：中心深さ 10.0000 km、最短距離 43.4665 km、等価震源距離 60.2158 km\n"));
}

TEST(DistancesCommand, BadCommandLines) {
  ExpectUsageError({"distances"});
  ExpectUsageError(kDistances);
  ExpectUsageError({"distances", "--site", "36,136", "--plane", kSquare});
  ExpectUsageError({"distances", "--zone", "6", "--plane", kSquare});
  for (const char* zone : {"0", "20", "-1", "6.5", "VI", ""})
    ExpectUsageError({"distances", "--zone", zone, "--site", "36,136", "--plane", kSquare});
  for (const char* site : {"36", "36,136,0", "36;136", "36,", "x,136", "136,36", "nan,136", "36,inf",
                           "36,136x", "90.001,136", "-90.001,136", "36,180.001", "36,-180.001"})
    ExpectUsageError({"distances", "--zone", "6", "--site", site, "--plane", kSquare});
  for (const char* plane :
       {"", "136,36,0,4,4,0", "136,36,0,4,4,0,90,1", "136,36,-,4,4,0,90", "36,136,0,4,4,0,90",
        "180.001,36,0,4,4,0,90", "-180.001,36,0,4,4,0,90", "136,-90.001,0,4,4,0,90"})
    ExpectUsageError(DistancesWith({"--plane", plane}));
  ExpectUsageError(DistancesWith({"--plane", kSquare, "--plane", "x"}));
  ExpectUsageError(DistancesWith({"--plane", kSquare, "extra"}));
}

TEST(DistancesCommand, TheLimitsOfLatitudeAndLongitudeBelongToThem) {
  for (const char* site : {"90,180", "-90,-180"})
    EXPECT_EQ(RunCli({"distances", "--zone", "6", "--site", site, "--plane", "180,90,0,4,4,0,90"}).status, 0);
}

const QStringList kAttenuate = {"attenuate", "--magnitude",  "7",    "--depth", "12", "--shortest",
                                "20",        "--equivalent", "23.8", "--class", "A"};

/// The command line with the value of one option exchanged.
QStringList AttenuateWith(const QString& option, const QString& value) {
  QStringList arguments = kAttenuate;
  const qsizetype at = arguments.indexOf(option);
  if (at < 0) return arguments << option << value;
  arguments[at + 1] = value;
  return arguments;
}

QStringList AttenuateWithout(const QString& option) {
  QStringList arguments = kAttenuate;
  arguments.remove(arguments.indexOf(option), 2);
  return arguments;
}

TEST(AttenuateCommand, HorizontalRelationOfTheShippedTables) {
  const QJsonObject object = ObjectOf(kAttenuate);
  EXPECT_EQ(object["method"].toString(), QString("(水平)H20ダム距離減衰"));
  const std::vector<double> periods = NumbersOf(object["shortestPeriods"]);
  const std::vector<double> spectrum = NumbersOf(object["shortestSpectrum"]);
  ASSERT_EQ(periods.size(), 38U);
  ASSERT_EQ(spectrum.size(), 38U);
  EXPECT_EQ(periods.front(), 5.0);
  EXPECT_EQ(periods.back(), 0.02);
  // Reckoned from the rows of the tables with 40 digits.
  EXPECT_NEAR(spectrum.front(), 6.603535485938393, 1e-10);
  EXPECT_NEAR(spectrum.back(), 89.03049768385957, 1e-10);
  EXPECT_EQ(NumbersOf(object["equivalentPeriods"]), periods);
  EXPECT_NEAR(NumbersOf(object["equivalentSpectrum"]).front(), 6.773151079667993, 1e-10);
  EXPECT_NEAR(NumbersOf(object["equivalentSpectrum"]).back(), 88.65809169553105, 1e-10);
}

TEST(AttenuateCommand, MethodAndClassChooseTablesAndFactors) {
  const std::vector<double> rock = NumbersOf(ObjectOf(kAttenuate)["shortestSpectrum"]);
  const QJsonObject vertical = ObjectOf(AttenuateWith("--method", "(鉛直)H20ダム距離減衰"));
  EXPECT_EQ(vertical["method"].toString(), QString("(鉛直)H20ダム距離減衰"));
  const std::vector<double> up = NumbersOf(vertical["shortestSpectrum"]);
  const std::vector<double> soft = NumbersOf(ObjectOf(AttenuateWith("--class", "D"))["shortestSpectrum"]);
  EXPECT_LT(up.back(), rock.back());
  EXPECT_NEAR(soft.back(), 1.5223 * rock.back(), 1e-10);
}

TEST(AttenuateCommand, KeysComeInOrder) {
  const CliResult result = RunCli(QStringList(kAttenuate) << "--json");
  ExpectKeysInOrder(result.out, {"method", "shortestPeriods", "shortestSpectrum", "equivalentPeriods",
                                 "equivalentSpectrum"});
}

TEST(AttenuateCommand, SummaryEndsWithTheNoticeOfSampleTables) {
  const CliResult result = RunCli(kAttenuate);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err.toStdString(), "");
  const QStringList lines = QString::fromUtf8(result.out).split(u'\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 4);
  EXPECT_EQ(lines[0], QString("(水平)H20ダム距離減衰（減衰定数 5 %）"));
  EXPECT_TRUE(lines[1].startsWith("最短距離の式：38 点、周期 0.02 ～ 5 秒、最大 252."))
      << lines[1].toStdString();
  EXPECT_TRUE(lines[2].startsWith("等価震源距離の式：38 点、周期 0.02 ～ 5 秒、最大 249."))
      << lines[2].toStdString();
  EXPECT_TRUE(lines[3].startsWith("見本の表を使用中")) << lines[3].toStdString();
}

TEST(AttenuateCommand, PublishedTablesHaveNoNotice) {
  const TestFolder folder;
  test::CopyTables(folder);
  for (const QString& name :
       {QStringLiteral("DamCoef"), QStringLiteral("LowSpec"), QStringLiteral("SystemData")})
    ASSERT_TRUE(QFile::remove(folder.Path(name + "/見本.txt")));
  const CliResult result = RunCli(AttenuateWith("--data", folder.Path()));
  EXPECT_EQ(result.status, 0);
  EXPECT_FALSE(QString::fromUtf8(result.out).contains("見本"));
}

TEST(AttenuateCommand, RelationThatNoTableGivesHasEmptySpectra) {
  const TestFolder folder;
  test::CopyTables(folder);
  for (const char* name : {"H20_MinDis_V.csv", "H20_Ehd_V.csv"})
    folder.Write(QStringLiteral("DamCoef/") + name, test::ReadAll(folder.Path("DamCoef/H20_Ehd_H.csv")));
  const QJsonObject object =
      ObjectOf(AttenuateWith("--method", "(鉛直)H20ダム距離減衰") << "--data" << folder.Path());
  EXPECT_TRUE(object["shortestSpectrum"].isArray());
  EXPECT_TRUE(NumbersOf(object["shortestSpectrum"]).empty());
  EXPECT_TRUE(NumbersOf(object["equivalentPeriods"]).empty());
}

TEST(AttenuateCommand, MissingOrDamagedTableIsABadFile) {
  const TestFolder empty;
  const CliResult missing = RunCli(AttenuateWith("--data", empty.Path()) << "--json");
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.out.toStdString(), "");
  EXPECT_EQ(missing.err.count('\n'), 1);

  const TestFolder folder;
  test::CopyTables(folder);
  folder.Write("DamCoef/H20_Ehd_H.csv", "x\n");
  const CliResult damaged = RunCli(AttenuateWith("--data", folder.Path()));
  EXPECT_EQ(damaged.status, 2);
  EXPECT_TRUE(QString::fromUtf8(damaged.err).contains("の1行目が正しい文字列ではありません。"));
}

TEST(AttenuateCommand, BadCommandLines) {
  for (const char* option : {"--magnitude", "--depth", "--shortest", "--equivalent", "--class"})
    ExpectUsageError(AttenuateWithout(option));
  for (const char* option : {"--magnitude", "--depth", "--shortest", "--equivalent"}) {
    ExpectUsageError(AttenuateWith(option, "7x"));
    ExpectUsageError(AttenuateWith(option, ""));
  }
  for (const char* groundClass : {"E", "a", "AB", ""})
    ExpectUsageError(AttenuateWith("--class", groundClass));
  ExpectUsageError(AttenuateWith("--method", "H20"));
  ExpectUsageError(AttenuateWith("--method", ""));
  ExpectUsageError(QStringList(kAttenuate) << "extra");
}

// A bad command line is told even where the tables are missing, too.
TEST(AttenuateCommand, CommandLineIsJudgedBeforeTheTables) {
  const TestFolder empty;
  ExpectUsageError(AttenuateWith("--class", "E") << "--data" << empty.Path());
}

}  // namespace
}  // namespace tremlo
