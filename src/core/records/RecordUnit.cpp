#include "core/records/RecordUnit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace tremlo {

namespace {

struct UnitName {
  const char* spelling;
  const char* name;
  double gal;
};

constexpr std::array<UnitName, 9> kUnits = {{{"gal", "gal", 1.0},
                                             {"gals", "gal", 1.0},
                                             {"cm/s2", "cm/s2", 1.0},
                                             {"mm/s2", "mm/s2", 0.1},
                                             {"m/s2", "m/s2", 100.0},
                                             {"in/s2", "in/s2", 2.54},
                                             {"g", "g", 980.665},
                                             {"g's", "g", 980.665},
                                             {"mg", "mg", 0.980665}}};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return lower;
}

void Replace(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
}

/// All spellings of a square of seconds as "s2".
std::string WithOneSquare(std::string_view text) {
  std::string plain = Lower(text);
  Replace(plain, "\xC2\xB2", "2");         // superscript two
  Replace(plain, "\xE3\x8E\xA8", "m/s2");  // the one sign for it
  Replace(plain, "sec", "s");
  for (const char* square : {"s**2", "s^2", "s/s", "s*s"}) Replace(plain, square, "s2");
  return plain;
}

/// Whether the text before a lone "g" makes a unit of it.
bool IsUnitBefore(std::string_view before) {
  while (!before.empty() &&
         (before.back() == ' ' || before.back() == '\t' || before.back() == ':' || before.back() == '='))
    before.remove_suffix(1);
  for (const std::string_view word : {"unit", "units", "units of", "units in", "unit of"})
    if (before.ends_with(word)) return true;
  return before.empty();
}

}  // namespace

std::optional<RecordUnit> UnitOfWord(std::string_view word) {
  const std::string plain = WithOneSquare(word);
  for (const UnitName& unit : kUnits)
    if (plain == unit.spelling) return RecordUnit{QString::fromLatin1(unit.name), unit.gal};
  return std::nullopt;
}

std::vector<RecordUnit> UnitsInText(std::string_view text) {
  const std::string plain = WithOneSquare(text);
  std::vector<RecordUnit> found;
  const auto add = [&](const UnitName& unit) {
    const RecordUnit named{QString::fromLatin1(unit.name), unit.gal};
    if (std::find(found.begin(), found.end(), named) == found.end()) found.push_back(named);
  };
  for (const UnitName& unit : kUnits) {
    const std::string_view spelling = unit.spelling;
    for (std::size_t at = 0; (at = plain.find(spelling, at)) != std::string::npos; at += spelling.size()) {
      const std::size_t end = at + spelling.size();
      const char before = at == 0 ? ' ' : plain[at - 1];
      const char after = end == plain.size() ? ' ' : plain[end];
      const bool digitAfter = after >= '0' && after <= '9';
      if (IsLetter(before) || IsLetter(after) || digitAfter || after == '\'' || before == '/' || after == '/')
        continue;
      if (spelling == "g" || spelling == "mg") {
        const bool bracketed = (before == '(' && after == ')') || (before == '[' && after == ']');
        const bool ends = after == ' ' || after == ',' || after == '\t' || after == '.' || after == ';';
        if (!bracketed && !(ends && IsUnitBefore(std::string_view(plain).substr(0, at)))) continue;
      }
      add(unit);
    }
  }
  return found;
}

std::optional<RecordUnit> ChooseUnit(const std::optional<RecordUnit>& stated, const RecordAnswers& answers,
                                     RecordReading& reading) {
  if (answers.unit) {
    if (stated && *stated != *answers.unit)
      reading.Warn(QStringLiteral("単位：ファイルの記載は %1 ですが、指定の %2 で読みました。")
                       .arg(stated->name, answers.unit->name));
    return answers.unit;
  }
  if (!stated) reading.Ask(RecordAsk::Unit, QStringLiteral("加速度の単位がファイルに書かれていません。"));
  return stated;
}

std::optional<double> ChooseTimeStep(const std::optional<double>& stated, const RecordAnswers& answers,
                                     RecordReading& reading) {
  const bool sound = stated && std::isfinite(*stated) && *stated > 0.0;
  if (answers.timeStep) {
    if (sound && std::fabs(*stated - *answers.timeStep) > 1e-9 * *stated)
      reading.Warn(QStringLiteral("時間間隔：ファイルでは %1 秒ですが、指定の %2 秒で読みました。")
                       .arg(QString::number(*stated, 'g', 6), QString::number(*answers.timeStep, 'g', 6)));
    return answers.timeStep;
  }
  if (sound) return stated;
  reading.Ask(RecordAsk::TimeStep, QStringLiteral("時間間隔がファイルに書かれていません。"));
  return std::nullopt;
}

void ToGal(RecordComponent& component, const std::optional<RecordUnit>& unit) {
  if (!unit) return;
  component.unit = unit->name;
  component.factor = unit->gal;
  if (unit->gal == 1.0) return;
  for (double& a : component.acc) a *= unit->gal;
}

}  // namespace tremlo
