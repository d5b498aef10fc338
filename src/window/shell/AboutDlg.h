#pragma once

#include <QDialog>

#include <vector>

namespace tremlo {

/// Version, legal line, notice on the hazard service's data, and which tables are samples.
class CAboutDlg : public QDialog {
  Q_OBJECT
 public:
  CAboutDlg(const std::vector<QString>& sampleFolders, QWidget* parent);
};

}  // namespace tremlo
