#include "shell/InstanceLock.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tremlo {

namespace {

QString LockPath() {
  const QString name = QStringLiteral("Morvane.exe.lock");
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (!runtime.isEmpty() && QFileInfo(runtime).isDir()) return QDir(runtime).filePath(name);
  // The temporary folder is shared by all users of the machine.
  const uint user = QFileInfo(QDir::homePath()).ownerId();
  return QDir::temp().filePath(QString::number(user) + u'-' + name);
}

}  // namespace

bool InstanceLock::Take() {
  auto lock = std::make_unique<QLockFile>(LockPath());
  lock->setStaleLockTime(0);
  if (!lock->tryLock(0)) return false;
  m_lock = std::move(lock);
  return true;
}

}  // namespace tremlo
