#include "core/shell/RecentFiles.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecentFilesTest : public testing::Test {
 protected:
  RecentFilesTest() {
    for (const QString& path : recent.Paths()) recent.Remove(path);
  }
  /// A whole path; on Windows the drive is a part of it.
  static QString P(int number) {
    return QFileInfo(QStringLiteral("/あ, ;%/%1 b.trml").arg(number)).absoluteFilePath();
  }
  RecentFiles recent;
};

TEST_F(RecentFilesTest, NewestComesFirst) {
  recent.Add(P(1));
  recent.Add(P(2));
  EXPECT_THAT(recent.Paths(), ElementsAre(P(2), P(1)));
}

TEST_F(RecentFilesTest, PathStandsOnce) {
  recent.Add(P(1));
  recent.Add(P(2));
  recent.Add(P(1));
  EXPECT_THAT(recent.Paths(), ElementsAre(P(1), P(2)));
}

TEST_F(RecentFilesTest, EleventhPushesTheOldestOut) {
  for (int i = 1; i <= 11; ++i) recent.Add(P(i));
  EXPECT_EQ(recent.Paths().size(), 10);
  EXPECT_EQ(recent.Paths().front(), P(11));
  EXPECT_EQ(recent.Paths().back(), P(2));
}

TEST_F(RecentFilesTest, RelativePathIsKeptAbsolute) {
  recent.Add(QStringLiteral("x.trml"));
  EXPECT_THAT(recent.Paths(), ElementsAre(QDir::current().filePath(QStringLiteral("x.trml"))));
}

TEST_F(RecentFilesTest, NextRunFindsTheList) {
  recent.Add(P(1));
  recent.Add(P(2));
  EXPECT_THAT(RecentFiles().Paths(), ElementsAre(P(2), P(1)));
}

TEST_F(RecentFilesTest, NextRunFindsASinglePathWhole) {
  recent.Add(P(1));
  EXPECT_THAT(RecentFiles().Paths(), ElementsAre(P(1)));
}

TEST_F(RecentFilesTest, RemovedPathIsGone) {
  recent.Add(P(1));
  recent.Remove(P(1));
  recent.Remove(P(2));
  EXPECT_THAT(RecentFiles().Paths(), IsEmpty());
}

/// All files of the user, by their whole paths.
QStringList FilesOfTheUser() {
  QStringList paths;
  for (const char* folder :
       {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    QDirIterator files(qEnvironmentVariable(folder), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) paths << files.next();
  }
  paths.sort();
  return paths;
}

TEST_F(RecentFilesTest, NothingIsKeptButTheListInItsOneFile) {
  const QString settings = qEnvironmentVariable("XDG_CONFIG_HOME");
  ASSERT_TRUE(settings.startsWith(QDir::tempPath() + u'/')) << "the home of this process alone";
  QDir(settings).removeRecursively();  // what tests before this one have left
  const QString file = settings + QStringLiteral("/Tremlo/Tremlo.ini");
  const QStringList before = FilesOfTheUser();
  {
    RecentFiles list;
    list.Add(P(1));
    list.Add(P(2));
    list.Remove(P(1));
  }
  QStringList kept = FilesOfTheUser();
  for (const QString& path : before) kept.removeAll(path);
  EXPECT_THAT(kept, ElementsAre(file));
  EXPECT_THAT(QSettings(file, QSettings::IniFormat).allKeys(), ElementsAre("recentFiles"));
}

TEST_F(RecentFilesTest, LongListWrittenByHandIsCut) {
  QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tremlo"),
                     QStringLiteral("Tremlo"));
  QStringList many{QString(), P(1), P(1)};
  for (int i = 2; i < 30; ++i) many << P(i);
  settings.setValue(QStringLiteral("recentFiles"), many);
  settings.sync();
  EXPECT_EQ(RecentFiles().Paths(), many.mid(2, 10));
}

}  // namespace
}  // namespace tremlo
