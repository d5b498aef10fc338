#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;

QString Record(const char* name) {
  return test::SourcePath(QStringLiteral("tests/data/records/") + QString::fromLatin1(name));
}

QJsonObject Response(const QStringList& arguments) {
  const CliResult result = RunCli(QStringList{"response"} + arguments + QStringList{"--json"});
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  return QJsonDocument::fromJson(result.out).object();
}

void ExpectMissingAnswer(const QStringList& arguments, const char* option) {
  const CliResult result = RunCli(QStringList{"response"} + arguments);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, QByteArray());
  EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(arguments.constFirst()).toUtf8() + ": "))
      << result.err.toStdString();
  EXPECT_TRUE(result.err.contains(option)) << result.err.toStdString();
}

TEST(RecordInput, ARecordReadsWithItsMeanTakenOff) {
  const QString path = Record("knet/SMP0010001010000.EW");
  const QJsonObject json = Response({path});
  EXPECT_EQ(json["name"].toString(), QStringLiteral("SMP001 EW"));
  EXPECT_EQ(json["timeStep"].toDouble(), 0.01);
  EXPECT_EQ(json["samples"].toInt(), 300);
  EXPECT_EQ(Response({path, "--offset", "whole"})["accSpec"], json["accSpec"]);
  EXPECT_NE(Response({path, "--offset", "none"})["accSpec"], json["accSpec"]);
  EXPECT_NE(Response({path, "--offset", "0.5"})["accSpec"], json["accSpec"]);
}

TEST(RecordInput, WhatIsCorrectedStaysAsItIs) {
  const QString path = Record("peer/SAMPLE_west1_090.AT2");
  const QJsonObject json = Response({path});
  EXPECT_EQ(Response({path, "--offset", "none"})["accSpec"], json["accSpec"]);
  EXPECT_NE(Response({path, "--offset", "whole"})["accSpec"], json["accSpec"]);
}

TEST(RecordInput, AComponentOfSeveralIsChosen) {
  const QString path = Record("jma/SAMPLE_99901.csv");
  ExpectMissingAnswer({path}, "--component で指定してください：NS、EW、UD");
  ExpectMissingAnswer({path, "--component", "XX"}, "次のどれかです：NS、EW、UD");
  EXPECT_NE(Response({path, "--component", "NS"})["accSpec"],
            Response({path, "--component", "UD"})["accSpec"]);
}

TEST(RecordInput, AMemberOfSeveralIsChosen) {
  const QString path = Record("knet/20000101000000.knt.tar.gz");
  ExpectMissingAnswer({path}, "--member で指定してください：SMP0010001010000.EW");
  ExpectMissingAnswer({path, "--member", "XX"}, "--member の名前がありません");
  EXPECT_EQ(Response({path, "--member", "SMP0010001010000.NS"})["accSpec"],
            Response({Record("knet/SMP0010001010000.NS")})["accSpec"]);
}

TEST(RecordInput, EachQuestionNamesTheOptionThatAnswersIt) {
  const QString noUnit = Record("warn/SAMPLE_no_unit.txt");
  ExpectMissingAnswer({noUnit}, "--unit で指定してください。");
  EXPECT_EQ(Response({noUnit, "--unit", "m/s2"})["samples"].toInt(), 300);
  const QString noStep = Record("broken/no_dt.AT2");
  ExpectMissingAnswer({noStep}, "--step で指定してください。");
  EXPECT_EQ(Response({noStep, "--step", "0.01"})["timeStep"].toDouble(), 0.01);
  const QString comma = Record("broken/text_decimal_comma.txt");
  ExpectMissingAnswer({comma}, "--decimal で指定してください。");
  EXPECT_EQ(Response({comma, "--decimal", "comma"})["samples"].toInt(), 200);
  const QString marked = Record("text/SAMPLE_missing_marker.txt");
  ExpectMissingAnswer({marked, "--unit", "gal"}, "--missing で指定してください。");
  EXPECT_GT(Response({marked, "--unit", "gal", "--missing", "fill"})["samples"].toInt(), 100);
  const test::TestFolder folder;
  QByteArray columns = "gal dt 0.01\n";
  for (int i = 0; i < 200; ++i)
    columns += QByteArray::number(i % 7 - 3) + ".5 " + QByteArray::number(i % 5 - 2) + ".5\n";
  const QString wide = folder.Write("wide.txt", columns);
  ExpectMissingAnswer({wide}, "--layout で指定してください。");
  EXPECT_EQ(Response({wide, "--layout", "across"})["samples"].toInt(), 400);
  EXPECT_EQ(Response({wide, "--layout", "columns", "--component", "2"})["samples"].toInt(), 200);
}

