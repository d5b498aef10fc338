#include "core/files/Cp932Text.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "numeric/waves/WaveFigures.h"
#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;
using test::TestFolder;

std::vector<double> Numbers(const QJsonValue& value) {
  std::vector<double> numbers;
  for (const QJsonValue& number : value.toArray()) numbers.push_back(number.toDouble());
  return numbers;
}

void ExpectBadFile(const QStringList& arguments, const QString& path) {
  const CliResult result = RunCli(arguments);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, QByteArray());
  EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(path).toUtf8())) << result.err.toStdString();
  EXPECT_EQ(result.err.count('\n'), 1);
}

TEST(SpectraCommands, ResponseGivesTheBitsOfTheLibrary) {
  const QString path = test::SourcePath("samples/waves/elcentro_1940_ns.csv");
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  ASSERT_FALSE(ReadWaveFile(path, name, timeStep, acc));
  std::vector<double> periods;
  std::vector<double> spectrum;
  ComputeResponseSpectrum(acc, periods, spectrum, timeStep);

  const QJsonObject json = test::RunCliJson({"response", path, "--json"});
  EXPECT_EQ(json["name"].toString(), name);
  EXPECT_EQ(json["timeStep"].toDouble(), 0.02);
  EXPECT_EQ(json["samples"].toInt(), 2688);
  EXPECT_EQ(Numbers(json["periods"]), periods);
  EXPECT_EQ(Numbers(json["accSpec"]), spectrum);

  const WaveFigures figures = ComputeWaveFigures(acc, timeStep);
  const QJsonObject told = json["figures"].toObject();
  EXPECT_EQ(told["pga"].toDouble(), 342.0);
  EXPECT_EQ(told["pgv"].toDouble(), figures.pgv);
  EXPECT_EQ(told["pgd"].toDouble(), figures.pgd);
  EXPECT_EQ(told["endVelocity"].toDouble(), figures.endVelocity);
  EXPECT_EQ(told["endDisplacement"].toDouble(), figures.endDisplacement);
  EXPECT_EQ(told["ariasIntensity"].toDouble(), figures.ariasIntensity);
  EXPECT_EQ(told["duration"].toDouble(), figures.duration);
}

TEST(SpectraCommands, TheFiguresComeInTheirOrder) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.5, 1\n0, 0\n0, 20\n0, -20\n0, -10\n0, 5\n");
  const QByteArray out = RunCli({"response", wave, "--json"}).out;
  EXPECT_TRUE(out.contains(R"("figures": {"pga": 20, "pgv": 5, "pgd": 4.375, "endVelocity": -3.75, )"
                           R"("endDisplacement": 2.8125, "ariasIntensity": )"))
      << out.toStdString();
  const QString summary = QString::fromUtf8(RunCli({"response", wave}).out);
  EXPECT_TRUE(summary.contains(QStringLiteral("\n波形　最大加速度 20.00 gal　最大速度 5.000 cm/s　")))
      << summary.toStdString();
}

TEST(SpectraCommands, AFigureThatCannotBeToldIsNan) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 1, 1\n0, 1e200\n0, 1e200\n0, 0\n");
  const QJsonObject told = test::RunCliJson({"response", wave, "--json"})["figures"].toObject();
  EXPECT_EQ(told["pga"].toDouble(), 1e200);
  EXPECT_EQ(told["ariasIntensity"].toString(), "nan");
  EXPECT_EQ(told["duration"].toString(), "nan");
}

TEST(SpectraCommands, KeysComeInTheirOrder) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.01, 1\n0, 1\n0, 2\n");
  EXPECT_EQ(test::TopKeys(RunCli({"response", wave, "--json"}).out),
            (QStringList{"name", "timeStep", "samples", "periods", "accSpec", "figures"}));
  EXPECT_EQ(test::TopKeys(RunCli({"fourier", wave, "--json"}).out),
            (QStringList{"name", "timeStep", "periods", "amplitudes"}));
}

TEST(SpectraCommands, FourierGivesTheBitsOfTheLibrary) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.01, 1\n0, 1\n0, 2\n0, -4\n");
  std::vector<double> periods;
  std::vector<double> amplitudes;
  ComputeFourierSpectrum({1.0, 2.0, -4.0}, periods, amplitudes, 0.01);
  const QJsonObject json = test::RunCliJson({"fourier", wave, "--json"});
  EXPECT_EQ(Numbers(json["periods"]), periods);
  EXPECT_EQ(Numbers(json["amplitudes"]), amplitudes);
}

