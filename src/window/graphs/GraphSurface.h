#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>

namespace tremlo {

/// A painter whose unit is, as long as this object lives, one pixel of the device, whatever the scale factor
/// of the screen and wherever the window stands: lines lie on whole pixels and are sharp. Text and lines are
/// `scale` times as large as on a screen at 100 %.
class GraphSurface {
 public:
  /// `area` is in the painter's own units.
  GraphSurface(QPainter& painter, const QRectF& area);
  ~GraphSurface();
  GraphSurface(const GraphSurface&) = delete;
  GraphSurface& operator=(const GraphSurface&) = delete;

  QPainter& Painter() const { return m_painter; }
  const QRect& Area() const { return m_area; }
  double Scale() const { return m_scale; }
  /// Whether the device keeps lines and texts as such, and no pixels of them.
  bool IsVector() const;

  /// A width or distance that is stated for a screen at 100 %; a line is never thinner than one pixel.
  int Pixels(double length) const { return qRound(length * m_scale); }
  int LineWidth(double width) const { return qMax(1, Pixels(width)); }
  /// The graphs' font at 9 points of a screen at 100 %, times the factor.
  QFont Font(double factor) const;

  /// Whole pixels from corner to corner, both included, grown on all sides by the pen's width.
  void FillPixels(int x1, int y1, int x2, int y2, int penWidth, const QColor& color) const;

 private:
  QPainter& m_painter;
  QRect m_area;
  double m_scale;
};

/// The pixels that a pen covers along a line through the pixels from corner to corner.
QRect PenRect(int x1, int y1, int x2, int y2, int penWidth);
/// The middle of the pen's stroke, from the left or upper border of the pixel that it goes through.
double PenCentre(int penWidth);

}  // namespace tremlo
