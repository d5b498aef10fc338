#pragma once

#include "core/project/WorkProcedure.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <functional>

class QTableWidget;

namespace tremlo {

/// "作業手順の確認" while the procedure is not fixed: the choice between the questions and the clicks.
class CFrmFlowCheck : public Screen {
  Q_OBJECT
 public:
  /// `follow` is told the outcome of each switch.
  CFrmFlowCheck(WorkProcedure& procedure, CommandGate& gate, std::function<void(SwitchOutcome)> follow,
                QWidget* parent = nullptr);

  /// The screen shows nothing of the document.
  void Refresh() override {}

 private:
  QWidget* MakeChoice(const char* name, const QString& text, const QString& picture, ScreenId id);
  void Open(ScreenId id);

  WorkProcedure& m_procedure;
  CommandGate& m_gate;
  std::function<void(SwitchOutcome)> m_follow;
  std::vector<QWidget*> m_controls;
  QTableWidget* m_descriptions;
};

}  // namespace tremlo
