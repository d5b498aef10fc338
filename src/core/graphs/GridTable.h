#pragma once

#include "core/graphs/GridData.h"

#include <map>
#include <utility>
#include <vector>

namespace tremlo {

/// A small table that the program fills cell by cell. Formats are kept by column, and by cell only where one
/// differs.
class GridTable : public GridData {
 public:
  int RowCount() const override { return m_rows; }
  int ColumnCount() const override { return m_columns; }
  QString Text(int row, int column) const override;
  void SetText(int row, int column, const QString& text) override;
  CellFormat Format(int row, int column) const override;

  /// Texts and formats of the rows and columns that stay are kept.
  void SetSize(int rows, int columns);
  /// Format of every cell of the column, also of those that had one of their own.
  void SetColumnFormat(int column, const CellFormat& format);
  void SetCellFormat(int row, int column, const CellFormat& format);

 private:
  bool Holds(int row, int column) const;
  std::size_t Place(int row, int column) const;

  int m_rows = 0, m_columns = 0;
  std::vector<QString> m_texts{QString()};  ///< row by row, titles included
  std::vector<CellFormat> m_columnFormats;
  std::map<std::pair<int, int>, CellFormat> m_cellFormats;
};

}  // namespace tremlo
