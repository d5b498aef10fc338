#pragma once

#include "window/graphs/DrawGraph.h"

namespace tremlo {

/// What the two graphs over the period share.
class CDrawPeriodGraph : public CDrawGraph {
 public:
  /// The periods may run in either direction.
  void AddSpectrum(const std::vector<double>& periods, const std::vector<double>& values, const CurvePen& pen,
                   const QString& name = {});
  void AddCurve(GraphSeries curve) { m_series.push_back(std::move(curve)); }

  /// From 0 to the longest period, and from 0 to the largest value of all curves, 0 when there is none.
  void ComputeRange() override;

  /// The largest value that counts from now on, whatever the curves hold: so an axis stays as it is while
  /// curves come and go.
  void KeepUpperLimit(double yMax) { m_keptUpper = yMax; }

 protected:
  using CDrawGraph::CDrawGraph;

 private:
  std::optional<double> m_keptUpper;
};

}  // namespace tremlo
