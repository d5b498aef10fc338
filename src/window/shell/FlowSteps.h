#pragma once

#include "core/project/FlowStep.h"
#include "window/shell/StepButton.h"

#include <QWidget>

#include <map>

class QVBoxLayout;

namespace tremlo {

/// A column of the steps of one route. It keeps the current step and draws it; it decides nothing.
class FlowSteps : public QWidget {
  Q_OBJECT
 public:
  bool Holds(FlowStep step) const { return m_buttons.contains(step); }
  StepButton* Button(FlowStep step) const { return m_buttons.at(step); }
  FlowStep CurrentStep() const { return m_currentStep; }
  void SetCurrentStep(FlowStep step) { m_currentStep = step; }
  /// Marks the current step and unmarks the others. Without `repaint` this shows at the next paint only.
  void Highlight(bool repaint);

 Q_SIGNALS:
  void Pressed(tremlo::FlowStep step);

 protected:
  FlowSteps(FlowStep first, QWidget* parent);
  void AddStep(FlowStep step, const char* name, QVBoxLayout* column);
  void paintEvent(QPaintEvent* event) override;

 private:
  std::map<FlowStep, StepButton*> m_buttons;
  FlowStep m_currentStep;
};

/// The ten steps of the guideline route.
class CDlgMakeSeismicWaveFlow : public FlowSteps {
  Q_OBJECT
 public:
  explicit CDlgMakeSeismicWaveFlow(QWidget* parent = nullptr);
};

/// The three of the response route.
class CDlgRespFlow : public FlowSteps {
  Q_OBJECT
 public:
  explicit CDlgRespFlow(QWidget* parent = nullptr);
};

}  // namespace tremlo
