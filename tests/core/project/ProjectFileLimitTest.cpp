// What a process can and cannot do with a project: limits on file sizes and memory, and sudden ends.

#include "core/project/ProjectFile.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define TREMLO_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TREMLO_ADDRESS_SANITIZER
#endif
#endif

namespace tremlo {
namespace {

using test::DocWithoutTables;
using test::FillSmallProject;
using test::SmallProjectBytes;
using test::TestFolder;

void LimitFileSize(rlim_t bytes) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

// These two run in a child process, which tells its parent by its exit status.

/// Saves over an older file while only `limit` bytes fit, for every limit; true when each save failed and
/// left all as it was, and the one for which there is room went well.
bool SavesWholeOrNot(const TestFolder& folder) {
  std::signal(SIGXFSZ, SIG_IGN);  // a full disk is an error of the write, not a signal
  const QString path = folder.Path(QStringLiteral("p.trml"));
  const QStringList names = folder.Names();
  CMorvaneDoc doc = DocWithoutTables();
  FillSmallProject(doc);
  doc.SetPathName(QStringLiteral("former.trml"));
  doc.SetModified(true);
  const std::size_t size = ProjectBytes(doc).size();
  for (std::size_t limit = 0; limit < size; ++limit) {
    LimitFileSize(limit);
    const bool saved = SaveProject(doc, path);
    if (saved || !doc.IsModified() || doc.PathName() != QStringLiteral("former.trml") ||
        folder.Names() != names || test::ReadAll(path) != "older") {
      std::fprintf(stderr, "wrong with room for %zu bytes\n", limit);
      return false;
    }
  }
  LimitFileSize(size);
  return SaveProject(doc, path) && !doc.IsModified();
}

/// Loads the small project with a huge number put over each of its bytes in turn, in little memory.
bool LoadsHugeNumbersInLittleMemory() {
  // A request that the limit refuses ends the process, rather than being taken for a broken file.
  std::set_new_handler([] { _exit(2); });
#ifndef TREMLO_ADDRESS_SANITIZER  // which needs all addresses for itself
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t room = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (rlim_t{64} << 20);
  const rlimit limit{room, room};
  setrlimit(RLIMIT_AS, &limit);
#endif
  const std::string bytes = SmallProjectBytes();
  for (const std::string_view number :
       {std::string_view("\xFF\xFF\xFF\xFF"), std::string_view("\xFF\xFF\xFF\x7F"),
        std::string_view("\0\0\0\1", 4), std::string_view("\xFF\xFE\xFF\xFF\xFF\xFF"),
        std::string_view("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF")}) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      std::string huge = bytes;
      huge.replace(i, number.size(), number);
      ArchiveReader archive(huge);
      CMorvaneDoc doc = DocWithoutTables();
      Serialize(archive, doc);
    }
  }
  return true;
}

TEST(ProjectFileLimit, ADiskFullAtAnyByteLeavesTheOlderFile) {
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("p.trml"), "older");
  EXPECT_EXIT(_exit(SavesWholeOrNot(folder) ? 0 : 1), testing::ExitedWithCode(0), "");
  EXPECT_EQ(test::ReadAll(path).toStdString(), SmallProjectBytes());
}

TEST(ProjectFileLimit, HugeCountsAndLengthsTakeLittleMemory) {
  EXPECT_EXIT(_exit(LoadsHugeNumbersInLittleMemory() ? 0 : 1), testing::ExitedWithCode(0), "");
}

/// Runs `work` in a child process and returns how the child ended.
template <class Work>
int StatusOfChild(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

/// Nothing that an earlier save left behind keeps the next from its work.
void ExpectSaveGoesWell(const QString& path) {
  CMorvaneDoc doc = DocWithoutTables();
  doc.site.title = QStringLiteral("the next");
  EXPECT_TRUE(SaveProject(doc, path));
  EXPECT_EQ(test::ReadAll(path).toStdString(), ProjectBytes(doc));
}

TEST(ProjectFileLimit, AProcessKilledInAWriteLeavesTheOlderFile) {
  const TestFolder folder;
  const std::string older = ProjectBytes(DocWithoutTables());
  const std::size_t size = SmallProjectBytes().size();
  for (std::size_t limit = 1; limit < size; limit += 97) {
    const QString path = folder.Write(QStringLiteral("p.trml"), QByteArray::fromStdString(older));
    const int status = StatusOfChild([&] {
      const rlimit noDump{0, 0};
      setrlimit(RLIMIT_CORE, &noDump);
      LimitFileSize(limit);  // the write past it kills the process
      CMorvaneDoc doc = DocWithoutTables();
      FillSmallProject(doc);
      SaveProject(doc, path);
    });
    EXPECT_TRUE(WIFSIGNALED(status)) << "limit " << limit;
    EXPECT_EQ(test::ReadAll(path).toStdString(), older) << "limit " << limit;
  }
  ExpectSaveGoesWell(folder.Path(QStringLiteral("p.trml")));
}

/// Saves two projects in turn, without end, telling through the pipe of each save before it.
[[noreturn]] void SaveInTurn(const QString& path, int pipe) {
  CMorvaneDoc first = DocWithoutTables();
  CMorvaneDoc second = DocWithoutTables();
  FillSmallProject(second);
  for (bool odd = false;; odd = !odd) {
    if (write(pipe, "", 1) != 1) _exit(1);
    SaveProject(odd ? first : second, path);
  }
}

/// Kills a process that saves, once it has begun `saves` of them.
void KillAfter(int saves, const QString& path) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);  // so that it ends with its parent
    SaveInTurn(path, ends[1]);
  }
  close(ends[1]);
  char token = 0;
  for (int i = 0; i < saves; ++i) EXPECT_EQ(read(ends[0], &token, 1), 1);
  EXPECT_EQ(kill(child, SIGKILL), 0);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
  close(ends[0]);
}

TEST(ProjectFileLimit, AProcessKilledAnywhereLeavesOneOfTheProjectsWhole) {
  constexpr unsigned kSeed = 20260;
  const TestFolder folder;
  const QString path = folder.Path(QStringLiteral("p.trml"));
  const std::string first = ProjectBytes(DocWithoutTables());
  const std::string second = SmallProjectBytes();
  std::mt19937 random(kSeed);
  for (int round = 0; round < 40; ++round) {
    KillAfter(std::uniform_int_distribution(2, 8)(random), path);
    const std::string left = test::ReadAll(path).toStdString();
    EXPECT_TRUE(left == first || left == second) << "round " << round << ", " << left.size() << " bytes";
    ExpectSaveGoesWell(path);
  }
}

}  // namespace
}  // namespace tremlo
