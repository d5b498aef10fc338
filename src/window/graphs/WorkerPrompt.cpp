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

  void Answer(PromptAnswer given) {
    const std::lock_guard guard(lock);
    answer = given;
    answered.notify_all();
  }
};

PromptAnswer Declined(const PromptBox& box) {
  return box.buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::No;
}

}  // namespace

PromptAnswer WorkerPrompt::Show(const PromptBox& box) {
  // The event may outlive the wait.
  const auto question = std::make_shared<Question>();
  QMetaObject::invokeMethod(
      &m_home,
      [question, box, &shown = m_shown, stop = m_stop] {
        if (stop.stop_requested()) return;
        try {
          question->Answer(shown.Show(box));
        } catch (...) {
          // A box for which there was no memory must not leave the worker waiting.
          question->Answer(Declined(box));
          throw;
        }
      },
      Qt::QueuedConnection);
  std::unique_lock guard(question->lock);
  question->answered.wait(guard, m_stop, [&] { return question->answer.has_value(); });
  return question->answer.value_or(Declined(box));
}

}  // namespace tremlo
