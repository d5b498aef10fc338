#include "window/graphs/WorkerPrompt.h"

#include <QMetaObject>
#include <QObject>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

namespace tremlo {

namespace {

struct Question {
  std::mutex lock;
  std::condition_variable_any answered;
  std::optional<PromptAnswer> answer;
};

}  // namespace

PromptAnswer WorkerPrompt::Show(const PromptBox& box) {
  // The event may outlive the wait.
  const auto question = std::make_shared<Question>();
  QMetaObject::invokeMethod(
      &m_home,
      [question, box, &shown = m_shown, stop = m_stop] {
        if (stop.stop_requested()) return;
        const PromptAnswer answer = shown.Show(box);
        const std::lock_guard guard(question->lock);
        question->answer = answer;
        question->answered.notify_all();
      },
      Qt::QueuedConnection);
  std::unique_lock guard(question->lock);
  question->answered.wait(guard, m_stop, [&] { return question->answer.has_value(); });
  const PromptAnswer declined = box.buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
  return question->answer.value_or(declined);
}

}  // namespace tremlo
