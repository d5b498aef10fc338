#include "core/records/RecordFixtures.h"
#include "core/records/RecordUnit.h"

#include <cmath>
#include <functional>

namespace tremlo {
namespace {

using test::HasWord;
using test::ReadText;

/// Rows of a text, each made by a function of its number.
QByteArray Rows(int count, const std::function<QString(int)>& row) {
  QString text;
  for (int i = 0; i < count; ++i) text += row(i) + u'\n';
  return text.toUtf8();
}
QString Number(double value, int decimals = 3) {
  return QString::number(value, 'f', decimals);
}
double Value(int i) {
  return std::sin(0.3 * i) * 50.0 * std::sin(3.14159265 * i / 199.0);
}
QByteArray TimeAndValue(int count = 200) {
  return Rows(count, [](int i) { return Number(0.01 * i, 2) + u' ' + Number(Value(i)); });
}

TEST(FreeText, NoUnitIsAskedNeverTaken) {
  const RecordReading reading = ReadText("made up\n" + TimeAndValue());
  EXPECT_TRUE(reading.Asks(RecordAsk::Unit));
  EXPECT_TRUE(reading.components.front().unit.isEmpty());
  EXPECT_TRUE(std::isnan(reading.components.front().factor));
  RecordAnswers answers;
  answers.unit = UnitOfWord("m/s2");
  const RecordReading answered = ReadText("made up\n" + TimeAndValue(), answers);
  EXPECT_TRUE(answered.questions.empty());
  EXPECT_EQ(answered.components.front().acc[7], Number(Value(7)).toDouble() * 100.0);
}

TEST(FreeText, TwoUnitsInTheHeadingAreNone) {
  EXPECT_TRUE(ReadText("gal or (g)\n" + TimeAndValue()).Asks(RecordAsk::Unit));
  EXPECT_FALSE(ReadText("gal = cm/s2\n" + TimeAndValue()).Asks(RecordAsk::Unit));
}

TEST(FreeText, StepsOfTheHeading) {
  const QByteArray column = Rows(200, [](int i) { return Number(Value(i)); });
  const auto step = [&](const QByteArray& heading) {
    const RecordReading reading = ReadText(heading + '\n' + column);
    return reading.components.front().timeStep;
  };
  EXPECT_EQ(step("gal dt 0.005"), 0.005);
  EXPECT_EQ(step("gal DT=0.02 s"), 0.02);
  EXPECT_EQ(step("gal dt: 5 ms"), 0.005);
  EXPECT_EQ(step("gal sampling rate 100 Hz"), 0.01);
  EXPECT_EQ(step("時間間隔 0.01 gal"), 0.01);
  EXPECT_EQ(step("gal\n200 0.0100"), 0.01);
  // Corners of a filter are no rate.
  EXPECT_TRUE(std::isnan(step("gal freq 0.1 Hz to 25 Hz")));
  EXPECT_TRUE(std::isnan(step("gal")));
}

TEST(FreeText, CountAndStepAboveTwoColumnsAreNoRow) {
  const RecordReading reading = ReadText("gal\n200 0.0100\n" + TimeAndValue());
  EXPECT_EQ(reading.error, QString());
  ASSERT_EQ(reading.components.size(), 1U);
  EXPECT_EQ(reading.components.front().acc.size(), 200U);
  EXPECT_EQ(reading.components.front().timeStep, 0.01);
  EXPECT_TRUE(HasWord(ReadText("gal\n201 0.0100\n" + TimeAndValue()).warnings,
                      QStringLiteral("記載は 201 点、実際は 200 点")));
}

TEST(FreeText, ColumnsWithoutTimesAreAsked) {
  const QByteArray content =
      "gal dt 0.01\n" + Rows(200, [](int i) {
        return Number(Value(i)) + u' ' + Number(Value(i + 3)) + u' ' + Number(-Value(i));
      });
  const RecordReading asked = ReadText(content);
  ASSERT_EQ(asked.questions.size(), 1U);
  EXPECT_TRUE(asked.questions.front().text.contains(QStringLiteral("3 成分（各 200 点）")));
  EXPECT_TRUE(asked.questions.front().text.contains(QStringLiteral("1 成分（600 点）")));
  RecordAnswers answers;
  answers.layout = RecordLayout::Across;
  EXPECT_EQ(ReadText(content, answers).components.front().acc.size(), 600U);
  answers.layout = RecordLayout::Columns;
  EXPECT_EQ(ReadText(content, answers).components.size(), 3U);
  EXPECT_TRUE(ReadText(content, answers).questions.empty());
}

TEST(FreeText, FormatsAndManyColumnsAreReadAcross) {
  const auto row = [](int i) { return Number(Value(2 * i)) + u' ' + Number(Value(2 * i + 1)); };
  EXPECT_EQ(ReadText("gal dt 0.01 (2F10.3)\n" + Rows(100, row)).components.front().acc.size(), 200U);
  const auto five = [](int i) {
    QString text;
    for (int k = 0; k < 5; ++k) text += Number(Value(5 * i + k)) + u' ';
    return text;
  };
  const RecordReading reading = ReadText("gal dt 0.01 NPTS 203\n" + Rows(40, five) + "1.0 2.0 3.0 0.0\n");
  EXPECT_TRUE(reading.questions.empty());
  // What fills the last row goes.
  EXPECT_EQ(reading.components.front().acc.size(), 203U);
  EXPECT_EQ(reading.components.front().acc.back(), 3.0);
}

TEST(FreeText, BadCellsAreRefusedNeverZero) {
  const auto error = [](const char* line) {
    return ReadText("gal\n" + TimeAndValue(50) + line + '\n' + "0.51 1.0\n0.52 1.0\n").error;
  };
  EXPECT_EQ(error("0.50 NaN"), QStringLiteral("x: 52行目：数値でない値があります（「NaN」）。"));
  EXPECT_EQ(error("0.50 ****"), QStringLiteral("x: 52行目：数値でない値があります（「****」）。"));
  EXPECT_EQ(error("0.50 1.2x"), QStringLiteral("x: 52行目：数値でない値があります（「1.2x」）。"));
  EXPECT_EQ(error("0.50 1.0 7"), QStringLiteral("x: 52行目：欄の数が 2 ではありません（「0.50 1.0 7」）。"));
  EXPECT_EQ(error("0.50"), QStringLiteral("x: 52行目：欄の数が 2 ではありません（「0.50」）。"));
  EXPECT_EQ(error("0.50,,1.0"), QStringLiteral("x: 52行目：数値でない値があります（「0.50,,1.0」）。"));
  const QByteArray column = "gal dt 0.01\n" + Rows(50, [](int i) { return Number(Value(i)); });
  EXPECT_EQ(ReadText(column + "inf\n1.0\n").error,
            QStringLiteral("x: 52行目：数値でない値があります（「inf」）。"));
  EXPECT_EQ(ReadText(column + "O.5\n1.0\n").error,
            QStringLiteral("x: 52行目：数値でない値があります（「O.5」）。"));
}

TEST(FreeText, AShortRowAtTheEndOfColumnsIsRefused) {
  EXPECT_TRUE(ReadText("gal\n" + TimeAndValue() + "2.00\n").error.contains(QStringLiteral("202行目")));
}

TEST(FreeText, ASecondBlockIsLeftAndTold) {
  const RecordReading reading = ReadText("gal\n" + TimeAndValue() + "\nVELOCITY (cm/s)\n" + TimeAndValue());
  EXPECT_EQ(reading.components.front().acc.size(), 200U);
  EXPECT_TRUE(
      HasWord(reading.warnings, QStringLiteral("203行目から後は読んでいません（「VELOCITY (cm/s)」）")));
}

TEST(FreeText, CommentsAndBlankLinesAtTheEnd) {
  const RecordReading reading =
      ReadText("# gal\n% made up\n! x\n// y\n| z\n" + TimeAndValue() + "# end\n\n\n");
  EXPECT_EQ(reading.error, QString());
  EXPECT_EQ(reading.components.front().acc.size(), 200U);
  EXPECT_TRUE(reading.warnings.empty());
}

TEST(FreeText, SeparatorsOfEveryKind) {
  for (const QString& separator : {QStringLiteral(","), QStringLiteral(", "), QStringLiteral("\t"),
                                   QStringLiteral(";"), QStringLiteral("  "), QStringLiteral("，")}) {
    const RecordReading reading = ReadText(
        "gal\n" + Rows(200, [&](int i) { return Number(0.01 * i, 2) + separator + Number(Value(i)); }));
    ASSERT_EQ(reading.components.size(), 1U) << separator.toStdString();
    EXPECT_EQ(reading.components.front().acc[9], Number(Value(9)).toDouble());
    EXPECT_EQ(reading.components.front().timeStep, 0.01);
  }
}

TEST(FreeText, DecimalCommasAreAskedWithAnySeparator) {
  for (const QString& separator : {QStringLiteral(";"), QStringLiteral(" "), QStringLiteral("\t")}) {
    const QByteArray content =
        "gal\n" + Rows(200, [&](int i) {
          return QString(Number(0.01 * i, 2) + separator + Number(Value(i))).replace(u'.', u',');
        });
    EXPECT_TRUE(ReadText(content).Asks(RecordAsk::DecimalComma)) << separator.toStdString();
    EXPECT_TRUE(ReadText(content).components.empty());
    RecordAnswers answers;
    answers.decimalComma = true;
    const RecordReading reading = ReadText(content, answers);
    ASSERT_EQ(reading.components.size(), 1U);
    EXPECT_EQ(reading.components.front().acc[9], Number(Value(9)).toDouble());
  }
  // Two whole numbers, or one with a decimal comma: nobody can know.
  const QByteArray whole = "gal dt 0.01\n" + Rows(50, [](int i) {
                             return QString::number(i % 7) + u',' + QString::number(i % 5);
                           });
  EXPECT_TRUE(ReadText(whole).Asks(RecordAsk::DecimalComma));
  RecordAnswers answers;
  answers.decimalComma = false;
  answers.layout = RecordLayout::Columns;
  EXPECT_EQ(ReadText(whole, answers).components.size(), 2U);
}

TEST(FreeText, MarkersAreAskedAndFilled) {
  const QString path = test::FixturePath(QStringLiteral("text/SAMPLE_missing_marker.txt"));
  const RecordReading asked = ReadRecordFile(path).front();
  ASSERT_TRUE(asked.Asks(RecordAsk::Missing));
  EXPECT_TRUE(asked.questions.front().text.contains(
      QStringLiteral("欠測の印 -9999 が 3 点あります（122行目から124行目）")));
  RecordAnswers answers;
  answers.fillMissing = true;
  answers.unit = UnitOfWord("gal");
  const RecordReading filled = ReadRecordFile(path, answers).front();
  EXPECT_TRUE(filled.questions.empty());
  EXPECT_DOUBLE_EQ(filled.components.front().acc[121], (-23.893 + 25.613) / 2.0);
}

TEST(FreeText, NineHundredAndNinetyNineIsAMarkerWhenRepeated) {
  QByteArray once = "gal\n" + TimeAndValue();
  once.replace("\n0.10 " + Number(Value(10)).toUtf8() + '\n', "\n0.10 -999\n");
  const RecordReading reading = ReadText(once);
  EXPECT_TRUE(reading.questions.empty());
  EXPECT_EQ(reading.components.front().acc[10], -999.0);
  once.replace("\n0.20 " + Number(Value(20)).toUtf8() + '\n', "\n0.20 -999.0\n");
  EXPECT_TRUE(ReadText(once).Asks(RecordAsk::Missing));
}

TEST(FreeText, RoundedTimesWithoutAStepAreAsked) {
  QByteArray content = test::Fixture(QStringLiteral("text/SAMPLE_time_rounded.txt"));
  content.replace("DT=0.005 s", "");
  EXPECT_TRUE(ReadText(content).Asks(RecordAsk::TimeStep));
  content = test::Fixture(QStringLiteral("text/SAMPLE_time_rounded.txt"));
  content.replace("DT=0.005 s", "DT=0.01 s ");
  const RecordReading wrong = ReadText(content);
  EXPECT_TRUE(wrong.Asks(RecordAsk::TimeStep));
  EXPECT_TRUE(HasWord(wrong.warnings, QStringLiteral("見出しは 0.01 秒ですが")));
}

TEST(FreeText, AHeadingThatContradictsTheTimesIsTold) {
  const RecordReading reading = ReadText("gal dt 0.02\n" + TimeAndValue());
  EXPECT_EQ(reading.components.front().timeStep, 0.01);
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("見出しは 0.02 秒、時刻の列は 0.01 秒")));
}

