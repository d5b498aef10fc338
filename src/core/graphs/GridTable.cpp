#include "core/graphs/GridTable.h"

#include "core/graphs/CellNumber.h"

#include <algorithm>

namespace tremlo {

bool GridData::WouldChange(int row, int column, const QString& text) const {
  if (text == Text(row, column)) return false;
  const QString stored = ExactText(row, column);
  const bool numbers = Format(row, column).type == CellType::Number && !text.isEmpty() && !stored.isEmpty();
  return !numbers || NumberOfText(text) != NumberOfText(stored);
}

void GridData::ReserveRows(int /*count*/) {}

void GridData::InsertRows(int /*before*/, int /*count*/) {}

void GridData::RemoveRows(int /*first*/, int /*count*/) {}

bool GridTable::Holds(int row, int column) const {
  return row >= 0 && row <= m_rows && column >= 0 && column <= m_columns;
}

std::size_t GridTable::Place(int row, int column) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns + 1) +
         static_cast<std::size_t>(column);
}

QString GridTable::Text(int row, int column) const {
  return Holds(row, column) ? m_texts[Place(row, column)] : QString();
}

void GridTable::SetText(int row, int column, const QString& text) {
  if (Holds(row, column)) m_texts[Place(row, column)] = text;
}

CellFormat GridTable::Format(int row, int column) const {
  if (const auto cell = m_cellFormats.find({row, column}); cell != m_cellFormats.end()) return cell->second;
  const bool known = column >= 1 && column <= m_columns;
  return known ? m_columnFormats[static_cast<std::size_t>(column - 1)] : CellFormat();
}

void GridTable::SetSize(int rows, int columns) {
  rows = std::max(rows, 0);
  columns = std::max(columns, 0);
  if (columns != m_columns) {
    std::vector<QString> texts;
    for (int row = 0; row <= rows; ++row)
      for (int column = 0; column <= columns; ++column) texts.push_back(Text(row, column));
    m_texts = std::move(texts);
  }
  m_rows = rows;
  m_columns = columns;
  m_texts.resize(Place(rows, columns) + 1);
  m_columnFormats.resize(static_cast<std::size_t>(columns));
  std::erase_if(m_cellFormats, [&](const auto& cell) { return !Holds(cell.first.first, cell.first.second); });
}

void GridTable::SetColumnFormat(int column, const CellFormat& format) {
  if (column < 1 || column > m_columns) return;
  m_columnFormats[static_cast<std::size_t>(column - 1)] = format;
  std::erase_if(m_cellFormats, [&](const auto& cell) { return cell.first.second == column; });
}

void GridTable::SetCellFormat(int row, int column, const CellFormat& format) {
  if (row >= 1 && column >= 1 && Holds(row, column)) m_cellFormats[{row, column}] = format;
}

}  // namespace tremlo
