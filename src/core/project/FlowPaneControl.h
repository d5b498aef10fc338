#pragma once

#include "core/project/FlowStep.h"

namespace tremlo {

/// What the work procedure sets on the flow pane. The pane holds no rule of its own: a press on a button goes
/// to WorkProcedure::PressStep.
class FlowPaneControl {
 public:
  virtual ~FlowPaneControl() = default;

  /// Shows the ten steps of the guideline route or the three of the response route, and hides the others.
  virtual void ShowRoute(bool guidelineRoute) = 0;

  virtual void EnableStep(FlowStep step, bool enabled) = 0;

  /// Makes `step` the current one of its route. Draws nothing.
  virtual void SetCurrentStep(FlowStep step) = 0;

  /// Marks the button of `step` as current and unmarks the others of its route. Without `repaint` this shows
  /// at the next paint only.
  virtual void Highlight(FlowStep step, bool repaint) = 0;
};

}  // namespace tremlo
