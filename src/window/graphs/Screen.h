#pragma once

#include <QWidget>

namespace tremlo {

/// A screen of the program: a page of the window's client area. All exist from the start of the program and
/// exactly one is on display. A screen holds display state only; what it shows is in the document. Everything
/// runs on the thread of the user interface.
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

  /// Reads the document again. No calculation, no message, and nothing in the document changes. Also called
  /// when the program goes online or offline.
  virtual void Refresh() = 0;
};

}  // namespace tremlo
