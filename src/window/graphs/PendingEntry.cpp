#include "window/graphs/PendingEntry.h"

#include "window/graphs/ExpEdit.h"
#include "window/graphs/Spread7.h"

#include <QApplication>
#include <QComboBox>

namespace tremlo {

bool FinishPendingEntry() {
  for (QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
    if (auto* const edit = qobject_cast<CExpEdit*>(widget)) return edit->FinishEntry();
    // The field of a combo box leaves the focus to the box.
    if (auto* const combo = qobject_cast<QComboBox*>(widget))
      if (auto* const edit = qobject_cast<CExpEdit*>(combo->lineEdit())) return edit->FinishEntry();
    if (auto* const grid = qobject_cast<CSpread7*>(widget)) return grid->FinishEdit();
  }
  return true;
}

}  // namespace tremlo
