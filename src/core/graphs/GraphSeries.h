#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tremlo {

struct CurvePen {
  std::int32_t color = 0;  ///< 0x00BBGGRR
  int width = 1;           ///< in pixels of a screen at 100 %
  bool dotted = false;
};

/// One curve of a graph: point i is (x[i], y[i]), and points that only one vector holds do not exist.
struct GraphSeries {
  QString name;
  std::vector<double> x, y;
  CurvePen pen;
};

}  // namespace tremlo
