#include "support/TestHome.h"

#include <QDir>

namespace tremlo::test {

TestHome::TestHome() {
  for (const char* variable :
       {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    const QString folder = m_dir.filePath(QString::fromLatin1(variable));
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv(variable, folder.toUtf8());
  }
}

}  // namespace tremlo::test
