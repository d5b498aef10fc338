#include "core/records/RecordFixtures.h"
#include "core/records/RecordUnit.h"
#include "support/CommaLocale.h"

#include <QStringList>

#include <algorithm>

namespace tremlo {
namespace {

using test::Changed;
using test::ExpectRefusal;
using test::Fixture;
using test::HasWord;
using test::ReadText;

const QString kKnet = QStringLiteral("knet/SMP0010001010000.EW");
const QString kKnetCsv = QStringLiteral("knet/SAMPLE_SMP001.csv");
const QString kJma = QStringLiteral("jma/SAMPLE_99901.csv");
const QString kAt2 = QStringLiteral("peer/SAMPLE_smd_140.AT2");
const QString kV1 = QStringLiteral("cosmos/SAMPLE_2ch.v1");
const QString kV2c = QStringLiteral("cosmos/SAMPLE_1ch.v2c");
const QString kCsmip = QStringLiteral("cosmos/SAMPLE_csmip.V2");
const QString kV1a = QStringLiteral("geonet/SAMPLE_SMPL.V1A");
const QString kV2a = QStringLiteral("geonet/SAMPLE_SMPL.V2A");

QStringList Names(const RecordReading& reading) {
  QStringList names;
  for (const RecordComponent& component : reading.components) names << component.name;
  return names;
}

// K-NET and KiK-net

TEST(KnetAscii, ProvenanceWithTheTriggerDelayTakenOff) {
  const RecordReading reading = ReadText(Fixture(kKnet));
  EXPECT_EQ(reading.station, QStringLiteral("SMP001"));
  EXPECT_EQ(reading.start, QStringLiteral("2000-01-01 00:00:10 JST"));
  EXPECT_FALSE(reading.corrected);
  EXPECT_EQ(reading.components.front().factorText, QStringLiteral("3920(gal)/6182761"));
  EXPECT_EQ(reading.components.front().factor, 3920.0 / 6182761.0);
  EXPECT_EQ(reading.components.front().acc.front(), -12053.0 * 3920.0 / 6182761.0);
  EXPECT_EQ(ProposedName(reading, reading.components.front()), QStringLiteral("SMP001 EW"));
}

TEST(KnetAscii, TheFactorIsThatOfTheFile) {
  const RecordReading reading = ReadText(Changed(kKnet, "3920(gal)/6182761", "2000(gal)/8388608"));
  EXPECT_EQ(reading.components.front().acc.front(), -12053.0 * 2000.0 / 8388608.0);
  // The peak that the header states tells that something is wrong.
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("最大加速度：ファイルの記載は 138.989 gal")));
}

TEST(KnetAscii, AFactorIsNeverGuessed) {
  for (const char* scale :
       {"gal)/6182761  ", "3920(gal)/     ", "-3920(gal)/618 ", "3920(mgal)/618 ", "nan(gal)/6182  "})
    EXPECT_TRUE(
        ReadText(Changed(kKnet, "3920(gal)/6182761", scale)).error.contains(QStringLiteral("14行目")));
}

TEST(KnetAscii, BothCountsAreSaid) {
  EXPECT_EQ(ReadText(Fixture(QStringLiteral("broken/short_data.EW"))).warnings.front(),
            QStringLiteral("点数：ファイルの記載は 300 点、実際は 280 点です。"));
  EXPECT_EQ(ReadText(Fixture(QStringLiteral("broken/long_data.EW"))).warnings.front(),
            QStringLiteral("点数：ファイルの記載は 300 点、実際は 320 点です。"));
}

TEST(KnetAscii, AMissingRateIsAskedAndAnswered) {
  const QByteArray content = Changed(kKnet, "Sampling Freq(Hz) 100Hz\n", "");
  EXPECT_TRUE(ReadText(content).Asks(RecordAsk::TimeStep));
  RecordAnswers answers;
  answers.timeStep = 0.01;
  const RecordReading answered = ReadText(content, answers);
  EXPECT_TRUE(answered.questions.empty());
  EXPECT_EQ(answered.components.front().timeStep, 0.01);
}

