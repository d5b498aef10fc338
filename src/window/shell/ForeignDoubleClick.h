#pragma once

#include <QObject>

class QWidget;

namespace tremlo {

/// Keeps the second half of a double click from a control on which the first half did not fall: the first
/// click has opened what the second one hits, and the user has not seen it yet. Two quick clicks on the
/// control itself both count.
class ForeignDoubleClick : public QObject {
 public:
  /// Belongs to the control.
  explicit ForeignDoubleClick(QWidget* control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool m_pressed = false;  ///< since the control has been shown
};

}  // namespace tremlo
