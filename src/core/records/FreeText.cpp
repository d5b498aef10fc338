#include "core/records/ColumnTitle.h"
#include "core/records/EvenTimes.h"
#include "core/records/FreeTextRows.h"
#include "core/records/MissingSamples.h"
#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;

/// What the lines above the data say.
struct Heading {
  std::optional<double> timeStep;
  std::optional<std::size_t> count;
  std::vector<RecordUnit> units;
  std::vector<std::string> titles;  ///< of the columns; empty when the last line names none
  std::size_t titleLine = 0;
  bool across = false;  ///< a format such as (8F10.3)
};

/// The step that a line states, as such or as a rate.
std::optional<double> StepOf(std::string_view line) {
  for (const std::string_view word :
       {"DT", "DELTAT", "DELTA T", "TIME STEP", "TIMESTEP", "STEP", "時間間隔"}) {
    std::string_view unit;
    if (const auto value = NumberBehind(line, word, &unit))
      return FindText(unit, "ms") == 0 ? *value / 1000.0 : *value;
  }
  const bool named = HasText(line, "sampl") || HasText(line, "rate") || HasText(line, "freq") ||
                     HasText(line, "サンプリング") || HasText(line, "周波数");
  const std::size_t hertz = FindText(line, "Hz");
  // Two figures in hertz are the corners of a filter.
  if (hertz == kNone || !named || FindText(line, "Hz", hertz + 1) != kNone) return std::nullopt;
  std::string_view before = line.substr(0, hertz);
  before = Trimmed(before.substr(0, before.find_last_of("0123456789.") + 1));
  const std::size_t from = before.find_last_not_of("0123456789.");
  double rate = 0.0;
  if (!FieldNumber(before.substr(from == kNone ? 0 : from + 1), rate) || rate <= 0.0) return std::nullopt;
  return 1.0 / rate;
}

Heading ReadHeading(const RecordText& text, const FreeTextRows& rows) {
  Heading heading;
  for (std::size_t line = 0; line < rows.First(); ++line) {
    const std::string plain = text.PlainLine(line);
    for (const RecordUnit& unit : UnitsInText(plain))
      if (std::find(heading.units.begin(), heading.units.end(), unit) == heading.units.end())
        heading.units.push_back(unit);
    if (!heading.timeStep) heading.timeStep = StepOf(plain);
    if (!heading.count)
      if (const auto count = NumberBehind(plain, "NPTS"); count && *count >= 1.0 && *count < 1e9)
        heading.count = static_cast<std::size_t>(*count);
    if (const auto format = FindFieldFormat(plain); format && format->repeat > 1) heading.across = true;
  }
  if (rows.CountAndStep()) {
    if (!heading.count) heading.count = rows.CountAndStep()->count;
    if (!heading.timeStep) heading.timeStep = rows.CountAndStep()->timeStep;
  }
  for (std::size_t line = rows.First(); line-- > 0;) {
    const std::string plain = text.PlainLine(line);
    if (Trimmed(plain).empty()) continue;
    heading.titles = ColumnTitles(plain, rows.Columns());
    heading.titleLine = line;
    break;
  }
  return heading;
}

/// The unit of a column by its title, else the one unit of the heading.
std::optional<RecordUnit> UnitOf(const Heading& heading, std::size_t column) {
  if (column < heading.titles.size()) {
    const std::vector<RecordUnit> units = UnitsInText(heading.titles[column]);
    if (units.size() == 1) return units.front();
  }
  if (heading.units.empty()) return std::nullopt;
  const auto same = [&](const RecordUnit& unit) { return unit.gal == heading.units.front().gal; };
  if (!std::all_of(heading.units.begin(), heading.units.end(), same)) return std::nullopt;
  return heading.units.front();
}

/// Values that stand for no sample. -999 is a good acceleration when it comes once.
bool IsMarker(double a) {
  return a == -9999.0 || a == 9999.0 || a == 1e10 || a == -1e10 || a == -99999.0 || a == 99999.0;
}

/// Asks about such values in each component, or fills them.
void TreatMarkers(const FreeTextRows& rows, std::vector<RecordComponent>& components, bool across,
                  const RecordAnswers& answers, RecordReading& reading) {
  for (RecordComponent& component : components) {
    const bool repeated = std::count(component.acc.begin(), component.acc.end(), -999.0) > 1;
    TreatMissing(
        component.acc, [&](double a) { return IsMarker(a) || (repeated && a == -999.0); },
        [&](std::size_t i) { return rows.LineOfRow(across ? i / rows.Columns() : i); }, answers, reading);
  }
}

/// The step that the time column gives, with what is to be said about it. False when the file is refused.
bool StepOfTimes(const EvenTimes& times, const FreeTextRows& rows, const RecordText& text,
                 std::optional<double>& heading, RecordReading& reading) {
  if (times.kind == EvenTimes::Uneven) {
    const std::size_t line = rows.LineOfRow(times.badRow);
    reading.error = text.Refusal(line,
                                 QStringLiteral("時刻が等間隔ではありません（間隔 %1 秒のはずです）")
                                     .arg(QString::number(times.timeStep, 'g', 6)),
                                 text.Line(line));
    return false;
  }
  if (times.kind == EvenTimes::Rounded) {
    const bool agrees = heading && std::fabs(*heading - times.timeStep) <= times.doubt;
    if (!agrees) {
      if (heading)
        reading.Warn(QStringLiteral("時間間隔：見出しは %1 秒ですが、時刻の列の平均は %2 秒です。")
                         .arg(QString::number(*heading, 'g', 6), QString::number(times.timeStep, 'g', 6)));
      heading.reset();
      return true;
    }
    reading.Warn(QStringLiteral("時刻の列は桁が丸められています。見出しの時間間隔 %1 秒で読みました。")
                     .arg(QString::number(*heading, 'g', 6)));
    return true;
  }
  if (times.doubt > 0.0) {
    if (heading && std::fabs(*heading - times.timeStep) <= times.doubt) return true;
    reading.Warn(QStringLiteral("時刻の列は桁が丸められています。平均の時間間隔 %1 秒で読みました。")
                     .arg(QString::number(times.timeStep, 'g', 8)));
  } else if (heading && std::fabs(*heading - times.timeStep) > 0.01 * times.timeStep) {
    reading.Warn(QStringLiteral("時間間隔：見出しは %1 秒、時刻の列は %2 秒です。時刻の列で読みました。")
                     .arg(QString::number(*heading, 'g', 6), QString::number(times.timeStep, 'g', 6)));
  }
  heading = times.timeStep;
  return true;
}

