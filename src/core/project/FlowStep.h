#pragma once

#include "core/project/ScreenId.h"

#include <array>
#include <optional>

namespace tremlo {

/// The steps of the work, top to bottom in the flow pane: ten of the guideline route, then three of the
/// response route.
enum class FlowStep {
  Field,
  FlowCheck,
  OrigSeismicWave,
  DamsiteWave,
  FaultSpectra,
  LowerSpectrum,
  BaseSpectrum,
  AdjustSeismicWave,
  Visualization,
  Print,
  RespOrigSeismicWave,
  RespAdjustSpectrum,
  RespVisualization,
};

/// When a press on a step moves the highlight of the pane.
enum class HighlightMoment {
  BeforeSwitch,  ///< stays moved even when the switch is then declined
  AfterSwitch,   ///< only when the switch succeeded
  AtNextPaint,   ///< marked, shown when the pane happens to be painted
};

struct FlowStepRow {
  FlowStep step;
  const char16_t* title;           ///< on the button, and the accessible name of the screen
  std::optional<ScreenId> screen;  ///< what a press opens
  HighlightMoment highlight;
};

/// The row of a step.
const FlowStepRow& RowOf(FlowStep step);

/// The eight steps that open when the work procedure is fixed.
inline constexpr std::array kStepsBehindProcedure = {
    FlowStep::OrigSeismicWave, FlowStep::DamsiteWave,       FlowStep::FaultSpectra,  FlowStep::LowerSpectrum,
    FlowStep::BaseSpectrum,    FlowStep::AdjustSeismicWave, FlowStep::Visualization, FlowStep::Print,
};

}  // namespace tremlo