TEST(KnetAscii, AnAnswerAgainstTheFileIsTold) {
  RecordAnswers answers;
  answers.timeStep = 0.005;
  const RecordReading reading = ReadText(Fixture(kKnet), answers);
  EXPECT_EQ(reading.components.front().timeStep, 0.005);
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("ファイルでは 0.01 秒ですが、指定の 0.005 秒")));
  answers = {};
  answers.unit = UnitOfWord("g");
  EXPECT_TRUE(ReadText(Fixture(kKnet), answers).error.contains(QStringLiteral("単位は指定できません")));
}

TEST(KnetAscii, TheBoreholeHasItsNote) {
  const RecordReading down = ReadText(Fixture(QStringLiteral("kiknet/SMPH010001010000.NS1")));
  EXPECT_TRUE(HasWord(down.notes, QStringLiteral("地中")));
  EXPECT_TRUE(ReadText(Fixture(QStringLiteral("kiknet/SMPH010001010000.NS2"))).notes.empty());
}

TEST(KnetAscii, ANumberBeyondAllIntegersIsRefused) {
  EXPECT_TRUE(ReadText(Changed(kKnet, "-12136", "99999999999999999999"))
                  .error.contains(
                      QStringLiteral("18行目：2番目の値が整数ではありません（「99999999999999999999」）")));
}

TEST(KnetAscii, WithoutDataItIsRefused) {
  const QByteArray content = Fixture(kKnet);
  ExpectRefusal(ReadText(content.left(content.indexOf("  -12053"))),
                QStringLiteral("x: 17行目：この後に加速度のデータがありません（「Memo.             SAMPLE "
                               "made-up values,…」）。"));
}

TEST(KnetCsv, WhatIsNoNumberIsRefusedByLine) {
  const auto error = [](const char* from, const char* to) {
    return ReadText(Changed(kKnetCsv, from, to)).error;
  };
  EXPECT_EQ(error("0.01,8.32,-7.69", "0.01,,-7.69"),
            QStringLiteral("x: 18行目：NS の値が数値ではありません（「」）。"));
  EXPECT_EQ(error("0.01,8.32,-7.69", "0.01,8.32"),
            QStringLiteral(
                "x: 18行目：欄の数が 5 ではありません（「2000/01/01 00:00:10.01,0.01,8.32,-27.31」）。"));
  EXPECT_EQ(error("#100\n#Duration", "#0\n#Duration"),
            QStringLiteral("x: 10行目：SamplingFrequency(Hz) が正の数値ではありません（「0」）。"));
  EXPECT_EQ(error("RelativeTime(s),N-S(gal)", "RelativeTime(s),N-S(cm/s)"),
            QStringLiteral("x: 16行目：列の単位が加速度ではありません（「N-S(cm/s)」）。"));
  EXPECT_EQ(error("10.03,0.03,", "10.03,0.05,"),
            QStringLiteral("x: 20行目：時刻が等間隔ではありません（「0.05」）。"));
}

TEST(KnetCsv, BlankLinesAtTheEndAreNoRows) {
  const RecordReading reading = ReadText(Fixture(kKnetCsv) + "\n  \n\n");
  EXPECT_EQ(reading.error, QString());
  EXPECT_EQ(reading.components.front().acc.size(), 300U);
}

TEST(KnetCsv, ProvenanceAndAMissingRate) {
  const RecordReading reading = ReadText(Fixture(kKnetCsv));
  EXPECT_EQ(reading.station, QStringLiteral("SMP001"));
  EXPECT_EQ(reading.start, QStringLiteral("2000/01/01 00:00:10.00 JST"));
  EXPECT_TRUE(ReadText(Changed(kKnetCsv, "#SamplingFrequency(Hz)\n#100\n", "")).Asks(RecordAsk::TimeStep));
  EXPECT_TRUE(HasWord(ReadText(Changed(kKnetCsv, "#3\n#Offset", "#4\n#Offset")).warnings,
                      QStringLiteral("記載は 400 点、実際は 300 点")));
}

TEST(KnetCsv, TheTimesCheckAnAnsweredRateToo) {
  const QByteArray content = Changed(kKnetCsv, "#SamplingFrequency(Hz)\n#100\n", "");
  RecordAnswers answers;
  answers.timeStep = 0.01;
  EXPECT_EQ(ReadText(content, answers).error, QString());
  answers.timeStep = 0.02;
  EXPECT_TRUE(ReadText(content, answers).error.contains(QStringLiteral("時刻が等間隔ではありません")));
}

