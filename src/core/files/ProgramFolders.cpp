#include "core/files/ProgramFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tremlo {

namespace {

#ifdef TREMLO_SYSTEM_LAYOUT
constexpr FolderLayout kLayout = FolderLayout::System;
#else
constexpr FolderLayout kLayout = FolderLayout::BesideProgram;
#endif

QString DataHome(const FolderPlaces& places) {
  if (QDir::isAbsolutePath(places.dataHome)) return places.dataHome;
  return QDir(places.home).filePath(QStringLiteral(".local/share"));
}

}  // namespace

QString ProgramFolders::TableFolder(const QString& name) const {
  QString own = QDir(m_own).filePath(name);
  if (QFileInfo(own).isDir()) return own;
  for (const QString& place : m_shared)
    if (QString path = QDir(place).filePath(name); QFileInfo(path).isDir()) return path;
  return own;
}

ProgramFolders FoldersOf(FolderLayout layout, const FolderPlaces& places) {
  if (layout == FolderLayout::BesideProgram) return {places.programDir};
  QStringList shared{places.officeData, places.systemData};
  if (!places.programDir.isEmpty())
    shared << QDir::cleanPath(places.programDir + QStringLiteral("/../share/tremlo"));
  return {QDir(DataHome(places)).filePath(QStringLiteral("tremlo")), shared};
}

ProgramFolders InstalledFolders() {
  return FoldersOf(kLayout, {.programDir = QCoreApplication::applicationDirPath(),
                             .home = QDir::homePath(),
                             .dataHome = qEnvironmentVariable("XDG_DATA_HOME")});
}

}  // namespace tremlo
