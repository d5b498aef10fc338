#include "core/records/RecordFixtures.h"
#include "core/records/RecordUnit.h"

#include <QDir>
#include <QStringList>

#include <map>

namespace tremlo {
namespace {

struct Expected {
  QString file, member, component, result, unit, note;
  std::size_t count = 0;
  double timeStep = 0.0;
  double first = 0.0, second = 0.0, third = 0.0, last = 0.0, mean = 0.0, pga = 0.0;
  std::size_t peakAt = 0;
  bool hasFigures = false;
};

/// The cells of a line with quoted ones.
QStringList QuotedCells(const QString& line) {
  QStringList cells(QString{});
  bool quoted = false;
  for (const QChar c : line) {
    if (c == u'"') {
      quoted = !quoted;
    } else if (c == u',' && !quoted) {
      cells << QString();
    } else {
      cells.back() += c;
    }
  }
  return cells;
}

std::vector<Expected> ExpectedRows() {
  const QStringList lines =
      QString::fromUtf8(test::Fixture(QStringLiteral("expected.csv"))).split(u'\n', Qt::SkipEmptyParts);
  std::vector<Expected> rows;
  for (const QString& line : lines.mid(1)) {
    const QStringList cells = QuotedCells(line);
    Expected row{cells[0], cells[1], cells[2], cells[3], cells[6], cells.value(14)};
    row.hasFigures = !cells[4].isEmpty();
    row.count = cells[4].toULongLong();
    row.timeStep = cells[5].toDouble();
    row.first = cells[7].toDouble();
    row.second = cells[8].toDouble();
    row.third = cells[9].toDouble();
    row.last = cells[10].toDouble();
    row.mean = cells[11].toDouble();
    row.pga = cells[12].toDouble();
    row.peakAt = cells[13].toULongLong();
    rows.push_back(row);
  }
  return rows;
}

/// What a user who knows the record answers.
RecordAnswers AnswersOf(const Expected& row, const RecordReading& reading) {
  RecordAnswers answers;
  if (reading.Asks(RecordAsk::Unit))
    answers.unit = UnitOfWord(QString(row.unit).remove(QStringLiteral(" (user)")).toStdString());
  if (reading.Asks(RecordAsk::TimeStep)) answers.timeStep = row.timeStep;
  if (reading.Asks(RecordAsk::DecimalComma)) answers.decimalComma = true;
  return answers;
}

void ExpectFigures(const Expected& row, const RecordComponent& component) {
  constexpr double kPrinted = 1.1e-6;
  ASSERT_EQ(component.acc.size(), row.count);
  EXPECT_EQ(component.timeStep, row.timeStep);
  EXPECT_EQ(component.unit, QString(row.unit).remove(QStringLiteral(" (user)")));
  EXPECT_NEAR(component.acc[0], row.first, kPrinted);
  EXPECT_NEAR(component.acc[1], row.second, kPrinted);
  EXPECT_NEAR(component.acc[2], row.third, kPrinted);
  EXPECT_NEAR(component.acc.back(), row.last, kPrinted);
  const RecordPeak peak = PeakOf(component.acc);
  EXPECT_NEAR(peak.mean, row.mean, kPrinted);
  EXPECT_NEAR(peak.pga, row.pga, kPrinted);
  EXPECT_EQ(peak.at, row.peakAt);
}

const RecordReading* ReadingOf(const std::vector<RecordReading>& readings, const QString& member) {
  for (const RecordReading& reading : readings)
    if (reading.member == member) return &reading;
  return nullptr;
}

const RecordComponent* ComponentOf(const RecordReading& reading, const QString& name) {
  for (const RecordComponent& component : reading.components)
    if (component.name == name) return &component;
  return nullptr;
}

std::string Text(const std::vector<QString>& texts) {
  std::string all;
  for (const QString& text : texts) all += text.toStdString() + '\n';
  return all;
}

TEST(RecordFixtures, EveryFileGivesItsExpectedFigures) {
  const std::vector<Expected> rows = ExpectedRows();
  EXPECT_EQ(rows.size(), 116U);
  for (const Expected& row : rows) {
    SCOPED_TRACE((row.file + u' ' + row.member + u' ' + row.component).toStdString());
    const QString path = test::FixturePath(row.file);
    std::vector<RecordReading> readings = ReadRecordFile(path);
    ASSERT_FALSE(readings.empty());
    if (row.result == u"refuse") {
      const RecordReading& refused = readings.back();
      EXPECT_TRUE(refused.IsRefused());
      EXPECT_TRUE(refused.components.empty());
      EXPECT_TRUE(refused.error.startsWith(QDir::toNativeSeparators(path))) << refused.error.toStdString();
      continue;
    }
    const RecordReading* reading = ReadingOf(readings, row.member);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->error, QString());
    const bool user = row.unit.endsWith(QStringLiteral("(user)"));
    if (row.result == u"ask") {
      EXPECT_FALSE(reading->questions.empty());
    } else if (!user) {
      EXPECT_TRUE(reading->questions.empty());
    }
    if (!row.hasFigures) continue;
    const RecordAnswers answers = AnswersOf(row, *reading);
    readings = ReadRecordFile(path, answers);
    reading = ReadingOf(readings, row.member);
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->questions.empty());
    const RecordComponent* component = ComponentOf(*reading, row.component);
    ASSERT_TRUE(component);
    ExpectFigures(row, *component);
    if (row.result == u"warn") {
      EXPECT_FALSE(reading->warnings.empty());
    } else {
      EXPECT_EQ(Text(reading->warnings), "");
    }
  }
}

