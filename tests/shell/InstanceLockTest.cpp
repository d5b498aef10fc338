#include "shell/InstanceLock.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

const QString kName = QStringLiteral("Morvane.exe.lock");

TEST(InstanceLock, SecondIsRefusedWhileTheFirstLives) {
  InstanceLock first;
  InstanceLock second;
  EXPECT_TRUE(first.Take());
  EXPECT_FALSE(second.Take());
  first.Release();
  EXPECT_TRUE(second.Take());
}

TEST(InstanceLock, StandsInTheFolderOfTheLogin) {
  InstanceLock lock;
  ASSERT_TRUE(lock.Take());
  EXPECT_TRUE(QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).exists(kName));
}

TEST(InstanceLock, MarkOfADeadProgramIsTakenOver) {
  QProcess dead;
  dead.start(QStringLiteral("true"), QStringList{});
  ASSERT_TRUE(dead.waitForStarted());
  const qint64 id = dead.processId();
  ASSERT_TRUE(dead.waitForFinished());
  QFile mark(QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).filePath(kName));
  ASSERT_TRUE(mark.open(QIODevice::WriteOnly));
  mark.write(QByteArray::number(id) + "\ntremlo\n" + QSysInfo::machineHostName().toUtf8() + "\n");
  mark.close();
  InstanceLock lock;
  EXPECT_TRUE(lock.Take());
}

TEST(InstanceLock, WithoutARuntimeFolderTheTemporaryOneServes) {
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
  const test::TestFolder folder;
  qputenv("XDG_RUNTIME_DIR", folder.Write(QStringLiteral("file"), "").toUtf8());
  InstanceLock first;
  InstanceLock second;
  EXPECT_TRUE(first.Take());
  EXPECT_FALSE(second.Take());
  qputenv("XDG_RUNTIME_DIR", runtime);
}

}  // namespace
}  // namespace tremlo
