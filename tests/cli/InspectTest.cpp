#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;

QString Record(const char* name) {
  return test::SourcePath(QStringLiteral("tests/data/records/") + QString::fromLatin1(name));
}

QJsonArray Files(const CliResult& result) {
  const QJsonDocument document = QJsonDocument::fromJson(result.out);
  EXPECT_TRUE(document.isObject()) << result.out.toStdString();
  return document.object()["files"].toArray();
}

QStringList KeysOf(const QByteArray& json, const char* from) {
  const qsizetype at = json.indexOf(from);
  return test::TopKeys(json.mid(json.indexOf('{', at), json.indexOf('}', at) - at));
}

TEST(InspectCommand, FiguresOfARecord) {
  const QString path = Record("knet/SMP0010001010000.EW");
  const QJsonObject json = test::RunCliJson({"inspect", path, "--json"});
  ASSERT_EQ(json["files"].toArray().size(), 1);
  const QJsonObject file = json["files"].toArray()[0].toObject();
  EXPECT_EQ(file["file"].toString(), path);
  EXPECT_EQ(file["member"].toString(), QString());
  EXPECT_EQ(file["format"].toString(), QStringLiteral("K-NET ASCII"));
  EXPECT_TRUE(file["warnings"].toArray().isEmpty());
  EXPECT_TRUE(file["questions"].toArray().isEmpty());
  EXPECT_EQ(file["error"].toString(), QString());
  const QJsonObject component = file["components"].toArray()[0].toObject();
  EXPECT_EQ(component["name"].toString(), QStringLiteral("EW"));
  EXPECT_EQ(component["samples"].toInt(), 300);
  EXPECT_EQ(component["timeStep"].toDouble(), 0.01);
  EXPECT_EQ(component["unit"].toString(), QStringLiteral("count"));
  EXPECT_EQ(component["factor"].toDouble(), 3920.0 / 6182761.0);
  EXPECT_NEAR(component["mean"].toDouble(), -7.645948, 1e-6);
  EXPECT_NEAR(component["pga"].toDouble(), 138.989094, 1e-6);
}

TEST(InspectCommand, KeysComeInTheirOrder) {
  const QByteArray json = RunCli({"inspect", Record("knet/SMP0010001010000.EW"), "--json"}).out;
  EXPECT_EQ(test::TopKeys(json), QStringList{"files"});
  EXPECT_EQ(KeysOf(json, "[{\"file\""),
            (QStringList{"file", "member", "format", "warnings", "questions", "error", "components"}));
  EXPECT_EQ(KeysOf(json, "{\"name\""),
            (QStringList{"name", "samples", "timeStep", "unit", "factor", "mean", "pga"}));
}

TEST(InspectCommand, EveryMemberOfAnArchiveIsTold) {
  const QJsonArray files = Files(RunCli({"inspect", Record("knet/20000101000000.tar"), "--json"}));
  ASSERT_EQ(files.size(), 9);
  EXPECT_EQ(files[0].toObject()["member"].toString(),
            QStringLiteral("20000101000000.knt.tar.gz/SMP0010001010000.EW"));
  EXPECT_EQ(files[8].toObject()["format"].toString(), QStringLiteral("KiK-net ASCII"));
}

TEST(InspectCommand, ARefusedFileEndsWithTwoAndTheOthersAreTold) {
  const QString broken = Record("broken/no_scale.EW");
  const QString good = Record("jma/SAMPLE_99901.csv");
  const CliResult json = RunCli({"inspect", broken, good, "--json"});
  EXPECT_EQ(json.status, 2);
  const QJsonArray files = Files(json);
  ASSERT_EQ(files.size(), 2);
  const QString error = files[0].toObject()["error"].toString();
  EXPECT_TRUE(error.startsWith(QDir::toNativeSeparators(broken) + QStringLiteral(": 14行目：")))
      << error.toStdString();
  EXPECT_TRUE(files[0].toObject()["components"].toArray().isEmpty());
  EXPECT_EQ(files[1].toObject()["components"].toArray().size(), 3);
  EXPECT_EQ(json.err, error.toUtf8() + '\n');

  const CliResult text = RunCli({"inspect", broken, good});
  EXPECT_EQ(text.status, 2);
  EXPECT_EQ(text.err, error.toUtf8() + '\n');
  EXPECT_TRUE(text.out.startsWith(good.toUtf8() + "\n  形式：気象庁 CSV（1行目の SITE CODE）"));
}

TEST(InspectCommand, WarningsAndQuestionsEndWithZero) {
  const CliResult asked = RunCli({"inspect", Record("warn/SAMPLE_no_unit.txt"), "--json"});
  EXPECT_EQ(asked.status, 0);
  const QJsonObject file = Files(asked)[0].toObject();
  EXPECT_EQ(file["questions"].toArray().size(), 1);
  const QJsonObject component = file["components"].toArray()[0].toObject();
  EXPECT_EQ(component["unit"].toString(), QString());
  // Nothing is guessed.
  EXPECT_EQ(component["factor"].toString(), QStringLiteral("nan"));
  EXPECT_EQ(component["pga"].toString(), QStringLiteral("nan"));
  const CliResult warned = RunCli({"inspect", Record("warn/SAMPLE_spike.txt"), "--json"});
  EXPECT_EQ(warned.status, 0);
  EXPECT_EQ(Files(warned)[0].toObject()["warnings"].toArray().size(), 1);
}

TEST(InspectCommand, TextForPeople) {
  const CliResult result = RunCli({"inspect", Record("knet/SMP0010001010000.EW")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_EQ(
      result.out,
      Record("knet/SMP0010001010000.EW").toUtf8() +
          "\n  形式：K-NET ASCII（1行目の Origin Time）、観測点：SMP001、開始：2000-01-01 00:00:10 JST\n"
          "  EW：300 点、時間間隔 0.01 秒、単位 count（係数 3920(gal)/6182761）、平均 -7.64595 gal、"
          "最大加速度 138.989 gal\n");
  const CliResult asked = RunCli({"inspect", Record("broken/jma_no_rate.csv")});
  EXPECT_TRUE(asked.out.contains("時間間隔 不明")) << asked.out.toStdString();
  EXPECT_TRUE(asked.out.contains("要確認：時間間隔がファイルに書かれていません。"));
}

TEST(InspectCommand, NothingInAFileSteersTheTerminal) {
  const test::TestFolder folder;
  QByteArray content = test::ReadAll(Record("knet/SMP0010001010000.EW"));
  content.replace("SMP001", "SM\x1B[1m");
  const CliResult result = RunCli({"inspect", folder.Write("x", content)});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.out.contains("観測点：SM_[1m")) << result.out.toStdString();
}

TEST(InspectCommand, WhatIsNoFileIsRefused) {
  const test::TestFolder folder;
  const CliResult missing = RunCli({"inspect", folder.Path("none"), "--json"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(Files(missing)[0].toObject()["error"].toString(),
            QDir::toNativeSeparators(folder.Path("none")) + QStringLiteral(": ファイルを開けません。"));
  EXPECT_EQ(RunCli({"inspect", folder.Path()}).status, 2);
  EXPECT_EQ(RunCli({"inspect"}).status, 1);
}

}  // namespace
}  // namespace tremlo
