#pragma once

#include <QScrollArea>

class QTableView;

namespace tremlo {

/// What a dialog shows above its buttons: all of it, or as much as the monitor has room for, which scrolls.
/// The dialog has one layout with the body and the buttons, and takes its size from it.
class ScrolledBody : public QScrollArea {
 public:
  explicit ScrolledBody(QWidget* parent = nullptr);

  /// Sets the size, once the content and the buttons stand in the layout of the dialog.
  void Fit(const QWidget& buttons);
  /// Keeps the current cell of a grid in the content in sight: in that of the dialog, not of the grid alone.
  void FollowCells(QTableView& grid);
};

}  // namespace tremlo
