#pragma once

class QWidget;

namespace tremlo {

/// Whether a dialog or box stands in front of the widget's window. The user's own input does not reach the
/// widget then, but the accessibility bus does: what it changes must be put back.
bool IsBehindModalWindow(const QWidget* widget);

}  // namespace tremlo
