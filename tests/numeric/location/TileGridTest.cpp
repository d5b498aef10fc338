#include "numeric/location/TileGrid.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace tremlo {
namespace {

MapView ViewOf(std::int32_t zoom, double lon, double lat, double scale, const PixelRect& client) {
  MapView view;
  view.zoom = zoom;
  view.centerLon = lon;
  view.centerLat = lat;
  view.scale = scale;
  view.clientRect = client;
  return view;
}

std::vector<TilePlacement> TilesOf(const MapView& view) {
  std::vector<TilePlacement> tiles;
  TileGrid grid(view);
  while (const auto tile = grid.Next()) tiles.push_back(*tile);
  return tiles;
}

void ExpectNoTiles(const MapView& view) {
  EXPECT_FALSE(TileGrid(view).Next());
}

TEST(TileGrid, GoesColumnByColumnAndGivesTheRectangles) {
  const std::vector<TilePlacement> expected{{{1, 0, 0}, {0, -128, 256, 128}},
                                            {{1, 0, 1}, {0, 128, 256, 384}},
                                            {{1, 1, 0}, {256, -128, 512, 128}},
                                            {{1, 1, 1}, {256, 128, 512, 384}}};
  EXPECT_EQ(TilesOf(ViewOf(1, 0.0, 0.0, 1.0, {0, 0, 512, 256})), expected);
}

TEST(TileGrid, TilesThatOnlyTouchTheEdgeAreLeftOut) {
  // Two whole tiles fill the width exactly; their neighbours begin where the window ends.
  for (const TilePlacement& tile : TilesOf(ViewOf(3, 0.0, 0.0, 1.0, {0, 0, 512, 512}))) {
    EXPECT_TRUE(tile.tile.x == 3 || tile.tile.x == 4) << tile.tile.x;
    EXPECT_TRUE(tile.tile.y == 3 || tile.tile.y == 4) << tile.tile.y;
  }
}

TEST(TileGrid, PositionsAreCutTowardsTheMiddle) {
  // The centre is 0.1 of tile 4: 25.6 pixels from its left edge, 230.4 from its right.
  const auto tiles = TilesOf(ViewOf(3, 4.5, 0.0, 1.0, {0, 0, 512, 1}));
  ASSERT_EQ(tiles.size(), 3U);
  EXPECT_EQ(tiles[0].tile.x, 3);
  EXPECT_EQ(tiles[0].target.left, 256 - 281);  // -281.6
  EXPECT_EQ(tiles[1].target.left, 256 - 25);
  EXPECT_EQ(tiles[2].target.left, 256 + 230);
}

TEST(TileGrid, CountsOfAWindow) {
  const TileGrid grid(ViewOf(9, 137.0, 36.0, 0.77, {0, 0, 800, 600}));
  EXPECT_EQ(grid.LastColumn(), 800 / 197 + 2);
  EXPECT_EQ(grid.LastRow(), 600 / 197 + 2);
}

TEST(TileGrid, AWindowWithoutWidthHasThreeColumnsAndShowsNone) {
  const MapView view = ViewOf(9, 137.0, 36.0, 1.0, {0, 0, 0, 600});
  EXPECT_EQ(TileGrid(view).LastColumn(), 2);
  ExpectNoTiles(view);
  ExpectNoTiles(ViewOf(9, 137.0, 36.0, 1.0, {0, 0, 600, 0}));
  ExpectNoTiles(ViewOf(9, 137.0, 36.0, 1.0, {600, 400, 0, 0}));
}

TEST(TileGrid, NumbersOutsideTheWorldAreNotFiltered) {
  const auto tiles = TilesOf(ViewOf(0, 0.0, 0.0, 1.0, {0, 0, 300, 300}));
  const std::vector<TilePlacement> expected{
      {{0, -1, -1}, {-234, -234, 22, 22}}, {{0, -1, 0}, {-234, 22, 22, 278}},
      {{0, -1, 1}, {-234, 278, 22, 534}},  {{0, 0, -1}, {22, -234, 278, 22}},
      {{0, 0, 0}, {22, 22, 278, 278}},     {{0, 0, 1}, {22, 278, 278, 534}},
      {{0, 1, -1}, {278, -234, 534, 22}},  {{0, 1, 0}, {278, 22, 534, 278}},
      {{0, 1, 1}, {278, 278, 534, 534}}};
  EXPECT_EQ(tiles, expected);
}

TEST(TileGrid, EveryPixelOfAWindowIsCovered) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  for (int i = 0; i < 300; ++i) {
    const auto width = static_cast<std::int32_t>(1.0 + share(random) * 1500.0);
    const auto height = static_cast<std::int32_t>(1.0 + share(random) * 1000.0);
    const MapView view = ViewOf(12, 120.0 + 30.0 * share(random), 20.0 + 25.0 * share(random),
                                0.75 + 0.75 * share(random), {0, 0, width, height});
    const auto tiles = TilesOf(view);
    const auto isCovered = [&tiles](std::int32_t x, std::int32_t y) {
      for (const TilePlacement& tile : tiles)
        if (x >= tile.target.left && x < tile.target.right && y >= tile.target.top && y < tile.target.bottom)
          return true;
      return false;
    };
    for (std::int32_t x = 0; x < width; ++x) ASSERT_TRUE(isCovered(x, 0) && isCovered(x, height - 1));
    for (std::int32_t y = 0; y < height; ++y) ASSERT_TRUE(isCovered(0, y) && isCovered(width - 1, y));
  }
}