TEST(FreeText, FewerThanTenRowsAreAsked) {
  const QByteArray nine = "gal\n" + TimeAndValue(9);
  const RecordReading asked = ReadText(nine);
  EXPECT_EQ(asked.error, QString());
  ASSERT_TRUE(asked.Asks(RecordAsk::Lines));
  EXPECT_TRUE(asked.questions.front().text.contains(QStringLiteral("（2行目から10行目の間に 9 行）")));
  RecordAnswers answers;
  answers.firstLine = 2;
  const RecordReading answered = ReadText(nine, answers);
  EXPECT_TRUE(answered.questions.empty());
  ASSERT_EQ(answered.components.size(), 1U);
  EXPECT_EQ(answered.components.front().acc.size(), 9U);
  EXPECT_TRUE(ReadText("gal\n" + TimeAndValue(10)).questions.empty());
}

TEST(FreeText, FirstAndLastLineAreThoseOfTheAnswer) {
  const QByteArray content = "gal\n" + TimeAndValue(40) + "ANOTHER BLOCK\n" + TimeAndValue(30);
  RecordAnswers answers;
  answers.firstLine = 43;
  const RecordReading second = ReadText(content, answers);
  EXPECT_EQ(second.error, QString());
  EXPECT_EQ(second.components.front().acc.size(), 30U);
  answers.firstLine = 2;
  answers.lastLine = 21;
  const RecordReading part = ReadText(content, answers);
  EXPECT_EQ(part.components.front().acc.size(), 20U);
  EXPECT_FALSE(HasWord(part.warnings, QStringLiteral("読んでいません")));
  answers.firstLine = 42;
  answers.lastLine.reset();
  EXPECT_EQ(ReadText(content, answers).error,
            QStringLiteral(
                "x: 42行目：指定した最初の行（42行目）が数値だけの行ではありません（「ANOTHER BLOCK」）。"));
  for (const std::size_t none : {0U, 1000U}) {
    answers.firstLine = none;
    EXPECT_TRUE(ReadText(content, answers).IsRefused());
  }
}

