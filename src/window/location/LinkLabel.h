#pragma once

#include <QFocusEvent>
#include <QLabel>

namespace tremlo {

/// A text with a link that the tab key comes to at once. Of itself a label takes the focus first, which is
/// seen nowhere, and its link with the next press.
class LinkLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLabel::focusInEvent(event);
    const bool forward = event->reason() == Qt::TabFocusReason;
    if (forward || event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(forward);
  }
};

}  // namespace tremlo
