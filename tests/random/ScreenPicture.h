#pragma once

#include <QStringList>

class QWidget;

namespace tremlo::test {

/// Everything that a screen says in words: one line for each label, field, button, list and cell on display,
/// with what can be worked and what is ticked. What only the pointer or the keyboard is at is left out: an
/// entry under way, the values under the pointer.
QStringList ScreenPicture(const QWidget& screen);

}  // namespace tremlo::test
