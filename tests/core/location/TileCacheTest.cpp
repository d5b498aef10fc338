#include "core/location/TileCache.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <gtest/gtest.h>

#ifdef __unix__
#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#endif

namespace tremlo {
namespace {

using test::ReadAll;
using test::TestFolder;

const QString kAddress = QStringLiteral("https://tiles.example");
constexpr TileNumber kTile{15, 28817, 12802};

/// A tile service that answers every request alike and notes what it was asked.
struct Service {
  TileOutcome outcome = TileOutcome::Done;
  QByteArray content = "picture";
  QStringList asked;

  TileCache Cache(const QString& folder) {
    return {folder, kAddress, [this](const QString& url, QByteArray& answer, const std::stop_token&) {
              asked << url;
              answer = content;
              return outcome;
            }};
  }

  /// The tile's file, downloaded when it is missing, as a map gets it.
  std::optional<QString> Fetch(const QString& folder) {
    const TileCache cache = Cache(folder);
    if (const auto path = cache.Find(kTile)) return path;
    cache.Download(kTile, {});
    return cache.Find(kTile);
  }
};

TEST(TileKey, IsZoomThenRowThenColumn) {
  EXPECT_EQ(TileKey({5, 28, 12}), "05000012000028");
  EXPECT_EQ(TileKey(kTile), "15012802028817");
}

TEST(TileKey, NumbersThatNeedMoreRoomKeepAllDigits) {
  EXPECT_EQ(TileKey({-1, -2, -3}), "-1-00003-00002");
  EXPECT_EQ(TileKey({-2147483647 - 1, -2147483647 - 1, -2147483647 - 1}),
            "-2147483648-2147483648-2147483648");
}

TEST(TileFilePath, IsAFolderPerZoomAndColumn) {
  EXPECT_EQ(TileFilePath("/opt/tremlo/", kTile), QStringLiteral("/opt/tremlo/_cache/15/28817/12802.png"));
  EXPECT_EQ(TileFilePath("/opt/tremlo", {0, -1, 7}), QStringLiteral("/opt/tremlo/_cache/0/-1/7.png"));
}

TEST(TileFilePath, PercentSignsInTheFolderStay) {
  EXPECT_EQ(TileFilePath("/a%2/", kTile), QStringLiteral("/a%2/_cache/15/28817/12802.png"));
}

TEST(TileUrl, StandsBehindSchemeAndHost) {
  const QString url = QStringLiteral("https://tiles.example/xyz/std/15/28817/12802.png");
  EXPECT_EQ(TileUrl(kAddress, kTile), url);
  EXPECT_EQ(TileUrl(kAddress + u'/', kTile), url);
}

TEST(TileCache, AMissingTileIsDownloadedIntoItsFile) {
  const TestFolder folder;
  Service service;
  const auto path = service.Fetch(folder.Path());
  ASSERT_TRUE(path);
  EXPECT_EQ(*path, folder.Path("_cache/15/28817/12802.png"));
  EXPECT_EQ(ReadAll(*path), "picture");
  EXPECT_EQ(service.asked, QStringList(TileUrl(kAddress, kTile)));
  EXPECT_EQ(QDir(folder.Path("_cache/15/28817")).entryList(QDir::Files | QDir::Hidden),
            QStringList("12802.png"));
}

TEST(TileCache, ATileThatIsThereIsNotAskedForAndTakenAsItIs) {
  const TestFolder folder;
  const QString path = folder.Write("_cache/15/28817/12802.png", "no picture at all");
  Service service;
  EXPECT_EQ(service.Fetch(folder.Path()), path);
  EXPECT_TRUE(service.asked.isEmpty());
  EXPECT_EQ(ReadAll(path), "no picture at all");
}

TEST(TileCache, ATileIsAskedForOnceForAllMaps) {
  const TestFolder folder;
  Service service;
  service.Fetch(folder.Path());
  service.Fetch(folder.Path());
  EXPECT_EQ(service.asked.size(), 1);
}

TEST(TileCache, AnErrorPageIsKeptUnderTheTilesName) {
  const TestFolder folder;
  Service service;
  service.content = "<html>404 Not Found</html>";
  const auto path = service.Fetch(folder.Path());
  ASSERT_TRUE(path);
  EXPECT_EQ(ReadAll(*path), service.content);
}

TEST(TileCache, AnAnswerOfNoBytesIsKeptLikeAnyOther) {
  const TestFolder folder;
  Service service;
  service.content.clear();
  const auto path = service.Fetch(folder.Path());
  ASSERT_TRUE(path);
  EXPECT_EQ(ReadAll(*path), QByteArray());
}

TEST(TileCache, AllBytesOfAnAnswerAreKept) {
  const TestFolder folder;
  Service service;
  service.content = QByteArray(3 * 4096, '\0') + "\r\n\x1a";
  const auto path = service.Fetch(folder.Path());
  ASSERT_TRUE(path);
  EXPECT_EQ(ReadAll(*path), service.content);
}

TEST(TileCache, AFailedDownloadLeavesNothingBehind) {
  const TestFolder folder;
  Service service;
  service.outcome = TileOutcome::Failed;
  service.content.clear();
  EXPECT_FALSE(service.Fetch(folder.Path()));
  EXPECT_TRUE(folder.Names().isEmpty());
}

TEST(TileCache, HalfADownloadLeavesNothingBehindAndIsMadeUpForLater) {
  const TestFolder folder;
  Service service;
  service.outcome = TileOutcome::Failed;
  service.content = "pict";
  EXPECT_FALSE(service.Fetch(folder.Path()));
  EXPECT_TRUE(folder.Names().isEmpty());
  service.outcome = TileOutcome::Done;
  service.content = "picture";
  const auto path = service.Fetch(folder.Path());
  ASSERT_TRUE(path);
  EXPECT_EQ(ReadAll(*path), "picture");
}

TEST(TileCache, AnAnswerThatIsNoLongerWantedIsNotKept) {
  const TestFolder folder;
  Service service;
  std::stop_source stop;
  stop.request_stop();
  EXPECT_EQ(service.Cache(folder.Path()).Download(kTile, stop.get_token()), TileOutcome::BrokenOff);
  service.outcome = TileOutcome::BrokenOff;
  EXPECT_EQ(service.Cache(folder.Path()).Download(kTile, {}), TileOutcome::BrokenOff);
  EXPECT_TRUE(folder.Names().isEmpty());
}

TEST(TileCache, TheOutcomeOfADownloadIsTold) {
  const TestFolder folder;
  Service service;
  EXPECT_EQ(service.Cache(folder.Path()).Download(kTile, {}), TileOutcome::Done);
  EXPECT_EQ(service.Cache(folder.Write("file", "kept")).Download(kTile, {}), TileOutcome::Failed);
  service.outcome = TileOutcome::Failed;
  EXPECT_EQ(service.Cache(folder.Path()).Download(kTile, {}), TileOutcome::Failed);
}

TEST(TileCache, AFolderThatCannotBeMadeGivesNoTile) {
  const TestFolder folder;
  const QString file = folder.Write("file", "kept");
  Service service;
  EXPECT_FALSE(service.Fetch(file));
  EXPECT_EQ(ReadAll(file), "kept");

  const QString cacheFile = folder.Write("_cache", "kept too");
  EXPECT_FALSE(service.Fetch(folder.Path()));
  EXPECT_EQ(ReadAll(cacheFile), "kept too");
}

TEST(TileCache, AFolderUnderTheTilesNameIsLeftAlone) {
  const TestFolder folder;
  folder.Write("_cache/15/28817/12802.png/inner", "kept");
  Service service;
  service.Fetch(folder.Path());
  EXPECT_TRUE(service.asked.isEmpty());
  EXPECT_EQ(ReadAll(folder.Path("_cache/15/28817/12802.png/inner")), "kept");
}

#ifdef __unix__
/// Ends the process with 0 when a disk that takes no more than 1000 bytes per file leads to a gap.
void FetchOnFullDisk(Service& service, const QString& folder) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{1000, 1000};
  if (setrlimit(RLIMIT_FSIZE, &limit) != 0) std::_Exit(2);
  std::_Exit(service.Fetch(folder) ? 1 : 0);
}

TEST(TileCache, AFullDiskGivesNoTileAndNoStump) {
  const TestFolder folder;
  Service service;
  service.content = QByteArray(100000, 'x');
  EXPECT_EXIT(FetchOnFullDisk(service, folder.Path()), testing::ExitedWithCode(0), "");
  EXPECT_TRUE(QFileInfo(folder.Path("_cache/15/28817")).isDir());  // it came as far as the file
  EXPECT_TRUE(QDir(folder.Path("_cache/15/28817")).isEmpty());
}
#endif

}  // namespace
}  // namespace tremlo
