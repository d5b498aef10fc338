#pragma once

#include "core/ask/Prompt.h"

#include <ostream>
#include <vector>

namespace tremlo::test {

struct RecordedMessage {
  QString text;
  PromptIcon icon = PromptIcon::Stop;

  bool operator==(const RecordedMessage&) const = default;
};

inline void PrintTo(const RecordedMessage& message, std::ostream* out) {
  *out << (message.icon == PromptIcon::Stop ? "stop: " : "warning: ") << message.text.toStdString();
}

inline RecordedMessage Stop(const QString& text) {
  return {text, PromptIcon::Stop};
}
inline RecordedMessage Warning(const QString& text) {
  return {text, PromptIcon::Warning};
}

/// Keeps what would have been shown to the user.
class RecordedMessages : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    shown.push_back({box.text, box.icon});
    return PromptAnswer::Ok;
  }

  std::vector<RecordedMessage> shown;
};

}  // namespace tremlo::test
