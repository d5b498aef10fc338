#include "core/project/ProjectFile.h"
#include "support/CliRun.h"
#include "support/SmallProject.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;
using test::TestFolder;

const QByteArray& SoundBytes() {
  static const QByteArray bytes = QByteArray::fromStdString(ProjectBytes(test::SoundProject()));
  return bytes;
}

QStringList Verify(const QString& path) {
  return {"project", "verify", path, "--json", "--data", test::SourcePath("data")};
}

QJsonObject Object(const CliResult& result) {
  return QJsonDocument::fromJson(result.out).object();
}

QJsonObject ItemOf(const QJsonObject& report, const QString& key) {
  for (const QJsonValue& item : report["items"].toArray())
    if (item["item"] == key) return item.toObject();
  ADD_FAILURE() << "no item " << key.toStdString();
  return {};
}

TEST(CliVerify, ASoundProjectEndsWithZero) {
  const TestFolder folder;
  const CliResult result = RunCli(Verify(folder.Write("p.trml", SoundBytes())));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_EQ(test::TopKeys(result.out), (QStringList{"outcome", "items"}));
  const QJsonObject report = Object(result);
  EXPECT_EQ(report["outcome"].toString(), QString("equal"));
  EXPECT_EQ(report["items"].toArray().size(), 24);
  for (const QJsonValue& item : report["items"].toArray()) {
    EXPECT_EQ(item["outcome"].toString(), QString("equal")) << item["item"].toString().toStdString();
    EXPECT_EQ(item["difference"].toDouble(-1.0), 0.0);
  }
  EXPECT_TRUE(
      result.out.contains("{\"item\": \"seedWaves[0].accSpec\", \"outcome\": \"equal\", \"difference\": 0, "
                          "\"at\": \"\", \"reason\": \"\"}"));
}

TEST(CliVerify, TheFileIsLeftAlone) {
  const TestFolder folder;
  const QString path = folder.Write("p.trml", SoundBytes());
  RunCli(Verify(path));
  EXPECT_EQ(test::ReadAll(path), SoundBytes());
  EXPECT_EQ(folder.Names(), QStringList{"p.trml"});
}

TEST(CliVerify, ADifferenceEndsWithThreeAndTellsWhere) {
  CMorvaneDoc doc = test::SoundProject();
  doc.seedWaves.At(0).adjustedSpec[9] *= 2.0;
  const TestFolder folder;
  const QString path = folder.Write("p.trml", QByteArray::fromStdString(ProjectBytes(doc)));
  const CliResult result = RunCli(Verify(path));
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(Object(result)["outcome"].toString(), QString("differs"));
  const QJsonObject item = ItemOf(Object(result), "seedWaves[0].adjustedSpec");
  EXPECT_EQ(item["outcome"].toString(), QString("differs"));
  EXPECT_EQ(item["difference"].toDouble(), 0.5);
  EXPECT_EQ(item["at"].toString(), QString("seedWaves[0].adjustedSpec[9]"));
  const CliResult summary = RunCli({"project", "verify", path, "--data", test::SourcePath("data")});
  EXPECT_EQ(summary.status, 3);
  for (const QString& text : {QStringLiteral("一致：23 項目"), QStringLiteral("相違：1 項目"),
                              QStringLiteral("「A」の調整後波形の加速度応答スペクトル"),
                              QStringLiteral("最大差 0.5、周期 4.096 秒")})
    EXPECT_TRUE(summary.out.contains(text.toUtf8())) << summary.out.toStdString();
}

