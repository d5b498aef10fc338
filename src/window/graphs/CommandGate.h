#pragma once

#include "core/ask/Prompt.h"

#include <QObject>

#include <functional>
#include <vector>

namespace tremlo {

class Screen;

/// What every command of the user passes at the moment it runs: an entry of the menu, a shortcut, a recent
/// file, a step of the pane, a drop, a close request, a button or switch of a screen. The accessibility bus
/// reaches controls behind a dialog, and of several inputs that arrive at once the first may open one: so it
/// is looked now whether the way is free, not when the input came in.
class CommandGate : public QObject {
 public:
  /// The prompt tells of a command that broke off. To be made before the event loop runs.
  explicit CommandGate(Prompt& prompt);

  /// Which screen is told of commands; null for none.
  void SetScreenOnDisplay(std::function<Screen*()> screen) { m_screenOnDisplay = std::move(screen); }

  /// Takes the open entry, tells the screen on display that a command begins, carries the command out, and
  /// tells the screen that it is over if it is still on display. A command that throws, memory short above
  /// all, is told and over.
  ///
  /// False, and nothing has happened: another command is under way, a dialog is up, a drag or any other wait
  /// in an inner event loop goes on, or the open entry was refused. The caller puts back what its control
  /// shows.
  bool Run(const std::function<void()>& command);

  /// The program ends: no command runs any more.
  void Close() { m_closed = true; }

 private:
  /// A button that the accessibility bus presses clicks a tenth of a second later, by a timer of its own.
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Whether it was pressed behind a dialog, which may have gone by now, or has left the display since: the
  /// project may be another one.
  bool ClicksTooLate(const QObject* pressed);
  bool IsFree() const;
  Screen* ScreenOnDisplay() const { return m_screenOnDisplay ? m_screenOnDisplay() : nullptr; }
  /// Lets no exception out.
  void CarryOut(const std::function<void()>& task);

  Prompt& m_prompt;
  std::function<Screen*()> m_screenOnDisplay;
  const int m_programLoop;                      ///< level of the event loop that the program runs in
  std::vector<const QObject*> m_pressedBehind;  ///< buttons that are yet to click; compared only
  bool m_running = false;
  bool m_closed = false;
};

}  // namespace tremlo
