#pragma once

#include "location/MessageSink.h"

#include <ostream>
#include <vector>

namespace tremlo::test {

struct RecordedMessage {
  QString text;
  MessageIcon icon = MessageIcon::Stop;

  bool operator==(const RecordedMessage&) const = default;
};

inline void PrintTo(const RecordedMessage& message, std::ostream* out) {
  *out << (message.icon == MessageIcon::Stop ? "stop: " : "warning: ") << message.text.toStdString();
}

inline RecordedMessage Stop(const QString& text) {
  return {text, MessageIcon::Stop};
}
inline RecordedMessage Warning(const QString& text) {
  return {text, MessageIcon::Warning};
}

/// Keeps what would have been shown to the user.
class RecordedMessages : public MessageSink {
 public:
  void Show(const QString& text, MessageIcon icon) override { shown.push_back({text, icon}); }

  std::vector<RecordedMessage> shown;
};

}  // namespace tremlo::test
