#pragma once

#include "core/project/FlowPaneControl.h"
#include "window/shell/FlowSteps.h"

#include <QDockWidget>

class QStackedWidget;

namespace tremlo {

/// The pane "作業フロー" at the left of the window: the steps of one of the two routes.
class CPaneFlow : public QDockWidget, public FlowPaneControl {
  Q_OBJECT
 public:
  explicit CPaneFlow(QWidget* parent = nullptr);

  void ShowRoute(bool guidelineRoute) override;
  void EnableStep(FlowStep step, bool enabled) override;
  void SetCurrentStep(FlowStep step) override;
  void Highlight(FlowStep step, bool repaint) override;

  /// The column that holds a step, and the one on display.
  FlowSteps* StepsOf(FlowStep step) const;
  FlowSteps* StepsOnDisplay() const;

 Q_SIGNALS:
  void StepPressed(tremlo::FlowStep step);

 private:
  void UpdateReasons();

  QStackedWidget* m_routes;
  CDlgMakeSeismicWaveFlow* m_flowDialog;
  CDlgRespFlow* m_respDialog;
};

}  // namespace tremlo
