#pragma once

#include <QStatusTipEvent>
#include <QStringList>
#include <QWidget>

namespace tremlo::test {

/// Notes what a screen, or the window around it, is told for the status bar.
class StatusTips : public QObject {
 public:
  explicit StatusTips(QWidget& told) { told.installEventFilter(this); }

  QString Last() const { return heard.isEmpty() ? QString() : heard.last(); }

  QStringList heard;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::StatusTip) heard << static_cast<QStatusTipEvent*>(event)->tip();
    return false;
  }
};

}  // namespace tremlo::test
