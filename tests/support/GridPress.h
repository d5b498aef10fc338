#pragma once

#include "core/graphs/CellNumber.h"
#include "core/graphs/GridActions.h"

namespace tremlo::test {

/// Gives a cell a text as a grid does: only an open cell takes one, and only what belongs there and is new.
inline void GiveText(GridData& data, int row, int column, const QString& text) {
  const std::optional<QString> taken = AnswerOfCell(data, row, column, text).text;
  if (taken && data.WouldChange(row, column, *taken)) data.SetText(row, column, *taken);
}

/// Presses a check cell.
inline void PressCheck(GridData& data, int row, int column) {
  GiveText(data, row, column,
           IsCheckedText(data.Text(row, column)) ? QStringLiteral("0") : QStringLiteral("1"));
}

/// The texts of a column, row by row.
inline QStringList ColumnTexts(const GridData& data, int column) {
  QStringList texts;
  for (int row = 1; row <= data.RowCount(); ++row) texts << data.Text(row, column);
  return texts;
}

/// The texts of a row, column by column.
inline QStringList RowTexts(const GridData& data, int row) {
  QStringList texts;
  for (int column = 1; column <= data.ColumnCount(); ++column) texts << data.Text(row, column);
  return texts;
}

}  // namespace tremlo::test
