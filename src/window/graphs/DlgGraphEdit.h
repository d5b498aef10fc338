#pragma once

#include "window/graphs/GraphEditDialog.h"

namespace tremlo {

/// Ranges, scales and colours of the three graphs of a wave.
class CDlgGraphEdit : public GraphEditDialog {
 public:
  CDlgGraphEdit(WaveGraphSetting& block, std::vector<CurveColor> colors, QWidget* parent = nullptr)
      : GraphEditDialog({TimeGraph(QStringLiteral("時間-加速度")), SpectrumGraph(), FourierGraph()}, block,
                        std::move(colors), parent) {
    setObjectName(QStringLiteral("CDlgGraphEdit"));
  }
};

}  // namespace tremlo
