#include "core/location/TileDownload.h"
#include "core/location/TileStore.h"
#include "support/LocalService.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <stop_token>
#include <thread>

namespace tremlo {
namespace {

using test::LocalService;
using test::ReadAll;
using test::TestFolder;

constexpr TileNumber kTile{15, 28817, 12802};
const QString kTileFile = QStringLiteral("_cache/15/28817/12802.png");

QByteArray Picture() {
  return ReadAll(test::SourcePath(QStringLiteral("tests/data/tiles/tile.png")));
}

/// The tiles of a map that takes any file for a picture, each downloaded as soon as it is looked at.
class WaitingMap {
 public:
  explicit WaitingMap(TileCache cache)
      : m_store(std::move(cache), [](const QString& path) { return std::optional(ReadAll(path)); }) {}

  const QByteArray* Get(const TileNumber& tile, const std::stop_token& stop = {}) {
    if (!m_store.Find(tile)) m_store.TakeAnswer(tile, m_store.Cache().Download(tile, stop));
    return m_store.Find(tile).value_or(nullptr);
  }

 private:
  TileStore<QByteArray> m_store;
};

class TileDownloadTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(local.IsReady()); }

  /// Points the settings at a port of the local service, misbehaviour as wished.
  void Use(const char* port, const char* wishes = "") {
    settings.tileAddress = local.Address(QString::fromLatin1(port), QString::fromLatin1(wishes));
  }

  WaitingMap NewMap() const {
    return WaitingMap(TileCache(folder.Path(), settings.tileAddress, MakeTileDownload(settings)));
  }

  /// The tile is a gap that a second look does not ask for again, and the program's folder stays empty.
  void ExpectRememberedGap(const char* how) {
    auto map = NewMap();
    EXPECT_EQ(map.Get(kTile), nullptr) << how;
    const auto asked = local.Requests().size();
    EXPECT_EQ(map.Get(kTile), nullptr) << how;
    EXPECT_EQ(local.Requests().size(), asked) << how;
    EXPECT_TRUE(folder.Names().isEmpty()) << how;
  }

  LocalService local;
  TestFolder folder;
  ServiceSettings settings = local.Settings();
};

TEST_F(TileDownloadTest, ATileArrivesUnderItsPathAndIsAskedForOnce) {
  auto map = NewMap();
  const QByteArray* tile = map.Get(kTile);
  ASSERT_NE(tile, nullptr);
  EXPECT_EQ(*tile, Picture());
  EXPECT_EQ(ReadAll(folder.Path(kTileFile)), Picture());
  map.Get(kTile);
  NewMap().Get(kTile);  // the next map finds the file
  EXPECT_EQ(local.Paths(), QStringList(QStringLiteral("/xyz/std/15/28817/12802.png")));
}

TEST_F(TileDownloadTest, ATileArrivesOverACertificateOfTheAuthority) {
  Use("https");
  auto map = NewMap();
  const QByteArray* tile = map.Get(kTile);
  ASSERT_NE(tile, nullptr);
  EXPECT_EQ(*tile, Picture());
}

TEST_F(TileDownloadTest, ASlowTileThatKeepsComingArrives) {
  Use("http", "tile=trickle:10");
  settings.tiles.silenceTimeoutMs = 1000;
  QElapsedTimer timer;
  timer.start();
  auto map = NewMap();
  const QByteArray* tile = map.Get(kTile);
  EXPECT_GT(timer.elapsed(), 1000);
  ASSERT_NE(tile, nullptr);
  EXPECT_EQ(*tile, Picture());
}

TEST_F(TileDownloadTest, SeveralTilesComeWholeOverOneDownload) {
  auto map = NewMap();
  for (std::int32_t x = 0; x < 5; ++x) {
    const QByteArray* tile = map.Get({5, x, 12});
    ASSERT_NE(tile, nullptr);
    EXPECT_EQ(*tile, Picture());
  }
  EXPECT_EQ(local.Requests().size(), 5u);
}

TEST_F(TileDownloadTest, ASilentServerLeavesARememberedGap) {
  settings.tiles.silenceTimeoutMs = 200;
  for (const char* wishes : {"tile=stall", "tile=half"}) {
    Use("http", wishes);
    ExpectRememberedGap(wishes);
  }
  EXPECT_FALSE(local.Requests().empty());
}

