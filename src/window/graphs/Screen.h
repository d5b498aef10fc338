#pragma once

#include <QWidget>

namespace tremlo {

/// A screen of the program: a page of the window's client area. All exist from the start of the program and
/// exactly one is on display. A screen holds display state only; what it shows is in the document. Everything
/// runs on the thread of the user interface.
///
/// What may arrive when:
/// - `Refresh` and `Prepare` at any time, on display or not. `Refresh` comes from commands of the menu and
///   from "オンライン" too while the user is at work on the screen: what is display state alone (answers on a
///   chart, the view of a map, a drag) survives it.
/// - `Entered`, then pairs of `CommandBegins` and `CommandEnded`, then `Left`. A command that leads to
/// another
///   screen ends with `Left` in place of `CommandEnded`.
/// - Within a command also `Refresh`, and after `CommandBegins` the document may be another project. While a
///   dialog or question is up the screen is painted, but neither input nor a command reaches it.
///
/// Whatever a button or switch of the screen does to the document, and whatever opens a dialog, is a command
/// and passes `CommandGate::Run`; where that is refused, the control is put back. An entry into a field or
/// cell is none, nor is a question that the screen asks in the middle of a drag.
class Screen : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;

  /// Fills the screen from the document because its gate lets it open, on display or not.
  virtual void Prepare() { Refresh(); }

  /// It has just come on display in place of another. Not called when the window returns from being
  /// minimised, so that what happens "on entry" belongs here and not into showEvent.
  virtual void Entered() {}

  /// It is about to leave the display: timers stop.
  virtual void Left() {}

  /// A command begins, whoever gave it: before its question or dialog, before another project takes this
  /// one's place. Timers and jobs of zero timers stop, a drag ends, a painting under way is abandoned.
  virtual void CommandBegins() {}

  /// That command is over, and the screen is still on display: timers go on, an abandoned painting is made
  /// anew.
  virtual void CommandEnded() {}

  /// Reads the document again. No calculation, no message, and nothing in the document changes.
  virtual void Refresh() = 0;
};

}  // namespace tremlo
