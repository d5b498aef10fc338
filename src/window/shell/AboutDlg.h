#pragma once

#include "core/files/ProgramFolders.h"

#include <QDialog>

namespace tremlo {

/// Version and commit, legal line, notice on the hazard service's data, where the tables in use are and which
/// of them are samples.
class CAboutDlg : public QDialog {
  Q_OBJECT
 public:
  CAboutDlg(const ProgramFolders& folders, QWidget* parent);
};

}  // namespace tremlo
