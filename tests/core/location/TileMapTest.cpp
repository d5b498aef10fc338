#include "core/location/SiteRecord.h"
#include "core/location/TileMap.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr std::array<GeoPoint, 5> kRectangle{
    GeoPoint{136.0, 35.0}, {137.0, 35.0}, {137.0, 36.0}, {136.0, 36.0}, {136.0, 35.0}};

TileMap MapOf(std::int32_t width, std::int32_t height) {
  TileMap map;
  map.view.clientRect = {0, 0, width, height};
  return map;
}

SiteRecord SiteOf(std::int32_t zoom, double scale) {
  SiteRecord site;
  site.mapZoom = zoom;
  site.mapScale = scale;
  return site;
}

void ExpectWritten(SiteRecord site, std::int32_t delta, std::int32_t zoom, double scale) {
  TileMap map = MapOf(800, 600);
  EXPECT_TRUE(map.TurnWheel(delta, site));
  EXPECT_EQ(site.mapZoom, zoom);
  EXPECT_DOUBLE_EQ(site.mapScale, scale);
  EXPECT_EQ(map.view.zoom, zoom);
  EXPECT_EQ(map.view.scale, site.mapScale);
}

void ExpectDropped(const SiteRecord& site, std::int32_t delta) {
  TileMap map = MapOf(800, 600);
  SiteRecord turned = site;
  EXPECT_FALSE(map.TurnWheel(delta, turned));
  EXPECT_EQ(turned, site);
  EXPECT_EQ(map.view, MapOf(800, 600).view);
}

TEST(TileMap, BeginsOverJapanOnline) {
  const TileMap map;
  EXPECT_EQ(map.view.tileSize, 256);
  EXPECT_EQ(map.view.zoom, 6);
  EXPECT_EQ(map.view.centerLon, 137.0);
  EXPECT_EQ(map.view.centerLat, 36.0);
  EXPECT_EQ(map.view.scale, 1.0);
  EXPECT_EQ(map.view.clientRect, PixelRect{});
  EXPECT_TRUE(map.online);
  EXPECT_FALSE(map.IsDragging());
  EXPECT_TRUE(map.overlays.empty());
  EXPECT_EQ(map.overlayAlpha, 100);
}

TEST(MapDrag, ThePointTakenHoldOfFollowsThePixel) {
  TileMap map = MapOf(800, 600);
  const GeoPoint grabbed = GeoAt(map.view, {500, 300});
  map.BeginDrag({500, 300});
  EXPECT_TRUE(map.IsDragging());
  const GeoPoint center = map.MoveDrag({450, 300});
  EXPECT_NEAR(GeoAt(map.view, {450, 300}).lon, grabbed.lon, 1e-10);
  EXPECT_EQ(center, (GeoPoint{map.view.centerLon, map.view.centerLat}));
  EXPECT_NEAR(center.lon, 137.0 + 50.0 * 360.0 / (64.0 * 256.0),
              1e-10);  // the map goes west, its centre east
}

TEST(MapDrag, LatitudeFollowsByTheDifferenceInDegrees) {
  TileMap map = MapOf(800, 600);
  map.BeginDrag({400, 300});
  const double lat = GeoAt(map.view, {400, 350}).lat;
  EXPECT_NEAR(map.MoveDrag({400, 350}).lat, 36.0 + (36.0 - lat), 1e-10);
}

TEST(MapDrag, ManySmallMovesEndWhereOneLargeMoveDoes) {
  TileMap small = MapOf(800, 600);
  TileMap large = MapOf(800, 600);
  small.BeginDrag({100, 300});
  large.BeginDrag({100, 300});
  for (std::int32_t x = 101; x < 300; ++x) small.MoveDrag({x, 300});
  EXPECT_NEAR(small.EndDrag({300, 300}).lon, large.EndDrag({300, 300}).lon, 1e-9);
}

TEST(MapDrag, TheEndMovesOnceMoreAndLetsGo) {
  TileMap map = MapOf(800, 600);
  map.BeginDrag({400, 300});
  const GeoPoint center = map.EndDrag({410, 300});
  EXPECT_LT(center.lon, 137.0);
  EXPECT_FALSE(map.IsDragging());
  EXPECT_EQ(map.MoveDrag({500, 500}), center);
}

TEST(MapDrag, WithoutABeginningNothingMoves) {
  TileMap map = MapOf(800, 600);
  EXPECT_EQ(map.MoveDrag({1, 2}), (GeoPoint{137.0, 36.0}));
  EXPECT_EQ(map.EndDrag({1, 2}), (GeoPoint{137.0, 36.0}));
}

TEST(MapDrag, APressAndReleaseInPlaceKeepsTheCentre) {
  TileMap map = MapOf(800, 600);
  map.BeginDrag({123, 456});
  EXPECT_EQ(map.EndDrag({123, 456}), (GeoPoint{137.0, 36.0}));
}

TEST(MapDrag, GoesOnWhileTheProgramIsOffline) {
  TileMap map = MapOf(800, 600);
  map.online = false;
  map.BeginDrag({400, 300});
  EXPECT_LT(map.EndDrag({500, 300}).lon, 137.0);
}

