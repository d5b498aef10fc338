#pragma once

#include <QDialog>

namespace tremlo {

/// "平面直角座標系について": one picture that explains the zones.
class CDlgHelpFieldRect : public QDialog {
  Q_OBJECT
 public:
  explicit CDlgHelpFieldRect(QWidget* parent);
};

}  // namespace tremlo
