#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tremlo {

enum class CurveLine { Solid, Dotted, Dashed };

struct CurvePen {
  std::int32_t color = 0;  ///< 0x00BBGGRR
  int width = 1;           ///< in pixels of a screen at 100 %
  CurveLine line = CurveLine::Solid;
};

/// One curve of a graph: point i is (x[i], y[i]), and points that only one vector holds do not exist.
struct GraphSeries {
  QString name;
  std::vector<double> x, y;
  CurvePen pen;
};

inline bool HasPoints(const GraphSeries& curve) {
  return !curve.x.empty() && !curve.y.empty();
}

}  // namespace tremlo
