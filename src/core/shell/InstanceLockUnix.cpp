#include "core/shell/InstanceLock.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

namespace tremlo {

namespace {

/// Where the mark may be left, best first.
QStringList LockPaths() {
  const QString name = QStringLiteral("Morvane.exe.lock");
  // The temporary folder is shared by all users of the machine.
  const uint user = QFileInfo(QDir::homePath()).ownerId();
  QStringList paths{QDir::temp().filePath(QString::number(user) + u'-' + name)};
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (!runtime.isEmpty()) paths.prepend(QDir(runtime).filePath(name));
  return paths;
}

}  // namespace

bool InstanceLock::Take() {
  for (const QString& path : LockPaths()) {
    auto lock = std::make_shared<QLockFile>(path);
    lock->setStaleLockTime(0);
    if (lock->tryLock(0)) {
      m_mark = std::move(lock);
      return true;
    }
    if (lock->error() == QLockFile::LockFailedError) return false;
  }
  // No mark can be left, on a full disk say: that is no other instance.
  return true;
}

}  // namespace tremlo
