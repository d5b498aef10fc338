#pragma once

#include "core/ask/Prompt.h"

#include <QObject>

namespace tremlo {

/// Questions and messages as boxes in front of the window. A call from a worker waits while the thread of the
/// user interface, which made this object and runs its event loop, shows the box.
class MessageBoxPrompt : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override;

 private:
  QObject m_uiThread;  ///< lives on it
};

}  // namespace tremlo
