#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::ReadAll;
using test::SourcePath;
using test::TestFolder;

/// Puts the tables into the folder as a build and an installation do.
void CopyTablesInto(const TestFolder& folder) {
  const QStringList arguments = {QStringLiteral("-DFROM=") + SourcePath(QStringLiteral("data")),
                                 QStringLiteral("-DTO=") + folder.Path(), QStringLiteral("-P"),
                                 SourcePath(QStringLiteral("cmake/CopyTables.cmake"))};
  QProcess cmake;
  cmake.start(QStringLiteral(TREMLO_CMAKE), arguments);
  ASSERT_TRUE(cmake.waitForFinished());
  ASSERT_EQ(cmake.exitCode(), 0) << cmake.readAllStandardError().toStdString();
}

void ExpectShipped(const TestFolder& folder, const QString& name) {
  EXPECT_EQ(ReadAll(folder.Path(name)), ReadAll(SourcePath(QStringLiteral("data/") + name)))
      << name.toStdString();
}

const QString kOffline = QStringLiteral("SystemData/OffLine.bmp");
const QString kZoneMap = QStringLiteral("SystemData/kei_map_500.svg");

TEST(CopyTables, AnEmptyFolderGetsEverything) {
  const TestFolder folder;
  CopyTablesInto(folder);
  for (const char* name : {"DamCoef/H20_Ehd_H.csv", "LowSpec/h17.csv", "SystemData/keiarea.csv",
                           "SystemData/FaultData.csv", "SystemData/見本.txt"})
    ExpectShipped(folder, QString::fromUtf8(name));
  ExpectShipped(folder, kOffline);
  ExpectShipped(folder, kZoneMap);
}

TEST(CopyTables, AFolderWithTablesOfItsUserGetsTheMissingPicturesAndNothingElse) {
  const TestFolder folder;
  folder.Write(QStringLiteral("SystemData/keiarea.csv"), "mine");
  CopyTablesInto(folder);
  EXPECT_EQ(ReadAll(folder.Path(QStringLiteral("SystemData/keiarea.csv"))), "mine");
  EXPECT_EQ(QDir(folder.Path(QStringLiteral("SystemData"))).entryList(QDir::Files, QDir::Name),
            QStringList({"OffLine.bmp", "kei_map_500.svg", "keiarea.csv"}));
  ExpectShipped(folder, kOffline);
  ExpectShipped(folder, kZoneMap);
}

TEST(CopyTables, APictureOfTheUsersOwnStaysInSuchAFolder) {
  const TestFolder folder;
  folder.Write(QStringLiteral("SystemData/keiarea.csv"), "mine");
  folder.Write(kOffline, "my picture");
  CopyTablesInto(folder);
  EXPECT_EQ(ReadAll(folder.Path(kOffline)), "my picture");
  ExpectShipped(folder, kZoneMap);
}

TEST(CopyTables, AFolderOfSamplesIsBroughtUpToDate) {
  const TestFolder folder;
  folder.Write(QStringLiteral("SystemData/見本.txt"), "old");
  folder.Write(QStringLiteral("SystemData/keiarea.csv"), "old");
  CopyTablesInto(folder);
  ExpectShipped(folder, QStringLiteral("SystemData/keiarea.csv"));
}

}  // namespace
}  // namespace tremlo