// JMA

TEST(JmaCsv, ColumnsGoByTheirNames) {
  const RecordReading reading = ReadText(Fixture(QStringLiteral("jma/SAMPLE_order_utf8.csv")));
  EXPECT_EQ(Names(reading), (QStringList{QStringLiteral("UD"), QStringLiteral("NS"), QStringLiteral("EW")}));
  EXPECT_EQ(reading.components[0].acc.front(), 0.010);
  EXPECT_EQ(reading.components[1].acc.front(), -0.002);
}

TEST(JmaCsv, YearsOfTwoDigitsAndTheRateOfTheFile) {
  const RecordReading old = ReadText(Fixture(QStringLiteral("jma/SAMPLE_old50Hz.csv")));
  EXPECT_EQ(old.start, QStringLiteral("1995-01-01 00:00:10 JST"));
  EXPECT_EQ(old.components.front().timeStep, 0.02);
  EXPECT_EQ(ReadText(Changed(kJma, "2000 01 01", "05 01 01")).start,
            QStringLiteral("2005-01-01 00:00:10 JST"));
  EXPECT_EQ(ReadText(Fixture(kJma)).start, QStringLiteral("2000-01-01 00:00:10 JST"));
}

TEST(JmaCsv, SecondsMayHaveDecimals) {
  EXPECT_EQ(ReadText(Changed(kJma, "2000 01 01 00 00 10", "2000 1 1 0 0 5.25")).start,
            QStringLiteral("2000-01-01 00:00:05.25 JST"));
}

TEST(JmaCsv, AnAnswerForAllColumnsIsToldOnce) {
  RecordAnswers answers;
  answers.unit = UnitOfWord("m/s2");
  EXPECT_EQ(ReadText(Changed(kJma, "gal(cm/s/s)", "mg         "), answers).warnings.front(),
            QStringLiteral("単位：ファイルの記載は mg ですが、指定の m/s2 で読みました。"));
  const auto told = [](const RecordReading& reading) {
    return std::count_if(reading.warnings.begin(), reading.warnings.end(), [](const QString& warning) {
      return warning.startsWith(QStringLiteral("単位：ファイルの記載"));
    });
  };
  EXPECT_EQ(told(ReadText(Fixture(kJma), answers)), 1);
  EXPECT_EQ(told(ReadText(Fixture(kKnetCsv), answers)), 1);
  EXPECT_EQ(told(ReadText(Fixture(kV1a), answers)), 1);
}

TEST(JmaCsv, AHalfCharacterKeepsTheComma) {
  const RecordReading reading = ReadText(Fixture(QStringLiteral("broken/jma_cut_kanji.csv")));
  EXPECT_EQ(reading.station, QStringLiteral("99901見本観測点SAMPLE\uFFFD"));
}

TEST(JmaCsv, UnitAndRateAreNeverAssumed) {
  EXPECT_TRUE(ReadText(Changed(kJma, " UNIT  = gal(cm/s/s),,,,,,,\r\n", "")).Asks(RecordAsk::Unit));
  EXPECT_TRUE(ReadText(Fixture(QStringLiteral("broken/jma_no_rate.csv"))).Asks(RecordAsk::TimeStep));
  EXPECT_TRUE(ReadText(Changed(kJma, "100Hz", "0Hz")).error.contains(QStringLiteral("4行目")));
}

TEST(JmaCsv, CellsAreNeverReadAsZero) {
  EXPECT_EQ(ReadText(Changed(kJma, "0.042,-0.010,0.008", "0.042,-0.010,")).error,
            QStringLiteral("x: 9行目：UD の値がありません（「0.042,-0.010,」）。"));
  EXPECT_EQ(ReadText(Changed(kJma, "0.042,-0.010,0.008", "0.042,NaN,0.008")).error,
            QStringLiteral("x: 9行目：EW の値が数値ではありません（「NaN」）。"));
  EXPECT_EQ(ReadText(Changed(kJma, "0.042,-0.010,0.008", "0.042,-0.010,0.008,7")).error,
            QStringLiteral("x: 9行目：名前のない列に値があります（「7」）。"));
  EXPECT_EQ(ReadText(Changed(kJma, "0.042,-0.010,0.008", ",,")).error,
            QStringLiteral("x: 9行目：NS の値がありません（「,,」）。"));
}

