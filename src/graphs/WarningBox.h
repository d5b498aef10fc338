#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace tremlo {

/// Shows a text that the user has to take note of, and returns once that is done.
using ShowWarning = std::function<void(QWidget* parent, const QString& title, const QString& text)>;

/// A box with warning icon and the button "OK".
void ShowWarningBox(QWidget* parent, const QString& title, const QString& text);

}  // namespace tremlo
