#include "core/shell/InstanceLock.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(InstanceLock, SecondIsRefusedWhileTheFirstLives) {
  InstanceLock first;
  InstanceLock second;
  EXPECT_TRUE(first.Take());
  EXPECT_FALSE(second.Take());
  first.Release();
  EXPECT_TRUE(second.Take());
}

#ifndef _WIN32  // where a named mutex ends with its program and leaves no mark in a folder

const QString kName = QStringLiteral("Morvane.exe.lock");

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

/// A variable of the environment for the length of a test.
class Variable {
 public:
  Variable(const char* name, const QString& value) : m_name(name), m_before(qgetenv(name)) {
    qputenv(name, value.toUtf8());
  }
  ~Variable() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* m_name;
  QByteArray m_before;
};

TEST(InstanceLock, WithoutARuntimeFolderTheTemporaryOneServes) {
  const test::TestFolder folder;
  const Variable runtime("XDG_RUNTIME_DIR", folder.Write(QStringLiteral("file"), ""));
  InstanceLock first;
  InstanceLock second;
  EXPECT_TRUE(first.Take());
  EXPECT_FALSE(second.Take());
}

TEST(InstanceLock, NoRoomForAMarkIsNoOtherInstance) {
  const test::TestFolder folder;
  const QString file = folder.Write(QStringLiteral("file"), "");
  const Variable runtime("XDG_RUNTIME_DIR", file);
  const Variable temporary("TMPDIR", file);
  InstanceLock lock;
  EXPECT_TRUE(lock.Take());
}

#endif

}  // namespace
}  // namespace tremlo
