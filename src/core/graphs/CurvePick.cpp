#include "core/graphs/CurvePick.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace tremlo {
namespace {

// A curve whose nearest point is farther off than this is not the one under the pointer.
constexpr int kNearColumns = 10;

struct Candidate {
  PickedPoint point;
  int columns = 0, rows = 0;  ///< distance from the pixel
};

/// Of the points with x from `low` to `high`.
std::optional<Candidate> NearestWithin(double low, double high, const GraphSeries& curve,
                                       const GraphAxis& xAxis, const GraphAxis& yAxis, int pixelX,
                                       int pixelY) {
  std::optional<Candidate> nearest;
  const std::size_t count = std::min(curve.x.size(), curve.y.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (!(curve.x[i] >= low && curve.x[i] <= high)) continue;
    const auto column = xAxis.Pixel(curve.x[i]);
    if (!column) continue;
    const int columns = std::abs(*column - pixelX);
    if (nearest && columns > nearest->columns) continue;
    const auto row = yAxis.Pixel(curve.y[i]);
    if (!row) continue;
    const int rows = std::abs(*row - pixelY);
    if (!nearest || std::tie(columns, rows) < std::tie(nearest->columns, nearest->rows))
      nearest = Candidate{{0, curve.x[i], curve.y[i], *column, *row}, columns, rows};
  }
  return nearest;
}

std::optional<Candidate> NearestOf(const GraphSeries& curve, const GraphAxis& xAxis, const GraphAxis& yAxis,
                                   int pixelX, int pixelY) {
  // A pixel costs a logarithm, and the pointer moves often: first only the points whose x lies near.
  constexpr int kBeyond = kNearColumns + 1;
  const double low = std::max(xAxis.Min(), xAxis.Value(pixelX - kBeyond));
  const double high = std::min(xAxis.Max(), xAxis.Value(pixelX + kBeyond));
  const auto near = NearestWithin(low, high, curve, xAxis, yAxis, pixelX, pixelY);
  if (near && near->columns <= kNearColumns) return near;
  return NearestWithin(xAxis.Min(), xAxis.Max(), curve, xAxis, yAxis, pixelX, pixelY);
}

}  // namespace

std::optional<PickedPoint> PickPoint(const std::vector<GraphSeries>& series, const GraphAxis& xAxis,
                                     const GraphAxis& yAxis, int pixelX, int pixelY) {
  const auto order = [](const Candidate& c) {
    return std::make_tuple(c.columns > kNearColumns, c.rows, c.columns);
  };
  std::optional<Candidate> best;
  for (std::size_t i = 0; i < series.size(); ++i) {
    auto nearest = NearestOf(series[i], xAxis, yAxis, pixelX, pixelY);
    if (!nearest) continue;
    nearest->point.series = i;
    if (!best || order(*nearest) < order(*best)) best = nearest;
  }
  if (!best) return std::nullopt;
  return best->point;
}

}  // namespace tremlo
