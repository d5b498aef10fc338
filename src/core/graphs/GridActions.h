#pragma once

#include "core/graphs/GridData.h"
#include "core/graphs/GridText.h"

namespace tremlo {

/// Why a grid does not take what the user gave it, and what of it, for the box that tells. Nothing is changed
/// then.
struct GridRefusal {
  enum class Reason {
    TooLarge,      ///< a number beyond the doubles
    NoNumber,      ///< a text of which a number cell would drop a part
    NoChoice,      ///< a text that a list, check or colour cell does not have
    PastColumns,   ///< more fields than there are columns
    PastRows,      ///< more lines than there are rows
    UnclearComma,  ///< commas that may separate thousands or columns
  };
  Reason reason = Reason::NoNumber;
  int row = 0;     ///< of the grid; may lie behind the last
  int column = 0;  ///< of the grid; 0 if all the line is meant
  QString text;

  bool operator==(const GridRefusal&) const = default;
};

QString RefusalText(const GridData& data, const GridRefusal& refusal);

/// What a cell makes of a text that the user gave it. `text` is what it stores: a text in one line, a number
/// half-width, an entry of a list, "1" or "0", a colour; nothing if the cell is locked or refuses it. The
/// empty text empties texts and numbers, and has no effect on other cells.
struct CellAnswer {
  std::optional<QString> text;
  std::optional<GridRefusal::Reason> refusal;
};
CellAnswer AnswerOfCell(const GridData& data, int row, int column, const QString& text);

/// The texts of a block of cells, as copied.
GridText CopyCells(const GridData& data, const GridBlock& block);

/// Whether clearing the block would empty a cell, and the clearing itself.
bool HasClearableCell(const GridData& data, const GridBlock& block);
void ClearCells(GridData& data, const GridBlock& block);

/// The first column that the user may change in a new row, 1 if there is none.
int FirstOpenColumn(const GridData& data);

}  // namespace tremlo
