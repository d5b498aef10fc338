#include "core/records/FreeTextRows.h"

#include "core/records/EvenTimes.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr std::size_t kRun = 10;
constexpr std::size_t kMostColumns = 12;
constexpr auto kNone = std::string_view::npos;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool IsComment(std::string_view line) {
  line = Trimmed(line);
  if (line.empty()) return false;
  return std::string_view("#%!|").find(line.front()) != kNone || line.starts_with("//");
}

/// Digits, signs, points, exponents and separators alone, with a comma between two digits.
bool HasDigitComma(std::string_view line) {
  if (line.find_first_not_of("0123456789+-.,;eE \t") != kNone) return false;
  for (std::size_t i = 1; i + 1 < line.size(); ++i)
    if (line[i] == ',' && IsDigit(line[i - 1]) && IsDigit(line[i + 1])) return true;
  return false;
}

/// Whether the commas of such a line can only be decimal points, or may well be: there is another separator,
/// or there is no decimal point and each word has one comma.
bool MayBeDecimalComma(std::string_view line) {
  if (!HasDigitComma(line)) return false;
  if (line.find(';') != kNone) return true;
  if (line.find('.') != kNone) return false;
  std::size_t words = 0;
  for (line = Trimmed(line); !line.empty(); line = Trimmed(line)) {
    const std::string_view word = line.substr(0, line.find_first_of(" \t"));
    if (std::count(word.begin(), word.end(), ',') != 1 || word.front() == ',' || word.back() == ',')
      return false;
    ++words;
    line.remove_prefix(word.size());
  }
  return words > 0;
}

/// What programs write for a number that they do not have.
bool IsNoNumberWord(std::string_view cell) {
  for (const std::string_view word : {"nan", "inf", "infinity", "#n/a", "n/a", "na", "null"}) {
    std::string_view bare = cell;
    if (!bare.empty() && (bare.front() == '-' || bare.front() == '+')) bare.remove_prefix(1);
    if (bare.size() == word.size() && FindText(bare, word) == 0) return true;
  }
  return cell.starts_with('*') || cell.starts_with("##");
}

double UnitOfText(std::string_view cell) {
  const std::size_t mark = cell.find_first_of("eEdD");
  const std::string_view mantissa = cell.substr(0, mark);
  const std::size_t point = mantissa.find('.');
  double decimals = point == kNone ? 0.0 : static_cast<double>(mantissa.size() - point - 1);
  double exponent = 0.0;
  if (mark != kNone && FieldNumber(cell.substr(mark + 1), exponent)) decimals -= exponent;
  return std::pow(10.0, -std::clamp(decimals, -6.0, 15.0));
}

}  // namespace

struct FreeTextRows::Line {
  enum Kind { Blank, Comment, Numbers, Other } kind = Blank;
  std::vector<std::string> cells;
  std::vector<double> values;
};

std::vector<std::string> FreeTextRows::SplitCells(const std::string& line) const {
  std::vector<std::string> cells;
  std::string_view rest = line;
  const auto isSeparator = [&](char c) { return c == ';' || (c == ',' && !m_decimalComma); };
  while (!(rest = Trimmed(rest)).empty()) {
    std::size_t end = 0;
    while (end < rest.size() && !IsBlank(rest[end]) && !isSeparator(rest[end])) ++end;
    std::string cell(rest.substr(0, end));
    if (m_decimalComma) std::replace(cell.begin(), cell.end(), ',', '.');
    cells.push_back(std::move(cell));
    rest = Trimmed(rest.substr(end));
    if (!rest.empty() && isSeparator(rest.front())) rest.remove_prefix(1);
  }
  return cells;
}

