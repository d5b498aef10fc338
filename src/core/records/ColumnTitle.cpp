#include "core/records/ColumnTitle.h"

#include "core/records/RecordText.h"
#include "core/records/RecordUnit.h"

#include <algorithm>

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;

std::vector<std::string> SplitAt(std::string_view line, std::string_view separators) {
  std::vector<std::string> cells;
  for (;;) {
    const std::size_t end = line.find_first_of(separators);
    cells.emplace_back(Trimmed(line.substr(0, end)));
    if (end == kNone) return cells;
    line.remove_prefix(end + 1);
  }
}

}  // namespace

std::vector<std::string> ColumnTitles(std::string_view line, std::size_t columns) {
  line = Trimmed(line);
  line = Trimmed(line.substr(std::min(line.find_first_not_of("#%!|/"), line.size())));
  for (const std::string_view separator : {",", ";", "\t"})
    if (std::vector<std::string> cells = SplitAt(line, separator); cells.size() == columns) return cells;
  std::vector<std::string> words = SplitAt(line, " \t,;");
  words.erase(std::remove(words.begin(), words.end(), std::string()), words.end());
  if (words.size() != columns) words.clear();
  return words;
}

QString NameOfTitle(std::string_view title) {
  const std::string_view name = title.substr(0, title.find_first_of("(["));
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).simplified();
}

bool IsOtherQuantity(std::string_view title) {
  const std::size_t bracket = title.find_first_of("([");
  const std::string_view name = Trimmed(title.substr(0, bracket));
  if (bracket != kNone) {
    std::string_view unit = title.substr(bracket + 1);
    unit = Trimmed(unit.substr(0, unit.find_first_of(")]")));
    if (UnitOfWord(unit)) return false;
    for (const std::string_view other : {"cm/s", "m/s", "mm/s", "in/s", "cm/sec", "m/sec", "mm/sec", "in/sec",
                                         "kine", "cm", "m", "mm", "in"})
      if (unit.size() == other.size() && FindText(unit, other) == 0) return true;
  }
  if (FindText(name, "vel") == 0 || FindText(name, "dis") == 0) return true;
  const QString words = NameOfTitle(name);
  return words.contains(QStringLiteral("変位")) ||
         (words.contains(QStringLiteral("速度")) && !words.contains(QStringLiteral("加速度")));
}

}  // namespace tremlo
