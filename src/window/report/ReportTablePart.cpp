#include "window/report/ReportTablePart.h"

#include "core/report/ColumnWidths.h"
#include "window/report/ReportFont.h"

#include <QPainter>

#include <algorithm>

namespace tremlo {

namespace {

constexpr double kPoints = 8.0;
constexpr double kSmallPoints = 7.0;
constexpr std::size_t kManyColumns = 8;
constexpr std::size_t kShortTable = 12;         // rows of one that no page break parts
constexpr double kAbove = 12.0, kBelow = 14.0;  // pixels
constexpr double kPadding = 2.0;
constexpr double kLine = 1.0;
constexpr QRgb kHeadingCells = 0xFFE4EBF3;

}  // namespace

ReportTablePart::ReportTablePart(const ReportTable& table, const QString& title, QPaintDevice& device,
                                 double width)
    : m_unit(UnitsPerPixel(device)), m_width(width), m_columns(table.numbers.size()) {
  const QFont letters = ReportFont(m_columns >= kManyColumns ? kSmallPoints : kPoints);
  const auto cell = [&](const QString& text, Qt::Alignment alignment, bool shaded) {
    return Cell{ReportLines(text, letters, device), alignment, shaded};
  };
  if (!title.isEmpty()) {
    std::vector<Cell> cells;
    cells.push_back({ReportLines(title, ReportFont(kPoints, true), device), Qt::AlignLeft});
    m_rows.push_back({std::move(cells)});
  }
  if (!table.headings.isEmpty()) {
    std::vector<Cell> cells;
    for (const QString& heading : table.headings) cells.push_back(cell(heading, Qt::AlignHCenter, true));
    m_rows.push_back({std::move(cells)});
  }
  m_headings = m_rows.size();
  for (const QStringList& texts : table.rows) {
    std::vector<Cell> cells;
    for (std::size_t column = 0; column < m_columns; ++column)
      cells.push_back(cell(texts.value(static_cast<qsizetype>(column)),
                           table.numbers[column] ? Qt::AlignRight : Qt::AlignLeft,
                           table.headings.isEmpty() && column == 0));
    m_rows.push_back({std::move(cells)});
  }
  SetWidths();
  SetPieces();
}

void ReportTablePart::SetWidths() {
  const double around = (2.0 * kPadding + kLine) * m_unit;
  std::vector<ColumnNeed> needs(m_columns);
  for (const Row& row : m_rows) {
    if (row.cells.size() != m_columns) continue;  // the title has the room of all
    for (std::size_t column = 0; column < m_columns; ++column) {
      const ReportLines& lines = row.cells[column].lines;
      needs[column].least = std::max(needs[column].least, lines.LeastWidth() + around);
      needs[column].natural = std::max(needs[column].natural, lines.NaturalWidth() + around);
    }
  }
  m_edges = {0.0};
  for (const double width : ColumnWidths(needs, m_width)) m_edges.push_back(m_edges.back() + width);
  for (Row& row : m_rows)
    for (std::size_t i = 0; i < row.cells.size(); ++i) row.cells[i].lines.Break(RoomOf(row, i).second);
}

void ReportTablePart::SetPieces() {
  const bool whole = m_rows.size() <= kShortTable;
  double headings = 0.0;
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    Row& row = m_rows[i];
    row.firstPiece = m_pieces.size();
    int count = 0;
    for (const Cell& cell : row.cells) count = std::max(count, cell.lines.Count());
    for (int line = 0; line < count; ++line) {
      PagePiece piece{.withNext = true, .repeated = i < m_headings ? 0.0 : headings};
      for (const Cell& cell : row.cells)
        if (line < cell.lines.Count()) piece.height = std::max(piece.height, cell.lines.Height(line));
      if (line == 0) piece.height += (kLine + kPadding) * m_unit;
      if (line == count - 1) piece.height += kPadding * m_unit;
      if (i < m_headings) headings += piece.height;
      m_pieces.push_back(piece);
      m_rowOfPiece.push_back(i);
    }
    // No page shows one row alone.
    m_pieces.back().withNext = whole || i <= m_headings || i + 2 == m_rows.size();
  }
  m_pieces.front().above = kAbove * m_unit;
  m_pieces.back().below = kBelow * m_unit;
  m_pieces.back().withNext = false;
}

std::pair<double, double> ReportTablePart::RoomOf(const Row& row, std::size_t cell) const {
  const double left = m_edges[cell], right = row.cells.size() == 1 ? m_width : m_edges[cell + 1];
  const double padding = (kPadding + kLine / 2.0) * m_unit;
  return {left + padding, right - left - 2.0 * padding};
}

std::vector<ReportTablePart::ShownRow> ReportTablePart::RowsOn(std::size_t first,
                                                               std::span<const PiecePlace> places) const {
  std::vector<ShownRow> rows;
  if (places.front().headed) {
    double top = 0.0;
    for (std::size_t piece = 0; m_rowOfPiece[piece] < m_headings; ++piece) {
      AddLine(rows, piece, top);
      top = rows.back().bottom;
    }
  }
  for (std::size_t i = 0; i < places.size(); ++i) AddLine(rows, first + i, places[i].top);
  return rows;
}

void ReportTablePart::AddLine(std::vector<ShownRow>& rows, std::size_t piece, double top) const {
  const Row& row = m_rows[m_rowOfPiece[piece]];
  if (rows.empty() || rows.back().row != &row) rows.push_back({&row, piece - row.firstPiece, {}, 0.0});
  rows.back().tops.push_back(top);
  rows.back().bottom = top + m_pieces[piece].height;
}

void ReportTablePart::Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const {
  const std::vector<ShownRow> rows = RowsOn(first, places);
  for (const ShownRow& row : rows) DrawRow(painter, row);
  DrawGrid(painter, rows);
}

void ReportTablePart::DrawRow(QPainter& painter, const ShownRow& shown) const {
  const Row& row = *shown.row;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const Cell& cell = row.cells[i];
    if (cell.shaded)
      painter.fillRect(QRectF(QPointF(m_edges[i], shown.tops.front()), QPointF(m_edges[i + 1], shown.bottom)),
                       QColor(kHeadingCells));
    const auto [left, width] = RoomOf(row, i);
    for (std::size_t k = 0; k < shown.tops.size(); ++k) {
      const int line = static_cast<int>(shown.firstLine + k);
      const double above = line == 0 ? (kLine + kPadding) * m_unit : 0.0;
      if (line < cell.lines.Count())
        cell.lines.Draw(painter, line, left, shown.tops[k] + above, width, cell.alignment);
    }
  }
}

void ReportTablePart::DrawGrid(QPainter& painter, const std::vector<ShownRow>& rows) const {
  const double top = rows.front().tops.front(), bottom = rows.back().bottom;
  std::vector<QLineF> lines = {{0.0, bottom, m_width, bottom}, {m_width, top, m_width, bottom}};
  for (const ShownRow& row : rows) lines.emplace_back(0.0, row.tops.front(), m_width, row.tops.front());
  // Between columns there is a line below the title alone.
  const bool titled = rows.front().row->cells.size() < m_columns;
  for (std::size_t column = 0; column < m_columns; ++column)
    lines.emplace_back(m_edges[column], titled && column > 0 ? rows.front().bottom : top, m_edges[column],
                       bottom);
  painter.save();
  painter.setPen(QPen(Qt::gray, kLine * m_unit, Qt::SolidLine, Qt::SquareCap));
  painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  painter.restore();
}

}  // namespace tremlo
