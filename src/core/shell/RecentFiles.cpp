#include "core/shell/RecentFiles.h"

#include <QFileInfo>

namespace tremlo {

namespace {

constexpr qsizetype kMostPaths = 10;
const QString kKey = QStringLiteral("recentFiles");

}  // namespace

RecentFiles::RecentFiles()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tremlo"),
                 QStringLiteral("Tremlo")) {}

QStringList RecentFiles::Paths() const {
  // The file may have been edited by hand.
  QStringList paths = m_settings.value(kKey).toStringList();
  paths.removeAll(QString());
  paths.removeDuplicates();
  return paths.mid(0, kMostPaths);
}

void RecentFiles::Add(const QString& path) {
  QStringList paths = Paths();
  const QString absolute = QFileInfo(path).absoluteFilePath();
  paths.removeAll(absolute);
  paths.prepend(absolute);
  Keep(paths.mid(0, kMostPaths));
}

void RecentFiles::Remove(const QString& path) {
  QStringList paths = Paths();
  if (paths.removeAll(QFileInfo(path).absoluteFilePath()) > 0) Keep(paths);
}

void RecentFiles::Keep(const QStringList& paths) {
  m_settings.setValue(kKey, paths);
  m_settings.sync();
}

}  // namespace tremlo
