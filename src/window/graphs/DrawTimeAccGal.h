#pragma once

#include "window/graphs/DrawGraph.h"

#include <limits>

namespace tremlo {

/// Acceleration in gal over time in s.
class CDrawTimeAccGal : public CDrawGraph {
 public:
  explicit CDrawTimeAccGal(const WaveGraphSetting& setting) : CDrawGraph(GraphKind::Time, setting) {}

  /// Sample i stands at i·timeStep. Blank samples are drawn as 0 and take no part in the range.
  void AddWave(const std::vector<double>& samples, double timeStep, const CurvePen& pen,
               const QString& name = {});

  /// From 0 to the end of the longest wave, and from the smallest sample, or 0 if it is above 0, to the
  /// largest; the y limits are not a number while there is no sample but blanks.
  void ComputeRange() override;

 private:
  double m_smallest = std::numeric_limits<double>::quiet_NaN();
  double m_largest = std::numeric_limits<double>::quiet_NaN();
  double m_end = 0.0;
};

}  // namespace tremlo
