#include "core/records/EvenTimes.h"
#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr std::size_t kHeadLines = 8;
constexpr std::size_t kFieldWidth = 15;
constexpr std::size_t kMostFilling = 4;  // numbers that fill the last row of five
constexpr auto kNone = std::string_view::npos;

/// The line with count and step, in the words of either order: "NPTS= 300, DT= .01" and "300 0.01 NPTS, DT".
void ReadCountAndStep(std::string_view line, std::optional<double>& count, std::optional<double>& step) {
  count = NumberBehind(line, "NPTS");
  step = NumberBehind(line, "DT");
  if (count) return;
  double number = 0.0;
  if (!LeadingNumber(line, number)) return;
  count = number;
  if (LeadingNumber(line, number)) step = number;
}

/// The corners of the filter, of which the line of count and step may tell.
QString FilterNote(std::string_view line) {
  const std::size_t at = FindText(line, "POLE");
  if (at == kNone) return {};
  const std::size_t from = line.rfind(',', at);
  const std::string_view poles = Trimmed(line.substr(from == kNone ? at : from + 1));
  return QStringLiteral("フィルタ：") +
         QString::fromLatin1(poles.data(), static_cast<qsizetype>(poles.size())).simplified();
}

/// Numbers of one line: by columns where all of them are numbers, else between blanks. False at what is none.
bool ReadLine(std::string_view line, std::vector<double>& values, std::string_view& bad) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
  const std::size_t before = values.size();
  double value = 0.0;
  if (line.size() % kFieldWidth == 0) {
    std::size_t at = 0;
    for (; at < line.size() && FieldNumber(line.substr(at, kFieldWidth), value); at += kFieldWidth)
      values.push_back(value);
    if (at == line.size()) return true;
    values.resize(before);
  }
  for (line = Trimmed(line); !line.empty(); line = Trimmed(line)) {
    const std::string_view field = line.substr(0, line.find_first_of(" \t,"));
    if (!FieldNumber(field, value)) {
      bad = field.empty() ? line : field;
      return false;
    }
    values.push_back(value);
    line.remove_prefix(field.size());
    line = Trimmed(line);
    if (!line.empty() && line.front() == ',') line.remove_prefix(1);
  }
  return true;
}

/// Whether the numbers, two a line, are times of the stated step and values.
bool AreTimesAndValues(const std::vector<double>& numbers, std::size_t lines,
                       const std::optional<double>& step) {
  if (!step || lines < 3 || numbers.size() != 2 * lines) return false;
  std::vector<double> times;
  for (std::size_t i = 0; i < numbers.size(); i += 2) times.push_back(numbers[i]);
  const EvenTimes even = FindEvenTimes(times, *step);
  return even.kind == EvenTimes::Even && std::fabs(even.timeStep - *step) <= 0.01 * *step;
}

}  // namespace

