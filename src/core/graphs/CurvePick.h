#pragma once

#include "core/graphs/GraphAxis.h"
#include "core/graphs/GraphSeries.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tremlo {

/// A point of a graph's data and the pixel where it is drawn.
struct PickedPoint {
  std::size_t series = 0;
  double x = 0.0, y = 0.0;
  int pixelX = 0, pixelY = 0;
};

/// The data point to show for a pixel. Of each curve it is the one nearest to the pixel's column and, within
/// that column, to the pixel's row; of several curves the one that passes nearest above or below the pixel,
/// unless it has no point within a few columns. Empty when no point lies within the x limits.
std::optional<PickedPoint> PickPoint(const std::vector<GraphSeries>& series, const GraphAxis& xAxis,
                                     const GraphAxis& yAxis, int pixelX, int pixelY);

}  // namespace tremlo
