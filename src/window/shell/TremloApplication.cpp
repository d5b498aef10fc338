#include "window/shell/TremloApplication.h"

#include "window/graphs/ExceptionText.h"
#include "window/graphs/FrontWindow.h"
#include "window/graphs/MessageBox.h"

namespace tremlo {

bool TremloApplication::notify(QObject* receiver, QEvent* event) {
  // The event may be gone when its handler has failed.
  const bool painting = event->type() == QEvent::Paint;
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    try {
      // A picture that fails would fail again behind each box about it.
      if (!painting) TellSoon(CurrentExceptionText());
    } catch (...) {
      // There is not even memory for a box.
    }
  }
  return true;
}

void TremloApplication::TellSoon(const QString& failure) {
  if (m_telling.exchange(true)) return;
  const auto tell = [this, failure] {
    ShowMessageBox(FrontWindow(), {.text = failure});
    m_telling = false;
  };
  if (!QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection)) m_telling = false;
}

}  // namespace tremlo