/// All numbers of the rows one after the other; what fills the last row behind the stated count goes.
std::vector<double> Across(const FreeTextRows& rows, const std::optional<std::size_t>& announced) {
  std::vector<double> values = rows.Values();
  if (!announced || values.size() <= *announced || values.size() - *announced >= rows.Columns())
    return values;
  const auto end = values.begin() + static_cast<std::ptrdiff_t>(*announced);
  if (std::all_of(end, values.end(), [](double a) { return a == 0.0; })) values.erase(end, values.end());
  return values;
}

}  // namespace

void ReadFreeText(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  const FreeTextRows rows(text, answers);
  if (rows.AsksDecimalComma()) {
    reading.Ask(RecordAsk::DecimalComma,
                QStringLiteral("数字の間のコンマ（%1行目）が、小数点か区切りか分かりません。")
                    .arg(rows.CommaLine() + 1));
    return;
  }
  if (!rows.LinesQuestion().isEmpty()) {
    reading.Ask(RecordAsk::Lines, rows.LinesQuestion());
    return;
  }
  if (!rows.Error().isEmpty()) {
    reading.error = rows.Error();
    return;
  }
  const std::size_t lastRow = rows.Size() + (rows.HasShortRow() ? 1 : 0) - 1;
  reading.dataLines.push_back({rows.First(), rows.LineOfRow(lastRow) + 1});
  Heading heading = ReadHeading(text, rows);
  const std::size_t columns = rows.Columns();
  const EvenTimes times = columns > 1 ? FindEvenTimes(rows.Column(0), rows.TimeUnit()) : EvenTimes();
  if (times.kind != EvenTimes::None && !StepOfTimes(times, rows, text, heading.timeStep, reading)) return;

  bool across = columns > 1 && times.kind == EvenTimes::None;
  if (across && answers.layout) {
    across = *answers.layout == RecordLayout::Across;
  } else if (across && columns < 5 && !heading.across) {
    across = false;
    reading.Ask(RecordAsk::Layout,
                QStringLiteral("時刻の列がありません。%1 列を並んだ %1 成分（各 %2 点）とするか、"
                               "横に続く 1 成分（%3 点）とするかを指定してください。")
                    .arg(columns)
                    .arg(rows.Size())
                    .arg(rows.Values().size()));
  }
  if (!across && rows.HasShortRow()) {
    const std::size_t line = rows.LineOfRow(rows.Size());
    reading.error =
        text.Refusal(line, QStringLiteral("欄の数が %1 ではありません").arg(columns), text.Line(line));
    return;
  }
  if (rows.StopLine())
    reading.Warn(QStringLiteral("%1行目から後は読んでいません（「%2」）。")
                     .arg(QString::number(*rows.StopLine() + 1),
                          text.Decode(Trimmed(text.Line(*rows.StopLine()))).left(40)));

  std::vector<RecordComponent> components;
  std::vector<std::size_t> columnsRead;
  const std::size_t firstColumn = times.kind == EvenTimes::None ? 0 : 1;
  if (across) {
    components.emplace_back().acc = Across(rows, heading.count);
    columnsRead.push_back(columns);
  } else {
    for (std::size_t column = firstColumn; column < columns; ++column) {
      if (column < heading.titles.size() && IsOtherQuantity(heading.titles[column])) {
        reading.Warn(QStringLiteral("列「%1」は加速度ではないので読みません。")
                         .arg(QString::fromStdString(heading.titles[column])));
        continue;
      }
      components.emplace_back().acc = rows.Column(column);
      columnsRead.push_back(column);
    }
  }
  if (components.empty()) {
    reading.error = text.Refusal(heading.titleLine, QStringLiteral("加速度の列がありません"),
                                 Trimmed(text.Line(heading.titleLine)));
    return;
  }
  const std::size_t found = components.front().acc.size();
  if (heading.count && *heading.count != found) reading.Warn(CountsDiffer(*heading.count, found));
  if (across && !answers.layout && !heading.across && heading.count != found)
    reading.Warn(QStringLiteral("並び：%1 列を、横に続く 1 成分（%2 点）として読みました。"
                                "並んだ %1 成分（各 %3 点）かもしれません。")
                     .arg(columns)
                     .arg(found)
                     .arg(rows.Size()));
  TreatMarkers(rows, components, across, answers, reading);

  const std::optional<double> step = ChooseTimeStep(heading.timeStep, answers, reading);
  for (std::size_t i = 0; i < components.size(); ++i) {
    const std::size_t column = columnsRead[i];
    if (!across && columns - firstColumn > 1)
      components[i].name = column < heading.titles.size() && !NameOfTitle(heading.titles[column]).isEmpty()
                               ? NameOfTitle(heading.titles[column])
                               : QString::number(column + 1);
    if (step) components[i].timeStep = *step;
    ToGal(components[i], ChooseUnit(UnitOf(heading, column), answers, reading));
  }
  reading.components = std::move(components);
}

}  // namespace tremlo
