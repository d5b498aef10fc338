#pragma once

#include "core/report/ReportBlocks.h"
#include "window/report/ReportLines.h"
#include "window/report/ReportPart.h"

#include <utility>

namespace tremlo {

/// A table between lines, its title a row over all columns. Title and headings come again on each page, and a
/// short table stays whole. A piece for each line of each row, so that a row longer than a page has room too.
class ReportTablePart : public ReportPart {
 public:
  /// `title` may be empty.
  ReportTablePart(const ReportTable& table, const QString& title, QPaintDevice& device, double width);

  void Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const override;

 private:
  struct Cell {
    ReportLines lines;
    Qt::Alignment alignment;
    bool shaded = false;
  };
  struct Row {
    std::vector<Cell> cells;  ///< one over all columns, or one for each
    std::size_t firstPiece = 0;
  };
  /// The lines of a row that a page shows, `firstLine` and on.
  struct ShownRow {
    const Row* row = nullptr;
    std::size_t firstLine = 0;
    std::vector<double> tops;
    double bottom = 0.0;
  };

  void SetWidths();
  void SetPieces();
  /// Left edge and width of what a cell's text has to itself.
  std::pair<double, double> RoomOf(const Row& row, std::size_t cell) const;
  std::vector<ShownRow> RowsOn(std::size_t first, std::span<const PiecePlace> places) const;
  void AddLine(std::vector<ShownRow>& rows, std::size_t piece, double top) const;
  void DrawRow(QPainter& painter, const ShownRow& shown) const;
  void DrawGrid(QPainter& painter, const std::vector<ShownRow>& rows) const;

  double m_unit;  ///< units of the device to a pixel
  double m_width;
  std::size_t m_columns;
  std::vector<Row> m_rows;
  std::size_t m_headings = 0;             ///< rows that come again on each page
  std::vector<double> m_edges;            ///< left ones of the columns, and the right one of the last
  std::vector<std::size_t> m_rowOfPiece;  ///< by piece
};

}  // namespace tremlo
