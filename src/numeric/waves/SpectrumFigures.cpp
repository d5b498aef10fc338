#include "numeric/waves/SpectrumFigures.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

struct Point {
  double period = 0.0;
  double value = 0.0;
};

bool IsShorter(const Point& a, const Point& b) {
  return a.period < b.period;
}

/// The points, shortest period first. One without a finite period has no place among them.
std::vector<Point> PointsByPeriod(std::span<const double> periods, std::span<const double> values) {
  std::vector<Point> points;
  const std::size_t count = std::min(periods.size(), values.size());
  for (std::size_t i = 0; i < count; ++i)
    if (std::isfinite(periods[i])) points.push_back({periods[i], values[i]});
  std::stable_sort(points.begin(), points.end(), IsShorter);
  return points;
}

std::optional<double> IfFinite(double value) {
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> ReadLine(const std::vector<Point>& points, double period) {
  const auto above = std::lower_bound(points.begin(), points.end(), Point{period, 0.0}, IsShorter);
  if (above == points.end() || std::isnan(period)) return std::nullopt;
  if (above->period == period) return IfFinite(above->value);
  if (above == points.begin()) return std::nullopt;
  const Point& below = *(above - 1);
  const double share = (period - below.period) / (above->period - below.period);
  return IfFinite(below.value + (above->value - below.value) * share);
}

}  // namespace

double SpectrumArea(std::span<const double> periods, std::span<const double> values) {
  const std::size_t count = std::min(periods.size(), values.size());
  double area = 0.0;
  for (std::size_t j = 0; j + 1 < count; ++j)
    area += (values[j] + values[j + 1]) * std::fabs(periods[j + 1] - periods[j]) * 0.5;
  return area;
}

double LargestValue(std::span<const double> values) {
  return values.empty() ? 0.0 : *std::max_element(values.begin(), values.end());
}

std::optional<double> ValueAtPeriod(std::span<const double> periods, std::span<const double> values,
                                    double period) {
  return ReadLine(PointsByPeriod(periods, values), period);
}

std::optional<std::vector<PeriodStretch>> StretchesBelow(std::span<const double> periods,
                                                         std::span<const double> values,
                                                         std::span<const double> limitPeriods,
                                                         std::span<const double> limitValues) {
  const std::vector<Point> limit = PointsByPeriod(limitPeriods, limitValues);
  std::vector<PeriodStretch> stretches;
  bool compared = false;
  bool open = false;  // the point before lies below the limit
  for (const Point& point : PointsByPeriod(periods, values)) {
    const std::optional<double> least = ReadLine(limit, point.period);
    const bool comparable = least && std::isfinite(point.value);
    compared = compared || comparable;
    const bool isBelow = comparable && point.value < *least;
    if (isBelow && open) stretches.back().longest = point.period;
    if (isBelow && !open) stretches.push_back({point.period, point.period});
    open = isBelow;
  }
  if (!compared) return std::nullopt;
  return stretches;
}

}  // namespace tremlo