TEST(SpectraCommands, BlanksCountAsZero) {
  const TestFolder folder;
  const QString blank = folder.Write("a.csv", "W, 0.01, 1\n0, 1\n0, inf\n0, 3\n0, 4\n");
  const QString zero = folder.Write("b.csv", "W, 0.01, 1\n0, 1\n0, 0\n0, 3\n0, 4\n");
  for (const char* command : {"response", "fourier"})
    EXPECT_EQ(RunCli({command, blank, "--json"}).out, RunCli({command, zero, "--json"}).out);
}

TEST(SpectraCommands, OutWritesOneCsvNamedAfterTheWave) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.01, 1\n0, 1\n0, 2\n");
  EXPECT_EQ(RunCli({"response", wave, "--out", folder.Path("r.csv")}).status, 0);
  EXPECT_EQ(RunCli({"fourier", wave, "--out", folder.Path("f.csv")}).status, 0);
  EXPECT_TRUE(DecodeCp932(test::ReadAll(folder.Path("r.csv")).toStdString())
                  .startsWith(QStringLiteral("W_加速度応答スペクトル, 0.01, 1\n0.02, ")));
  EXPECT_TRUE(DecodeCp932(test::ReadAll(folder.Path("f.csv")).toStdString())
                  .startsWith(QStringLiteral("W_フーリエスペクトル, 0.01, 1\n0.02, ")));
}

TEST(SpectraCommands, OneSampleGivesEmptySpectra) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.01, 1\n0, 1\n");
  const QJsonObject json = test::RunCliJson({"response", wave, "--json"});
  EXPECT_EQ(json["samples"].toInt(), 1);
  EXPECT_TRUE(json["periods"].toArray().isEmpty());
  EXPECT_TRUE(test::RunCliJson({"fourier", wave, "--json"})["amplitudes"].toArray().isEmpty());
  EXPECT_EQ(RunCli({"response", wave}).status, 0);
}

TEST(SpectraCommands, InputThatIsNoWaveEndsWithTwo) {
  const TestFolder folder;
  const QString paths[] = {
      folder.Path("absent.csv"),
      folder.Path(),
      folder.Write("empty.csv", ""),
      folder.Write("binary.csv", QByteArray("\x00\x01\x80\xFF\n\x00\n", 7)),
      folder.Write("nohead.csv", "W\n0,2\n"),
      folder.Write("comma.csv", ",0.01,1\n0,2\n"),
      folder.Write("zero.csv", "W,0,1\n0,2\n"),
      folder.Write("negative.csv", "W,-0.01,1\n0,2\n"),
      folder.Write("infinite.csv", "W,inf,1\n0,2\n"),
      folder.Write("nan.csv", "W,nan,1\n0,2\n"),
      folder.Write("nodata.csv", "W,0.01,1\n"),
  };
  for (const QString& path : paths)
    for (const char* command : {"response", "fourier"}) ExpectBadFile({command, path, "--json"}, path);
}

TEST(SpectraCommands, OutputThatCannotBeWrittenEndsWithTwo) {
  const TestFolder folder;
  const QString wave = folder.Write("w.csv", "W, 0.01, 1\n0, 1\n0, 2\n");
  const QString below = wave + "/below.csv";
  ExpectBadFile({"response", wave, "--out", below}, below);
  ExpectBadFile({"fourier", wave, "--out", folder.Path("absent/f.csv")}, folder.Path("absent/f.csv"));
  EXPECT_EQ(folder.Names(), QStringList{"w.csv"});
}

TEST(SpectraCommands, ANameMayLookLikeAPlaceInASentence) {
  const TestFolder folder;
  const CliResult result = RunCli({"response", folder.Write("w.csv", "a%2b, 0.01, 1\n0, 1\n0, 2\n")});
  EXPECT_TRUE(QString::fromUtf8(result.out).startsWith(QStringLiteral("a%2b：時間間隔 0.01 秒、2 点\n")));
}

TEST(SpectraCommands, WithoutJsonASummaryIsPrinted) {
  const TestFolder folder;
  const CliResult result = RunCli({"response", folder.Write("w.csv", "W, 0.01, 1\n0, 1\n0, 2\n")});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(QString::fromUtf8(result.out).contains(QStringLiteral("加速度応答スペクトル")));
}

}  // namespace
}  // namespace tremlo
