#include "core/files/ProgramFolders.h"
#include "support/TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;

const QString kTables = QStringLiteral("LowSpec");

class SystemLayout : public testing::Test {
 protected:
  FolderPlaces Places() const {
    return {.programDir = m_folder.Path(QStringLiteral("usr/bin")),
            .home = m_folder.Path(QStringLiteral("home")),
            .dataHome = m_folder.Path(QStringLiteral("data")),
            .officeData = m_folder.Path(QStringLiteral("office/tremlo")),
            .systemData = m_folder.Path(QStringLiteral("system/tremlo"))};
  }
  QString Found() const { return FoldersOf(FolderLayout::System, Places()).TableFolder(kTables); }
  QString Make(const char* place) const {
    const QString path = m_folder.Path(QLatin1String(place) + u'/' + kTables);
    EXPECT_TRUE(QDir().mkpath(path));
    return path;
  }

  TestFolder m_folder;
};

TEST(FoldersBesideTheProgram, EverythingIsThereAndNowhereElse) {
  const TestFolder folder;
  QDir().mkpath(folder.Path(QStringLiteral("data/tremlo/LowSpec")));
  const ProgramFolders folders =
      FoldersOf(FolderLayout::BesideProgram,
                {.programDir = folder.Path(), .home = {}, .dataHome = folder.Path("data")});
  EXPECT_EQ(folders.Own(), folder.Path());
  EXPECT_EQ(folders.TableFolder(kTables), folder.Path(kTables));
}

TEST(FoldersBesideTheProgram, AnUnknownPlaceOfTheProgramIsEmpty) {
  EXPECT_EQ(FoldersOf(FolderLayout::BesideProgram, {.programDir = {}, .home = "/h", .dataHome = {}}).Own(),
            "");
}

TEST(FoldersBesideTheProgram, AreThoseOfABuildForTests) {
  EXPECT_EQ(InstalledFolders().TableFolder(kTables), QCoreApplication::applicationDirPath() + u'/' + kTables);
}

TEST_F(SystemLayout, TheUsersFolderComesBeforeTheOfficesBeforeTheSystems) {
  const QString beside = Make("usr/share/tremlo");
  EXPECT_EQ(Found(), beside);
  const QString system = Make("system/tremlo");
  EXPECT_EQ(Found(), system);
  const QString office = Make("office/tremlo");
  EXPECT_EQ(Found(), office);
  const QString own = Make("data/tremlo");
  EXPECT_EQ(Found(), own);
}

TEST_F(SystemLayout, EachFolderIsLookedUpByItself) {
  Make("system/tremlo");
  const QString system = m_folder.Path(QStringLiteral("system/tremlo/DamCoef"));
  ASSERT_TRUE(QDir().mkpath(system));
  const QString own = Make("data/tremlo");
  const ProgramFolders folders = FoldersOf(FolderLayout::System, Places());
  EXPECT_EQ(folders.TableFolder(kTables), own);
  EXPECT_EQ(folders.TableFolder(QStringLiteral("DamCoef")), system);
}

TEST_F(SystemLayout, FilesAndDanglingLinksArePassedOver) {
  const QString system = Make("system/tremlo");
  m_folder.Write(QStringLiteral("office/tremlo/LowSpec"), "a file");
  ASSERT_TRUE(QDir().mkpath(m_folder.Path(QStringLiteral("data/tremlo"))));
  ASSERT_TRUE(QFile::link(m_folder.Path(QStringLiteral("gone")),
                          m_folder.Path(QStringLiteral("data/tremlo/LowSpec"))));
  EXPECT_EQ(Found(), system);
}

TEST_F(SystemLayout, AnEmptyFolderOfTheUserIsTakenAllTheSame) {
  Make("system/tremlo");
  const QString own = Make("data/tremlo");
  EXPECT_EQ(Found(), own);
  EXPECT_TRUE(QDir(own).isEmpty());
}

TEST_F(SystemLayout, WithoutAnyTheUsersPlaceIsNamed) {
  EXPECT_EQ(Found(), m_folder.Path(QStringLiteral("data/tremlo/LowSpec")));
}

TEST_F(SystemLayout, WhatIsWrittenGoesToTheDataHome) {
  EXPECT_EQ(FoldersOf(FolderLayout::System, Places()).Own(), m_folder.Path(QStringLiteral("data/tremlo")));
}

TEST_F(SystemLayout, ADataHomeThatIsEmptyOrRelativeDoesNotCount) {
  for (const char* dataHome : {"", "data", "./data", "~/data"}) {
    FolderPlaces places = Places();
    places.dataHome = QLatin1String(dataHome);
    EXPECT_EQ(FoldersOf(FolderLayout::System, places).Own(),
              m_folder.Path(QStringLiteral("home/.local/share/tremlo")))
        << dataHome;
  }
}

TEST_F(SystemLayout, StandsWithoutThePlaceOfTheProgram) {
  FolderPlaces places = Places();
  places.programDir.clear();
  const ProgramFolders folders = FoldersOf(FolderLayout::System, places);
  EXPECT_EQ(folders.TableFolder(kTables), m_folder.Path(QStringLiteral("data/tremlo/LowSpec")));
}

}  // namespace
}  // namespace tremlo
