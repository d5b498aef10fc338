#pragma once

#include "core/project/WorkProcedure.h"
#include "core/shell/ChartQuestion.h"

#include <array>
#include <cstdint>
#include <optional>

namespace tremlo {

/// The boxes of the chart: six that the questions light, then the three to which the paths lead.
enum class ChartBox {
  PhaseQ1,
  PhaseQ2,
  PhaseQ3,
  PhaseQ4,
  Amplitude1,  ///< AmpQ1 and AmpQ2
  Amplitude2,  ///< AmpQ3
  SeedWave,
  BaseSpectrum,
  Adjustment,
};

/// What the chart of the questions keeps.
struct QuestionChartState {
  std::array<bool, 8> answered{};  ///< the question has been passed; by ChartQuestion
  std::array<bool, 6> focus{};     ///< the box is lit as the current question; by ChartBox
  std::array<bool, 6> yesPath{};   ///< the box's path is drawn as taken; by ChartBox
  /// The dialog that led to the question, to which "戻る" returns: 315 to 317 are the phase questions Q1 to
  /// Q3, 318 and 319 the amplitude questions Q1 and Q2, 338 is the phase question Q4. 0: not reached yet.
  std::int32_t backFromPhaseQ4 = 0;
  std::int32_t backFromAmpQ1 = 0;
  std::int32_t backFromAmpQ3 = 0;
  /// For the document. A flag is written by the reply to the next question, of whatever kind, so that
  /// "戻る" there finds it set and clears it.
  ChartAnswers flags;
  bool fixed = false;  ///< the procedure is fixed

  bool operator==(const QuestionChartState& other) const = default;
};

/// The questions one by one, and where each reply leads.
class QuestionChart {
 public:
  QuestionChart() { Restart(); }

  /// Back to the first question; all flags are cleared.
  void Restart();
  /// The question to ask now; none when all have been passed.
  std::optional<ChartQuestion> Due() const;
  /// Takes the reply to the question that is due. Without one, and for a button that the question does not
  /// have, nothing happens. Returns whether a flag of the document has been written, be it with the value
  /// that it had.
  bool Reply(ChartReply reply);

  const QuestionChartState& State() const { return m_state; }

 private:
  void ReplyPhaseQ1(ChartReply reply);
  void ReplyPhaseQ2(ChartReply reply);
  void ReplyPhaseQ3(ChartReply reply);
  void ReplyPhaseQ4(ChartReply reply);
  void ReplyAmpQ1(ChartReply reply);
  void ReplyAmpQ2(ChartReply reply);
  void ReplyAmpQ3(ChartReply reply);
  void ReplyQaEnd(ChartReply reply);

  void Pass(ChartQuestion question) { Answered(question) = true; }
  void Reopen(ChartQuestion question) { Answered(question) = false; }
  bool& Answered(ChartQuestion question) { return m_state.answered[static_cast<std::size_t>(question)]; }
  bool& YesPath(ChartBox box) { return m_state.yesPath[static_cast<std::size_t>(box)]; }
  void MoveFocus(ChartBox from, ChartBox to);
  void Write(bool& flag, bool value);

  QuestionChartState m_state;
  bool m_wroteFlag = false;
};

}  // namespace tremlo
