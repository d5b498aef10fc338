#pragma once

#include <QString>

namespace tremlo {

enum class PromptIcon { None, Information, Warning, Stop };
enum class PromptButtons { Ok, YesNo, YesNoCancel };  ///< the first button is the default
enum class PromptAnswer { Ok, Yes, No, Cancel };

/// A box in front of the user. Both texts are plain: names in them may hold any character.
struct PromptBox {
  QString text;
  PromptIcon icon = PromptIcon::Warning;
  PromptButtons buttons = PromptButtons::Ok;
  QString title = QStringLiteral("Tremlo");
  QString details = {};  ///< a second text below the first, which says what happened; may be empty

  bool operator==(const PromptBox&) const = default;
};

/// The one door for questions and messages. The window puts up a message box, the command line writes, tests
/// follow a script. A call returns when the user has answered.
class Prompt {
 public:
  virtual ~Prompt() = default;

  /// Closing a question without an answer counts as its last button: No, or Cancel where there is one.
  virtual PromptAnswer Show(const PromptBox& box) = 0;

  /// Asks with Yes and No and a warning icon. Returns whether the answer was Yes.
  bool Ask(const QString& text) {
    return Show({.text = text, .icon = PromptIcon::Warning, .buttons = PromptButtons::YesNo}) ==
           PromptAnswer::Yes;
  }

  /// Tells with an OK button.
  void Tell(const QString& text, PromptIcon icon = PromptIcon::Warning, const QString& details = {}) {
    Show({.text = text, .icon = icon, .buttons = PromptButtons::Ok, .details = details});
  }
};

}  // namespace tremlo