TEST(JmaCsv, OneComponentIsEnough) {
  const RecordReading reading = ReadText(
      "SITE CODE= 1,\n SAMPLING RATE= 100Hz\n UNIT = gal(cm/s/s)\nINITIAL TIME = 2000 1 2 3 4 5\nUD\n1\n2\n");
  EXPECT_EQ(Names(reading), QStringList{QStringLiteral("UD")});
  EXPECT_EQ(reading.start, QStringLiteral("2000-01-02 03:04:05 JST"));
}

// AT2

QByteArray At2(const QByteArray& third, const QByteArray& fourth, const QByteArray& data) {
  return "PEER NGA STRONG MOTION DATABASE RECORD\nSAMPLE, 1/1/2000, Mihon, 090\n" + third + '\n' + fourth +
         '\n' + data;
}
const QByteArray kInG = "ACCELERATION TIME SERIES IN UNITS OF G";

TEST(At2, CountAndStepInEveryVariant) {
  const QByteArray data = "  .1000000E-01  .2000000E-01  .3000000E-01\n";
  for (const char* line :
       {"NPTS=   3, DT=   .0050 SEC,   0 POLE @    40.00000 HZ", "NPTS=  3, DT= .00500 SEC",
        "3    0.0050    NPTS, DT", "   NPTS=3,    DT=0.0050SEC", "npts = 3 dt: 0.005"}) {
    const RecordReading reading = ReadText(At2(kInG, line, data));
    EXPECT_EQ(reading.error, QString()) << line;
    ASSERT_EQ(reading.components.size(), 1U) << line;
    EXPECT_EQ(reading.components.front().timeStep, 0.005) << line;
    EXPECT_EQ(reading.components.front().acc,
              (std::vector<double>{.01 * 980.665, .02 * 980.665, .03 * 980.665}));
  }
}

TEST(At2, TheUnitIsTheWordBehindUnitsOf) {
  EXPECT_EQ(ReadText(Fixture(kAt2)).components.front().unit, QStringLiteral("g"));
  const auto factor = [](const QByteArray& unit) {
    const RecordReading reading =
        ReadText(At2("ACCELERATION TIME HISTORY IN UNITS OF " + unit, "NPTS= 1, DT= .01", "1.\n"));
    return reading.IsRefused() ? 0.0 : reading.components.front().factor;
  };
  EXPECT_EQ(factor("CM/SEC2"), 1.0);
  EXPECT_EQ(factor("M/S2"), 100.0);
  EXPECT_EQ(factor("GAL, PGA= 1 G"), 1.0);
  EXPECT_EQ(factor("CM/SEC"), 0.0);
}

TEST(At2, OtherThanAccelerationIsRefused) {
  EXPECT_TRUE(ReadText(At2("DISPLACEMENT TIME SERIES IN UNITS OF CM", "NPTS= 1, DT= .01", "1.\n"))
                  .error.contains(QStringLiteral("3行目：加速度の記録ではありません")));
  EXPECT_TRUE(ReadText(At2("OLD HEADERS FOLLOW", "NPTS= 1, DT= .01", "1.\n"))
                  .error.contains(QStringLiteral("見出しが7行ある AT2 の変種")));
}

TEST(At2, FewFillingZerosGoSilentlyOthersWithAWord) {
  const QByteArray row = "   .1000000E+00   .1000000E+00   .1000000E+00   .1000000E+00   .1000000E+00\n";
  const auto differs = [&](const char* count, const QByteArray& data, std::size_t samples) {
    const RecordReading reading = ReadText(At2(kInG, QByteArray("NPTS= ") + count + ", DT= .01", data));
    EXPECT_EQ(reading.components.front().acc.size(), samples);
    return static_cast<bool>(HasWord(reading.warnings, QStringLiteral("点数：ファイルの記載")));
  };
  EXPECT_FALSE(differs("6", row + "   .1000000E+00   .0   .0   .0   .0\n", 6));
  EXPECT_TRUE(differs("5", row + "   .0   .0   .0   .0   .0\n", 5));
  EXPECT_TRUE(differs("4", row, 4));
  EXPECT_TRUE(differs("6", row, 5));
  EXPECT_FALSE(differs("5", row, 5));
}

