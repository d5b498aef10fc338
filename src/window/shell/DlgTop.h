#pragma once

#include "core/shell/ProjectCommands.h"

#include <QDialog>

class QTableWidget;

namespace tremlo {

class RoutePictureButton;

/// The top screen: the choice between the two routes.
class CDlgTop : public QDialog {
  Q_OBJECT
 public:
  explicit CDlgTop(QWidget* parent = nullptr);

  /// The choice; true: the guideline route.
  bool GuidelineRoute() const;
  /// The pictures, which are the choice, are there.
  bool CanBeShown() const;

  /// Shows the dialog and waits for it.
  static TopChoice Ask(QWidget* parent);

 private:
  QTableWidget* MakeDescriptions();

  RoutePictureButton* m_guideline;
  RoutePictureButton* m_response;
};

}  // namespace tremlo
