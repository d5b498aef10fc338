#pragma once

#include "window/graphs/DrawPeriodGraph.h"

namespace tremlo {

/// Fourier amplitude in gal·s over period in s.
class CDrawFourier : public CDrawPeriodGraph {
 public:
  explicit CDrawFourier(const WaveGraphSetting& setting) : CDrawPeriodGraph(GraphKind::Fourier, setting) {}
};

}  // namespace tremlo
