#pragma once

class QWidget;

namespace tremlo {

/// The window that a box or dialog belongs in front of, to be its parent: the dialog that is up, else the
/// window in use, else, while another program is in front, the program's main window. Null as long as none of
/// them is on the screen.
QWidget* FrontWindow();

/// Whether a modal window stands in front of the widget's window: the user cannot reach the widget then, and
/// what arrives for it by another way, such as the accessibility bus, must wait or be refused.
bool IsBehindModalWindow(const QWidget& widget);

}  // namespace tremlo
