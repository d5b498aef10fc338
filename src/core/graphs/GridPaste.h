#pragma once

#include "core/graphs/GridActions.h"

namespace tremlo {

/// What a paste does to a grid: the block that it covers, rows that it adds included, and line by line the
/// texts that its cells store. A null text leaves its cell alone. With a refusal, or an empty block, nothing
/// is to be done.
struct GridPaste {
  GridBlock block;
  GridText cells;
  std::optional<GridRefusal> refusal;
};

/// Reads a text of the clipboard for a paste from a cell on. Nothing of it is dropped but what falls on
/// locked cells, and blanks behind the last row or column.
///
/// Fields are separated by tabs. In a text without a tab that is pasted from a number cell on, commas
/// separate them too: before the last column a line is one number, its commas those of thousands; where there
/// are more columns they separate columns, unless the text may as well be a list of numbers with thousands
/// separators.
GridPaste ReadPaste(const GridData& data, int row, int column, const QString& text);

/// Writes the cells; the rows of the block must exist by now.
void PasteCells(GridData& data, const GridPaste& paste);

}  // namespace tremlo
