#pragma once

#include "core/shell/QuestionRound.h"
#include "window/graphs/CommandGate.h"
#include "window/shell/ChartScreen.h"

#include <functional>

class QTimer;

namespace tremlo {

/// Shows the dialog of a question at `place`, waits for it, and leaves in `place` where it was closed.
using AskQuestion = std::function<QuestionEnd(ChartQuestion question, const std::function<bool()>& mayCancel,
                                              QPoint& place, QWidget* parent)>;

/// Fixing the work procedure by questions: the chart, and above it the dialog of one question after another.
/// Between two dialogs the window is free for a moment; a command that begins then delays the next one.
class CFrmFlowchart1 : public ChartScreen {
  Q_OBJECT
 public:
  /// `follow` is told the outcome of each switch; without `ask` the program's own dialogs are shown.
  CFrmFlowchart1(CMorvaneDoc& doc, Prompt& prompt, WorkProcedure& procedure, CommandGate& gate,
                 std::function<void(SwitchOutcome)> follow, AskQuestion ask = {}, QWidget* parent = nullptr);

  void Entered() override;
  void Left() override;
  void CommandBegins() override;
  void CommandEnded() override;
  /// The answers and their place stay.
  void Refresh() override;

 private:
  void OnTimer();
  void AskDueQuestion();
  QSize DialogSize() const;
  QPoint FirstPlace() const;
  QPoint PlaceOnAMonitor() const;
  void ShowLitBox();

  QuestionRound m_round;
  CommandGate& m_gate;
  std::function<void(SwitchOutcome)> m_follow;
  AskQuestion m_ask;
  QTimer* m_timer;
  QPoint m_dialogPos;     ///< where the next dialog appears
  bool m_asking = false;  ///< on display, and the round is not over
};

}  // namespace tremlo
