#include "support/TestHome.h"

#include <QDir>
#include <QSettings>

namespace tremlo::test {

TestHome::TestHome() {
  for (const char* variable :
       {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    const QString folder = m_dir.filePath(QString::fromLatin1(variable));
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv(variable, folder.toUtf8());
  }
#ifdef _WIN32
  // What the user keeps there has its place by no variable.
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                     m_dir.filePath(QStringLiteral("XDG_CONFIG_HOME")));
#endif
}

}  // namespace tremlo::test
