#include "core/shell/UpdateCheck.h"
#include "support/UpdateChecker.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

/// A working folder of its own.
class UpdateCheckTest : public testing::Test {
 protected:
  UpdateCheckTest() { QDir::setCurrent(folder.Path()); }
  ~UpdateCheckTest() override { QDir::setCurrent(m_before); }

  test::TestFolder folder;

 private:
  QString m_before = QDir::currentPath();
};

TEST_F(UpdateCheckTest, AbsentCheckerIsNoStart) {
  EXPECT_EQ(StartUpdateCheck(false), 1);
}

TEST_F(UpdateCheckTest, FileThatCannotBeRunIsNoStart) {
  folder.Write(QStringLiteral("UpdateChecker.exe"), "no program\n");
  EXPECT_EQ(StartUpdateCheck(true), 1);
}

TEST_F(UpdateCheckTest, StartIsToldTheProgramAlone) {
  test::WriteUpdateChecker(folder);
  EXPECT_EQ(StartUpdateCheck(false), 0);
  EXPECT_EQ(test::UpdateCheckerArguments(folder), "TRML|");
}

TEST_F(UpdateCheckTest, UsersWishIsPassedOn) {
  test::WriteUpdateChecker(folder);
  EXPECT_EQ(StartUpdateCheck(true), 0);
  EXPECT_EQ(test::UpdateCheckerArguments(folder), "TRML|FromUser|");
}

}  // namespace
}  // namespace tremlo
