#pragma once

#include "core/shell/ClickChart.h"
#include "window/graphs/CommandGate.h"
#include "window/shell/ChartScreen.h"

#include <functional>

namespace tremlo {

/// Fixing the work procedure by clicks on the chart.
class CFrmFlowchart2 : public ChartScreen {
  Q_OBJECT
 public:
  /// `follow` is told the outcome of each switch.
  CFrmFlowchart2(Prompt& prompt, WorkProcedure& procedure, CommandGate& gate,
                 std::function<void(SwitchOutcome)> follow, QWidget* parent = nullptr);

  void Entered() override;
  /// The answers stay.
  void Refresh() override;

 private:
  void ClickBox(ChartBox box);
  void FixProcedure();

  WorkProcedure& m_procedure;
  CommandGate& m_gate;
  std::function<void(SwitchOutcome)> m_follow;
  ClickChart m_clicks;
};

}  // namespace tremlo
