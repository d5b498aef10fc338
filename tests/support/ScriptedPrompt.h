#pragma once

#include "core/ask/Prompt.h"

#include <QStringList>

#include <deque>

namespace tremlo::test {

/// Answers by a script, box by box in its order. A box that is not next in the script fails the test and is
/// answered with No; so does every entry that is left over at the end.
class ScriptedPrompt : public Prompt {
 public:
  /// With a log, each box that is shown adds a line to it.
  explicit ScriptedPrompt(QStringList* log = nullptr) : m_log(log) {}
  ~ScriptedPrompt() override;
  ScriptedPrompt(const ScriptedPrompt&) = delete;
  ScriptedPrompt& operator=(const ScriptedPrompt&) = delete;

  void ExpectQuestion(const QString& text, PromptAnswer answer);
  void ExpectMessage(const QString& text, PromptIcon icon = PromptIcon::Warning, const QString& details = {});
  void ExpectBox(const PromptBox& box, PromptAnswer answer) { m_script.push_back({box, answer}); }

  /// Fails for what is left of the script and drops it.
  void CheckUsedUp();

  PromptAnswer Show(const PromptBox& box) override;

 private:
  struct Entry {
    PromptBox box;
    PromptAnswer answer;
  };
  std::deque<Entry> m_script;
  QStringList* m_log;
};

}  // namespace tremlo::test