TEST(RecordFixtures, EveryFormatIsRecognisedByItsContent) {
  const std::map<QString, RecordFormat> formats = {
      {QStringLiteral("knet/SMP0010001010000.EW"), RecordFormat::KnetAscii},
      {QStringLiteral("kiknet/SMPH010001010000.NS1"), RecordFormat::KikNetAscii},
      {QStringLiteral("knet/SAMPLE_SMP001.csv"), RecordFormat::KnetCsv},
      {QStringLiteral("jma/SAMPLE_99901.csv"), RecordFormat::JmaCsv},
      {QStringLiteral("jma/SAMPLE_order_utf8.csv"), RecordFormat::JmaCsv},
      {QStringLiteral("peer/SAMPLE_west1_090.AT2"), RecordFormat::At2},
      {QStringLiteral("broken/no_dt.AT2"), RecordFormat::At2},
      {QStringLiteral("broken/three_header_lines.AT2"), RecordFormat::At2},
      {QStringLiteral("cosmos/SAMPLE_2ch.v1"), RecordFormat::Cosmos},
      {QStringLiteral("cosmos/SAMPLE_csmip.V2"), RecordFormat::Csmip},
      {QStringLiteral("geonet/SAMPLE_SMPL.V1A"), RecordFormat::GeoNet},
      {QStringLiteral("text/SAMPLE_own_format.csv"), RecordFormat::OwnWave},
      {QStringLiteral("text/SAMPLE_time_3comp.csv"), RecordFormat::FreeText},
      {QStringLiteral("text/SAMPLE_eight_a_line_g.dat"), RecordFormat::FreeText}};
  for (const auto& [name, format] : formats)
    // The name must not help.
    EXPECT_EQ(test::ReadText(test::Fixture(name)).format, format) << name.toStdString();
}

TEST(RecordFixtures, TheBrokenOnesAreRefusedWithFileLineAndValue) {
  const std::map<QString, QString> errors = {
      {QStringLiteral("truncated_header.EW"),
       QStringLiteral(
           "12行目：ヘッダーに Scale Factor がないまま終わっています（「Duration Time(s)  3」）。")},
      {QStringLiteral("header_cut_in_line.EW"),
       QStringLiteral("14行目：Scale Factor が「数値(gal)/数値」ではありません（「3920(ga」）。")},
      {QStringLiteral("no_scale.EW"),
       QStringLiteral("14行目：Scale Factor が「数値(gal)/数値」ではありません（「(gal)/6182761」）。")},
      {QStringLiteral("zero_scale.EW"),
       QStringLiteral("14行目：Scale Factor が「数値(gal)/数値」ではありません（「3920(gal)/0」）。")},
      {QStringLiteral("zero_rate.EW"),
       QStringLiteral("11行目：Sampling Freq(Hz) が正の数値ではありません（「0Hz」）。")},
      {QStringLiteral("nan_text.EW"), QStringLiteral("28行目：84番目の値が整数ではありません（「NaN」）。")},
      {QStringLiteral("empty.EW"), QStringLiteral("1行目：データがありません（「0 バイト」）。")},
      {QStringLiteral("jma_missing_cell.csv"), QStringLiteral("58行目：EW の値がありません（")},
      {QStringLiteral("jma_unit_count.csv"),
       QStringLiteral("5行目：加速度の単位ではありません（「count」）。")},
      {QStringLiteral("fortran_stars.AT2"), QStringLiteral("25行目：")},
      {QStringLiteral("velocity.AT2"),
       QStringLiteral("3行目：加速度の記録ではありません（「VELOCITY TIME SERIES IN UNITS OF CM/S」）。")},
      {QStringLiteral("cosmos_header_cut.v2"), QStringLiteral("ヘッダーの途中で終わっています")},
      {QStringLiteral("cosmos_counts.v0c"),
       QStringLiteral(
           "1行目：COSMOS の生データ（カウント、電圧）は加速度に換算できません（「Raw acceleration counts")},
      {QStringLiteral("text_uneven_time.txt"),
       QStringLiteral("92行目：時刻が等間隔ではありません（間隔 0.01 秒のはずです）（「0.92 29.183」）。")},
      {QStringLiteral("text_nan.txt"), QStringLiteral("72行目：数値でない値があります（「#N/A」）。")},
      {QStringLiteral("text_header_only.txt"),
       QStringLiteral("2行目：数値だけの行がないまま終わっています（「Time(s) Acc(gal)」）。")},
      {QStringLiteral("zeros_bomb.gz"),
       QStringLiteral("1行目：テキストのファイルではありません（WIN、ANS などの形式は読めません）")},
      {QStringLiteral("cut.knt.tar.gz"),
       QStringLiteral("の後で壊れているか、途中で切れています（「gzip が途中で切れています」）。")},
      {QStringLiteral("letter_in_data.EW"), QStringLiteral("22行目：")}};
  for (const auto& [name, error] : errors) {
    const QString path = test::FixturePath(QStringLiteral("broken/") + name);
    const RecordReading reading = ReadRecordFile(path).back();
    EXPECT_TRUE(reading.error.startsWith(QDir::toNativeSeparators(path))) << reading.error.toStdString();
    EXPECT_TRUE(reading.error.contains(error)) << reading.error.toStdString();
    EXPECT_TRUE(reading.error.endsWith(QStringLiteral("」）。"))) << reading.error.toStdString();
    EXPECT_TRUE(reading.components.empty());
  }
}

}  // namespace
}  // namespace tremlo
