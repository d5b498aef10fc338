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
  bool answers = true;
  QByteArray content = "P1";
  int requests = 0;
  int decodings = 0;
  TestFolder folder;
  TileStore<QByteArray> store = NewStore();

  TileStore<QByteArray> NewStore() {
    const auto download = [this](const QString&, QByteArray& answer, const std::stop_token&) {
      ++requests;
      answer = content;
      return answers;
    };
    const auto decode = [this](const QString& path) -> std::optional<QByteArray> {
      ++decodings;
      QByteArray bytes = ReadAll(path);
      if (!bytes.startsWith('P')) return std::nullopt;
      return bytes;
    };
    return {TileCache(folder.Path(), QStringLiteral("http://tiles.example"), download), decode};
  }
};

TEST(TileStore, ATileIsFetchedAndDecodedOnce) {
  Map map;
  const QByteArray* first = map.store.Get(kTile);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(*first, "P1");
  EXPECT_EQ(map.store.Get(kTile), first);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 1);
}

TEST(TileStore, ColumnAndRowAreNotConfused) {
  Map map;
  map.store.Get({5, 28, 12});
  map.content = "P2";
  const QByteArray* other = map.store.Get({5, 12, 28});
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(*other, "P2");
}

TEST(TileStore, AFailedTileIsAskedForOnceInTheLifeOfTheMap) {
  Map map;
  map.answers = false;
  EXPECT_EQ(map.store.Get(kTile), nullptr);
  map.answers = true;
  EXPECT_EQ(map.store.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 0);

  auto nextMap = map.NewStore();
  EXPECT_NE(nextMap.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 2);
}

TEST(TileStore, AFileThatIsNoPictureIsAGapAndDecodedOnce) {
  Map map;
  map.content = "<html>";
  EXPECT_EQ(map.store.Get(kTile), nullptr);
  EXPECT_EQ(map.store.Get(kTile), nullptr);
  EXPECT_EQ(map.requests, 1);
  EXPECT_EQ(map.decodings, 1);

  auto nextMap = map.NewStore();
  EXPECT_EQ(nextMap.Get(kTile), nullptr);  // the page stands in the cache
  EXPECT_EQ(map.requests, 1);
}

TEST(TileStore, ImagesOutliveTheClearingOfTheCacheAndStayInPlace) {
  Map map;
  const QByteArray* first = map.store.Get(kTile);
  ASSERT_NE(first, nullptr);
  ASSERT_TRUE(QDir(TileCacheFolder(map.folder.Path())).removeRecursively());
  for (std::int32_t x = 0; x < 20; ++x) map.store.Get({6, x, 0});
  EXPECT_EQ(map.store.Get(kTile), first);
  EXPECT_EQ(*first, "P1");
}

}  // namespace
}  // namespace tremlo
