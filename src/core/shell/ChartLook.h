#pragma once

#include "core/shell/QuestionChart.h"

#include <QString>

#include <array>

namespace tremlo {

/// How a box of the chart is drawn.
enum class BoxLook {
  Lit,     ///< the question that is being asked
  Normal,  ///< the path leads through it
  Dimmed,
};

inline constexpr std::array kChartBoxes = {
    ChartBox::PhaseQ1,  ChartBox::PhaseQ2,      ChartBox::PhaseQ3,
    ChartBox::PhaseQ4,  ChartBox::Amplitude1,   ChartBox::Amplitude2,
    ChartBox::SeedWave, ChartBox::BaseSpectrum, ChartBox::Adjustment,
};

/// By ChartBox. The three boxes to which the paths lead always look the same.
using BoxLooks = std::array<BoxLook, kChartBoxes.size()>;

/// Of the chart of the questions.
BoxLooks LooksOf(const QuestionChartState& state);
/// Of the chart that is clicked and of the one that shows the fixed procedure: the box of the first question
/// always looks the same.
BoxLooks LooksOf(const ChartAnswers& answers);

/// Number of a box's question within its characteristic, "Q1"; empty for the boxes without one.
QString NumberOf(ChartBox box);
/// What stands in a box, a short form of its question, with its line break.
QString TextOf(ChartBox box);
/// What a screen reader says of a box: characteristic, number and text.
QString SpokenName(ChartBox box);
/// The look in words; empty for the boxes to which the paths lead.
QString SpokenState(ChartBox box, BoxLook look);

}  // namespace tremlo
