#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <array>
#include <cmath>

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kMostTextLines = 200;
constexpr std::size_t kMostSamples = 10'000'000;

struct UnitCode {
  int code;
  const char* name;
  double gal;  ///< 0: no acceleration
};
constexpr std::array<UnitCode, 5> kUnitCodes = {
    {{2, "g", 980.665}, {4, "cm/s2", 1.0}, {7, "in/s2", 2.54}, {10, "gal", 1.0}, {11, "mg", 0.980665}}};

std::optional<RecordUnit> UnitOfCode(int code) {
  for (const UnitCode& unit : kUnitCodes)
    if (unit.code == code) return RecordUnit{QString::fromLatin1(unit.name), unit.gal};
  return std::nullopt;
}

bool IsEndLine(std::string_view line) {
  return Trimmed(line).starts_with("End-of-data") || Trimmed(line).starts_with("/&");
}
bool IsNever(std::string_view) {
  return false;
}

QString RawData() {
  return QStringLiteral("COSMOS の生データ（カウント、電圧）は加速度に換算できません");
}

/// The whole number before a word.
std::optional<std::size_t> CountBefore(std::string_view line, std::string_view word) {
  std::string_view rest = line;
  double count = 0.0;
  if (FindText(line, word) == kNone || !LeadingNumber(rest, count)) return std::nullopt;
  if (count < 0.0 || count > static_cast<double>(kMostSamples) || count != std::floor(count))
    return std::nullopt;
  return static_cast<std::size_t>(count);
}

/// One channel: its headers and where its data begin.
struct Channel {
  std::vector<double> whole;  ///< the integer header
  std::vector<double> real;   ///< the real header
  std::size_t count = 0;
  int unitCode = 0;
  FieldFormat format;
  std::size_t textLine = 0;  ///< its first line
  std::size_t countLine = 0;
  std::size_t line = 0;  ///< its first line of data
};

/// A header block: its leading line, then its numbers.
bool ReadBlock(const RecordText& text, const char* words, std::size_t& line, std::vector<double>& values,
               QString& error) {
  const auto count = CountBefore(text.Line(line), words);
  const auto format = FindFieldFormat(text.Line(line));
  if (!count || !format || *count < 100) {
    error = text.Refusal(std::min(line, text.Size() - 1),
                         QStringLiteral("ヘッダー（%1）がありません").arg(QLatin1String(words)),
                         Trimmed(text.Line(line)));
    return false;
  }
  FieldBlock block = ReadFields(text, line + 1, *count, *format, IsNever);
  error = block.error;
  if (error.isEmpty() && block.values.size() < *count)
    error = text.Refusal(text.Size() - 1,
                         QStringLiteral("ヘッダーの途中で終わっています（%1 個のうち %2 個）")
                             .arg(*count)
                             .arg(block.values.size()),
                         Trimmed(text.Line(text.Size() - 1)));
  line = block.next;
  values = std::move(block.values);
  return error.isEmpty();
}

