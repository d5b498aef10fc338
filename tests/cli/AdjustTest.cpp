#include "core/waves/WaveFile.h"
#include "numeric/waves/AmplitudeAdjust.h"
#include "support/CliRun.h"
#include "support/IndependentFigures.h"
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

const QString kSeed = test::SourcePath("samples/waves/hses_2016_n80w_0005_8192.csv");
const QString kTarget = test::SourcePath("data/LowSpec/h20_h.csv");
const QString kElCentro = test::SourcePath("samples/waves/elcentro_1940_ns.csv");

QJsonObject Object(const CliResult& result) {
  return QJsonDocument::fromJson(result.out).object();
}

TEST(AdjustCommand, AConvergedRunPrintsItsResultAndWritesThreeFiles) {
  const TestFolder folder;
  const CliResult result =
      RunCli({"adjust", "--seed", kSeed, "--target", kTarget, "--json", "--out", folder.Path("y.csv")});
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  const QJsonObject json = Object(result);
  EXPECT_EQ(json["converged"].toBool(), true);
  EXPECT_EQ(json["passes"].toInt(), 6);
  EXPECT_LT(json["error"].toDouble(), 0.05);
  EXPECT_EQ(json["adjustedAcc"].toArray().size(), 8192);
  EXPECT_EQ(json["adjustedPeriods"].toArray().size(), 4096);
  EXPECT_EQ(json["adjustedSpec"].toArray().size(), 4096);
  EXPECT_EQ(folder.Names(), (QStringList{"y.csv", "y_AccSpec.csv", "y_FFT.csv"}));

  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  ASSERT_FALSE(ReadWaveFile(folder.Path("y.csv"), name, timeStep, acc));
  EXPECT_EQ(name, json["name"].toString());
  EXPECT_EQ(timeStep, 0.005);
  ASSERT_EQ(acc.size(), 8192U);
  for (int i = 0; i < 8192; ++i) {
    const double exact = json["adjustedAcc"][i].toDouble();
    ASSERT_NEAR(acc[static_cast<std::size_t>(i)], exact, 5.1e-6 * std::abs(exact)) << i;
  }
}

TEST(AdjustCommand, KeysComeInTheirOrder) {
  const CliResult result = RunCli({"adjust", "--seed", kSeed, "--target", kTarget, "--json"});
  EXPECT_EQ(test::TopKeys(result.out),
            (QStringList{"name", "timeStep", "converged", "passes", "error", "adjustedAcc", "adjustedPeriods",
                         "adjustedSpec", "seedFigures", "adjustedFigures"}));
}

/// Of each wave as the object holds it, against a computation of their own.
void ExpectFigures(const QJsonObject& figures, const std::vector<double>& acc, double timeStep) {
  const WaveFigures expected = test::IndependentFigures(acc, timeStep);
  const auto near = [&](const char* key, double value, double size) {
    EXPECT_NEAR(figures[QLatin1String(key)].toDouble(-1.0), value, 1e-9 * size) << key;
  };
  near("pga", expected.pga, expected.pga);
  near("pgv", expected.pgv, expected.pgv);
  near("pgd", expected.pgd, expected.pgd);
  near("endVelocity", expected.endVelocity, expected.pgv);
  near("endDisplacement", expected.endDisplacement, expected.pgd);
  near("ariasIntensity", expected.ariasIntensity, expected.ariasIntensity);
  near("duration", expected.duration, expected.duration);
}

TEST(AdjustCommand, TheFiguresAreThoseOfSeedAndResult) {
  QString name;
  double timeStep = 0.0;
  std::vector<double> seed;
  ASSERT_FALSE(ReadWaveFile(kElCentro, name, timeStep, seed));
  for (const char* iterations : {"0", "3"}) {
    const QJsonObject json = Object(
        RunCli({"adjust", "--seed", kElCentro, "--target", kTarget, "--iterations", iterations, "--json"}));
    std::vector<double> adjusted;
    for (const QJsonValue& value : json["adjustedAcc"].toArray()) adjusted.push_back(value.toDouble());
    ASSERT_EQ(adjusted.size(), 4096U);
    ExpectFigures(json["seedFigures"].toObject(), seed, timeStep);
    ExpectFigures(json["adjustedFigures"].toObject(), adjusted, timeStep);
  }
}

TEST(AdjustCommand, ARunThatDoesNotConvergeWritesNoFileAndPrintsTheLastWave) {
  const TestFolder folder;
  const QString out = folder.Write("y.csv", "old");
  const CliResult result = RunCli(
      {"adjust", "--seed", kElCentro, "--target", kTarget, "--iterations", "20", "--json", "--out", out});
  EXPECT_EQ(result.status, 3);
  const QJsonObject json = Object(result);
  EXPECT_EQ(json["converged"].toBool(true), false);
  EXPECT_EQ(json["passes"].toInt(), 20);
  EXPECT_EQ(json["adjustedAcc"].toArray().size(), 4096);
  EXPECT_EQ(folder.Names(), QStringList{"y.csv"});
  EXPECT_EQ(test::ReadAll(out), QByteArray("old"));
}

