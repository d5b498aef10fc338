#pragma once

#include "window/graphs/DrawPeriodGraph.h"

namespace tremlo {

/// Response spectrum in gal over period in s, 5 % damping.
class CDrawFreqAccSpec : public CDrawPeriodGraph {
 public:
  explicit CDrawFreqAccSpec(const WaveGraphSetting& setting)
      : CDrawPeriodGraph(GraphKind::Spectrum, setting) {}
};

}  // namespace tremlo
