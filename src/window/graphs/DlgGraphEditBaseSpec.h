#pragma once

#include "window/graphs/GraphEditDialog.h"

namespace tremlo {

/// Range and scale of a spectrum graph whose colours are set elsewhere.
class CDlgGraphEditBaseSpec : public GraphEditDialog {
 public:
  explicit CDlgGraphEditBaseSpec(WaveGraphSetting& block, QWidget* parent = nullptr)
      : GraphEditDialog({SpectrumGraph()}, block, std::nullopt, parent) {
    setObjectName(QStringLiteral("CDlgGraphEditBaseSpec"));
  }
};

}  // namespace tremlo
