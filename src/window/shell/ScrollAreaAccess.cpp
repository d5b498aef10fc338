#include "window/shell/ScrollAreaAccess.h"

#include <QAccessibleWidget>
#include <QScrollArea>

namespace tremlo {

namespace {

/// By its nature an area and bars that stay children while they are hidden.
QAccessibleInterface* MakeScrollAreaAccess(const QString& className, QObject* object) {
  if (className != QLatin1String(QScrollArea::staticMetaObject.className()) &&
      className != QLatin1String(QAbstractScrollArea::staticMetaObject.className()))
    return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Client);
}

}  // namespace

void InstallScrollAreaAccess() {
  // A factory that is installed twice stays installed once.
  QAccessible::installFactory(MakeScrollAreaAccess);
}

}  // namespace tremlo
