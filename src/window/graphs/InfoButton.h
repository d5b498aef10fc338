#pragma once

#include "core/ask/Prompt.h"
#include "window/graphs/CommandGate.h"

#include <QToolButton>

namespace tremlo {

/// The button with the "i" that tells in a box what a screen or a choice is for. The prompt and the gate
/// outlive it.
class InfoButton : public QToolButton {
  Q_OBJECT
 public:
  /// A screen reader says `spokenName`, which is the tool tip as well.
  InfoButton(const char* objectName, const QString& spokenName, const QString& text, Prompt& prompt,
             CommandGate& gate, QWidget* parent);
  /// Of a dialog, which no command gets in front of.
  InfoButton(const char* objectName, const QString& spokenName, const QString& text, Prompt& prompt,
             QWidget* parent);

 private:
  InfoButton(const char* objectName, const QString& spokenName, QWidget* parent);
};

}  // namespace tremlo