TEST_F(TileDownloadTest, ABrokenAnswerLeavesARememberedGap) {
  for (const char* wishes : {"tile=cut", "tile=drop", "tile=nohttp", "tile=redirect:6"}) {
    Use("http", wishes);
    ExpectRememberedGap(wishes);
  }
  EXPECT_FALSE(local.Requests().empty());
}

TEST_F(TileDownloadTest, ATooLargeAnswerLeavesARememberedGap) {
  settings.tiles.maxAnswerBytes = 100000;
  for (const char* wishes : {"tile=huge:100001", "tile=huge-length"}) {
    Use("http", wishes);
    ExpectRememberedGap(wishes);
  }
  Use("http", "tile=huge:99900");
  EXPECT_NE(NewMap().Get(kTile), nullptr);
}

TEST_F(TileDownloadTest, ARefusedConnectionLeavesARememberedGap) {
  settings.tiles.connectAttempts = 1;
  Use("refused");
  ExpectRememberedGap("refused");
}

TEST_F(TileDownloadTest, AWrongCertificateLeavesAGapAndNothingIsAsked) {
  for (const char* port : {"https-host", "https-expired", "https-foreign", "https-client"}) {
    Use(port);
    ExpectRememberedGap(port);
  }
  EXPECT_TRUE(local.Requests().empty());
}

TEST_F(TileDownloadTest, AnAddressThatIsNoneLeavesAGap) {
  settings.tileAddress = QStringLiteral("file://") + local.AnswerFolder();
  ExpectRememberedGap("file");
}

TEST_F(TileDownloadTest, ATileThatWasBrokenOffIsNoGapAndIsAskedForAgain) {
  settings.tileAddress = local.Address();
  auto map = NewMap();
  Use("http", "tile=stall");
  auto stalled = NewMap();
  for (int asked = 0; asked < 2; ++asked) {
    std::stop_source source;
    std::thread stopper([&] {
      while (static_cast<int>(local.Requests().size()) == asked) std::this_thread::yield();
      source.request_stop();
    });
    EXPECT_EQ(stalled.Get(kTile, source.get_token()), nullptr);
    stopper.join();
    EXPECT_EQ(static_cast<int>(local.Requests().size()), asked + 1);
    EXPECT_TRUE(folder.Names().isEmpty());
  }
  EXPECT_NE(map.Get(kTile), nullptr);
}

TEST_F(TileDownloadTest, AGapIsFilledForTheNextMap) {
  Use("http", "tile=cut");
  ExpectRememberedGap("cut");
  Use("http");
  EXPECT_NE(NewMap().Get(kTile), nullptr);
  EXPECT_EQ(ReadAll(folder.Path(kTileFile)), Picture());
}

TEST_F(TileDownloadTest, AnErrorPageOfAnyStatusIsKeptAsItCame) {
  std::int32_t x = 0;
  for (const int status : {301, 403, 404, 500, 503}) {
    Use("http", QStringLiteral("tile=status:%1").arg(status).toLatin1().constData());
    auto map = NewMap();
    const QByteArray* page = map.Get({5, ++x, 12});
    ASSERT_NE(page, nullptr) << status;
    EXPECT_EQ(*page, "<html><body><h1>" + QByteArray::number(status) + "</h1></body></html>");
  }
}

TEST_F(TileDownloadTest, AnEmptyAnswerIsKeptAsAnEmptyFile) {
  Use("http", "tile=empty");
  auto map = NewMap();
  const QByteArray* tile = map.Get(kTile);
  ASSERT_NE(tile, nullptr);
  EXPECT_TRUE(tile->isEmpty());
}

TEST_F(TileDownloadTest, WhatAFailedAnswerLeftIsNotPartOfTheNext) {
  const TileDownload download = MakeTileDownload(settings);
  QByteArray content;
  const QString path = QStringLiteral("/xyz/std/5/28/12.png");
  const QString cut = local.Address(QStringLiteral("http"), QStringLiteral("tile=cut"));
  EXPECT_EQ(download(cut + path, content, {}), TileOutcome::Failed);
  EXPECT_EQ(download(local.Address() + path, content, {}), TileOutcome::Done);
  EXPECT_EQ(content, Picture());
}

}  // namespace
}  // namespace tremlo
