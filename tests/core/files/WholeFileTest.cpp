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

#ifdef __GLIBC__
#include <cerrno>
#include <dlfcn.h>
#include <string_view>

namespace {
std::string_view g_unmovable;  ///< no file can take the place of one whose path ends like this
bool g_linksRefused = false;   ///< as on a file system without second names
}  // namespace

// These stand before those of the C library: only so does a file that stands on disk fail to take its place.
extern "C" int rename(const char* from, const char* to) noexcept {
  if (!g_unmovable.empty() && std::string_view(to).ends_with(g_unmovable)) {
    errno = EIO;
    return -1;
  }
  return reinterpret_cast<int (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "rename"))(from, to);
}
extern "C" int link(const char* from, const char* to) noexcept {
  if (g_linksRefused) {
    errno = EPERM;
    return -1;
  }
  return reinterpret_cast<int (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "link"))(from, to);
}
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
#ifdef _WIN32
  GTEST_SKIP() << "Qt makes shortcuts here, files of their own, and the standard library no links";
#endif
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

#ifdef __GLIBC__

class GroupOfFiles : public testing::Test {
 protected:
  GroupOfFiles() {
    folder.Write("1", "old 1");
    folder.Write("3", "old 3");
    folder.Write("1.old0", "the user's own");
    EXPECT_TRUE(QFile::link(folder.Path("3"), folder.Path("link")));
    g_unmovable = "/4";
  }
  ~GroupOfFiles() override {
    g_unmovable = {};
    g_linksRefused = false;
  }
  std::optional<QString> Write() const {
    return WriteWholeFiles({{folder.Path("1"), "new 1"},
                            {folder.Path("2"), "new 2"},
                            {folder.Path("link"), "new 3"},
                            {folder.Path("4"), "new 4"}});
  }
  void ExpectOlderFiles() const {
    EXPECT_EQ(test::ReadAll(folder.Path("1")), QByteArray("old 1"));
    EXPECT_EQ(test::ReadAll(folder.Path("3")), QByteArray("old 3"));
    EXPECT_TRUE(QFileInfo(folder.Path("link")).isSymLink());
    EXPECT_EQ(test::ReadAll(folder.Path("4")), QByteArray("old 4"));
    EXPECT_EQ(folder.Names(), (QStringList{"1", "1.old0", "3", "4", "link"}));
  }
  TestFolder folder;
};

TEST_F(GroupOfFiles, OneThatCannotTakeItsPlaceGivesTheirsBackToAllBeforeIt) {
  folder.Write("4", "old 4");
  EXPECT_EQ(Write(), folder.Path("4"));
  ExpectOlderFiles();
}

TEST_F(GroupOfFiles, TheOlderFilesAreCopiedWhereThereAreNoSecondNames) {
  folder.Write("4", "old 4");
  g_linksRefused = true;
  EXPECT_EQ(Write(), folder.Path("4"));
  ExpectOlderFiles();
}

TEST_F(GroupOfFiles, AWholeGroupLeavesNothingBeside) {
  folder.Write("4", "old 4");
  g_unmovable = {};
  EXPECT_EQ(Write(), std::nullopt);
  EXPECT_EQ(test::ReadAll(folder.Path("1")), QByteArray("new 1"));
  EXPECT_EQ(test::ReadAll(folder.Path("3")), QByteArray("new 3"));
  EXPECT_EQ(test::ReadAll(folder.Path("4")), QByteArray("new 4"));
  EXPECT_EQ(test::ReadAll(folder.Path("1.old0")), QByteArray("the user's own"));
  EXPECT_EQ(folder.Names(), (QStringList{"1", "1.old0", "2", "3", "4", "link"}));
}

#endif

#ifdef _WIN32

/// As a table that stands open in another program: nothing takes the place of such a file there.
TEST(WholeFile, AGroupWithAFileThatIsOpenElsewhereKeepsAll) {
  const TestFolder folder;
  // More characters than the system takes in a plain path, and than such a path may name as a folder.
  for (const QString& inner : {QString(), QStringList(10, QString(30, u'深')).join(u'/') + u'/'}) {
    folder.Write(inner + "1", "old 1");
    const QString held = folder.Write(inner + "3", "old 3");
    QFile open(held);
    ASSERT_TRUE(open.open(QIODevice::ReadOnly));
    const std::vector<FileContent> group = {
        {folder.Path(inner + "1"), "new 1"}, {folder.Path(inner + "2"), "new 2"}, {held, "new 3"}};
    EXPECT_EQ(WriteWholeFiles(group), held);
    EXPECT_EQ(test::ReadAll(folder.Path(inner + "1")), QByteArray("old 1"));
    EXPECT_EQ(test::ReadAll(held), QByteArray("old 3"));
    EXPECT_EQ(QDir(folder.Path(inner)).entryList(QDir::Files, QDir::Name), (QStringList{"1", "3"}));
    open.close();
    EXPECT_EQ(WriteWholeFiles(group), std::nullopt);
    EXPECT_EQ(test::ReadAll(folder.Path(inner + "2")), QByteArray("new 2"));
    EXPECT_EQ(test::ReadAll(held), QByteArray("new 3"));
  }
}

TEST(WholeFile, ADiskThatIsFullAtAnyByteKeepsTheOlderFile) {
  GTEST_SKIP()
      << "the largest size of a program's files is set by setrlimit, its memory too, in a child made by fork";
}

#else

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
