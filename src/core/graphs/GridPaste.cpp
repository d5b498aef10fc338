#include "core/graphs/GridPaste.h"

#include "core/graphs/CellNumber.h"

#include <algorithm>

namespace tremlo {

namespace {

using Reason = GridRefusal::Reason;

bool IsBlank(const QString& field) {
  return field.trimmed().isEmpty();
}

bool IsBlankLine(const QStringList& fields) {
  return std::all_of(fields.begin(), fields.end(), IsBlank);
}

class PasteReader {
 public:
  PasteReader(const GridData& data, int row, int column) : m_data(data), m_row(row), m_column(column) {}

  GridPaste Read(const QString& text) {
    GridPaste paste;
    if (m_row < 1 || m_column < 1 || m_column > m_data.ColumnCount()) return paste;
    const bool numbers = m_data.Format(m_row, m_column).type == CellType::Number;
    m_lines = ParseGridText(text, numbers ? FieldSeparator::TabOrComma : FieldSeparator::Tab);
    if (numbers && !text.contains(u'\t')) {
      m_separator = u',';
      ReadCommas();
    }
    if (!m_refusal) CheckEdges();
    if (!m_refusal) ReadCells();
    paste.refusal = std::move(m_refusal);
    if (paste.refusal || !m_takesAny) return paste;
    qsizetype width = 0;
    for (const QStringList& fields : m_lines) width = std::max(width, fields.size());
    paste.block = {m_row, m_column, RowOf(m_lines.size()) - 1, m_column + static_cast<int>(width) - 1};
    paste.cells = std::move(m_lines);
    return paste;
  }

 private:
  int Room() const { return m_data.ColumnCount() - m_column + 1; }
  int RowOf(std::size_t line) const { return m_row + static_cast<int>(line); }
  void Refuse(Reason reason, std::size_t line, int column, const QString& text) {
    m_refusal = GridRefusal{reason, RowOf(line), column, text};
  }

  int OpenColumns() const {
    int open = 0;
    for (int column = m_column; column <= m_data.ColumnCount(); ++column)
      if (!m_data.Format(m_row, column).locked) ++open;
    return open;
  }

  /// Decides what the commas of the lines separate.
  void ReadCommas() {
    std::optional<std::size_t> grouped;
    bool onlyGrouped = true;
    std::size_t single = 0, several = 0;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
      QStringList& fields = m_lines[i];
      if (IsBlankLine(fields)) continue;
      if (fields.size() == 1) {
        ++single;
        continue;
      }
      ++several;
      const QString number = fields.join(u',');
      if (UngroupedNumber(HalfWidthNumber(number)).isEmpty()) {
        onlyGrouped = false;
        continue;
      }
      if (!grouped) grouped = i;
      if (Room() == 1) fields = QStringList(number);
    }
    if (Room() == 1 || !grouped) return;
    // A table has other lines than these, or at least as many fields in each.
    const bool list = onlyGrouped && (single > 0 || several == 1 || OpenColumns() == 1);
    const QString line = m_lines[*grouped].join(u',');
    if (list || m_lines[*grouped].size() > Room()) Refuse(Reason::UnclearComma, *grouped, 0, line);
  }

  /// Drops the blanks behind the last row and column; anything else there would be lost.
  void CheckEdges() {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
      QStringList& fields = m_lines[i];
      const QString line = fields.size() > Room() ? fields.join(m_separator) : QString();
      while (fields.size() > Room() && IsBlank(fields.back())) fields.removeLast();
      if (fields.size() > Room()) {
        Refuse(Reason::PastColumns, i, 0, line);
        return;
      }
    }
    if (m_data.Grows()) return;
    const auto rows = static_cast<std::size_t>(std::max(0, m_data.RowCount() - m_row + 1));
    while (m_lines.size() > rows && IsBlankLine(m_lines.back())) m_lines.pop_back();
    if (m_lines.size() > rows) Refuse(Reason::PastRows, rows, 0, m_lines[rows].join(m_separator));
  }

  /// Puts in the place of each field what its cell stores of it.
  void ReadCells() {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
      int column = m_column;
      for (QString& field : m_lines[i]) {
        const CellAnswer answer = AnswerOfCell(m_data, RowOf(i), column, field);
        if (answer.refusal) {
          Refuse(*answer.refusal, i, column, field);
          return;
        }
        if (answer.text) m_takesAny = true;
        field = answer.text ? (answer.text->isNull() ? QStringLiteral("") : *answer.text) : QString();
        ++column;
      }
    }
  }

  const GridData& m_data;
  int m_row, m_column;
  GridText m_lines;
  QChar m_separator = u' ';  ///< of the fields of a line that is told
  std::optional<GridRefusal> m_refusal;
  bool m_takesAny = false;
};

}  // namespace

GridPaste ReadPaste(const GridData& data, int row, int column, const QString& text) {
  return PasteReader(data, row, column).Read(text);
}

void PasteCells(GridData& data, const GridPaste& paste) {
  int row = paste.block.top;
  for (const QStringList& fields : paste.cells) {
    int column = paste.block.left;
    for (const QString& text : fields) {
      if (!text.isNull()) data.SetText(row, column, text);
      ++column;
    }
    ++row;
  }
}

}  // namespace tremlo
