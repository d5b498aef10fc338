#pragma once

#include "window/graphs/DrawPeriodGraph.h"

namespace tremlo {

/// Response spectrum in gal over period in s, 5 % damping.
class CDrawFreqAccSpec : public CDrawPeriodGraph {
 public:
  explicit CDrawFreqAccSpec(const WaveGraphSetting& setting, std::vector<GraphSeries> curves = {})
      : CDrawPeriodGraph(GraphKind::Spectrum, setting) {
    m_series = std::move(curves);
  }
};

}  // namespace tremlo
