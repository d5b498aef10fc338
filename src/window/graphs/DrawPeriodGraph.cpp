#include "window/graphs/DrawPeriodGraph.h"

#include <cmath>

namespace tremlo {
namespace {

double LargestFinite(const std::vector<double>& values, double start) {
  double largest = start;
  for (const double value : values)
    if (std::isfinite(value) && value > largest) largest = value;
  return largest;
}

}  // namespace

void CDrawPeriodGraph::AddSpectrum(const std::vector<double>& periods, const std::vector<double>& values,
                                   const CurvePen& pen, const QString& name) {
  m_series.push_back({name, periods, values, pen});
}

void CDrawPeriodGraph::ComputeRange() {
  double longest = 0.0;
  double largest = m_keptUpper.value_or(0.0);
  for (const GraphSeries& series : m_series) {
    longest = LargestFinite(series.x, longest);
    if (!m_keptUpper) largest = LargestFinite(series.y, largest);
  }
  SetDataRange(longest, 0.0, largest, 0.0);
}

}  // namespace tremlo