TEST(At2, AllSamplesBehindTheCountAreReadOnConsent) {
  const QByteArray content = Fixture(QStringLiteral("broken/npts_too_small.AT2"));
  const RecordReading announced = ReadText(content);
  EXPECT_EQ(announced.leftOut, 100U);
  RecordAnswers answers;
  answers.allSamples = true;
  const RecordReading all = ReadText(content, answers);
  EXPECT_EQ(all.components.front().acc.size(), 300U);
  EXPECT_EQ(all.leftOut, 0U);
  EXPECT_TRUE(HasWord(all.warnings, QStringLiteral("記載は 200 点、実際は 300 点")));
  // Zeros that fill the last row are no samples.
  EXPECT_EQ(
      ReadText(Fixture(QStringLiteral("peer/SAMPLE_RSN0_360.AT2")), answers).components.front().acc.size(),
      299U);
}

TEST(At2, TimesAndValuesAreRefusedNotReadAcross) {
  QByteArray rows;
  for (int i = 0; i < 20; ++i)
    rows += QByteArray::number(0.01 * i, 'f', 2) + " " + QByteArray::number(i % 3 - 1) + ".5\n";
  EXPECT_EQ(ReadText(At2(kInG, "NPTS= 20, DT= .01", rows)).error,
            QStringLiteral("x: 5行目：時刻と値が並んでいます。AT2 としては読めません（「0.00 -1.5」）。"));
}

TEST(At2, TouchingColumnsAndFortranExponents) {
  const RecordReading reading =
      ReadText(At2(kInG, "NPTS= 4, DT= .01", "-0.12345678E-01-0.12345678E-02\n 1.0D-03\n-.5\n"));
  EXPECT_EQ(reading.error, QString());
  ASSERT_EQ(reading.components.front().acc.size(), 4U);
  EXPECT_EQ(reading.components.front().acc[1], -0.12345678e-2 * 980.665);
  EXPECT_EQ(reading.components.front().acc[2], 1e-3 * 980.665);
}

TEST(At2, TheStepMustBeAPositiveNumber) {
  EXPECT_TRUE(
      ReadText(At2(kInG, "NPTS= 1, DT= .0000 SEC", "1.\n")).error.contains(QStringLiteral("4行目：DT")));
  EXPECT_TRUE(ReadText(Fixture(QStringLiteral("broken/no_dt.AT2"))).Asks(RecordAsk::TimeStep));
}

TEST(At2, StationComponentAndFilterAreKept) {
  const RecordReading reading = ReadText(Fixture(kAt2));
  EXPECT_EQ(reading.station, QStringLiteral("MIHON STATION"));
  EXPECT_EQ(Names(reading), QStringList{QStringLiteral("140")});
  EXPECT_TRUE(reading.corrected);
  EXPECT_TRUE(HasWord(reading.notes, QStringLiteral("-5 POLE @ .05000 HZ")));
}

// COSMOS

TEST(Cosmos, UnitsByTheirCodes) {
  const auto factor = [](const QByteArray& units) {
    const RecordReading reading = ReadText(Changed(kV2c, "units=cm/sec2(04)", "units=" + units));
    return reading.IsRefused() ? 0.0 : reading.components.front().factor;
  };
  EXPECT_EQ(factor("g       (02)"), 980.665);
  EXPECT_EQ(factor("cm/sec2 (04)"), 1.0);
  EXPECT_EQ(factor("in/s2   (07)"), 2.54);
  EXPECT_EQ(factor("gal     (10)"), 1.0);
  EXPECT_EQ(factor("mg      (11)"), 0.980665);
  for (const char* none : {"cm/s    (05)", "cm      (06)", "counts  (50)", "volt    (51)", "unknown"})
    EXPECT_EQ(factor(none), 0.0);
}

TEST(Cosmos, VelocityAndRawDataAreRefusedByName) {
  EXPECT_TRUE(ReadText(Changed(kV2c, "       2       1       4", "       2       2       5"))
                  .error.contains(QStringLiteral("加速度の記録ではありません（整数ヘッダー2 が 2）")));
}

