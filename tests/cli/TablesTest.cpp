#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;
using test::TestFolder;

TEST(TablesCommand, PrintsTheTablesOfTheProgramFolder) {
  const QJsonObject json = test::RunCliJson({"tables", "--json"});
  ASSERT_EQ(json["damCoefSets"].toArray().size(), 4);
  const QJsonObject set = json["damCoefSets"][0].toObject();
  EXPECT_EQ(set["method"].toString(), QStringLiteral("(水平)H20ダム距離減衰"));
  EXPECT_EQ(set["distanceKind"].toInt(), 1);
  for (const char* column : {"period", "ampA", "ampB", "ampC", "ampD", "coefM", "coefM2", "coefD", "coefX",
                             "coefDX", "coefC", "coefNear"})
    EXPECT_EQ(set[QLatin1String(column)].toArray().size(), 38) << column;
  EXPECT_EQ(json["mainFaultRows"].toArray().size(), 168);
  EXPECT_EQ(json["mainFaultRows"][0]["code"].toString(), QString("F000101"));
  ASSERT_EQ(json["lowerSpectra"].toArray().size(), 3);
  EXPECT_EQ(json["lowerSpectra"][0]["lowerSelected"].toBool(), true);
  EXPECT_EQ(json["lowerSpectra"][1]["lowerSelected"].toBool(true), false);
  EXPECT_EQ(json["lowerSpectra"][0]["periods"][0].toDouble(), 5.0);
}

TEST(TablesCommand, SaysThatTheTablesAreSamplesWhileTheyAre) {
  const TestFolder folder;
  test::CopyTables(folder);
  const auto out = [&] { return QString::fromUtf8(RunCli({"tables", "--data", folder.Path()}).out); };
  EXPECT_TRUE(out().contains(QStringLiteral("見本の表を使用中：DamCoef、LowSpec、SystemData")));
  for (const char* name : {"DamCoef", "LowSpec", "SystemData"})
    ASSERT_TRUE(QFile::remove(folder.Path(QString::fromUtf8(name) + QStringLiteral("/見本.txt"))));
  EXPECT_FALSE(out().contains(QStringLiteral("見本の表")));
}

TEST(TablesCommand, NamesTheFoldersInUse) {
  const TestFolder folder;
  test::CopyTables(folder);
  const QString out = QString::fromUtf8(RunCli({"tables", "--data", folder.Path()}).out);
  for (const char* name : {"DamCoef", "LowSpec", "SystemData"})
    EXPECT_TRUE(out.contains(
        QDir::toNativeSeparators(QStringLiteral("%1：%2/%1\n").arg(QString::fromUtf8(name), folder.Path()))))
        << out.toStdString();
}

TEST(TablesCommand, MissingOrBadTablesEndWithTwo) {
  const TestFolder folder;
  CliResult result = RunCli({"tables", "--json", "--data", folder.Path()});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, QByteArray());
  EXPECT_EQ(QString::fromUtf8(result.err),
            QDir::toNativeSeparators(folder.Path()) + QStringLiteral(": LowSpec\\h17.csvがありません。\n"));
  test::CopyTables(folder);
  folder.Write("DamCoef/extra.csv", "wrong\n");
  result = RunCli({"tables", "--data", folder.Path()});
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(QString::fromUtf8(result.err)
                  .endsWith(QStringLiteral("DamCoef\\extra.csvの1行目が正しい文字列ではありません。\n")));
}

}  // namespace
}  // namespace tremlo
