#include "core/graphs/TitledRows.h"

namespace tremlo {

bool TitledRows::Holds(int row, int column) const {
  return row >= 1 && row <= RowCount() && column >= 1 && column <= ColumnCount();
}

QString TitledRows::Text(int row, int column) const {
  if (row == 0 && column >= 1 && column <= ColumnCount())
    return QString::fromUtf16(m_columns[static_cast<std::size_t>(column - 1)].title);
  return Holds(row, column) ? CellText(row, column) : QString();
}

void TitledRows::SetText(int row, int column, const QString& text) {
  if (Holds(row, column) && !Format(row, column).locked) Take(row, column, text);
}

CellFormat TitledRows::Format(int /*row*/, int column) const {
  CellFormat format;
  format.locked = true;
  if (column < 1 || column > ColumnCount()) return format;
  const Column& found = m_columns[static_cast<std::size_t>(column - 1)];
  format.type = found.type;
  format.locked = found.type == CellType::Text || found.type == CellType::Number;
  format.choices = found.choices;
  return format;
}

void TitledRows::Take(int /*row*/, int /*column*/, const QString& /*text*/) {}

}  // namespace tremlo