/// Reads the headers of the channel that begins at `line`.
bool ReadHeaders(const RecordText& text, std::size_t line, Channel& channel, QString& error) {
  channel.textLine = line;
  std::size_t textLines = 13;
  const std::string_view first = text.Line(line);
  const std::size_t with = FindText(first, " with ");
  if (with != kNone) {
    std::string_view rest = first.substr(with + 6);
    double count = 0.0;
    if (LeadingNumber(rest, count) && count >= 1.0 && count <= static_cast<double>(kMostTextLines))
      textLines = static_cast<std::size_t>(count);
  }
  line += textLines;
  if (!ReadBlock(text, "Integer-header", line, channel.whole, error)) return false;
  const auto refuse = [&](const QString& reason, std::size_t at) {
    error = text.Refusal(at, reason, Trimmed(text.Line(at)));
    return false;
  };
  if (channel.whole[1] != 1.0)
    return refuse(
        QStringLiteral("COSMOS の加速度の記録ではありません（整数ヘッダー2 が %1）").arg(channel.whole[1]),
        channel.textLine);
  // Before the real header: the large counts of raw data run over its columns.
  if (channel.whole[2] == 50.0 || channel.whole[2] == 51.0) return refuse(RawData(), channel.textLine);
  if (!ReadBlock(text, "Real-header", line, channel.real, error)) return false;
  if (const auto comments = CountBefore(text.Line(line), "Comment")) line += *comments + 1;
  const std::string_view bytes = text.Line(line);
  const auto count = CountBefore(bytes, "units=");
  const auto format = FindFieldFormat(bytes);
  const std::size_t units = FindText(bytes, "units=");
  const std::size_t bracket = units == kNone ? kNone : bytes.find('(', units);
  double code = -1.0;
  std::string_view rest = bracket == kNone ? std::string_view() : bytes.substr(bracket + 1);
  if (!count || !format || !LeadingNumber(rest, code) || !rest.starts_with(')')) {
    error =
        text.Refusal(std::min(line, text.Size() - 1),
                     QStringLiteral("点数と単位の行（pts, units=, Format=）がありません"), Trimmed(bytes));
    return false;
  }
  channel.count = *count;
  channel.unitCode = static_cast<int>(code);
  channel.format = *format;
  channel.countLine = line;
  channel.line = line + 1;
  return true;
}

/// Whether a header number is one that the file itself calls unknown.
bool IsUnknown(double value) {
  return value == -999.0;
}

QString NameOfAzimuth(double azimuth) {
  if (azimuth == 400.0) return QStringLiteral("Up");
  if (azimuth == 401.0) return QStringLiteral("Down");
  if (azimuth == 402.0) return QStringLiteral("Vert");
  if (azimuth < 1.0 || azimuth > 360.0) return {};
  return QStringLiteral("%1").arg(static_cast<int>(azimuth), 3, 10, QLatin1Char('0'));
}

/// The text behind a word of a text line, up to two blanks or the end.
QString TextBehind(const RecordText& text, std::size_t line, std::string_view word) {
  const std::string_view bytes = text.Line(line);
  const std::size_t at = FindText(bytes, word);
  if (at == kNone) return {};
  const std::string_view rest = Trimmed(bytes.substr(at + word.size()));
  return text.Decode(rest.substr(0, rest.find("  "))).simplified();
}

/// -999 among the samples is a marker, no acceleration.
void TreatMissing(std::vector<double>& acc, std::size_t firstLine, FieldFormat format,
                  const RecordAnswers& answers, RecordReading& reading) {
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = 0; i < acc.size(); ++i)
    if (IsUnknown(acc[i]) && count++ == 0) first = i;
  if (count == 0) return;
  if (!answers.fillMissing) {
    reading.Ask(RecordAsk::Missing, QStringLiteral("欠測の印 -999 が %1 点あります（最初は %2行目）。")
                                        .arg(count)
                                        .arg(firstLine + first / format.repeat + 1));
    return;
  }
  FillMissing(acc, [](double a) { return IsUnknown(a); });
  reading.warnings.push_back(QStringLiteral("欠測：%1 点を前後の値から直線で補いました。").arg(count));
}

/// The maximum that the header states checks unit and count in one.
void CheckMaximum(const Channel& channel, const RecordComponent& component, RecordReading& reading) {
  const double stated = std::fabs(channel.real[63]);
  if (IsUnknown(channel.real[63]) || stated == 0.0 || channel.count != component.acc.size()) return;
  double largest = 0.0;
  for (const double a : component.acc) largest = std::max(largest, std::fabs(a));
  const double rest = PeakOf(component.acc).pga;
  if (std::fabs(largest - stated) <= 0.01 * stated || std::fabs(rest - stated) <= 0.01 * stated) return;
  reading.warnings.push_back(
      QStringLiteral("最大加速度：ファイルの記載は %1、値の最大は %2 です（ファイルの単位）。")
          .arg(QString::number(stated, 'g', 6), QString::number(largest, 'g', 6)));
}

}  // namespace

