#include "window/shell/MessageBoxPrompt.h"

#include "window/graphs/FrontWindow.h"
#include "window/graphs/MessageBox.h"

#include <QThread>

namespace tremlo {

PromptAnswer MessageBoxPrompt::Show(const PromptBox& box) {
  if (QThread::currentThread() == m_uiThread.thread()) return ShowMessageBox(FrontWindow(), box);
  PromptAnswer answer = PromptAnswer::No;
  QMetaObject::invokeMethod(
      &m_uiThread, [&box, &answer] { answer = ShowMessageBox(FrontWindow(), box); },
      Qt::BlockingQueuedConnection);
  return answer;
}

}  // namespace tremlo
