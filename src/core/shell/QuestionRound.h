#pragma once

#include "core/shell/QuestionChart.h"

#include <optional>

namespace tremlo {

/// How the dialog of a question ended.
enum class QuestionEnd { Yes, No, Back, Cancelled, NotShown };

/// One round of the questions over the document: from the first dialog to the fixed procedure, or to the
/// cancelling of a dialog.
class QuestionRound {
 public:
  QuestionRound(CMorvaneDoc& doc, Prompt& prompt, WorkProcedure& procedure)
      : m_doc(doc), m_prompt(prompt), m_procedure(procedure) {}

  /// The chart has come on display, its answers in the document cleared.
  void Begin() { m_chart.Restart(); }

  const QuestionChartState& Chart() const { return m_chart.State(); }
  /// The question whose dialog is to be shown.
  std::optional<ChartQuestion> Due() const { return m_chart.Due(); }

  /// Whether the dialog may be cancelled; asks.
  bool MayCancel();
  /// The dialog of the question that is due has ended. Empty: the round goes on. Else it is over, and another
  /// screen is on display or, with a dialog that could not be shown, the program ends.
  std::optional<SwitchOutcome> Take(QuestionEnd end);

 private:
  std::optional<SwitchOutcome> TakeReply(ChartReply reply);
  void StoreFlags();

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  WorkProcedure& m_procedure;
  QuestionChart m_chart;
};

}  // namespace tremlo