void ReadCosmos(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  std::vector<Channel> channels;
  std::size_t line = 0;
  while (line < text.Size()) {
    if (Trimmed(text.Line(line)).empty()) {
      ++line;
      continue;
    }
    Channel channel;
    if (!ReadHeaders(text, line, channel, reading.error)) break;
    const auto refuse = [&](const QString& reason, std::size_t at) {
      reading.error = text.Refusal(at, reason, Trimmed(text.Line(at)));
    };
    const std::optional<RecordUnit> unit = UnitOfCode(channel.unitCode);
    if (!unit) {
      refuse(channel.unitCode == 50 || channel.unitCode == 51 ? RawData()
                                                              : QStringLiteral("加速度の単位ではありません"),
             channel.countLine);
      break;
    }
    FieldBlock block = ReadFields(text, channel.line, channel.count, channel.format, IsEndLine);
    reading.error = block.error;
    if (!reading.error.isEmpty()) break;
    if (block.values.empty()) {
      refuse(QStringLiteral("この後に加速度のデータがありません"), channel.countLine);
      break;
    }
    reading.dataLines.push_back({channel.line, block.next});
    if (block.values.size() != channel.count)
      reading.warnings.push_back(CountsDiffer(channel.count, block.values.size()));
    const double intoHeader = channel.whole[2];
    if (!IsUnknown(intoHeader) && static_cast<int>(intoHeader) != channel.unitCode)
      reading.warnings.push_back(QStringLiteral("単位：整数ヘッダー3 は %1、データの行は %2 です。")
                                     .arg(intoHeader)
                                     .arg(channel.unitCode));
    line = block.next;
    while (line < text.Size() && Trimmed(text.Line(line)).empty()) ++line;
    if (line < text.Size() && IsEndLine(text.Line(line))) {
      ++line;
    } else if (line < text.Size() && block.values.size() == channel.count &&
               !HasText(text.Line(line), "(Format v")) {
      refuse(QStringLiteral("記載の点数 %1 の後にデータが続いています").arg(channel.count), line);
      break;
    } else {
      reading.warnings.push_back(QStringLiteral("データの終わりの行（End-of-data）がありません。"));
    }

    RecordComponent component;
    component.acc = std::move(block.values);
    TreatMissing(component.acc, channel.line, channel.format, answers, reading);
    CheckMaximum(channel, component, reading);
    const double interval = channel.real[61];
    const auto stated =
        interval > 0.0 && !IsUnknown(interval) ? std::optional<double>(interval / 1000.0) : std::nullopt;
    if (const auto step = ChooseTimeStep(stated, answers, reading)) component.timeStep = *step;
    ToGal(component, ChooseUnit(unit, answers, reading));
    reading.components.push_back(std::move(component));
    channels.push_back(std::move(channel));
  }
  if (reading.IsRefused()) {
    reading.components.clear();
    return;
  }
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const QString azimuth = NameOfAzimuth(channels[i].whole[53]);
    const auto number = static_cast<int>(channels[i].whole[49]);
    const QString ordinal =
        QStringLiteral("ch%1").arg(channels.size() > 1 && number < 1 ? static_cast<int>(i) + 1 : number);
    // Of several channels two may point the same way: their numbers tell them apart.
    reading.components[i].name = channels.size() > 1 || azimuth.isEmpty() ? ordinal : azimuth;
    if (channels.size() > 1 && !azimuth.isEmpty())
      reading.notes.push_back(QStringLiteral("%1 の方向：%2").arg(ordinal, azimuth));
  }
  reading.corrected = channels.front().whole[0] == 2.0;
  reading.station = TextBehind(text, 4, "Code:");
  reading.start = TextBehind(text, 7, "start time:");
  if (reading.start.contains(u'(')) reading.start = reading.start.section(u'(', 0, 0).simplified();
  if (reading.corrected)
    reading.notes.push_back(QStringLiteral("フィルタ：") + text.Decode(Trimmed(text.Line(11))).simplified());
}

}  // namespace tremlo