TEST(FreeText, DecimalCommasAreAskedOfAFirstLineToo) {
  RecordAnswers answers;
  answers.firstLine = 2;
  const QByteArray content = "gal\n0,00;0,058\n0,01;-0,082\n0,02;0,039\n";
  EXPECT_TRUE(ReadText(content, answers).Asks(RecordAsk::DecimalComma));
  answers.decimalComma = true;
  EXPECT_EQ(ReadText(content, answers).components.front().acc, (std::vector<double>{0.058, -0.082, 0.039}));
}

TEST(FreeText, VelocityAndDisplacementAreNoAcceleration) {
  const auto rows = Rows(50, [](int i) {
    return Number(0.01 * i, 2) + u',' + Number(Value(i)) + u',' + Number(0.1 * Value(i)) + u',' +
           Number(0.01 * Value(i));
  });
  for (const char* titles : {"Time(s),Acc(gal),Vel(cm/s),Dis(cm)",
                             "Time (s), Acc (gal), Vel (kine), Disp (mm)", "# time gal velocity displacement",
                             "時刻,加速度(gal),速度(cm/s),変位(cm)", "gal\n時刻,加速度,速度,変位"}) {
    const RecordReading reading = ReadText(QByteArray(titles) + '\n' + rows);
    EXPECT_EQ(reading.error, QString()) << titles;
    ASSERT_EQ(reading.components.size(), 1U) << titles;
    EXPECT_EQ(reading.components.front().unit, QStringLiteral("gal")) << titles;
    EXPECT_EQ(reading.components.front().acc[7], Number(Value(7)).toDouble()) << titles;
    EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("は加速度ではないので読みません。"))) << titles;
  }
  EXPECT_EQ(ReadText("gal\nTime(s) Vel(cm/s)\n" + TimeAndValue()).error,
            QStringLiteral("x: 2行目：加速度の列がありません（「Time(s) Vel(cm/s)」）。"));
}

