#pragma once

#include "core/files/ProgramFolders.h"
#include "core/location/ServiceSettings.h"
#include "core/shell/ProgramIdentity.h"

#include <QString>

namespace tremlo {

/// Everything that main decides for the program; the defaults are those it was built with. Needs the
/// application object.
struct ProgramSettings {
  ServiceSettings services;  ///< its answer folder is set by the program
  int splashMs = 3000;
  /// Where the tables, the manual and the answers of the services are.
  ProgramFolders folders = InstalledFolders();
  QString supportPage = QString::fromUtf8(kSupportPage);
  QString portalPage = QString::fromUtf8(kPortalPage);
};

}  // namespace tremlo
