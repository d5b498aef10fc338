#include "window/graphs/PendingEntry.h"

#include "window/graphs/ExpEdit.h"
#include "window/graphs/FrontWindow.h"
#include "window/graphs/Spread7.h"

#include <QApplication>
#include <QComboBox>

namespace tremlo {

namespace {

/// The control that has the focus, or will have it again: the accessibility bus types and gives commands
/// while another program is in front.
QWidget* FocusOfProgram() {
  if (QWidget* const focus = QApplication::focusWidget()) return focus;
  const QWidget* const window = FrontWindow();
  return window ? window->focusWidget() : nullptr;
}

}  // namespace

bool FinishPendingEntry() {
  for (QWidget* widget = FocusOfProgram(); widget; widget = widget->parentWidget()) {
    if (auto* const edit = qobject_cast<CExpEdit*>(widget)) return edit->FinishEntry();
    // The field of a combo box leaves the focus to the box.
    if (auto* const combo = qobject_cast<QComboBox*>(widget))
      if (auto* const edit = qobject_cast<CExpEdit*>(combo->lineEdit())) return edit->FinishEntry();
    if (auto* const grid = qobject_cast<CSpread7*>(widget)) return grid->FinishEdit();
  }
  return true;
}

}  // namespace tremlo