TEST(Cosmos, TheStepIsInMillisecondsAndAskedWhenUnknown) {
  EXPECT_EQ(ReadText(Fixture(kV1)).components.front().timeStep, 0.005);
  EXPECT_TRUE(ReadText(Changed(kV2c, "    -999.000000      10.000000       2.990000",
                               "    -999.000000    -999.000000       2.990000"))
                  .Asks(RecordAsk::TimeStep));
}

TEST(Cosmos, TheNumberOfTextLinesIsObeyed) {
  const QByteArray content = Changed(kV2c, "with 13 text lines", "with 14 text lines");
  EXPECT_TRUE(ReadText(content).IsRefused());
  QByteArray longer = content;
  longer.insert(longer.indexOf(" 100 Integer"), "SAMPLE one more\n");
  EXPECT_EQ(ReadText(longer).error, QString());
}

TEST(Cosmos, MissingSamplesAreAskedAndFilled) {
  const QByteArray content = Changed(kV2c, "\n   1.747267e-02\n", "\n  -9.990000e+02\n");
  const RecordReading reading = ReadText(content);
  EXPECT_TRUE(reading.Asks(RecordAsk::Missing));
  RecordAnswers answers;
  answers.fillMissing = true;
  const RecordReading filled = ReadText(content, answers);
  EXPECT_TRUE(filled.questions.empty());
  EXPECT_TRUE(HasWord(filled.warnings, QStringLiteral("欠測：-999（349行目から349行目）の 1 点")));
  EXPECT_EQ(filled.components.front().acc.back(), filled.components.front().acc[298]);
}

TEST(Cosmos, WhatStandsForUnknownIsNamedByTheFile) {
  QByteArray content = Changed(kV2c, "\n   1.747267e-02\n", "\n  -8.880000e+02\n");
  EXPECT_FALSE(ReadText(content).Asks(RecordAsk::Missing));
  content.replace("   -999, -999.0", "   -888, -888.0");
  EXPECT_TRUE(ReadText(content).Asks(RecordAsk::Missing));
  // What is asked about is no maximum.
  EXPECT_FALSE(HasWord(ReadText(content).warnings, QStringLiteral("最大加速度")));
}

TEST(Cosmos, SpectraAreRefusedByName) {
  EXPECT_TRUE(ReadText(Changed(kV2c, "\n       2       1       4", "\n       3       1       4"))
                  .error.contains(QStringLiteral("1行目：COSMOS のスペクトルは加速度の記録ではありません")));
}

TEST(Cosmos, ANumberThatIsNoChannelGivesWayToThePlace) {
  QByteArray content = Fixture(kV1);
  const qsizetype at =
      content.indexOf("    -999    -999    -999    -999       1\n    -999    -999    -999     360");
  ASSERT_GE(at, 0);
  content.replace(at + 32, 8, "99999999");
  EXPECT_EQ(Names(ReadText(content)), (QStringList{QStringLiteral("ch1"), QStringLiteral("ch2")}));
}

TEST(Cosmos, AMaximumThatDoesNotFitIsTold) {
  EXPECT_TRUE(
      HasWord(ReadText(Changed(kV2c, "99.199610", "49.199610")).warnings, QStringLiteral("最大加速度")));
  EXPECT_TRUE(ReadText(Fixture(kV2c)).warnings.empty());
}

TEST(Cosmos, DataBehindTheCountAreRefused) {
  EXPECT_TRUE(ReadText(Changed(kV2c, "     300 acceleration pts", "     290 acceleration pts"))
                  .error.contains(QStringLiteral("記載の点数 290 の後にデータが続いています")));
}

TEST(Cosmos, ChannelsAndProvenance) {
  const RecordReading two = ReadText(Fixture(kV1));
  EXPECT_EQ(Names(two), (QStringList{QStringLiteral("ch1"), QStringLiteral("ch2")}));
  EXPECT_FALSE(two.corrected);
  EXPECT_TRUE(HasWord(two.notes, QStringLiteral("ch2 の方向：Up")));
  const RecordReading one = ReadText(Fixture(kV2c));
  EXPECT_TRUE(one.corrected);
  EXPECT_EQ(one.station, QStringLiteral("XX-SMPL"));
  EXPECT_EQ(one.start, QStringLiteral("01/01/2000, 00:00:10.000 UTC"));
  EXPECT_TRUE(HasWord(one.notes, QStringLiteral("フィルタ：No filtering")));
}