TEST(CliVerify, AProjectWithoutResultsEndsWithZero) {
  const TestFolder folder;
  const QString path = folder.Path("p.trml");
  ASSERT_EQ(RunCli({"project", "new", path}).status, 0);
  const CliResult result = RunCli({"project", "verify", path, "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Object(result)["outcome"].toString(), QString("equal"));
  for (const QJsonValue& item : Object(result)["items"].toArray())
    EXPECT_EQ(item["outcome"].toString(), QString("equal")) << item["item"].toString().toStdString();
}

TEST(CliVerify, WhatCannotBeCheckedChangesNoStatus) {
  const TestFolder folder;
  const QString path = folder.Write("p.trml", SoundBytes());
  const CliResult result = RunCli({"project", "verify", path, "--json", "--data", folder.Path("no tables")});
  EXPECT_EQ(result.status, 0);
  const QJsonObject item = ItemOf(Object(result), "faults.shortestSpectrum");
  EXPECT_EQ(item["outcome"].toString(), QString("unchecked"));
  EXPECT_EQ(item["difference"].toString(), QString("nan"));
  EXPECT_FALSE(item["reason"].toString().isEmpty());
}

TEST(CliVerify, OtherTablesMakeTheSpectraDiffer) {
  const TestFolder folder;
  test::CopyTables(folder);
  const QString table = folder.Path("DamCoef/H20_MinDis_H.csv");
  QByteArray content = test::ReadAll(table);
  // The first number of the first row but its period: the factor of class A; all planes are of class B.
  QList<QByteArray> lines = content.split('\n');
  QList<QByteArray> cells = lines[4].split(',');
  cells[2] = "9.5";
  lines[4] = cells.join(',');
  folder.Write("DamCoef/H20_MinDis_H.csv", lines.join('\n'));
  const QString path = folder.Write("p.trml", SoundBytes());
  const CliResult result = RunCli({"project", "verify", path, "--json", "--data", folder.Path()});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(ItemOf(Object(result), "faults.shortestSpectrum")["outcome"].toString(), QString("differs"));
  EXPECT_EQ(ItemOf(Object(result), "faults.equivalentSpectrum")["outcome"].toString(), QString("equal"));
}

TEST(CliVerify, TablesThatAreNoTablesAreTold) {
  const TestFolder folder;
  test::CopyTables(folder);
  folder.Write("DamCoef/H20_Ehd_H.csv", "no relation\n");
  const QString path = folder.Write("p.trml", SoundBytes());
  const CliResult result = RunCli({"project", "verify", path, "--json", "--data", folder.Path()});
  EXPECT_EQ(result.status, 0);
  const QJsonObject item = ItemOf(Object(result), "faults.shortestSpectrum");
  EXPECT_EQ(item["outcome"].toString(), QString("unchecked"));
  EXPECT_TRUE(item["reason"].toString().contains("H20_Ehd_H.csv")) << item["reason"].toString().toStdString();
}

TEST(CliVerify, AnUnreadableFileEndsWithTwo) {
  const TestFolder folder;
  for (const QString& path :
       {folder.Path("missing.trml"), folder.Path(), folder.Write("cut.trml", SoundBytes().chopped(1)),
        folder.Write("e.trml", "")}) {
    const CliResult result = RunCli(Verify(path));
    EXPECT_EQ(result.status, 2) << path.toStdString();
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(path).toUtf8() + ": "))
        << result.err.toStdString();
    EXPECT_EQ(result.err.count('\n'), 1);
  }
}

TEST(CliVerify, ABadCommandLineEndsWithOne) {
  for (const QStringList& words :
       {QStringList{"project", "verify"}, QStringList{"project", "verify", "a", "b"},
        QStringList{"project", "verify", "a", "--no-such-option"}}) {
    const CliResult result = RunCli(words);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, QByteArray());
  }
}

/// Whatever the fields hold, the command ends by itself.
TEST(CliVerify, AProjectOfOddValuesIsNoTrap) {
  const TestFolder folder;
  const QString path = folder.Write("p.trml", QByteArray::fromStdString(test::SmallProjectBytes()));
  const CliResult result = RunCli(Verify(path));
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(Object(result)["outcome"].toString(), QString("differs"));
}

}  // namespace
}  // namespace tremlo
