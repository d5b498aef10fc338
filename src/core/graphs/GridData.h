#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace tremlo {

enum class CellType {
  Text,
  Number,  ///< text of a number; full-width digits become half-width
  List,    ///< one of `choices`
  Check,   ///< "1" or "0"
  Color,   ///< "#RRGGBB"
};

/// How a cell looks and what it takes from the user.
struct CellFormat {
  CellType type = CellType::Text;
  bool locked = false;                               ///< the user cannot change it; the program can
  std::optional<std::int32_t> backColor, textColor;  ///< 0x00BBGGRR; without one the palette decides
  QStringList choices;

  bool operator==(const CellFormat&) const = default;
};

/// A rectangle of cells, rows and columns from 1.
struct GridBlock {
  int top = 0, left = 0, bottom = 0, right = 0;

  bool IsEmpty() const { return top < 1 || left < 1 || bottom < top || right < left; }
  int RowCount() const { return bottom - top + 1; }
  bool operator==(const GridBlock&) const = default;
};

/// One action of the user on a grid. A paste or a cut of many cells is one.
struct GridChange {
  enum class Action { Edit, Cut, Paste, InsertRow, AppendRow, RemoveRows };
  Action action = Action::Edit;
  GridBlock block;  ///< cells or rows that it touches, also rows that it adds

  bool operator==(const GridChange&) const = default;
};

/// What a grid shows: texts by row and column, both from 1. Row 0 holds the titles of the columns, column 0
/// those of the rows; a null text there shows the row's number. A grid reads the cells that it paints and
/// keeps none of them, so an implementation over a record makes no copy.
class GridData {
 public:
  GridData() = default;
  virtual ~GridData() = default;
  GridData(const GridData&) = delete;
  GridData& operator=(const GridData&) = delete;

  virtual int RowCount() const = 0;
  virtual int ColumnCount() const = 0;
  virtual QString Text(int row, int column) const = 0;
  /// Stores the text of a cell; the empty text empties it.
  virtual void SetText(int row, int column, const QString& text) = 0;
  /// Whether SetText would change what is stored: 1.50 in place of 1.5 does not.
  virtual bool WouldChange(int row, int column, const QString& text) const;
  /// Of data that grows, also for rows past the last.
  virtual CellFormat Format(int row, int column) const = 0;
  /// What copying takes from a cell: its text, or the number behind a text that is rounded.
  virtual QString ExactText(int row, int column) const { return Text(row, column); }

  /// Whether the user may insert and remove rows. Data that says so implements the two operations.
  virtual bool Grows() const { return false; }
  /// Makes room for so many more rows, so that InsertRows does not fail. Throws where memory is short.
  virtual void ReserveRows(int count);
  virtual void InsertRows(int before, int count);
  virtual void RemoveRows(int first, int count);
};

}  // namespace tremlo