TEST(RecordInput, FirstAndLastLineAndTheCountOfSamples) {
  const test::TestFolder folder;
  QByteArray rows = "gal dt 0.01\n";
  for (int i = 0; i < 8; ++i) rows += QByteArray::number(i % 3 - 1) + ".5\n";
  const QString few = folder.Write("few.txt", rows);
  // Hardly a record: the file is not what it should be.
  const CliResult asked = RunCli({"response", few});
  EXPECT_EQ(asked.status, 2);
  EXPECT_TRUE(asked.err.endsWith("--lines で指定してください。\n")) << asked.err.toStdString();
  EXPECT_EQ(Response({few, "--lines", "2-"})["samples"].toInt(), 8);
  EXPECT_EQ(Response({few, "--lines", "3-7"})["samples"].toInt(), 5);
  const QString more = Record("broken/npts_too_small.AT2");
  EXPECT_EQ(Response({more})["samples"].toInt(), 200);
  EXPECT_EQ(Response({more, "--samples", "announced"})["samples"].toInt(), 200);
  EXPECT_EQ(Response({more, "--samples", "all"})["samples"].toInt(), 300);
}

TEST(RecordInput, AMeanThatIsKeptIsTold) {
  const QString path = Record("warn/SMP0030001010000.UD1");
  EXPECT_FALSE(RunCli({"response", path}).err.contains("が残ります。"));
  EXPECT_TRUE(RunCli({"response", path, "--offset", "none"}).err.contains("が残ります。"));
}

TEST(RecordInput, WhatIsNoArchiveHasNoMember) {
  const CliResult none = RunCli({"response", "/no such folder/x", "--member", "a"});
  EXPECT_EQ(none.status, 2) << none.err.toStdString();
  const CliResult plain = RunCli({"response", Record("knet/SMP0010001010000.EW"), "--member", "a"});
  EXPECT_EQ(plain.status, 1);
  EXPECT_TRUE(plain.err.contains("書庫ではありません。")) << plain.err.toStdString();
  const CliResult cut = RunCli({"response", Record("broken/cut.knt.tar.gz"), "--member", "a"});
  EXPECT_EQ(cut.status, 2);
  EXPECT_TRUE(cut.err.contains("途中で切れています")) << cut.err.toStdString();
}

TEST(RecordInput, AnswersThatAreNone) {
  const QString path = Record("warn/SAMPLE_no_unit.txt");
  const QStringList bad[] = {{"--unit", "cm/s"},  {"--step", "0"},    {"--step", "x"},    {"--offset", "all"},
                             {"--offset", "-1"},  {"--layout", "x"},  {"--missing", "0"}, {"--decimal", ";"},
                             {"--lines", "x"},    {"--lines", "0-5"}, {"--lines", "7"},   {"--lines", "7-3"},
                             {"--samples", "300"}};
  for (const QStringList& option : bad) {
    const CliResult result = RunCli(QStringList{"response", path} + option);
    EXPECT_EQ(result.status, 1) << option.join(u' ').toStdString();
    EXPECT_TRUE(result.err.startsWith(option[0].toUtf8())) << result.err.toStdString();
  }
}

TEST(RecordInput, ARefusedRecordEndsWithTwo) {
  const QString path = Record("broken/nan_text.EW");
  for (const char* command : {"response", "fourier"}) {
    const CliResult result = RunCli({command, path});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, QDir::toNativeSeparators(path).toUtf8() +
                              ": 28行目：84番目の値が整数ではありません（「NaN」）。\n");
  }
}

TEST(RecordInput, WarningsGoToStandardError) {
  const QString path = Record("broken/short_data.EW");
  const CliResult result = RunCli({"response", path, "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(path).toUtf8() +
                                    ": 警告：点数：ファイルの記載は 300 点、実際は 280 点です。\n"));
}

TEST(RecordInput, AdjustTakesARecordAsSeed) {
  const QString target = test::SourcePath("samples/spectra/target_sample_005_5s.csv");
  const CliResult result = RunCli({"adjust", "--seed", Record("jma/SAMPLE_99901.csv"), "--component", "EW",
                                   "--target", target, "--iterations", "1", "--json"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(QJsonDocument::fromJson(result.out).object()["name"].toString(),
            QStringLiteral("99901見本観測点SAMPLE EW"));
  EXPECT_EQ(RunCli({"adjust", "--seed", Record("jma/SAMPLE_99901.csv"), "--target", target}).status, 1);
}

TEST(RecordInput, OurOwnWavesReadAsBefore) {
  const QString path = test::SourcePath("samples/waves/hses_2016_n80w_002.csv");
  const CliResult plain = RunCli({"fourier", path, "--json"});
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(plain.err, QByteArray());
  EXPECT_EQ(RunCli({"fourier", path, "--json", "--offset", "none"}).out, plain.out);
  EXPECT_NE(RunCli({"fourier", path, "--json", "--offset", "whole"}).out, plain.out);
}

}  // namespace
}  // namespace tremlo
