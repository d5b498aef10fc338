#pragma once

#include "core/project/WorkProcedure.h"
#include "window/graphs/CommandGate.h"
#include "window/shell/ChartScreen.h"

#include <functional>

namespace tremlo {

/// "作業手順の確認" while the procedure is fixed: the chart as the document has it.
class CFrmFlowchart3 : public ChartScreen {
  Q_OBJECT
 public:
  /// `follow` is told the outcome of each switch.
  CFrmFlowchart3(const CMorvaneDoc& doc, WorkProcedure& procedure, CommandGate& gate,
                 std::function<void(SwitchOutcome)> follow, QWidget* parent = nullptr);

  void Entered() override { Refresh(); }
  void Refresh() override;

 private:
  void ChangeProcedure();

  const CMorvaneDoc& m_doc;
  WorkProcedure& m_procedure;
  CommandGate& m_gate;
  std::function<void(SwitchOutcome)> m_follow;
};

}  // namespace tremlo
