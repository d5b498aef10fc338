#include "window/graphs/CurvePaint.h"

#include "window/graphs/BgrColor.h"
#include "window/graphs/GraphSurface.h"

#include <QLineF>
#include <QList>

#include <algorithm>
#include <cmath>

namespace tremlo {
namespace {

/// Dots and gaps of equal length, going on from piece to piece.
class DotPattern {
 public:
  explicit DotPattern(int penWidth) : m_dot(std::max(2, penWidth)) {}

  /// A column of pixels counts as one step along the curve, however high it is.
  bool TakesColumn() {
    const bool dot = IsDot();
    Advance(1.0);
    return dot;
  }

  void Cut(const QLineF& line, QList<QLineF>& dots) {
    const double length = line.length();
    for (double at = 0.0; at < length;) {
      const bool dot = IsDot();
      const double end = std::min(length, at + (dot ? m_dot : 2.0 * m_dot) - m_phase);
      if (dot) dots.append(QLineF(line.pointAt(at / length), line.pointAt(end / length)));
      Advance(end - at);
      at = end;
    }
  }

 private:
  bool IsDot() const { return m_phase < m_dot; }
  void Advance(double length) {
    constexpr double kWhole = 1e-6;  // a part left over by rounding is no part
    m_phase += length;
    if (m_phase > 2.0 * m_dot - kWhole) m_phase = 0.0;
    if (std::abs(m_phase - m_dot) < kWhole) m_phase = m_dot;
  }

  double m_dot;
  double m_phase = 0.0;
};

}  // namespace

void PaintTrace(const GraphSurface& surface, const std::vector<TracePiece>& trace, const CurvePen& pen) {
  const int width = surface.LineWidth(pen.width);
  const QPointF centre(PenCentre(width), PenCentre(width));
  DotPattern dots(width);
  QList<QRect> columns;
  QList<QLineF> lines;
  for (const TracePiece& piece : trace) {
    if (piece.x1 == piece.x2) {
      if (!pen.dotted || dots.TakesColumn())
        columns.append(PenRect(piece.x1, piece.y1, piece.x2, piece.y2, width));
      continue;
    }
    const QLineF line(QPointF(piece.x1, piece.y1) + centre, QPointF(piece.x2, piece.y2) + centre);
    if (pen.dotted) {
      dots.Cut(line, lines);
    } else {
      lines.append(line);
    }
  }

  QPainter& painter = surface.Painter();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColorFromBgr(pen.color));
  painter.drawRects(columns);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(
      QPen(ColorFromBgr(pen.color), width, Qt::SolidLine, pen.dotted ? Qt::FlatCap : Qt::RoundCap));
  painter.drawLines(lines);
}

}  // namespace tremlo
