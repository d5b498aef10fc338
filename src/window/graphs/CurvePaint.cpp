#include "window/graphs/CurvePaint.h"

#include "window/graphs/BgrColor.h"
#include "window/graphs/GraphSurface.h"

#include <QLineF>
#include <QList>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tremlo {
namespace {

constexpr int kLeastDot = 2;  // length of a dot on a screen at 100 %

/// Marks and gaps along a curve, going on from piece to piece.
class MarkPattern {
 public:
  MarkPattern(double mark, double gap) : m_mark(mark), m_period(mark + gap) {}

  /// A column of pixels counts as one step along the curve, however high it is.
  bool TakesColumn() {
    const bool mark = IsMark();
    Advance(1.0);
    return mark;
  }

  /// Calls `draw` with the parts of the line that are marks. One that goes on from the piece before reaches
  /// back by `overlap`, so that no seam is seen.
  template <class Draw>
  void Cut(const QLineF& line, double overlap, Draw draw) {
    const double length = line.length();
    for (double at = 0.0; at < length;) {
      const bool mark = IsMark();
      const double end = std::min(length, at + (mark ? m_mark : m_period) - m_phase);
      const double begin = at == 0.0 ? -std::min(overlap, m_phase) : at;
      if (mark) draw(QLineF(line.pointAt(begin / length), line.pointAt(end / length)));
      Advance(end - at);
      at = end;
    }
  }

 private:
  bool IsMark() const { return m_phase < m_mark; }
  void Advance(double length) {
    constexpr double kWhole = 1e-6;  // a part left over by rounding is no part
    m_phase += length;
    if (m_phase > m_period - kWhole) m_phase = 0.0;
    if (std::abs(m_phase - m_mark) < kWhole) m_phase = m_mark;
  }

  double m_mark, m_period;
  double m_phase = 0.0;
};

MarkPattern PatternOf(CurveLine line, int unit) {
  if (line == CurveLine::Dashed) return {4.0 * unit, 2.0 * unit};
  return {1.0 * unit, 1.0 * unit};
}

/// A dot in whole pixels: as many as the pen is wide across the curve's main direction.
QRect DotRect(const QLineF& dot, int width) {
  const auto between = [](double a, double b) {
    const int first = qRound(std::min(a, b));
    return std::pair(first, qRound(std::max(a, b)) - first);
  };
  const bool flat = std::abs(dot.dx()) >= std::abs(dot.dy());
  if (flat) {
    const auto [left, length] = between(dot.x1(), dot.x2());
    return {left, qRound(dot.center().y() - width / 2.0), length, width};
  }
  const auto [top, length] = between(dot.y1(), dot.y2());
  return {qRound(dot.center().x() - width / 2.0), top, width, length};
}

/// Pixels are filled one rectangle and one line at a time. A file would hold each of these apart: there one
/// path has all rectangles, another the lines, joined where they meet.
void PaintAsPaths(QPainter& painter, const QList<QRect>& columns, const QList<QLineF>& lines,
                  const QPen& pen) {
  QPainterPath area, stroke;
  area.setFillRule(Qt::WindingFill);
  for (const QRect& column : columns) area.addRect(column);
  for (const QLineF& line : lines) {
    if (stroke.isEmpty() || stroke.currentPosition() != line.p1()) stroke.moveTo(line.p1());
    stroke.lineTo(line.p2());
  }
  painter.fillPath(area, pen.color());
  painter.strokePath(stroke, pen);
}

}  // namespace

void PaintTrace(const GraphSurface& surface, const std::vector<TracePiece>& trace, const CurvePen& pen) {
  const int width = surface.LineWidth(pen.width);
  const QPointF centre(PenCentre(width), PenCentre(width));
  MarkPattern pattern = PatternOf(pen.line, std::max(surface.Pixels(kLeastDot), width));
  QList<QRect> columns;
  QList<QLineF> lines;
  for (const TracePiece& piece : trace) {
    if (piece.x1 == piece.x2) {
      if (pen.line == CurveLine::Solid || pattern.TakesColumn())
        columns.append(PenRect(piece.x1, piece.y1, piece.x2, piece.y2, width));
      continue;
    }
    const QLineF line(QPointF(piece.x1, piece.y1) + centre, QPointF(piece.x2, piece.y2) + centre);
    if (pen.line == CurveLine::Solid)
      lines.append(line);
    else if (pen.line == CurveLine::Dashed)
      pattern.Cut(line, 1.0, [&](const QLineF& dash) { lines.append(dash); });
    else
      pattern.Cut(line, 0.0, [&](const QLineF& dot) {
        const QRect rect = DotRect(dot, width);
        if (!rect.isEmpty()) columns.append(rect);
      });
  }

  QPainter& painter = surface.Painter();
  const QPen linePen(ColorFromBgr(pen.color), width, Qt::SolidLine,
                     pen.line == CurveLine::Solid ? Qt::SquareCap : Qt::FlatCap, Qt::RoundJoin);
  if (surface.IsVector()) return PaintAsPaths(painter, columns, lines, linePen);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColorFromBgr(pen.color));
  painter.drawRects(columns);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(linePen);
  painter.drawLines(lines);
}

}  // namespace tremlo
