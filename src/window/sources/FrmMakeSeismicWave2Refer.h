#pragma once

#include <QDialog>

namespace tremlo {

/// "距離減衰式について": one picture that explains the attenuation relation. On a monitor that has no room
/// for all of it, the picture scrolls.
class CFrmMakeSeismicWave2Refer : public QDialog {
  Q_OBJECT
 public:
  explicit CFrmMakeSeismicWave2Refer(QWidget* parent);
};

}  // namespace tremlo
