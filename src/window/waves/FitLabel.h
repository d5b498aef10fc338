#pragma once

#include <QLabel>

namespace tremlo {

/// The line below a graph that tells how the wave of the last run fits its target. It takes no room while
/// there is nothing to tell.
class FitLabel : public QLabel {
  Q_OBJECT
 public:
  explicit FitLabel(QWidget* parent);

  void Tell(const QString& figures);
};

}  // namespace tremlo
