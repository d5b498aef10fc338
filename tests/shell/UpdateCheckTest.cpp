#include "shell/UpdateCheck.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

/// A working folder of its own.
class UpdateCheckTest : public testing::Test {
 protected:
  UpdateCheckTest() { QDir::setCurrent(folder.Path()); }
  ~UpdateCheckTest() override { QDir::setCurrent(m_before); }

  void WriteChecker(bool executable) {
    const QString path = folder.Write(QStringLiteral("UpdateChecker.exe"),
                                      "#!/bin/sh\nprintf '%s|' \"$@\" > part\nmv part arguments\n");
    if (executable) QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  /// What the checker was started with, once it has run.
  QByteArray Arguments() {
    const QString path = folder.Path(QStringLiteral("arguments"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }, 30000));
    return test::ReadAll(path);
  }

  test::TestFolder folder;

 private:
  QString m_before = QDir::currentPath();
};

TEST_F(UpdateCheckTest, AbsentCheckerIsNoStart) {
  EXPECT_EQ(StartUpdateCheck(false), 1);
}

TEST_F(UpdateCheckTest, FileThatCannotBeRunIsNoStart) {
  WriteChecker(false);
  EXPECT_EQ(StartUpdateCheck(true), 1);
}

TEST_F(UpdateCheckTest, StartIsToldTheProgramAlone) {
  WriteChecker(true);
  EXPECT_EQ(StartUpdateCheck(false), 0);
  EXPECT_EQ(Arguments(), "TRML|");
}

TEST_F(UpdateCheckTest, UsersWishIsPassedOn) {
  WriteChecker(true);
  EXPECT_EQ(StartUpdateCheck(true), 0);
  EXPECT_EQ(Arguments(), "TRML|FromUser|");
}

}  // namespace
}  // namespace tremlo
