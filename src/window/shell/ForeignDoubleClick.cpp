#include "window/shell/ForeignDoubleClick.h"

#include <QEvent>
#include <QWidget>

namespace tremlo {

ForeignDoubleClick::ForeignDoubleClick(QWidget* control) : QObject(control) {
  control->installEventFilter(this);
}

bool ForeignDoubleClick::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Show) m_pressed = false;
  if (event->type() == QEvent::MouseButtonPress) m_pressed = true;
  return event->type() == QEvent::MouseButtonDblClick && !m_pressed;
}

}  // namespace tremlo
