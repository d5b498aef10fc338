#pragma once

#include "window/graphs/GraphEditDialog.h"

namespace tremlo {

/// Ranges, scales and colours of the three graphs of a visualization screen.
class CDlgGraphEditVisual : public GraphEditDialog {
 public:
  CDlgGraphEditVisual(WaveGraphSetting& block, std::vector<CurveColor> colors, QWidget* parent = nullptr)
      : GraphEditDialog(
            {TimeGraph(QStringLiteral("グラフ(時間-平均応答加速度)")), SpectrumGraph(), FourierGraph()},
            block, std::move(colors), parent) {
    setObjectName(QStringLiteral("CDlgGraphEditVisual"));
  }
};

}  // namespace tremlo
