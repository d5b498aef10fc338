#include "graphs/PendingEntry.h"

#include "graphs/ExpEdit.h"
#include "graphs/Spread7.h"

#include <QApplication>

namespace tremlo {

bool FinishPendingEntry() {
  for (QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
    if (auto* const edit = qobject_cast<CExpEdit*>(widget)) return edit->FinishEntry();
    if (auto* const grid = qobject_cast<CSpread7*>(widget)) return grid->FinishEdit();
  }
  return true;
}

}  // namespace tremlo
