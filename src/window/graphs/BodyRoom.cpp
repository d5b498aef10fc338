#include "window/graphs/BodyRoom.h"

#include <QLayout>
#include <QScreen>
#include <QWidget>

namespace tremlo {

namespace {

constexpr QSize kWindowFrame(8, 40);  // what the window manager draws around a dialog, at the most

}  // namespace

QSize BodyRoom(const QWidget& dialog, const QWidget& buttons) {
  const QLayout& layout = *dialog.layout();
  const QMargins margins = layout.contentsMargins();
  const QSize around(margins.left() + margins.right(),
                     margins.top() + margins.bottom() + layout.spacing() + buttons.sizeHint().height());
  return dialog.screen()->availableSize() - kWindowFrame - around;
}

}  // namespace tremlo
