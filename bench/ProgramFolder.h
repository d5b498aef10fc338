#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace tremlo {

/// A folder with the tables of the source tree, as it stands beside the program; further files may be put
/// there. Gone at its end.
class ProgramFolder {
 public:
  ProgramFolder() {
    for (const char* name : {"DamCoef", "LowSpec", "SystemData"}) {
      const QDir from(QStringLiteral(TREMLO_SOURCE_DIR "/data/") + QLatin1String(name));
      const QDir to(m_dir.filePath(QLatin1String(name)));
      if (!to.mkpath(QStringLiteral("."))) std::abort();
      for (const QString& file : from.entryList(QDir::Files))
        if (!QFile::copy(from.filePath(file), to.filePath(file))) std::abort();
    }
  }

  QString Path() const { return m_dir.path(); }
  QString Path(const char* name) const { return m_dir.filePath(QLatin1String(name)); }

 private:
  QTemporaryDir m_dir;
};

}  // namespace tremlo