TEST(MapDrag, DragsWithoutEndStopAtTheEdgeOfTheMapAndComeBack) {
  TileMap map = MapOf(800, 600);
  const auto drag = [&map](std::int32_t from, std::int32_t to) {
    map.BeginDrag({400, from});
    return map.EndDrag({400, to}).lat;
  };
  for (int i = 0; i < 200; ++i) drag(0, 600);
  EXPECT_EQ(map.view.centerLat, kMapEdgeLat);
  for (int i = 0; i < 200; ++i) drag(600, 0);
  EXPECT_EQ(map.view.centerLat, -kMapEdgeLat);
}

TEST(MapWheel, TurnsAboutThePixelWithoutTheLimitsOfTheDocument) {
  TileMap map = MapOf(800, 600);
  map.view.zoom = 17;
  map.view.scale = 1.4;
  map.Wheel(1, {0, 0});
  EXPECT_EQ(map.view.zoom, 18);
  EXPECT_NE(map.view.centerLon, 137.0);
}

TEST(MapWheel, BeginsAtTheDocumentsZoomAndScaleAndWritesThem) {
  ExpectWritten(SiteOf(9, 1.0), 120, 9, 1.1);
  ExpectWritten(SiteOf(9, 1.4), 120, 10, 0.77);
  ExpectWritten(SiteOf(9, 0.8), -120, 8, 1.44);
}

TEST(MapWheel, ATurnThatWouldLeaveTheStoredLevelsIsDropped) {
  ExpectWritten(SiteOf(15, 1.4), 1, 16, 0.77);
  ExpectDropped(SiteOf(16, 1.4), 1);
  ExpectWritten(SiteOf(16, 1.3), 1, 16, 1.43);
  ExpectWritten(SiteOf(5, 0.8), -1, 4, 1.44);
  ExpectDropped(SiteOf(4, 0.8), -1);
}

TEST(MapWheel, TurnsUpwardWithoutEndStayAtTheHighestStoredLevel) {
  TileMap map = MapOf(800, 600);
  SiteRecord site;
  for (int i = 0; i < 1000; ++i) map.TurnWheel(1, site);
  EXPECT_EQ(site.mapZoom, 16);
  EXPECT_LE(site.mapScale, 1.5);
  for (int i = 0; i < 1000; ++i) map.TurnWheel(-1, site);
  EXPECT_EQ(site.mapZoom, 4);
  EXPECT_GE(site.mapScale, 0.75);
}

TEST(MapWheel, ABrokenDocumentIsSurvived) {
  ExpectDropped(SiteOf(std::numeric_limits<std::int32_t>::max(), 1.0), -1);
  ExpectDropped(SiteOf(std::numeric_limits<std::int32_t>::min(), 1e300), 1);
  ExpectWritten(SiteOf(9, std::numeric_limits<double>::quiet_NaN()), 1, 9, 1.1);
}

TEST(MapOverlays, ARectangleIsRedAndThreePixelsWide) {
  TileMap map;
  map.AddOverlay(kRectangle);
  ASSERT_EQ(map.overlays.size(), 1U);
  EXPECT_EQ(map.overlays[0].points, std::vector<GeoPoint>(kRectangle.begin(), kRectangle.end()));
  EXPECT_EQ(map.overlays[0].color, 0xFF);
  EXPECT_EQ(map.overlays[0].penWidth, 3);
}

TEST(MapOverlays, StandInTheirOrderUntilCleared) {
  TileMap map;
  map.AddOverlay(kRectangle);
  map.AddOverlay({});
  ASSERT_EQ(map.overlays.size(), 2U);
  EXPECT_EQ(map.overlays[1].points[0], GeoPoint{});
  map.ClearOverlays();
  EXPECT_TRUE(map.overlays.empty());
}

TEST(MapOverlays, PointsFallWhereTheViewPutsThem) {
  TileMap map = MapOf(800, 600);
  map.view.zoom = 0;
  map.view.centerLon = 0.0;
  map.view.centerLat = 0.0;
  const MapOverlay overlay{.points = {{0.0, 0.0}, {90.0, 0.0}, {-90.0, 0.0}}};
  // 64 pixels to each side, plus one half and cut towards the centre
  EXPECT_EQ(map.OverlayPixels(overlay), (std::vector<PixelPoint>{{400, 300}, {464, 300}, {337, 300}}));
}

TEST(MapOverlays, AnyPointsAreSurvived) {
  TileMap map = MapOf(800, 600);
  map.view.zoom = 16;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const MapOverlay overlay{.points = {{1e300, -1e300}, {kInfinity, 90.0}, {-1e9, -90.0}}};
  for (const PixelPoint& pixel : map.OverlayPixels(overlay)) {
    EXPECT_LE(std::abs(pixel.x), 1 << 30);
    EXPECT_LE(std::abs(pixel.y), 1 << 30);
  }
  EXPECT_TRUE(map.OverlayPixels(MapOverlay{}).empty());
}

}  // namespace
}  // namespace tremlo
