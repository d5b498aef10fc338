#pragma once

#include "core/graphs/GraphRange.h"
#include "core/graphs/GridData.h"

#include <optional>
#include <utility>

namespace tremlo {

/// The range grid of one graph, straight over the block that it edits: the title of the graph in the header's
/// first column, below it a row for either axis with the columns minimum, maximum and step. All of it follows
/// the block: on a logarithmic axis the texts change and the step cell shows a word.
///
/// A cell is open where the drawing reads what it holds: the steps always, the limits while they do not
/// follow the data. An emptied cell, or a number that is not finite, leaves the block as it was.
class RangeRows : public GridData {
 public:
  /// The block must outlive the rows.
  RangeRows(GraphKind kind, QString title, WaveGraphSetting& block)
      : m_kind(kind), m_title(std::move(title)), m_block(block) {}

  QString Title() const;

  int RowCount() const override { return 2; }
  int ColumnCount() const override { return 4; }
  QString Text(int row, int column) const override;
  void SetText(int row, int column, const QString& text) override;
  bool WouldChange(int row, int column, const QString& text) const override;
  CellFormat Format(int row, int column) const override;

 private:
  bool IsLogarithmic() const { return HasLogarithmicAxis(m_kind, m_block); }
  /// Where the block keeps the number of a cell; empty for a cell without one.
  std::optional<double WaveGraphSetting::*> FieldOf(int row, int column) const;

  GraphKind m_kind;
  QString m_title;
  WaveGraphSetting& m_block;
};

}  // namespace tremlo
