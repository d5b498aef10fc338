#include "support/UpdateChecker.h"

#include <QEventLoop>
#include <QFile>
#include <QFileSystemWatcher>
#include <QTimer>

#include <gtest/gtest.h>

namespace tremlo::test {

void WriteUpdateChecker(const TestFolder& folder) {
  const QString path = folder.Write(QStringLiteral("UpdateChecker.exe"),
                                    "#!/bin/sh\nprintf '%s|' \"$@\" > part\nmv part arguments\n");
  QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QByteArray UpdateCheckerArguments(const TestFolder& folder) {
  const QString path = folder.Path(QStringLiteral("arguments"));
  const QFileSystemWatcher watcher({folder.Path()});
  QEventLoop loop;
  QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &loop, [&] {
    if (QFile::exists(path)) loop.quit();
  });
  QTimer::singleShot(30000, &loop, &QEventLoop::quit);
  if (!QFile::exists(path)) loop.exec();
  EXPECT_TRUE(QFile::exists(path));
  return ReadAll(path);
}

}  // namespace tremlo::test
