#pragma once

#include "core/graphs/GraphAxis.h"

#include <vector>

namespace tremlo {

/// A line from pixel to pixel; with x1 == x2 the pixels of one column from y1 down to y2.
struct TracePiece {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const TracePiece&) const = default;
};

/// Traces a curve: the polyline through its points, in order, as what is left of it on pixels: points that
/// share a column become one piece from their highest to their lowest pixel, so that no peak is lost and
/// 65,536 points give no more pieces than the frame has columns.
///
/// A value beyond the y limits runs along the frame's edge. A point beyond the x limits is not drawn, but
/// what lies inside the frame of the lines to it and from it is: a curve comes in from the frame's edge
/// before its first inside point, goes on to the edge behind its last one, and crosses the whole frame where
/// this lies between two neighbouring points, so that a spectrum is not broken off where only the view ends.
/// A point that holds something that is not a number is passed over. Axes without usable limits give no
/// pieces.
///
/// A tracer is made for the curves of one drawing: many of them have the periods of the curve before, whose
/// columns, a logarithm a point, it keeps.
class CurveTracer {
 public:
  CurveTracer(const GraphAxis& xAxis, const GraphAxis& yAxis) : m_xAxis(xAxis), m_yAxis(yAxis) {}

  std::vector<TracePiece> Trace(const std::vector<double>& x, const std::vector<double>& y);

  /// What a point's x makes of it. Outside the limits its position goes on beyond the frame, and the column
  /// is the frame's edge on that side.
  struct XPlace {
    int column = 0;
    bool exists = false;  ///< false for what has no place on the axis
    bool inside = false;
    double position = 0.0;
  };

 private:
  const std::vector<XPlace>& PlacesOf(const std::vector<double>& x);

  GraphAxis m_xAxis, m_yAxis;
  std::vector<double> m_x;        ///< of the last curve
  std::vector<XPlace> m_xPlaces;  ///< theirs
};

}  // namespace tremlo