FreeTextRows::Line FreeTextRows::Read(std::size_t index) const {
  Line line;
  const std::string plain = m_text.PlainLine(index);
  if (Trimmed(plain).empty()) return line;
  line.cells = SplitCells(plain);
  while (!line.cells.empty() && line.cells.back().empty()) line.cells.pop_back();
  line.kind = Line::Numbers;
  for (const std::string& cell : line.cells) {
    double value = 0.0;
    if (!FieldNumber(cell, value)) {
      line.kind = IsComment(plain) && !IsNoNumberWord(line.cells.front()) ? Line::Comment : Line::Other;
      return line;
    }
    line.values.push_back(value);
  }
  if (line.values.empty()) line.kind = Line::Other;
  return line;
}

FreeTextRows::FreeTextRows(const RecordText& text, const RecordAnswers& answers)
    : m_text(text), m_end(std::min(text.Size(), answers.lastLine.value_or(text.Size()))) {
  m_decimalComma = answers.decimalComma.value_or(false);
  m_asks = !answers.decimalComma && AsksComma(answers);
  if (m_asks) return;
  if (answers.firstLine) {
    if (!TakeFirst(*answers.firstLine)) return;
  } else {
    if (!FindFirst()) return;
    FindCountAndStep();
  }
  ReadRows();
}

/// Ten lines that may be written with decimal commas, or the first one that the answers name.
bool FreeTextRows::AsksComma(const RecordAnswers& answers) {
  std::size_t run = 0;
  const std::size_t first = answers.firstLine ? std::max<std::size_t>(*answers.firstLine, 1) - 1 : 0;
  const std::size_t enough = answers.firstLine ? 1 : kRun;
  for (std::size_t i = first; i < std::min(m_end, answers.firstLine ? first + 1 : m_end); ++i) {
    if (!MayBeDecimalComma(m_text.PlainLine(i))) {
      run = 0;
    } else if (run++ == 0) {
      m_commaLine = i;
    }
    if (run == enough) return true;
  }
  return false;
}

/// The line from which the data are to be read (from 1).
bool FreeTextRows::TakeFirst(std::size_t first) {
  const Line line = first >= 1 && first <= m_end ? Read(first - 1) : Line();
  if (line.kind != Line::Numbers || line.values.size() > kMostColumns) {
    const std::size_t at = std::min(std::max<std::size_t>(first, 1), m_text.Size()) - 1;
    m_error = m_text.Refusal(
        at, QStringLiteral("指定した最初の行（%1行目）が数値だけの行ではありません").arg(first),
        Trimmed(m_text.Line(at)));
    return false;
  }
  m_first = first - 1;
  m_columns = line.values.size();
  return true;
}

bool FreeTextRows::FindFirst() {
  std::size_t run = 0;
  std::size_t count = 0;
  std::size_t rows = 0;
  std::size_t firstRow = 0;
  std::size_t lastRow = 0;
  for (std::size_t i = 0; i < m_end; ++i) {
    const Line line = Read(i);
    const bool row = line.kind == Line::Numbers && line.values.size() <= kMostColumns;
    if (row && rows++ == 0) firstRow = i;
    if (row) lastRow = i;
    if (row && run > 0 && line.values.size() == count) {
      ++run;
    } else {
      run = row ? 1 : 0;
      count = line.values.size();
    }
    if (run < kRun) continue;
    m_first = i + 1 - kRun;
    m_columns = count;
    return true;
  }
  if (rows > 0) {
    m_linesQuestion = QStringLiteral(
                          "数値だけの行が %1 行続く所がありません（%2行目から%3行目の間に %4 行）。"
                          "データの最初と最後の行を指定してください。")
                          .arg(kRun)
                          .arg(firstRow + 1)
                          .arg(lastRow + 1)
                          .arg(rows);
    return false;
  }
  m_error = m_text.Refusal(m_text.Size() - 1, QStringLiteral("数値だけの行がないまま終わっています"),
                           Trimmed(m_text.Line(m_text.Size() - 1)));
  return false;
}

