#include "core/records/MissingSamples.h"
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
  double code;
  const char* name;
  double gal;  ///< 0: no acceleration
};
constexpr std::array<UnitCode, 5> kUnitCodes = {
    {{2, "g", 980.665}, {4, "cm/s2", 1.0}, {7, "in/s2", 2.54}, {10, "gal", 1.0}, {11, "mg", 0.980665}}};

std::optional<RecordUnit> UnitOfCode(double code) {
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
bool IsRawUnit(double code) {
  return code == 50.0 || code == 51.0;
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
  std::vector<double> whole;     ///< the integer header
  std::vector<double> real;      ///< the real header
  double unknownWhole = -999.0;  ///< stands in the integer header for what is not known
  double unknownReal = -999.0;   ///< in the real header and among the samples
  std::size_t count = 0;
  double unitCode = 0.0;
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

/// The two values that stand for what is not known, as the last of the text lines names them.
void ReadUnknown(std::string_view line, Channel& channel) {
  const std::size_t colon = line.rfind(':');
  if (colon == kNone) return;
  const std::vector<std::string_view> cells = Cells(line.substr(colon + 1));
  if (cells.size() != 2) return;
  FieldNumber(cells[0], channel.unknownWhole);
  FieldNumber(cells[1], channel.unknownReal);
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
  ReadUnknown(text.Line(line - 1), channel);
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
  if (IsRawUnit(channel.whole[2])) return refuse(RawData(), channel.textLine);
  if (channel.whole[0] == 3.0)
    return refuse(QStringLiteral("COSMOS のスペクトルは加速度の記録ではありません（整数ヘッダー1 が 3）"),
                  channel.textLine);
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
  channel.unitCode = code;
  channel.format = *format;
  channel.countLine = line;
  channel.line = line + 1;
  return true;
}

QString NameOfAzimuth(double azimuth) {
  if (azimuth == 400.0) return QStringLiteral("Up");
  if (azimuth == 401.0) return QStringLiteral("Down");
  if (azimuth == 402.0) return QStringLiteral("Vert");
  if (azimuth < 1.0 || azimuth > 360.0) return {};
  return QStringLiteral("%1").arg(static_cast<int>(azimuth), 3, 10, QLatin1Char('0'));
}

/// "ch2" by the number that the header gives, else by its place in the file.
QString NameOfChannel(const Channel& channel, std::size_t index) {
  const double number = channel.whole[49];
  const bool isNumber = number >= 1.0 && number < 1e6;
  return QStringLiteral("ch%1").arg(isNumber ? static_cast<std::size_t>(number) : index + 1);
}

/// The text behind a word of a text line, up to two blanks or the end.
QString TextBehind(const RecordText& text, std::size_t line, std::string_view word) {
  const std::string_view bytes = text.Line(line);
  const std::size_t at = FindText(bytes, word);
  if (at == kNone) return {};
  const std::string_view rest = Trimmed(bytes.substr(at + word.size()));
  return text.Decode(rest.substr(0, rest.find("  "))).simplified();
}

/// The maximum that the header states checks unit and count in one.
void CheckMaximum(const Channel& channel, const RecordComponent& component, RecordReading& reading) {
  const double stated = std::fabs(channel.real[63]);
  if (channel.real[63] == channel.unknownReal || stated == 0.0 || channel.count != component.acc.size())
    return;
  double largest = 0.0;
  for (const double a : component.acc) largest = std::max(largest, std::fabs(a));
  const double rest = PeakOf(component.acc).pga;
  if (std::fabs(largest - stated) <= 0.01 * stated || std::fabs(rest - stated) <= 0.01 * stated) return;
  reading.Warn(QStringLiteral("%1：最大加速度：ファイルの記載は %2、値の最大は %3 です（ファイルの単位）。")
                   .arg(component.name, QString::number(stated, 'g', 6), QString::number(largest, 'g', 6)));
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
      refuse(IsRawUnit(channel.unitCode) ? RawData() : QStringLiteral("加速度の単位ではありません"),
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
    RecordComponent component;
    component.name = NameOfChannel(channel, channels.size());
    reading.dataLines.push_back({channel.line, block.next});
    if (block.values.size() != channel.count)
      reading.Warn(CountsDiffer(channel.count, block.values.size(), component.name));
    const double intoHeader = channel.whole[2];
    if (intoHeader != channel.unknownWhole && intoHeader != channel.unitCode)
      reading.Warn(QStringLiteral("単位：整数ヘッダー3 は %1、データの行は %2 です。")
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
      reading.Warn(QStringLiteral("データの終わりの行（End-of-data）がありません。"));
    }

    component.acc = std::move(block.values);
    // -999 among the samples is a marker, no acceleration.
    TreatMissing(
        component.acc, [&](double a) { return a == channel.unknownReal; },
        [&](std::size_t i) { return channel.line + i / channel.format.repeat; }, answers, reading);
    if (!reading.Asks(RecordAsk::Missing)) CheckMaximum(channel, component, reading);
    const double interval = channel.real[61];
    const auto stated = interval > 0.0 && interval != channel.unknownReal
                            ? std::optional<double>(interval / 1000.0)
                            : std::nullopt;
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
    if (azimuth.isEmpty()) continue;
    if (channels.size() == 1) {
      reading.components[i].name = azimuth;
    } else {
      // Of several channels two may point the same way: their numbers tell them apart.
      reading.notes.push_back(QStringLiteral("%1 の方向：%2").arg(reading.components[i].name, azimuth));
    }
  }
  reading.corrected = channels.front().whole[0] == 2.0;
  reading.station = TextBehind(text, 4, "Code:");
  reading.start = TextBehind(text, 7, "start time:");
  if (reading.start.contains(u'(')) reading.start = reading.start.section(u'(', 0, 0).simplified();
  if (reading.corrected)
    reading.notes.push_back(QStringLiteral("フィルタ：") + text.Decode(Trimmed(text.Line(11))).simplified());
}

}  // namespace tremlo