TEST(Csmip, OnlyTheAccelerationOfV2) {
  const RecordReading reading = ReadText(Fixture(kCsmip));
  EXPECT_EQ(reading.components.size(), 1U);
  EXPECT_EQ(reading.components.front().acc.size(), 200U);
  EXPECT_TRUE(reading.corrected);
  EXPECT_TRUE(ReadText(Changed(kCsmip, "Corrected accelerogram", "Uncorrected accelerogr"))
                  .error.contains(QStringLiteral("1行目：CSMIP V1")));
  EXPECT_TRUE(ReadText(Changed(kCsmip, "in cm/sec2. (8f10.6)", "in cm/sec.  (8f10.6)"))
                  .error.contains(QStringLiteral("46行目：加速度の単位ではありません")));
  EXPECT_TRUE(ReadText(Changed(kCsmip, "points of accel data", "points of veloc data"))
                  .error.contains(QStringLiteral("46行目")));
}

// GeoNet

TEST(GeoNet, TheStepOfTheDataNotOfTheLogger) {
  EXPECT_EQ(ReadText(Fixture(kV2a)).components.front().timeStep, 0.02);
  EXPECT_EQ(ReadText(Fixture(kV1a)).components.front().timeStep, 0.005);
  EXPECT_TRUE(ReadText(Changed(kV1a, "  0.0050  0.0050", "  0.0050  0.0000")).Asks(RecordAsk::TimeStep));
}

TEST(GeoNet, DoubledNamesAreNumbered) {
  const RecordReading reading = ReadText(Changed(kV1a, "Component N80W", "Component N10E"));
  EXPECT_EQ(Names(reading),
            (QStringList{QStringLiteral("N10E"), QStringLiteral("N10E_2"), QStringLiteral("Up")}));
}

TEST(GeoNet, ACutTellsWhatIsMissing) {
  const RecordReading reading = ReadText(Fixture(QStringLiteral("broken/geonet_cut.V1A")));
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("成分2（N80W）の途中で終わっています")));
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("3 成分のうち N10E だけ")));
  const QByteArray whole = Fixture(kV1a);
  EXPECT_TRUE(ReadText(whole.left(whole.size() / 6)).error.contains(QStringLiteral("成分1（N10E）の途中で")));
}

TEST(GeoNet, ABadLetterInTheLastLineIsNoCut) {
  QByteArray content = Fixture(kV1a);
  const qsizetype last = content.trimmed().lastIndexOf('\n') + 1;
  content[last + 6] = 'x';
  EXPECT_TRUE(ReadText(content).error.contains(QStringLiteral("数値でない欄があります")))
      << ReadText(content).error.toStdString();
}

TEST(GeoNet, ACutWithinTheLastNumberIsACut) {
  const QByteArray whole = Fixture(kV1a).trimmed();
  const RecordReading reading = ReadText(whole.left(whole.size() - 1));
  EXPECT_EQ(reading.components.size(), 2U);
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("成分3（Up）の途中で終わっています")));
  EXPECT_EQ(ReadText(whole).components.size(), 3U);
}

TEST(GeoNet, TheTimeOfTheEarthquakeIsNoStart) {
  const RecordReading reading = ReadText(Fixture(kV1a));
  EXPECT_EQ(reading.start, QString());
  EXPECT_TRUE(HasWord(reading.notes, QStringLiteral("地震の時刻：2000 January 01 00:00:00 UT")));
}

TEST(GeoNet, AsterisksAndCountsThatLie) {
  EXPECT_EQ(ReadText(Changed(kV1a, "     3.0     3.2", "     3.0********")).error,
            QStringLiteral("x: 27行目：数値でない欄があります（「********」）。"));
  EXPECT_TRUE(HasWord(ReadText(Changed(kV1a, "Number of points  300", "Number of points  299")).warnings,
                      QStringLiteral("記載は 299 点、実際は 300 点")));
}

TEST(GeoNet, CorrectedAndProvenance) {
  const RecordReading reading = ReadText(Fixture(kV2a));
  EXPECT_TRUE(reading.corrected);
  EXPECT_EQ(reading.station, QStringLiteral("SMPL"));
  EXPECT_TRUE(HasWord(reading.notes, QStringLiteral("前に 25 点、後に 25 点")));
  EXPECT_TRUE(HasWord(reading.notes, QStringLiteral("フィルタ：Band-pass")));
  EXPECT_FALSE(ReadText(Fixture(kV1a)).corrected);
}

