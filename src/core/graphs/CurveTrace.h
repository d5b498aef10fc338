#pragma once

#include "core/graphs/GraphAxis.h"

#include <vector>

namespace tremlo {

/// A line from pixel to pixel; with x1 == x2 the pixels of one column from y1 down to y2.
struct TracePiece {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const TracePiece&) const = default;
};

/// The polyline through the points, in order, as what is left of it on pixels: points that share a column
/// become one piece from their highest to their lowest pixel, so that no peak is lost and 65,536 points give
/// no more pieces than the frame has columns.
///
/// A value beyond the y limits runs along the frame's edge. A point beyond the x limits is not drawn, but
/// what lies inside the frame of the lines to it and from it is: a curve comes in from the frame's edge
/// before its first inside point, goes on to the edge behind its last one, and crosses the whole frame where
/// this lies between two neighbouring points, so that a spectrum is not broken off where only the view ends.
/// A point that holds something that is not a number is passed over. Axes without usable limits give no
/// pieces.
std::vector<TracePiece> TraceCurve(const std::vector<double>& x, const std::vector<double>& y,
                                   const GraphAxis& xAxis, const GraphAxis& yAxis);

}  // namespace tremlo
