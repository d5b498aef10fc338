#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kTextLines = 25;
constexpr std::size_t kHeaderLines = 45;  // text, integers (7), reals (13)

bool IsEndLine(std::string_view line) {
  return Trimmed(line).starts_with("/&");
}

/// The line above a block of data, such as "200 points of accel data equally spaced at .020 sec, in cm/sec2.
/// (8f10.6)".
struct DataLine {
  std::size_t count = 0;
  double timeStep = 0.0;
  std::optional<RecordUnit> unit;
  FieldFormat format;
};

std::optional<DataLine> ReadDataLine(std::string_view line, std::string_view kind) {
  DataLine data;
  std::string_view rest = line;
  double count = 0.0;
  const std::size_t spaced = FindText(line, "equally spaced at");
  const auto format = FindFieldFormat(line);
  if (!LeadingNumber(rest, count) || !HasText(rest, "points of") || !HasText(rest, kind) || spaced == kNone ||
      !format || count < 0.0 || count > 1e7)
    return std::nullopt;
  rest = line.substr(spaced + 17);
  if (!LeadingNumber(rest, data.timeStep)) return std::nullopt;
  const std::size_t in = FindText(rest, ", in ");
  if (in == kNone) return std::nullopt;
  rest = Trimmed(rest.substr(in + 5));
  rest = rest.substr(0, rest.find_first_of(" ("));
  if (rest.ends_with('.')) rest.remove_suffix(1);
  data.unit = UnitOfWord(rest);
  data.count = static_cast<std::size_t>(count);
  data.format = *format;
  return data;
}

/// The direction behind "Chan  1:", in degrees or in words.
QString DirectionOf(const RecordText& text, std::size_t first) {
  for (std::size_t line = first; line < first + kTextLines; ++line) {
    const std::string_view bytes = text.Line(line);
    const std::size_t channel = FindText(bytes, "Chan");
    const std::size_t colon = channel == kNone ? kNone : bytes.find(':', channel);
    if (colon == kNone) continue;
    std::string_view rest = bytes.substr(colon + 1);
    double azimuth = 0.0;
    if (LeadingNumber(rest, azimuth) && azimuth >= 0.0 && azimuth <= 360.0)
      return QStringLiteral("%1").arg(static_cast<int>(azimuth), 3, 10, QLatin1Char('0'));
    rest = Trimmed(rest);
    return text.Decode(rest.substr(0, rest.find(' '))).simplified();
  }
  return {};
}

}  // namespace

void ReadCsmip(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  if (!HasText(text.Line(0), "Corrected accelerogram") || HasText(text.Line(0), "Uncorrected")) {
    reading.error =
        text.Refusal(0, QStringLiteral("CSMIP V1（無補正）の形式は読めません"), Trimmed(text.Line(0)));
    return;
  }
  reading.corrected = true;
  std::size_t line = 0;
  while (line < text.Size()) {
    if (Trimmed(text.Line(line)).empty()) {
      ++line;
      continue;
    }
    const std::size_t first = line;
    const auto refuse = [&](const QString& reason, std::size_t at) {
      at = std::min(at, text.Size() - 1);
      reading.components.clear();
      reading.error = text.Refusal(at, reason, Trimmed(text.Line(at)));
    };
    line += kHeaderLines;
    const auto data = ReadDataLine(text.Line(line), "accel");
    if (!data) return refuse(QStringLiteral("CSMIP V2 の加速度のデータの行がありません"), line);
    if (!data->unit) return refuse(QStringLiteral("加速度の単位ではありません"), line);
    RecordComponent component;
    component.name = DirectionOf(text, first);
    // Velocity and displacement follow under lines of their own, which are text.
    for (const std::string_view kind : {"accel", "veloc", "displ"}) {
      const auto block = ReadDataLine(text.Line(line), kind);
      if (!block) {
        if (line < text.Size() && !IsEndLine(text.Line(line)))
          return refuse(QStringLiteral("速度か変位のデータの行がありません"), line);
        break;
      }
      FieldBlock values = ReadFields(text, line + 1, block->count, block->format, IsEndLine);
      if (!values.error.isEmpty()) {
        reading.components.clear();
        reading.error = values.error;
        return;
      }
      if (values.values.size() != block->count)
        reading.Warn(CountsDiffer(block->count, values.values.size(), component.name));
      if (kind == "accel") {
        reading.dataLines.push_back({line + 1, values.next});
        component.acc = std::move(values.values);
      }
      line = values.next;
    }
    if (component.acc.empty())
      return refuse(QStringLiteral("この後に加速度のデータがありません"), first + kHeaderLines);
    while (line < text.Size() && Trimmed(text.Line(line)).empty()) ++line;
    if (line < text.Size()) {
      if (!IsEndLine(text.Line(line)))
        return refuse(QStringLiteral("データの終わりの行（/&）がありません"), line);
      ++line;
    } else {
      reading.Warn(QStringLiteral("データの終わりの行（/&）がありません。"));
    }
    if (const auto step = ChooseTimeStep(data->timeStep, answers, reading)) component.timeStep = *step;
    ToGal(component, ChooseUnit(data->unit, answers, reading));
    reading.components.push_back(std::move(component));
  }
  reading.station = text.Decode(Trimmed(text.Line(6))).simplified();
  const std::size_t start = FindText(text.Line(4), "Start time:");
  if (start != kNone) reading.start = text.Decode(Trimmed(text.Line(4).substr(start + 11))).simplified();
  for (std::size_t at = 0; at < kTextLines; ++at)
    if (HasText(text.Line(at), "filtered"))
      reading.notes.push_back(QStringLiteral("フィルタ：") +
                              text.Decode(Trimmed(text.Line(at))).simplified());
}

}  // namespace tremlo
