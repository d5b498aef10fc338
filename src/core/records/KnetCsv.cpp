#include "core/records/KnetDirection.h"
#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <cmath>

namespace tremlo {

namespace {

constexpr std::size_t kTimeColumns = 2;

std::string_view WithoutMark(std::string_view line) {
  line.remove_prefix(1);
  return Trimmed(line);
}

/// "N-S(gal)" or "4(gal)" taken apart; false without a unit in brackets.
bool SplitColumnName(std::string_view cell, QString& name, std::optional<RecordUnit>& unit) {
  const std::size_t bracket = cell.find('(');
  if (bracket == std::string_view::npos || !cell.ends_with(')')) return false;
  unit = UnitOfWord(cell.substr(bracket + 1, cell.size() - bracket - 2));
  const std::string_view direction = Trimmed(cell.substr(0, bracket));
  name =
      ComponentOfDirection(QString::fromLatin1(direction.data(), static_cast<qsizetype>(direction.size())));
  return true;
}

struct CsvHeader {
  std::optional<double> timeStep;
  std::optional<double> duration;
  std::size_t columnsLine = 0;  ///< that names the columns
  std::size_t size = 0;
};

bool ReadHeader(const RecordText& text, CsvHeader& header, RecordReading& reading) {
  bool columns = false;
  while (header.size < text.Size() && text.Line(header.size).starts_with('#')) {
    const std::size_t at = header.size++;
    const std::string_view name = WithoutMark(text.Line(at));
    const std::string_view below = text.Line(header.size);
    const std::string_view value = below.starts_with('#') ? WithoutMark(below) : std::string_view();
    double number = 0.0;
    if (name.starts_with("SamplingFrequency")) {
      if (!FieldNumber(value, number) || number <= 0.0) {
        reading.error = text.Refusal(header.size,
                                     QStringLiteral("SamplingFrequency(Hz) が正の数値ではありません"), value);
        return false;
      }
      header.timeStep = 1.0 / number;
    } else if (name.starts_with("DurationTime")) {
      if (FieldNumber(value, number) && number >= 0.0) header.duration = number;
    } else if (name.starts_with("Code,")) {
      reading.station = text.Decode(Cells(value).front());
    } else if (name.starts_with("Time,RelativeTime")) {
      columns = true;
      header.columnsLine = at;
    }
  }
  if (!columns)
    reading.error = text.Refusal(header.size == 0 ? 0 : header.size - 1,
                                 QStringLiteral("列の名前の行 #Time,RelativeTime(s),… がありません"),
                                 text.Line(header.size == 0 ? 0 : header.size - 1));
  return columns;
}

}  // namespace

void ReadKnetCsv(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  CsvHeader header;
  if (!ReadHeader(text, header, reading)) return;
  const std::vector<std::string_view> names = Cells(WithoutMark(text.Line(header.columnsLine)));
  std::vector<RecordComponent> components;
  std::vector<std::optional<RecordUnit>> units;
  for (std::size_t i = kTimeColumns; i < names.size(); ++i) {
    RecordComponent component;
    std::optional<RecordUnit> unit;
    if (!SplitColumnName(names[i], component.name, unit) || !unit) {
      reading.error =
          text.Refusal(header.columnsLine, QStringLiteral("列の単位が加速度ではありません"), names[i]);
      return;
    }
    components.push_back(std::move(component));
    units.push_back(unit);
  }
  if (components.empty()) {
    reading.error = text.Refusal(header.columnsLine, QStringLiteral("加速度の列がありません"),
                                 text.Line(header.columnsLine));
    return;
  }
  const std::optional<double> step = ChooseTimeStep(header.timeStep, answers, reading);

  // An answer against the file is told, and the times are those of the file.
  const std::optional<double> even = header.timeStep ? header.timeStep : step;
  reading.dataLines.push_back({header.size, text.Size()});
  double firstTime = 0.0;
  std::size_t end = text.Size();
  while (end > header.size && Trimmed(text.Line(end - 1)).empty()) --end;
  for (std::size_t line = header.size; line < end; ++line) {
    const std::vector<std::string_view> cells = Cells(text.Line(line));
    if (cells.size() != names.size()) {
      reading.error =
          text.Refusal(line, QStringLiteral("欄の数が %1 ではありません").arg(names.size()), text.Line(line));
      return;
    }
    double time = 0.0;
    if (!FieldNumber(cells[1], time)) {
      reading.error = text.Refusal(line, QStringLiteral("時刻が数値ではありません"), cells[1]);
      return;
    }
    const std::size_t index = components.front().acc.size();
    if (index == 0) {
      firstTime = time;
      reading.start = text.Decode(cells[0]) + QStringLiteral(" JST");
    }
    // The times are printed with two decimals at every rate.
    if (even && std::fabs(time - firstTime - static_cast<double>(index) * *even) > 0.0101) {
      reading.error = text.Refusal(line, QStringLiteral("時刻が等間隔ではありません"), cells[1]);
      return;
    }
    for (std::size_t i = 0; i < components.size(); ++i) {
      double value = 0.0;
      if (!FieldNumber(cells[i + kTimeColumns], value)) {
        reading.error = text.Refusal(line, components[i].name + QStringLiteral(" の値が数値ではありません"),
                                     cells[i + kTimeColumns]);
        return;
      }
      components[i].acc.push_back(value);
    }
  }
  const std::size_t found = components.front().acc.size();
  if (found == 0) {
    reading.error = text.Refusal(header.columnsLine, QStringLiteral("この後に加速度のデータがありません"),
                                 text.Line(header.columnsLine));
    return;
  }
  if (header.timeStep && header.duration && *header.duration / *header.timeStep < 1e9) {
    const auto announced = static_cast<std::size_t>(std::llround(*header.duration / *header.timeStep));
    if (announced != found) reading.Warn(CountsDiffer(announced, found));
  }
  for (std::size_t i = 0; i < components.size(); ++i) {
    if (step) components[i].timeStep = *step;
    ToGal(components[i], ChooseUnit(units[i], answers, reading));
  }
  reading.components = std::move(components);
}

}  // namespace tremlo
