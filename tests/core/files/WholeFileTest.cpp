#include "core/files/WholeFile.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <gtest/gtest.h>
#include <string>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tremlo {
namespace {

using test::TestFolder;

TEST(WholeFile, ReadsRegularFilesOnly) {
  const TestFolder folder;
  QByteArray content = "before";
  EXPECT_FALSE(ReadWholeFile(folder.Path("absent"), content));
  EXPECT_FALSE(ReadWholeFile(folder.Path(), content));
  EXPECT_FALSE(ReadWholeFile(QStringLiteral("/dev/zero"), content));
  EXPECT_EQ(content, QByteArray("before"));
  EXPECT_TRUE(ReadWholeFile(folder.Write("f", QByteArray("a\0b", 3)), content));
  EXPECT_EQ(content, QByteArray("a\0b", 3));
}

TEST(WholeFile, ReplacesAnOlderFileAndLeavesNothingBeside) {
  const TestFolder folder;
  const QString path = folder.Write("f", "older and longer");
  EXPECT_TRUE(WriteWholeFile(path, "new"));
  EXPECT_EQ(test::ReadAll(path), QByteArray("new"));
  EXPECT_EQ(folder.Names(), QStringList{"f"});
}

TEST(WholeFile, ASymbolicLinkStaysALink) {
  const TestFolder folder;
  const QString target = folder.Write("target", "old");
  ASSERT_TRUE(QFile::link(target, folder.Path("link")));
  EXPECT_TRUE(WriteWholeFile(folder.Path("link"), "new"));
  EXPECT_TRUE(QFileInfo(folder.Path("link")).isSymLink());
  EXPECT_EQ(test::ReadAll(target), QByteArray("new"));
}

TEST(WholeFile, OneFileOfSeveralThatFailsKeepsAll) {
  const TestFolder folder;
  const QString first = folder.Write("first", "old");
  const auto failed = WriteWholeFiles({{first, "new"}, {folder.Path("absent/second"), "new"}});
  ASSERT_TRUE(failed);
  EXPECT_EQ(*failed, folder.Path("absent/second"));
  EXPECT_EQ(test::ReadAll(first), QByteArray("old"));
  EXPECT_EQ(folder.Names(), QStringList{"first"});
  EXPECT_FALSE(WriteWholeFiles({{first, "1"}, {folder.Path("second"), "2"}}));
  EXPECT_EQ(test::ReadAll(first), QByteArray("1"));
  EXPECT_EQ(test::ReadAll(folder.Path("second")), QByteArray("2"));
}

#ifndef _WIN32

/// Runs `write` in a child whose files may not grow beyond `bytes`, as on a disk that is full there. Returns
/// what it returned.
template <class Write>
bool OnAFullDisk(rlim_t bytes, Write write) {
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
    _exit(write() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(WholeFile, ADiskThatIsFullAtAnyByteKeepsTheOlderFile) {
  const TestFolder folder;
  const QString path = folder.Write("f", "old");
  const std::string content(300, 'x');
  for (rlim_t room = 0; room < content.size(); ++room) {
    EXPECT_FALSE(OnAFullDisk(room, [&] { return WriteWholeFile(path, content); })) << room;
    EXPECT_EQ(test::ReadAll(path), QByteArray("old")) << room;
    EXPECT_EQ(folder.Names(), QStringList{"f"}) << room;
  }
  EXPECT_TRUE(OnAFullDisk(content.size(), [&] { return WriteWholeFile(path, content); }));
  EXPECT_EQ(test::ReadAll(path), QByteArray::fromStdString(content));
}

// The sanitizer needs all addresses for itself, and ends the program where a request is refused.
#ifndef __SANITIZE_ADDRESS__
TEST(WholeFile, AFileThatDoesNotFitIntoMemoryIsNotRead) {
  const TestFolder folder;
  const QString path = folder.Write("f", "");
  ASSERT_TRUE(QFile::resize(path, qint64{1} << 33));  // of holes
  const pid_t child = fork();
  if (child == 0) {
    const rlimit limit = {rlim_t{1} << 32, rlim_t{1} << 32};
    setrlimit(RLIMIT_AS, &limit);
    QByteArray content;
    _exit(ReadWholeFile(path, content) ? 1 : 0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status)) << "it must not end the program";
  EXPECT_EQ(WEXITSTATUS(status), 0);
}
#endif

TEST(WholeFile, ALargeFileOnAFullDiskKeepsTheOlderFile) {
  const TestFolder folder;
  const QString path = folder.Write("f", "old");
  EXPECT_FALSE(OnAFullDisk(100000, [&] { return WriteWholeFile(path, std::string(1 << 20, 'x')); }));
  EXPECT_EQ(test::ReadAll(path), QByteArray("old"));
}

#endif

}  // namespace
}  // namespace tremlo
