#pragma once

#include "window/graphs/GraphEditDialog.h"

namespace tremlo {

/// Range, scale and colours of a screen with the spectrum graph alone.
class CDlgGraphEditAccSpec : public GraphEditDialog {
 public:
  CDlgGraphEditAccSpec(WaveGraphSetting& block, std::vector<CurveColor> colors, QWidget* parent = nullptr)
      : GraphEditDialog({SpectrumGraph()}, block, std::move(colors), parent) {
    setObjectName(QStringLiteral("CDlgGraphEditAccSpec"));
  }
};

}  // namespace tremlo
