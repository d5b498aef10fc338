#pragma once

#include <QString>
#include <QStringList>

namespace tremlo {

/// Where the program finds its table folders (DamCoef, LowSpec, SystemData with the manual) and keeps what it
/// writes.
class ProgramFolders {
 public:
  /// One folder for everything, and no other place: beside the program, or what a command line names.
  ProgramFolders(QString folder) : m_own(std::move(folder)) {}
  /// The user's folder comes first, then `shared` in their order.
  ProgramFolders(QString own, QStringList shared) : m_own(std::move(own)), m_shared(std::move(shared)) {}

  /// Where answers of the services and the map's cache go. Empty when the program does not know its place.
  const QString& Own() const { return m_own; }

  /// The path of a table folder: the first that is there, whole, so that no file of one place ever fills a
  /// gap in another. The user's when there is none.
  QString TableFolder(const QString& name) const;

 private:
  QString m_own;
  QStringList m_shared;
};

/// How an installation lays out its files, chosen when the program is built: guessed at run time, a build
/// tree without tables would take those of an installed package.
enum class FolderLayout { BesideProgram, System };

/// What a layout is made of on this machine.
struct FolderPlaces {
  QString programDir;  ///< folder of the executable; empty when it cannot be found
  QString home;        ///< of the user
  QString dataHome;    ///< XDG_DATA_HOME as it is set; one that is no absolute path does not count
  QString officeData = QStringLiteral("/usr/local/share/tremlo");  ///< tables for all users of a machine
  QString systemData = QStringLiteral("/usr/share/tremlo");        ///< what a package brings
};

/// Beside the program, everything is in its folder. In the system's layout the user's folder is "tremlo" in
/// the data home, and tables are found there, then at the office's place, the system's, and last beside the
/// program's prefix.
ProgramFolders FoldersOf(FolderLayout layout, const FolderPlaces& places);

/// Those of this program on this machine. Needs the application object.
ProgramFolders InstalledFolders();

}  // namespace tremlo
