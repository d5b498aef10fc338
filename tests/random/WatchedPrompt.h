#pragma once

#include "core/project/MorvaneDoc.h"
#include "random/Diary.h"
#include "window/shell/MessageBoxPrompt.h"

#include <optional>

namespace tremlo::test {

/// The program's own boxes, which remember for each No what the project was before it was asked.
class WatchedPrompt : public Prompt {
 public:
  explicit WatchedPrompt(Diary& diary) : m_diary(diary) {}

  void Watch(const CMorvaneDoc* doc) { m_doc = doc; }
  PromptAnswer Show(const PromptBox& box) override;

  struct Refused {
    QString question;
    std::string bytes;
    std::uint64_t generation;
  };
  /// The last No since the last call. Its document is that before the first of the questions that one command
  /// asked in a row, but for a question that comes behind a change of its own.
  std::optional<Refused> TakeRefused() { return std::exchange(m_refused, std::nullopt); }
  /// The user has done something else than answer a question: the next one opens a row of its own.
  void EndRow() { m_first.reset(); }

 private:
  MessageBoxPrompt m_boxes;
  Diary& m_diary;
  const CMorvaneDoc* m_doc = nullptr;
  std::optional<std::string> m_first;  ///< before the first question of the row
  std::optional<Refused> m_refused;
};

}  // namespace tremlo::test
