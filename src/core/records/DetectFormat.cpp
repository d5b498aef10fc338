#include "core/records/DetectFormat.h"

#include "core/records/OwnWave.h"

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;

/// The first of the lines before `end` that has the word; kNone when none has it.
std::size_t LineWith(const RecordText& text, std::string_view word, std::size_t end) {
  for (std::size_t line = 0; line < end && line < text.Size(); ++line)
    if (FindWord(text.Line(line), word) != kNone) return line;
  return kNone;
}

bool HasLineStarting(const RecordText& text, std::string_view start, std::size_t end) {
  for (std::size_t line = 0; line < end && line < text.Size(); ++line)
    if (text.Line(line).starts_with(start)) return true;
  return false;
}

/// Count and step on one line, or a count under a line of the unit: a file whose step is lost stays known.
bool IsAt2(const RecordText& text, std::size_t& line) {
  constexpr std::size_t kHead = 8;
  line = LineWith(text, "NPTS", kHead);
  if (line == kNone) return false;
  if (FindWord(text.Line(line), "DT") != kNone) return true;
  for (std::size_t above = 0; above < line; ++above)
    if (HasText(text.Line(above), "IN UNITS OF")) return true;
  return false;
}

}  // namespace

RecordFormat DetectFormat(const RecordText& text, QString& sign) {
  const std::string_view first = text.Line(0);
  const auto line = [](std::size_t index, const QString& words) {
    return QStringLiteral("%1行目の %2").arg(QString::number(index + 1), words);
  };
  if (first.starts_with("Origin Time") && (HasLineStarting(text, "Station Code", 20) || text.Size() < 20)) {
    sign = line(0, QStringLiteral("Origin Time"));
    return RecordFormat::KnetAscii;
  }
  if (Trimmed(first) == "#K-NET CSV") {
    sign = line(0, QStringLiteral("#K-NET CSV"));
    return RecordFormat::KnetCsv;
  }
  if (Trimmed(first).starts_with("SITE CODE") && LineWith(text, "INITIAL TIME", 7) != kNone) {
    sign = line(0, QStringLiteral("SITE CODE"));
    return RecordFormat::JmaCsv;
  }
  if (HasText(first, "acceleration") && HasText(first, "(Format v")) {
    sign = line(0, QStringLiteral("(Format v"));
    return RecordFormat::Cosmos;
  }
  if (HasText(first, "ccelerogram") && HasText(first, "GNS Science")) {
    sign = line(0, QStringLiteral("GNS Science"));
    return RecordFormat::GeoNet;
  }
  for (std::size_t i = 0; i < 2; ++i)
    if (HasText(text.Line(i), "UNCORRECTED ACCELEROGRAM DATA")) {
      sign = line(i, QStringLiteral("Uncorrected Accelerogram Data"));
      return RecordFormat::Csmip;
    }
  std::size_t counted = 0;
  if (IsAt2(text, counted)) {
    sign = line(counted, QStringLiteral("NPTS"));
    return RecordFormat::At2;
  }
  if (StartsAsWave(text.Content())) {
    sign = line(0, QStringLiteral("「波形名, 時間間隔」"));
    return RecordFormat::OwnWave;
  }
  sign = QStringLiteral("決まった形式の目印がありません");
  return RecordFormat::FreeText;
}

}  // namespace tremlo
