#include "random/WatchedPrompt.h"

#include "core/project/ProjectFile.h"

#include <QCoreApplication>
#include <QThread>

namespace tremlo::test {

PromptAnswer WatchedPrompt::Show(const PromptBox& box) {
  // A worker's box: what its run does to the project meanwhile is its own affair.
  if (QThread::currentThread() != QCoreApplication::instance()->thread()) return m_boxes.Show(box);
  m_diary.Note(QStringLiteral("box: ") + box.text);
  // The question that a changed project may be dropped: its No is no refusal.
  const bool watched = m_doc && box.buttons == PromptButtons::YesNo;
  const std::string before = watched ? ProjectBytes(*m_doc) : std::string();
  const std::uint64_t generation = watched ? m_doc->Generation() : 0;
  if (watched && !m_first) m_first = before;
  const PromptAnswer answer = m_boxes.Show(box);
  m_diary.Note(QStringLiteral("answer: %1")
                   .arg(answer == PromptAnswer::Yes  ? QStringLiteral("yes")
                        : answer == PromptAnswer::No ? QStringLiteral("no")
                        : answer == PromptAnswer::Ok ? QStringLiteral("ok")
                                                     : QStringLiteral("cancel")));
  if (!watched || answer != PromptAnswer::No) return answer;
  // Before a wave that is the base spectrum is deleted, the Yes to the first question has cleared the base.
  const bool behindAChange = box.text.endsWith(QStringLiteral("を削除しますがよろしいですか？"));
  m_refused = Refused{box.text, behindAChange ? before : *m_first, generation};
  return answer;
}

}  // namespace tremlo::test
