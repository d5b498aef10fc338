#pragma once

#include <array>

namespace tremlo {

/// The questions that fix the work procedure, in their order: four on the phase characteristic, three on the
/// amplitude characteristic, and whether the chart is right as it stands.
enum class ChartQuestion { PhaseQ1, PhaseQ2, PhaseQ3, PhaseQ4, AmpQ1, AmpQ2, AmpQ3, QaEnd };

inline constexpr std::array kChartQuestions = {
    ChartQuestion::PhaseQ1, ChartQuestion::PhaseQ2, ChartQuestion::PhaseQ3, ChartQuestion::PhaseQ4,
    ChartQuestion::AmpQ1,   ChartQuestion::AmpQ2,   ChartQuestion::AmpQ3,   ChartQuestion::QaEnd,
};

/// The buttons of a question. Of the last one, "OK" is Yes and "やり直す" is No.
enum class ChartReply { Yes, No, Back };

/// What the dialog of a question shows.
struct ChartQuestionRow {
  ChartQuestion question;
  const char* dialog;  ///< its name for programs
  const char16_t* title;
  const char16_t* text;
  const char16_t* yes;
  const char16_t* no;         ///< null: no such button
  const char16_t* back;       ///< null: no such button
  const char16_t* reference;  ///< where the manual asks it; empty where it does not
  const char16_t* notShown;   ///< the message when the dialog cannot be shown
};

const ChartQuestionRow& RowOf(ChartQuestion question);

}  // namespace tremlo
