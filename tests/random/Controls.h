#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

class QAbstractButton;

namespace tremlo {
class CSpread7;
}

namespace tremlo::test {

/// The window that takes input now: an open list or menu, else the dialog in front, else `frame`.
QWidget* FrontmostWindow(QWidget* frame);

/// What the user can see and work in a window, found anew each time: whatever stands there is worked.
template <class Control>
std::vector<Control*> Workable(const QWidget& window) {
  std::vector<Control*> found;
  for (Control* control : window.findChildren<Control*>())
    if (control->isVisible() && control->isEnabled() && control->window() == window.window())
      found.push_back(control);
  return found;
}

/// A button with one of these texts; null when none can be pressed.
QAbstractButton* ButtonCalled(const QWidget& window, const QStringList& texts);

/// For the diary: the object name, or the class, with the text of a button.
QString NameOf(const QObject& object);

/// Check cells of a grid that can be pressed; all columns, or the last one that has any.
struct Cell {
  int row = 0, column = 0;
};
std::vector<Cell> CheckCells(const CSpread7& grid, bool lastColumnOnly);
/// Where a cell is on the grid's viewport, scrolled into sight.
QPoint PlaceOf(CSpread7& grid, const Cell& cell);

/// Whether something is due in a moment that the screen itself has set going.
bool AwaitsTimer(const QWidget& window);

}  // namespace tremlo::test
