#include "support/TestFolder.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;

class Commit : public testing::Test {
 protected:
  Commit() { m_folder.Write(QStringLiteral("cmake/commit.txt"), "$Format:%H$\n"); }

  QString Run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.setWorkingDirectory(m_folder.Path());
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
  }
  void Git(const QStringList& words) const {
    Run(QStringLiteral("git"),
        QStringList{"-c", "user.name=a", "-c", "user.email=a@example.org", "-c", "commit.gpgsign=false"} +
            words);
  }
  void CommitAll() const {
    Git({"init", "-q"});
    Git({"add", "."});
    Git({"commit", "-q", "-m", "first"});
  }
  QString Head() const { return Run(QStringLiteral("git"), {"rev-parse", "--short=12", "HEAD"}); }
  /// What stands between the quotes of the source that is written for `source`.
  QString Written(const QString& source) const {
    const QString out = m_folder.Path(QStringLiteral("Commit.cpp"));
    Run(QStringLiteral(TREMLO_CMAKE), {"-DSOURCE=" + source, "-DOUTPUT=" + out, "-P",
                                       test::SourcePath(QStringLiteral("cmake/WriteCommit.cmake"))});
    return QString::fromUtf8(test::ReadAll(out)).section(u'"', 3, 3);
  }
  QString Written() const { return Written(m_folder.Path()); }

  TestFolder m_folder;
};

TEST_F(Commit, IsThatOfTheRepository) {
  CommitAll();
  EXPECT_EQ(Written(), Head());
  EXPECT_EQ(Head().size(), 12);
}

TEST_F(Commit, TellsChangedSources) {
  m_folder.Write(QStringLiteral("a.cpp"), "1");
  CommitAll();
  m_folder.Write(QStringLiteral("untracked"), "1");
  EXPECT_EQ(Written(), Head());
  m_folder.Write(QStringLiteral("a.cpp"), "2");
  EXPECT_EQ(Written(), Head() + QStringLiteral("-dirty"));
}

TEST_F(Commit, ComesFromTheArchiveOfTheSources) {
  m_folder.Write(QStringLiteral("cmake/commit.txt"), "0123456789abcdef0123456789abcdef01234567\n");
  EXPECT_EQ(Written(), QStringLiteral("0123456789ab"));
}

TEST_F(Commit, IsEmptyWithoutEither) {
  EXPECT_EQ(Written(), QString());
}

TEST_F(Commit, IsNotThatOfARepositoryAround) {
  CommitAll();
  m_folder.Write(QStringLiteral("unpacked/cmake/commit.txt"), "$Format:%H$\n");
  EXPECT_EQ(Written(m_folder.Path(QStringLiteral("unpacked"))), QString());
}

TEST_F(Commit, LeavesItsFileAloneWhileTheCommitIsTheSame) {
  Written();
  const QString out = m_folder.Path(QStringLiteral("Commit.cpp"));
  const QDateTime before = QDateTime::fromSecsSinceEpoch(1000000000);
  QFile file(out);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(before, QFileDevice::FileModificationTime));
  file.close();
  Written();
  EXPECT_EQ(QFileInfo(out).lastModified(), before);
}

}  // namespace
}  // namespace tremlo
