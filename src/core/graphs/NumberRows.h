#pragma once

#include "core/graphs/GridData.h"

#include <functional>
#include <vector>

namespace tremlo {

/// A list of numbers straight over the vectors of a record, one vector a column, row i being element i - 1.
/// The vectors of one list have the same length; the shortest counts. Of a list beyond all use the first
/// 20,000,000 rows are shown.
class NumberRows : public GridData {
 public:
  struct Column {
    QString title;
    /// Finds the vector at each use, since a record can move or go: null is an empty list. A column without
    /// it is computed, and locked.
    std::function<std::vector<double>*()> values;
    std::function<double(int index)> computed;  ///< value of element `index`, from 0
    std::optional<int> decimals;                ///< places shown; without it the shortest exact text
    /// Value that stands for an empty cell. Without it an emptied cell becomes 0.
    std::optional<double> blank;
  };

  explicit NumberRows(std::vector<Column> columns) : m_columns(std::move(columns)) {}

  int RowCount() const override;
  int ColumnCount() const override { return static_cast<int>(m_columns.size()); }
  QString Text(int row, int column) const override;
  QString ExactText(int row, int column) const override;
  /// A text that does not parse, and a number that is not finite, counts as 0.
  void SetText(int row, int column, const QString& text) override;
  bool WouldChange(int row, int column, const QString& text) const override;
  CellFormat Format(int row, int column) const override;
  bool Grows() const override;  ///< not when there are more elements than rows are shown
  void ReserveRows(int count) override;
  void InsertRows(int before, int count) override;  ///< rows of 0
  void RemoveRows(int first, int count) override;

 private:
  const Column* Find(int column) const;
  /// The element that a cell shows; null for a computed one.
  double* Element(int row, int column) const;
  QString TextOf(int row, const Column& column, std::optional<int> decimals) const;

  std::vector<Column> m_columns;
};

}  // namespace tremlo
