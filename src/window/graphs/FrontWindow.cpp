#include "window/graphs/FrontWindow.h"

#include <QApplication>
#include <QMainWindow>

namespace tremlo {

QWidget* FrontWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* const active = QApplication::activeWindow()) return active;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window)) return window;
  return nullptr;
}

bool IsBehindModalWindow(const QWidget& widget) {
  const QWidget* const modal = QApplication::activeModalWidget();
  for (const QWidget* above = &widget; modal && above; above = above->parentWidget())
    if (above == modal) return false;
  return modal != nullptr;
}

}  // namespace tremlo