TEST(FreeText, ManyColumnsReadAcrossAreTold) {
  const QByteArray rows = Rows(40, [](int i) {
    QString text;
    for (int k = 0; k < 6; ++k) text += Number(Value(6 * i + k)) + u' ';
    return text;
  });
  EXPECT_TRUE(HasWord(ReadText("gal dt 0.01\n" + rows).warnings,
                      QStringLiteral("6 列を、横に続く 1 成分（240 点）として読みました")));
  RecordAnswers answers;
  answers.layout = RecordLayout::Across;
  for (const RecordReading& sure :
       {ReadText("gal dt 0.01\n" + rows, answers), ReadText("gal dt 0.01 (6F8.3)\n" + rows),
        ReadText("gal dt 0.01 NPTS 240\n" + rows)})
    EXPECT_FALSE(HasWord(sure.warnings, QStringLiteral("並び")));
}

TEST(FreeText, CutAnywhereItNeverCrashes) {
  for (const char* name : {"text/SAMPLE_time_3comp.csv", "text/SAMPLE_utf16_tab.txt",
                           "text/SAMPLE_headers31.txt", "knet/SMP0010001010000.EW", "knet/SAMPLE_SMP001.csv",
                           "jma/SAMPLE_99901.csv", "peer/SAMPLE_smd_140.AT2", "cosmos/SAMPLE_2ch.v1",
                           "cosmos/SAMPLE_csmip.V2", "geonet/SAMPLE_SMPL.V2A"}) {
    const QByteArray whole = test::Fixture(QString::fromLatin1(name));
    const qsizetype step = std::max<qsizetype>(1, whole.size() / 400);
    for (qsizetype size = 0; size < whole.size(); size += step) {
      const RecordReading reading = ReadText(whole.left(size));
      EXPECT_TRUE(reading.IsRefused() || !reading.components.empty() || !reading.questions.empty())
          << name << size;
    }
  }
}

}  // namespace
}  // namespace tremlo
