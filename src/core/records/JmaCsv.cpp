#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <QStringList>

#include <algorithm>

namespace tremlo {

namespace {

constexpr std::size_t kMostHeaderLines = 12;

bool IsDirection(std::string_view cell) {
  return cell == "NS" || cell == "EW" || cell == "UD";
}

/// The names above the columns: cells that are directions, empty ones behind them.
bool IsColumnNames(std::string_view line, std::vector<QString>& names) {
  names.clear();
  bool ended = false;
  for (const std::string_view cell : Cells(line)) {
    if (cell.empty()) {
      ended = true;
    } else if (ended || !IsDirection(cell)) {
      return false;
    } else {
      names.push_back(QString::fromLatin1(cell.data(), static_cast<qsizetype>(cell.size())));
    }
  }
  return !names.empty();
}

/// The text behind the "=" of a header line, up to the first comma.
std::string_view ValueOf(std::string_view line) {
  const std::size_t mark = line.find('=');
  if (mark == std::string_view::npos) return {};
  line.remove_prefix(mark + 1);
  return Trimmed(line.substr(0, line.find(',')));
}

/// "2000 01 01 00 00 10" or "95 01 01 ..." as a date with a time.
QString StartOf(const QString& value) {
  QStringList parts = value.simplified().split(u' ');
  if (parts.size() != 6) return {};
  bool sound = true;
  int year = parts[0].toInt(&sound);
  if (!sound) return {};
  if (year < 100) year += year < 50 ? 2000 : 1900;
  for (QString& part : parts)
    if (part.section(u'.', 0, 0).size() < 2) part.prepend(u'0');  // the seconds may have decimals
  return QStringLiteral("%1-%2-%3 %4:%5:%6 JST")
      .arg(QString::number(year), parts[1], parts[2], parts[3], parts[4], parts[5]);
}

bool IsEmptyLine(std::string_view line) {
  return line.find_first_not_of(" \t,") == std::string_view::npos;
}

}  // namespace

void ReadJmaCsv(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  std::vector<QString> names;
  std::optional<double> stated;
  std::optional<RecordUnit> statedUnit;
  std::size_t line = 0;
  for (;; ++line) {
    if (line == std::min(kMostHeaderLines, text.Size())) {
      reading.error = text.Refusal(line - 1, QStringLiteral("列の名前の行（NS,EW,UD）がありません"),
                                   Trimmed(text.Line(line - 1)));
      return;
    }
    const std::string_view bytes = text.Line(line);
    if (IsColumnNames(bytes, names)) break;
    const std::string_view value = ValueOf(bytes);
    const std::string_view key = Trimmed(bytes);
    if (key.starts_with("SITE CODE")) {
      reading.station = text.Decode(value).simplified();
    } else if (key.starts_with("SAMPLING RATE") || key.starts_with("Sampling Freq")) {
      std::string_view rest = value;
      double rate = 0.0;
      if (!LeadingNumber(rest, rate) || rate <= 0.0 || !(rest.empty() || Trimmed(rest) == "Hz")) {
        reading.error =
            text.Refusal(line, QStringLiteral("サンプリング周波数が正の数値ではありません"), value);
        return;
      }
      stated = 1.0 / rate;
    } else if (key.starts_with("UNIT")) {
      statedUnit = UnitOfWord(Trimmed(value.substr(0, value.find('('))));
      if (!statedUnit) {
        reading.error = text.Refusal(line, QStringLiteral("加速度の単位ではありません"), value);
        return;
      }
    } else if (key.starts_with("INITIAL TIME")) {
      reading.start = StartOf(text.Decode(value));
    }
  }

  std::vector<RecordComponent> components(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) components[i].name = names[i];
  std::size_t last = text.Size();
  while (last > line + 1 && IsEmptyLine(text.Line(last - 1))) --last;
  if (last == line + 1) {
    reading.error =
        text.Refusal(line, QStringLiteral("この後に加速度のデータがありません"), Trimmed(text.Line(line)));
    return;
  }
  reading.dataLines.push_back({line + 1, last});
  for (++line; line < last; ++line) {
    const std::vector<std::string_view> cells = Cells(text.Line(line));
    for (std::size_t i = 0; i < std::max(cells.size(), names.size()); ++i) {
      const std::string_view cell = i < cells.size() ? cells[i] : std::string_view();
      double value = 0.0;
      if (i >= names.size()) {
        if (cell.empty()) continue;
        reading.error = text.Refusal(line, QStringLiteral("名前のない列に値があります"), cell);
        return;
      }
      if (!FieldNumber(cell, value)) {
        reading.error = text.Refusal(line,
                                     names[i] + (cell.empty() ? QStringLiteral(" の値がありません")
                                                              : QStringLiteral(" の値が数値ではありません")),
                                     cell.empty() ? text.Line(line) : cell);
        return;
      }
      components[i].acc.push_back(value);
    }
  }
  const std::optional<double> step = ChooseTimeStep(stated, answers, reading);
  const std::optional<RecordUnit> unit = ChooseUnit(statedUnit, answers, reading);
  for (RecordComponent& component : components) {
    if (step) component.timeStep = *step;
    ToGal(component, unit);
  }
  reading.components = std::move(components);
}

}  // namespace tremlo