// Our own

TEST(OwnWave, ReadsAsEverywhereAndTellsSilentCases) {
  const RecordReading reading = ReadText("A,0.01,0\n0,1.5\n0.02\n0.01,-2\n");
  EXPECT_EQ(reading.format, RecordFormat::OwnWave);
  EXPECT_EQ(reading.components.front().acc, (std::vector<double>{1.5, 1.5, -2.0}));
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("数値の組でない行が 1 行あります（最初は 3行目）")));
  EXPECT_EQ(ProposedName(reading, reading.components.front()), QStringLiteral("A"));
}

TEST(OwnWave, ANameThatIsANumberNeedsAThirdField) {
  EXPECT_EQ(ReadText("12, 0.01, 1\n0,1\n").format, RecordFormat::OwnWave);
  EXPECT_EQ(ReadText("0.00,1.5\n0.01,2\n").format, RecordFormat::FreeText);
  EXPECT_TRUE(HasWord(ReadText("12, 0.01, 1\n0,1\n").warnings, QStringLiteral("波形名が数値です")));
}

TEST(OwnWave, NoAnswerChangesIt) {
  RecordAnswers answers;
  answers.unit = UnitOfWord("g");
  EXPECT_TRUE(ReadText("A, 0.01, 1\n0,1\n", answers).IsRefused());
  EXPECT_TRUE(ReadText("A, 0, 1\n0,1\n").error.contains(QStringLiteral("1行目")));
  EXPECT_TRUE(ReadText("A, 0.01, 1\n").IsRefused());
}

TEST(RecordFormats, BytesThatAreNoTextAreRefusedByName) {
  ExpectRefusal(ReadText(QByteArray("ab\nc\0d\n", 7)),
                QStringLiteral("x: 2行目：テキストのファイルではありません（WIN、ANS などの形式は読めません）"
                               "（「c_d」）。"));
}

TEST(RecordFormats, ALineWithoutEndIsRefused) {
  EXPECT_EQ(ReadText(QByteArray("1 ").repeated(600000)).error,
            QStringLiteral(
                "x: 大きすぎます（1200000 バイト、上限 67108864 バイト・4000000 行・1行 1048576 バイト）。"));
  EXPECT_FALSE(ReadText(QByteArray("1 ").repeated(500000)).error.contains(QStringLiteral("大きすぎます")));
}

TEST(RecordFormats, TheNumberOfLinesIsBounded) {
  EXPECT_FALSE(ReadText(QByteArray(4000000, '\n')).error.contains(QStringLiteral("大きすぎます")));
  EXPECT_TRUE(ReadText(QByteArray(4000001, '\n')).error.contains(QStringLiteral("大きすぎます")));
}

TEST(RecordFormats, BlankLinesAreNoRecordOfAnyFormat) {
  for (const RecordFormat format :
       {RecordFormat::Unknown, RecordFormat::KnetAscii, RecordFormat::KnetCsv, RecordFormat::JmaCsv,
        RecordFormat::Cosmos, RecordFormat::Csmip, RecordFormat::GeoNet, RecordFormat::At2,
        RecordFormat::OwnWave, RecordFormat::FreeText})
    ExpectRefusal(ReadRecord("\n \n", QStringLiteral("x"), {}, {}, format),
                  QStringLiteral("x: 1行目：データがありません（「3 バイト」）。"));
}

TEST(RecordFormats, ValuesBeyondAllNumbersAreRefusedByLineAndValue) {
  EXPECT_EQ(ReadText(At2(kInG, "NPTS= 3, DT= .01", " 1.0\n 2.5E+306 3.0\n")).error,
            QStringLiteral("x: 6行目：値が大きすぎて gal で表せません（「2.5E+306」）。"));
}

TEST(RecordFormats, NoLocaleChangesANumber) {
  const test::CommaLocale locale;
  EXPECT_EQ(ReadText(Fixture(kJma)).components.front().acc.front(), -0.002);
  EXPECT_EQ(ReadText(Fixture(kAt2)).components.front().timeStep, 0.005);
}

}  // namespace
}  // namespace tremlo
