#pragma once

#include <QString>

namespace tremlo {

enum class MessageIcon { Stop, Warning };

/// Where messages for the user go: a message box in the window, a list elsewhere. Called from the thread that
/// does the work; returns once the user has seen the message.
class MessageSink {
 public:
  MessageSink() = default;
  virtual ~MessageSink() = default;
  MessageSink(const MessageSink&) = delete;
  MessageSink& operator=(const MessageSink&) = delete;

  virtual void Show(const QString& text, MessageIcon icon) = 0;
};

}  // namespace tremlo