TEST(AdjustCommand, NoIterationHasNoError) {
  const CliResult result =
      RunCli({"adjust", "--seed", kElCentro, "--target", kTarget, "--iterations", "0", "--json"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(Object(result)["passes"].toInt(-1), 0);
  EXPECT_EQ(Object(result)["error"].toString(), QString("nan"));
}

TEST(AdjustCommand, AMissedBandHasNoError) {
  const TestFolder folder;
  const QString target = folder.Write("t.csv", "T,1,1\n9000,1\n8000,1\n");
  const CliResult result =
      RunCli({"adjust", "--seed", kElCentro, "--target", target, "--iterations", "2", "--json"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(Object(result)["error"].toString(), QString("nan"));
}

TEST(AdjustCommand, ARisingTargetIsReversed) {
  const TestFolder folder;
  const QString rising = folder.Write("r.csv", "T,1,1\n0.1,700\n1,500\n5,28\n");
  const QString falling = folder.Write("f.csv", "T,1,1\n5,28\n1,500\n0.1,700\n");
  const auto run = [](const QString& target) {
    return RunCli({"adjust", "--seed", kElCentro, "--target", target, "--iterations", "3", "--json"}).out;
  };
  EXPECT_EQ(run(rising), run(falling));
  EXPECT_NE(run(rising), QByteArray());
}

TEST(AdjustCommand, OddTargetsRunAndDoNotConverge) {
  const TestFolder folder;
  for (const char* target : {"T,1,1\n0.5,100\n", "T,1,1\n0.5,100\n0.5,100\n"})
    EXPECT_EQ(RunCli({"adjust", "--seed", kElCentro, "--target", folder.Write("t.csv", target),
                      "--iterations", "2"})
                  .status,
              3)
        << target;
}

TEST(AdjustCommand, APairOfZerosIsASpectrum) {
  const TestFolder folder;
  for (const char* target : {"T,1,1\n0,0\n", "T,1,1\nx\n0,0\n"}) {
    const CliResult result = RunCli({"adjust", "--seed", kElCentro, "--target", folder.Write("t.csv", target),
                                     "--iterations", "1", "--json"});
    EXPECT_EQ(result.status, 3) << result.err.toStdString();
    EXPECT_EQ(Object(result)["error"].toString(), QString("nan"));
  }
}

TEST(AdjustCommand, InputThatIsNotWhatItShouldBeEndsWithTwo) {
  const TestFolder folder;
  const QString empty = folder.Write("empty.csv", "");
  const QString bare = folder.Write("bare.csv", "T,1,1\n");
  const QString noPair = folder.Write("no_pair.csv", "T\nx\n\n5\n,2\n");
  for (const QStringList& pair :
       {QStringList{folder.Path("absent"), kTarget}, QStringList{kSeed, folder.Path("absent")},
        QStringList{empty, kTarget}, QStringList{kSeed, empty}, QStringList{kSeed, bare},
        QStringList{kSeed, noPair}, QStringList{kSeed, folder.Path()}}) {
    const CliResult result = RunCli({"adjust", "--seed", pair[0], "--target", pair[1], "--json"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, QByteArray());
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
  }
}

TEST(AdjustCommand, AnOutputThatCannotBeWrittenLeavesAllOlderFiles) {
  const TestFolder folder;
  folder.Write("y.csv", "old");
  folder.Write("y_FFT.csv/inside", "a folder where the third file should go");
  const CliResult result =
      RunCli({"adjust", "--seed", kSeed, "--target", kTarget, "--out", folder.Path("y.csv")});
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(folder.Path("y_FFT.csv")).toUtf8()))
      << result.err.toStdString();
  EXPECT_EQ(test::ReadAll(folder.Path("y.csv")), QByteArray("old"));
  EXPECT_EQ(folder.Names(), (QStringList{"y.csv", "y_FFT.csv"}));
}

TEST(AdjustCommand, TheSummaryTellsTheFit) {
  const QString out = QString::fromUtf8(RunCli({"adjust", "--seed", kSeed, "--target", kTarget}).out);
  for (const QString& part :
       {QStringLiteral("収束しました"), QStringLiteral("偏差（RMS）"), QStringLiteral("目標を上回る最大"),
        QStringLiteral("目標を下回る最大"), QStringLiteral("\n原種波形　最大加速度 "),
        QStringLiteral("\n調整後波形　最大加速度 ")})
    EXPECT_TRUE(out.contains(part)) << out.toStdString();
}

}  // namespace
}  // namespace tremlo
