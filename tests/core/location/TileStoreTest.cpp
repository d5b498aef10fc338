#include "core/location/TileStore.h"
#include "support/TestFolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::ReadAll;
using test::TestFolder;

constexpr TileNumber kTile{5, 28, 12};

/// A map's tiles from a service of its own; a picture is any text that begins with "P".
struct Map {
  TileOutcome outcome = TileOutcome::Done;
  QByteArray content = "P1";
  int requests = 0;
  int decodings = 0;
  TestFolder folder;
  TileStore<QByteArray> store = NewStore();

  TileStore<QByteArray> NewStore() {
    const auto download = [this](const QString&, QByteArray& answer, const std::stop_token&) {
      ++requests;
      answer = content;
      return outcome;
    };
    const auto decode = [this](const QString& path) -> std::optional<QByteArray> {
      ++decodings;
      QByteArray bytes = ReadAll(path);
      if (!bytes.startsWith('P')) return std::nullopt;
      return bytes;
    };
    return {TileCache(folder.Path(), QStringLiteral("http://tiles.example"), download), decode};
  }

  /// Looks at a tile as a painting does: one that is not there is downloaded first.
  static std::optional<const QByteArray*> Look(TileStore<QByteArray>& tiles, const TileNumber& tile) {
    if (!tiles.Find(tile)) tiles.TakeAnswer(tile, tiles.Cache().Download(tile, {}));
    return tiles.Find(tile);
  }
  const QByteArray* Get(const TileNumber& tile) { return Look(store, tile).value_or(nullptr); }
};

constexpr std::optional<const QByteArray*> kGap = nullptr;

TEST(TileStore, ATileIsFetchedAndDecodedOnce) {
  Map map;
  EXPECT_EQ(map.store.Find(kTile), std::nullopt);
  const QByteArray* first = map.Get(kTile);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(*first, "P1");
  EXPECT_EQ(map.store.Find(kTile), first);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 1);
}

TEST(TileStore, ATileOfTheCacheNeedsNoRequest) {
  Map map;
  map.folder.Write("_cache/5/28/12.png", "P2");
  const auto found = map.store.Find(kTile);
  ASSERT_TRUE(found && *found);
  EXPECT_EQ(**found, "P2");
  EXPECT_EQ(map.requests, 0);
}

TEST(TileStore, ATileWhoseRequestWasBrokenOffIsAskedForAgain) {
  Map map;
  map.outcome = TileOutcome::BrokenOff;
  EXPECT_EQ(Map::Look(map.store, kTile), std::nullopt);
  map.outcome = TileOutcome::Done;
  EXPECT_NE(map.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 2);
}

TEST(TileStore, ATileWhoseFileIsGoneAtOnceIsAGapAndNotAskedForWithoutEnd) {
  Map map;
  map.store.TakeAnswer(kTile, TileOutcome::Done);
  EXPECT_EQ(map.store.Find(kTile), kGap);
}

TEST(TileStore, AnAnswerThatComesLateLeavesTheImage) {
  Map map;
  const QByteArray* first = map.Get(kTile);
  map.store.TakeAnswer(kTile, TileOutcome::Failed);
  EXPECT_EQ(map.store.Find(kTile), first);
}

TEST(TileStore, ColumnAndRowAreNotConfused) {
  Map map;
  map.Get({5, 28, 12});
  map.content = "P2";
  const QByteArray* other = map.Get({5, 12, 28});
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(*other, "P2");
}

TEST(TileStore, AFailedTileIsAskedForOnceInTheLifeOfTheMap) {
  Map map;
  map.outcome = TileOutcome::Failed;
  EXPECT_EQ(map.Get(kTile), nullptr);
  map.outcome = TileOutcome::Done;
  EXPECT_EQ(map.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 0);

  auto nextMap = map.NewStore();
  EXPECT_NE(Map::Look(nextMap, kTile), kGap);
  EXPECT_EQ(map.requests, 2);
}

TEST(TileStore, AFileThatIsNoPictureIsAGapAndDecodedOnce) {
  Map map;
  map.content = "<html>";
  EXPECT_EQ(map.Get(kTile), nullptr);
  EXPECT_EQ(map.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 1);

  auto nextMap = map.NewStore();
  EXPECT_EQ(Map::Look(nextMap, kTile), kGap);  // the page stands in the cache
  EXPECT_EQ(map.requests, 1);
}

TEST(TileStore, ImagesOutliveTheClearingOfTheCacheAndStayInPlace) {
  Map map;
  const QByteArray* first = map.Get(kTile);
  ASSERT_NE(first, nullptr);
  ASSERT_TRUE(QDir(TileCacheFolder(map.folder.Path())).removeRecursively());
  for (std::int32_t x = 0; x < 20; ++x) map.Get({6, x, 0});
  EXPECT_EQ(map.Get(kTile), first);
  EXPECT_EQ(*first, "P1");
}

}  // namespace
}  // namespace tremlo
