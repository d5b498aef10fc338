#pragma once

#include "core/ask/Prompt.h"

#include <stop_token>

class QObject;

namespace tremlo {

/// The prompt of a worker: its boxes are shown by another prompt on the thread of the user interface, and the
/// worker waits for the answer. After a stop it waits no longer, nor is a box shown, so that the thread that
/// joins the worker does not wait for itself; what was asked counts as declined then.
class WorkerPrompt : public Prompt {
 public:
  /// `home` lives on the thread of the user interface. Both outlive the worker.
  WorkerPrompt(Prompt& shown, QObject& home, std::stop_token stop)
      : m_shown(shown), m_home(home), m_stop(std::move(stop)) {}

  PromptAnswer Show(const PromptBox& box) override;

 private:
  Prompt& m_shown;
  QObject& m_home;
  std::stop_token m_stop;
};

}  // namespace tremlo
