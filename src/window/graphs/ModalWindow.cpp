#include "window/graphs/ModalWindow.h"

#include <QApplication>
#include <QWidget>

namespace tremlo {

bool IsBehindModalWindow(const QWidget* widget) {
  const QWidget* const modal = QApplication::activeModalWidget();
  if (!modal) return false;
  // The dialog's own controls, its lists and what else it has opened.
  for (const QWidget* above = widget; above; above = above->parentWidget())
    if (above == modal) return false;
  return true;
}

}  // namespace tremlo
