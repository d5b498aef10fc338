#include "graphs/WarningBox.h"

#include <QMessageBox>

namespace tremlo {

void ShowWarningBox(QWidget* parent, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
  box.setObjectName(QStringLiteral("warningBox"));
  // A name in the text may hold what looks like markup.
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace tremlo
