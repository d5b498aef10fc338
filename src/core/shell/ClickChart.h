#pragma once

#include "core/ask/Prompt.h"
#include "core/shell/QuestionChart.h"

namespace tremlo {

/// The chart that is answered by clicks on its boxes. A click on a box says whether the path leads to it.
class ClickChart {
 public:
  explicit ClickChart(Prompt& prompt) : m_prompt(prompt) {}

  /// Five boxes take clicks, in the order of the answers: PhaseQ2, PhaseQ3, PhaseQ4, Amplitude1, Amplitude2.
  static bool TakesClicks(ChartBox box);

  void Restart() { m_answers = {}; }
  /// A click on a box. On the second before the first is set, a message; on the first with the second set, a
  /// question, since both are cleared then.
  void Click(ChartBox box);

  const ChartAnswers& Answers() const { return m_answers; }

 private:
  void ClickFirst();
  void ClickSecond();

  Prompt& m_prompt;
  ChartAnswers m_answers;
};

}  // namespace tremlo