/// "300 0.0100" above one column stands on a line of its own; above two columns it looks like their first
/// row, but does not fit the times that follow.
void FreeTextRows::FindCountAndStep() {
  const auto asCountStep = [](const Line& line) -> std::optional<CountStep> {
    if (line.kind != Line::Numbers || line.values.size() != 2) return std::nullopt;
    const double count = line.values[0];
    const double step = line.values[1];
    if (count < static_cast<double>(kRun) || count > 1e8 || count != std::floor(count) || step <= 0.0 ||
        step > 1.0)
      return std::nullopt;
    return CountStep{static_cast<std::size_t>(count), step};
  };
  if (m_columns == 2) {
    const auto countStep = asCountStep(Read(m_first));
    if (!countStep) return;
    std::vector<double> times;
    for (std::size_t i = 0; i < kRun; ++i) times.push_back(Read(m_first + i).values.front());
    const double unit = UnitOfText(Read(m_first + 2).cells.front());
    const std::vector<double> behind(times.begin() + 1, times.end());
    if (FindEvenTimes(times, unit).kind == EvenTimes::Even ||
        FindEvenTimes(behind, unit).kind != EvenTimes::Even)
      return;
    m_countStep = countStep;
    ++m_first;
  } else if (m_first > 0) {
    const auto countStep = asCountStep(Read(m_first - 1));
    if (countStep) m_countStep = countStep;
  }
}

bool FreeTextRows::LooksBroken(const Line& line) const {
  if (line.kind != Line::Other || line.cells.empty()) return false;
  const std::string& first = line.cells.front();
  const auto isNone = [](const std::string& cell) { return cell.empty() || IsNoNumberWord(cell); };
  const bool none = std::any_of(line.cells.begin(), line.cells.end(), isNone);
  if (line.cells.size() > m_columns) return none && !line.values.empty();
  return none || std::any_of(first.begin(), first.end(), IsDigit);
}

void FreeTextRows::ReadRows() {
  const auto refuse = [&](std::size_t index, const QString& reason, std::string_view value) {
    m_error = m_text.Refusal(index, reason, value);
  };
  double unit = 1.0;
  for (std::size_t i = m_first; i < m_end; ++i) {
    const Line line = Read(i);
    if (line.kind == Line::Comment) continue;
    if (line.kind == Line::Numbers && line.values.size() == m_columns && !m_short) {
      m_lines.push_back(i);
      m_values.insert(m_values.end(), line.values.begin(), line.values.end());
      unit = std::min(unit, UnitOfText(line.cells.front()));
      continue;
    }
    if (line.kind == Line::Numbers) {
      if (m_short || line.values.size() > m_columns)
        return refuse(m_short ? m_lines.back() : i,
                      QStringLiteral("欄の数が %1 ではありません").arg(m_columns),
                      m_text.Line(m_short ? m_lines.back() : i));
      m_short = true;
      m_lines.push_back(i);
      m_values.insert(m_values.end(), line.values.begin(), line.values.end());
      continue;
    }
    if (LooksBroken(line)) {
      const auto bad = std::find_if(line.cells.begin(), line.cells.end(), [](const std::string& cell) {
        double value = 0.0;
        return !FieldNumber(cell, value);
      });
      return refuse(i, QStringLiteral("数値でない値があります"),
                    bad->empty() ? Trimmed(m_text.Line(i)) : std::string_view(*bad));
    }
    // Text ends the rows; blank lines do so only before more text or numbers.
    std::size_t next = i;
    while (next < m_end && Trimmed(m_text.Line(next)).empty()) ++next;
    if (next < m_end) m_stopLine = next;
    break;
  }
  m_timeUnit = unit;
}

std::vector<double> FreeTextRows::Column(std::size_t column) const {
  std::vector<double> values;
  values.reserve(Size());
  for (std::size_t row = 0; row < Size(); ++row) values.push_back(m_values[row * m_columns + column]);
  return values;
}

}  // namespace tremlo
