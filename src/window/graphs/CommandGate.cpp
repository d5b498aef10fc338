#include "window/graphs/CommandGate.h"

#include "window/graphs/ExceptionText.h"
#include "window/graphs/ModalWindow.h"
#include "window/graphs/PendingEntry.h"
#include "window/graphs/Screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QThread>

namespace tremlo {

namespace {

int LoopLevel() {
  return QThread::currentThread()->loopLevel();
}

}  // namespace

CommandGate::CommandGate(Prompt& prompt) : m_prompt(prompt), m_programLoop(LoopLevel() + 1) {
  qApp->installEventFilter(this);
}

bool CommandGate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Polish) {
    if (auto* const button = qobject_cast<QAbstractButton*>(watched))
      connect(button, &QAbstractButton::pressed, this, [this, button] {
        std::erase(m_pressedBehind, button);
        if (IsBehindModalWindow(button)) m_pressedBehind.push_back(button);
      });
  } else if (event->type() == QEvent::Timer && ClicksTooLate(watched)) {
    const QScopedValueRollback refusing(m_running, true);
    watched->event(event);
    return true;
  }
  return false;
}

bool CommandGate::IsFree() const {
  // A dialog that has just been answered is no longer up, but what asked the question has not gone on yet.
  return !m_closed && !m_running && !QApplication::activeModalWidget() && LoopLevel() <= m_programLoop;
}

bool CommandGate::Run(const std::function<void()>& command) {
  if (!IsFree()) return false;
  const QScopedValueRollback running(m_running, true);
  bool entryTaken = false;
  CarryOut([&] { entryTaken = FinishPendingEntry(); });
  if (!entryTaken) return false;
  Screen* const screen = ScreenOnDisplay();
  CarryOut([&] {
    if (screen) screen->CommandBegins();
    command();
  });
  if (screen && screen == ScreenOnDisplay()) CarryOut([screen] { screen->CommandEnded(); });
  return true;
}

bool CommandGate::ClicksTooLate(const QObject* pressed) {
  if (std::erase(m_pressedBehind, pressed) > 0) return true;
  const auto* const button = qobject_cast<const QAbstractButton*>(pressed);
  return button && !button->isVisible();
}

void CommandGate::CarryOut(const std::function<void()>& task) {
  QString failure;
  try {
    task();
    return;
  } catch (...) {
    failure = CurrentExceptionText();
  }
  // Only now: what the task held is free again.
  m_prompt.Tell(failure);
}

}  // namespace tremlo
