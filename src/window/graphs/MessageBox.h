#pragma once

#include "core/ask/Prompt.h"

#include <functional>

class QWidget;

namespace tremlo {

/// Shows a box in front of `parent` and returns the answer. To be called on the thread of the user interface.
PromptAnswer ShowMessageBox(QWidget* parent, const PromptBox& box);

/// Shows a text that the user has to take note of, and returns once that is done.
using ShowWarning = std::function<void(QWidget* parent, const QString& title, const QString& text)>;

/// A box with warning icon and the button "OK".
void ShowWarningBox(QWidget* parent, const QString& title, const QString& text);

}  // namespace tremlo
