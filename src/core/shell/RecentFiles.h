#pragma once

#include <QSettings>
#include <QStringList>

namespace tremlo {

/// The projects opened or saved last: the only thing that is kept between two runs. At most ten absolute
/// paths, newest first, none twice.
class RecentFiles {
 public:
  RecentFiles();

  QStringList Paths() const;
  void Add(const QString& path);
  void Remove(const QString& path);

 private:
  void Keep(const QStringList& paths);

  QSettings m_settings;
};

}  // namespace tremlo