TEST(TileGrid, ATileLiesWhereTheViewPutsItsCorner) {
  const MapView view = ViewOf(12, 137.3, 36.2, 1.13, {0, 0, 700, 500});
  for (const TilePlacement& tile : TilesOf(view)) {
    const PixelPoint corner = PixelAt(view, TileToLonLat(12, tile.tile.x, tile.tile.y));
    EXPECT_NEAR(corner.x, tile.target.left, 1);
    EXPECT_NEAR(corner.y, tile.target.top, 1);
  }
}

TEST(TileGrid, TinyTilesFillTheWindowAndEnd) {
  const auto tiles = TilesOf(ViewOf(0, 0.0, 0.0, 1e-300, {0, 0, 60, 40}));
  EXPECT_GE(tiles.size(), 60U * 40U);
  EXPECT_LE(tiles.size(), 63U * 43U);
}

TEST(TileGrid, OneTileFarLargerThanTheWindow) {
  const auto tiles = TilesOf(ViewOf(18, 137.0001, 36.0001, 1e300, {0, 0, 800, 600}));
  ASSERT_EQ(tiles.size(), 1U);
  EXPECT_EQ(tiles[0].target.Width(), kLargestTilePixels);
}

TEST(TileGrid, ACentreThatIsNoPositionHasNoTiles) {
  const PixelRect client{0, 0, 800, 600};
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  ExpectNoTiles(ViewOf(6, kNan, 36.0, 1.0, client));
  ExpectNoTiles(ViewOf(6, 137.0, kNan, 1.0, client));
  ExpectNoTiles(ViewOf(6, kInfinity, 36.0, 1.0, client));
}

TEST(TileGrid, ACentreBeyondAllTileNumbersHasNoTiles) {
  ExpectNoTiles(ViewOf(16, 1e10, 36.0, 1.0, {0, 0, 800, 600}));
  ExpectNoTiles(ViewOf(16, -1e300, 36.0, 1.0, {0, 0, 800, 600}));
}

TEST(TileGrid, AnyRectangleAndZoomIsSurvived) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t zoom : {kLeast, -1, 19, kMost})
    for (const PixelRect& client : {PixelRect{kLeast, kLeast, kMost, kMost}, PixelRect{0, 0, kMost, 1},
                                    PixelRect{kMost - 9, kMost - 9, kMost, kMost}}) {
      TileGrid grid(ViewOf(zoom, 1e12, 89.9, 1e9, client));
      for (int i = 0; i < 1000; ++i) {
        const auto tile = grid.Next();
        EXPECT_TRUE(!tile || (tile->tile.zoom == zoom && tile->target.Width() == kLargestTilePixels));
      }
    }
}

}  // namespace
}  // namespace tremlo