void ReadAt2(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  reading.corrected = true;
  std::size_t countLine = 0;
  while (countLine < kHeadLines && FindWord(text.Line(countLine), "NPTS") == kNone) ++countLine;
  for (std::size_t line = 0; line < kHeadLines; ++line)
    if (HasText(text.Line(line), "OLD HEADERS FOLLOW")) {
      reading.error =
          text.Refusal(line, QStringLiteral("見出しが7行ある AT2 の変種です。この形式は読めません"),
                       Trimmed(text.Line(line)));
      return;
    }

  std::optional<RecordUnit> statedUnit;
  QString name;
  for (std::size_t line = 0; line < countLine; ++line) {
    const std::string_view bytes = text.Line(line);
    const std::size_t mark = FindText(bytes, "UNITS OF");
    const std::string_view kind = Trimmed(bytes.substr(0, mark));
    for (const std::string_view other : {"VELOCITY", "DISPLACEMENT"})
      if (FindText(kind, other) == 0) {
        reading.error = text.Refusal(line, QStringLiteral("加速度の記録ではありません"), Trimmed(bytes));
        return;
      }
    if (mark == kNone) continue;
    std::string_view word = Trimmed(bytes.substr(mark + 8));
    word = Trimmed(word.substr(0, word.find_first_of(", ")));
    statedUnit = UnitOfWord(word);
    if (!statedUnit || !HasText(kind, "ACCEL")) {
      reading.error = text.Refusal(line, QStringLiteral("加速度の単位ではありません"), Trimmed(bytes));
      return;
    }
    if (line > 0) {
      // Event, date, station, component stand on the line before.
      const std::vector<std::string_view> cells = Cells(text.Line(line - 1));
      if (cells.size() > 1) name = text.Decode(cells.back()).simplified();
      if (cells.size() > 2) reading.station = text.Decode(cells[cells.size() - 2]).simplified();
    }
  }

  if (!statedUnit) {
    std::vector<RecordUnit> units;
    for (std::size_t line = 0; line <= countLine; ++line)
      for (const RecordUnit& unit : UnitsInText(text.PlainLine(line))) units.push_back(unit);
    const auto same = [&](const RecordUnit& unit) { return unit.gal == units.front().gal; };
    if (!units.empty() && std::all_of(units.begin(), units.end(), same)) statedUnit = units.front();
  }

  std::optional<double> announced;
  std::optional<double> stated;
  ReadCountAndStep(text.Line(countLine), announced, stated);
  if (stated && (!std::isfinite(*stated) || *stated <= 0.0)) {
    reading.error =
        text.Refusal(countLine, QStringLiteral("DT が正の数値ではありません"), Trimmed(text.Line(countLine)));
    return;
  }
  const QString filter = FilterNote(text.Line(countLine));
  if (!filter.isEmpty()) reading.notes.push_back(filter);

  reading.dataLines.push_back({countLine + 1, text.Size()});
  RecordComponent component;
  component.name = name;
  std::size_t linesOfData = 0;
  for (std::size_t line = countLine + 1; line < text.Size(); ++line) {
    std::string_view bad;
    if (!Trimmed(text.Line(line)).empty()) ++linesOfData;
    if (ReadLine(text.Line(line), component.acc, bad)) continue;
    reading.error = text.Refusal(
        line, QStringLiteral("%1番目の値が数値ではありません").arg(component.acc.size() + 1), bad);
    return;
  }
  const std::size_t found = component.acc.size();
  if (AreTimesAndValues(component.acc, linesOfData, stated)) {
    reading.error =
        text.Refusal(countLine + 1, QStringLiteral("時刻と値が並んでいます。AT2 としては読めません"),
                     Trimmed(text.Line(countLine + 1)));
    return;
  }
  if (found == 0) {
    reading.error = text.Refusal(countLine, QStringLiteral("この後に加速度のデータがありません"),
                                 Trimmed(text.Line(countLine)));
    return;
  }
  if (announced && *announced >= 1.0 && *announced < 1e9) {
    const auto count = static_cast<std::size_t>(*announced);
    const auto filling = [&] {
      return found - count <= kMostFilling &&
             std::all_of(component.acc.begin() + static_cast<std::ptrdiff_t>(count), component.acc.end(),
                         [](double a) { return a == 0.0; });
    };
    const bool differs = found < count || (found > count && !filling());
    if (differs) reading.Warn(CountsDiffer(count, found));
    if (found > count && !(differs && answers.allSamples)) {
      component.acc.resize(count);
      if (differs) reading.leftOut = found - count;
    }
  } else {
    reading.Warn(QStringLiteral("点数：NPTS の数値がありません。%1 点を読みました。").arg(found));
  }
  if (const auto step = ChooseTimeStep(stated, answers, reading)) component.timeStep = *step;
  ToGal(component, ChooseUnit(statedUnit, answers, reading));
  reading.components.push_back(std::move(component));
}

}  // namespace tremlo
