#pragma once

#include "core/files/ProgramFolders.h"

#include <QString>

#include <vector>

namespace tremlo {

/// The version as titles show it, in hundredths: "1.06" for version 1.6.
QString VersionText(int major, int minor);

/// "Tremlo Version" and the version of this program at once behind it.
QString ApplicationTitle();

/// File name of a project's path, or "無題" for an unnamed project: what titles and questions call it.
QString ProjectTitle(const QString& pathName);

/// The whole title of the window. `captionMark`: the mode's mark, empty online; a blank stands in its place
/// then.
QString WindowTitle(const QString& pathName, const QString& captionMark);

/// "Version 1.06" for version 1.6, as the about box shows it.
QString AboutVersionText(int major, int minor);

/// "1.0 (0123456789ab)" as the programs of the command line tell it: version and commit, where that is known.
QString VersionAndCommit(const QString& version, const QString& commit);
/// The same for this program.
QString VersionAndCommit();

/// Name of the program and year.
QString LegalLine();

/// That the tables of these folders are samples.
QString SampleTablesText(const std::vector<QString>& folders);

/// Where each table folder in use is, a line each.
QString TablePlacesText(const ProgramFolders& folders);

}  // namespace tremlo
