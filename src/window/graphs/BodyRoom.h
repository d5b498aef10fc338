#pragma once

#include <QSize>

class QWidget;

namespace tremlo {

/// How much room the monitor of a dialog has for what the dialog shows above its buttons. The dialog has one
/// layout, with that and the buttons in it.
QSize BodyRoom(const QWidget& dialog, const QWidget& buttons);

}  // namespace tremlo
