#pragma once

#include "window/graphs/ExpButton.h"

namespace tremlo {

/// A large button of the flow pane: one step of the work. The step at which the user stands stays down and
/// bears a bar, so that it can be told without seeing colours.
class StepButton : public CExpButton {
  Q_OBJECT
 public:
  explicit StepButton(const QString& title, QWidget* parent = nullptr);

  bool IsCurrent() const { return m_current; }
  /// Draws nothing: the change shows at the next paint.
  void SetCurrent(bool current);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool m_current = false;
};

}  // namespace tremlo
