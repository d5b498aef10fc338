#pragma once

#include "core/graphs/GridData.h"
#include "core/graphs/GridText.h"

namespace tremlo {

/// What a cell stores of a text that the user gave it: a number half-width, an entry of a list, "1" or "0", a
/// colour. Nothing if the cell is locked or does not take the text. The empty text empties texts and numbers
/// alone.
std::optional<QString> AcceptedText(const GridData& data, int row, int column, const QString& text);

/// The texts of a block of cells, as copied.
GridText CopyCells(const GridData& data, const GridBlock& block);

/// The cells that a paste from a cell on covers: cut off at the last column and, in data that does not grow,
/// at the last row. Empty when not one of them takes its text.
GridBlock PasteBlock(const GridData& data, int row, int column, const GridText& lines);

/// Writes the lines into the block, which must exist by now. A short line leaves the cells behind it alone.
void PasteCells(GridData& data, const GridBlock& block, const GridText& lines);

/// Whether clearing the block would empty a cell, and the clearing itself.
bool HasClearableCell(const GridData& data, const GridBlock& block);
void ClearCells(GridData& data, const GridBlock& block);

/// The first column that the user may change in a new row, 1 if there is none.
int FirstOpenColumn(const GridData& data);

}  // namespace tremlo
