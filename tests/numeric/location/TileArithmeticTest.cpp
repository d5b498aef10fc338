#include "numeric/location/TileArithmetic.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace tremlo {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// One tile of 256 pixels round the world, its middle at 0, 0: a pixel is 1.40625 degrees, without rounding.
MapView WorldView() {
  MapView view;
  view.zoom = 0;
  view.centerLon = 0.0;
  view.centerLat = 0.0;
  view.clientRect = {0, 0, 800, 600};
  return view;
}

MapView ViewAt(std::int32_t zoom, double scale) {
  MapView view;
  view.zoom = zoom;
  view.scale = scale;
  view.clientRect = {0, 0, 800, 600};
  return view;
}

void ExpectWheel(std::int32_t zoom, double scale, std::int32_t delta, std::int32_t newZoom, double newScale) {
  MapView view = ViewAt(zoom, scale);
  ZoomByWheel(view, delta, {400, 300});
  EXPECT_EQ(view.zoom, newZoom);
  EXPECT_DOUBLE_EQ(view.scale, newScale);
}

void ExpectSound(const MapView& view) {
  EXPECT_TRUE(std::isfinite(view.scale) && view.scale > 0.0) << view.scale;
  EXPECT_TRUE(std::isfinite(view.centerLon) && std::isfinite(view.centerLat));
  EXPECT_GE(TilePixels(view), kSmallestTilePixels);
  EXPECT_LE(TilePixels(view), kLargestTilePixels);
}

std::int32_t TilePixelsAt(double scale) {
  return TilePixels(ViewAt(6, scale));
}

TEST(TileNumbering, EquatorAndPrimeMeridianMeetInTheMiddleOfTheWorld) {
  for (const std::int32_t zoom : {0, 1, 5, 18}) {
    const TilePoint tile = LonLatToTile(zoom, 0.0, 0.0);
    EXPECT_DOUBLE_EQ(tile.x, std::ldexp(0.5, zoom));
    EXPECT_DOUBLE_EQ(tile.y, std::ldexp(0.5, zoom));
  }
}

TEST(TileNumbering, TheWorldIsASquareFromTheDateLineToItsReturn) {
  EXPECT_EQ(LonLatToTile(18, -180.0, kMapEdgeLat).x, 0.0);
  EXPECT_NEAR(LonLatToTile(18, -180.0, kMapEdgeLat).y, 0.0, 1e-6);
  EXPECT_EQ(LonLatToTile(18, 180.0, -kMapEdgeLat).x, 262144.0);
  EXPECT_NEAR(LonLatToTile(18, 180.0, -kMapEdgeLat).y, 262144.0, 1e-6);
}

TEST(TileNumbering, AgreesWithTheFormOfTheProjectionInHyperbolicFunctions) {
  for (double lat = -89.0; lat <= 89.0; lat += 0.37) {
    const double radians = lat / 180.0 * std::numbers::pi;
    const double y = (1.0 - std::asinh(std::tan(radians)) / std::numbers::pi) / 2.0 * 32768.0;
    EXPECT_NEAR(LonLatToTile(15, 0.0, lat).y, y, 1e-8) << lat;
  }
}

TEST(TileNumbering, TheTileOfTheServiceProbeLiesAboutItsPlace) {
  const TilePoint tile = LonLatToTile(15, 136.61, 36.56);
  EXPECT_NEAR(tile.x, 28817.0, 2.0);
  EXPECT_NEAR(tile.y, 12802.0, 3.0);  // its lower edge is 12803
  const GeoPoint corner = TileToLonLat(15, 28817.0, 12802.0);
  EXPECT_NEAR(corner.lon, 136.61, 0.022);  // two tiles of 0.011 degrees
  EXPECT_NEAR(corner.lat, 36.56, 0.022);
}

TEST(TileNumbering, ThereAndBackGivesThePositionAgain) {
  for (const std::int32_t zoom : {0, 5, 15, 18})
    for (double lat = -85.0; lat <= 85.0; lat += 8.5)
      for (double lon = -180.0; lon <= 180.0; lon += 22.5) {
        const TilePoint tile = LonLatToTile(zoom, lon, lat);
        const GeoPoint back = TileToLonLat(zoom, tile.x, tile.y);
        EXPECT_NEAR(back.lon, lon, 1e-11);
        EXPECT_NEAR(back.lat, lat, 1e-11);
      }
}

TEST(TileNumbering, ThePolesAreFiniteAndEquallyFar) {
  const double north = LonLatToTile(0, 0.0, 90.0).y;
  const double south = LonLatToTile(0, 0.0, -90.0).y;
  EXPECT_TRUE(std::isfinite(north));
  EXPECT_LT(north, 0.0);
  EXPECT_NEAR(north + south, 1.0, 1e-9);
}

TEST(TileNumbering, LatitudesBeyondAPoleCountAsThePole) {
  EXPECT_EQ(LonLatToTile(5, 0.0, 200.0).y, LonLatToTile(5, 0.0, 90.0).y);
  EXPECT_EQ(LonLatToTile(5, 0.0, -1e300).y, LonLatToTile(5, 0.0, -90.0).y);
}

TEST(TileNumbering, EveryRowHasALatitude) {
  EXPECT_EQ(TileToLonLat(3, 0.0, -1e300).lat, 90.0);
  EXPECT_EQ(TileToLonLat(3, 0.0, 1e300).lat, -90.0);
}

TEST(TileNumbering, AnyZoomGivesFiniteNumbers) {
  EXPECT_EQ(LonLatToTile(kLeast, 10.0, 20.0).x, LonLatToTile(0, 10.0, 20.0).x);
  EXPECT_EQ(LonLatToTile(kMost, 10.0, 20.0).y, LonLatToTile(30, 10.0, 20.0).y);
  EXPECT_EQ(TileToLonLat(kMost, 0.0, 0.0).lon, -180.0);
}

TEST(TileNumbering, PositionsAreCutTowardsZeroAndLimited) {
  EXPECT_EQ(TruncatedPosition(-1.9), -1);
  EXPECT_EQ(TruncatedPosition(1.9), 1);
  EXPECT_EQ(TruncatedPosition(kNan), 0);
  EXPECT_EQ(TruncatedPosition(kInfinity), 1 << 30);
  EXPECT_EQ(TruncatedPosition(-1e300), -(1 << 30));
  EXPECT_EQ(LimitedPosition(std::int64_t{1} << 40), 1 << 30);
  EXPECT_EQ(LimitedPosition(-7), -7);
}

TEST(TilePixels, AreRoundedToTheNearestPixel) {
  EXPECT_EQ(TilePixelsAt(1.0), 256);
  EXPECT_EQ(TilePixelsAt(0.77), 197);                // 197.12
  EXPECT_EQ(TilePixelsAt(197.5 / 256.0), 198);       // half goes up
  EXPECT_EQ(TilePixelsAt(0.8128668946369415), 208);  // the scale of a new project, 208.09
}

TEST(TilePixels, StayWithinTheirBoundsForAnyScale) {
  for (const double scale : {0.0, -1.0, 1e-300, kNan, -kInfinity}) EXPECT_EQ(TilePixelsAt(scale), 1) << scale;
  for (const double scale : {1e5, 1e300, kInfinity})
    EXPECT_EQ(TilePixelsAt(scale), kLargestTilePixels) << scale;
  EXPECT_EQ(TilePixelsAt(1.4 / 256.0), 1);
  EXPECT_EQ(TilePixelsAt(1.5 / 256.0), 2);
}

TEST(ViewTransform, TheCentreFallsOnTheMiddlePixel) {
  MapView view = ViewAt(9, 1.2);
  view.clientRect = {0, 0, 801, 333};
  EXPECT_EQ(PixelAt(view, {view.centerLon, view.centerLat}), (PixelPoint{400, 166}));
  view.clientRect = {-3, -9, 0, 0};  // the half of a sum is cut towards 0
  EXPECT_EQ(PixelAt(view, {view.centerLon, view.centerLat}), (PixelPoint{-1, -4}));
}

TEST(ViewTransform, DistancesGainOneHalfAndAreCutTowardsTheCentre) {
  const MapView view = WorldView();
  const auto pixelOf = [&view](double pixelsEast) {
    return PixelAt(view, {pixelsEast * 1.40625, 0.0}).x - 400;
  };
  EXPECT_EQ(pixelOf(2.0), 2);
  EXPECT_EQ(pixelOf(2.5), 3);
  EXPECT_EQ(pixelOf(0.25), 0);
  EXPECT_EQ(pixelOf(-0.75), 0);
  EXPECT_EQ(pixelOf(-2.0), -1);
  EXPECT_EQ(pixelOf(-2.75), -2);
}

TEST(ViewTransform, SouthIsDownward) {
  const MapView view = WorldView();
  EXPECT_GT(PixelAt(view, {0.0, -10.0}).y, 300);
  EXPECT_LT(PixelAt(view, {0.0, 10.0}).y, 300);
}

TEST(ViewTransform, APixelGivesItsPosition) {
  const MapView view = WorldView();
  EXPECT_EQ(GeoAt(view, {400, 300}), (GeoPoint{0.0, 0.0}));
  EXPECT_EQ(GeoAt(view, {464, 300}).lon, 90.0);
  EXPECT_NEAR(GeoAt(view, {400, 300 - 128}).lat, 85.05112877980659, 1e-12);
}

TEST(ViewTransform, PixelToPositionToPixelIsWithinTheCut) {
  const MapView view = ViewAt(12, 0.93);
  for (std::int32_t x = -50; x <= 850; x += 7)
    for (std::int32_t y = -50; y <= 650; y += 7) {
      const PixelPoint back = PixelAt(view, GeoAt(view, {x, y}));
      EXPECT_NEAR(back.x, x, 1);
      EXPECT_NEAR(back.y, y, 1);
    }
}

TEST(ViewTransform, FarPositionsAreLimitedAndNoNumberIsTheMiddle) {
  const MapView view = ViewAt(18, 1.4);
  EXPECT_EQ(PixelAt(view, {1e300, 36.0}).x, 1 << 30);
  EXPECT_EQ(PixelAt(view, {-1e12, 36.0}).x, -(1 << 30) + 400);
  EXPECT_EQ(PixelAt(view, {kNan, kNan}), (PixelPoint{400, 300}));
}

TEST(ViewTransform, AnyViewIsSurvived) {
  const std::vector<double> numbers{0.0, -1.0, 1e-308, 1e308, -1e308, kNan, kInfinity, -kInfinity};
  const PixelRect widest{kLeast, kLeast, kMost, kMost};
  for (const double number : numbers)
    for (const std::int32_t zoom : {kLeast, 0, 18, kMost})
      for (const PixelRect& rect : {PixelRect{}, widest, PixelRect{kMost, kMost, kMost, kMost}}) {
        MapView view = ViewAt(zoom, number);
        view.centerLon = number;
        view.centerLat = number;
        view.clientRect = rect;
        const PixelPoint pixel = PixelAt(view, {number, number});
        EXPECT_LE(std::abs(pixel.x), 1 << 30);
        ZoomByWheel(view, 1, {kLeast, kMost});
        EXPECT_GT(view.scale, 0.0);
      }
}

TEST(Wheel, UpwardsTheNextLevelTakesOverAtHalfTheScale) {
  ExpectWheel(6, 1.4, 120, 7, 0.77);
}

TEST(Wheel, DownwardsTheLevelBeforeTakesOverAtTwiceTheScale) {
  ExpectWheel(6, 0.8, -120, 5, 1.44);
}

TEST(Wheel, InBetweenTheLevelStays) {
  ExpectWheel(6, 1.0, 1, 6, 1.1);
  ExpectWheel(6, 1.0, -1, 6, 0.9);
  ExpectWheel(6, 1.36, 1, 6, 1.496);
  ExpectWheel(6, 0.84, -1, 6, 0.756);
}

TEST(Wheel, OnlyTheSignOfTheTurnCounts) {
  ExpectWheel(6, 1.0, 12000, 6, 1.1);
  ExpectWheel(6, 1.0, kLeast, 6, 0.9);
  ExpectWheel(6, 1.0, 0, 6, 1.0);
}

TEST(Wheel, TheHighestLevelIsReachedOnceAndThenTheScaleGrowsOn) {
  ExpectWheel(17, 1.4, 1, 18, 0.77);
  ExpectWheel(18, 1.4, 1, 18, 1.54);
  ExpectWheel(18, 1.54, 1, 18, 1.694);
}

TEST(Wheel, TheLowestLevelIsReachedOnceAndThenTheScaleShrinksOn) {
  ExpectWheel(1, 0.8, -1, 0, 1.44);
  ExpectWheel(0, 0.8, -1, 0, 0.72);
  ExpectWheel(0, 0.72, -1, 0, 0.648);
}

TEST(Wheel, AScaleThatIsNoPositiveNumberStartsAgainAtOne) {
  for (const double scale : {0.0, -2.0, kNan, kInfinity}) ExpectWheel(6, scale, 1, 6, 1.1);
}

TEST(Wheel, AboutTheMiddleTheCentreStays) {
  MapView view = ViewAt(9, 1.4);
  ZoomByWheel(view, 1, view.clientRect.Middle());
  EXPECT_NEAR(view.centerLon, 137.0, 1e-12);
  EXPECT_NEAR(view.centerLat, 36.0, 1e-12);
}

TEST(Wheel, ThePointUnderThePixelStays) {
  for (const std::int32_t delta : {1, -1}) {
    MapView view = ViewAt(9, delta > 0 ? 1.4 : 0.8);  // changes the level, too
    const PixelPoint pixel{700, 100};
    const GeoPoint before = GeoAt(view, pixel);
    ZoomByWheel(view, delta, pixel);
    const GeoPoint after = GeoAt(view, pixel);
    EXPECT_NEAR(after.lon, before.lon, 1e-10);
    // The centre moves by the degrees at the pixel, which the map shows shorter than those at the centre by
    // the factor tan(36.6°)·0.62° = 0.8 %.
    const double shift = std::abs(view.centerLat - 36.0);
    EXPECT_GT(shift, 0.02);
    EXPECT_NEAR(after.lat, before.lat, 0.01 * shift);
  }
}

TEST(Wheel, TurnsWithoutEndLeaveASoundViewThatTurnsBack) {
  for (const std::int32_t delta : {1, -1}) {
    MapView view = ViewAt(9, 1.0);
    for (int i = 0; i < 20000; ++i) ZoomByWheel(view, delta, {13, 550});
    ExpectSound(view);
    EXPECT_EQ(view.zoom, delta > 0 ? 18 : 0);
    for (int i = 0; i < 20000; ++i) ZoomByWheel(view, -delta, {790, 20});
    ExpectSound(view);
    EXPECT_EQ(view.zoom, delta > 0 ? 0 : 18);
  }
}

TEST(Wheel, RandomTurnsKeepTheViewSound) {
  std::mt19937 random(20240611);
  MapView view = ViewAt(5, 0.8128668946369415);
  for (int i = 0; i < 20000; ++i) {
    const auto draw = [&random](std::uint32_t below) { return static_cast<std::int32_t>(random() % below); };
    ZoomByWheel(view, draw(3) - 1, {draw(4000) - 1000, draw(4000) - 1000});
    ASSERT_TRUE(view.zoom >= 0 && view.zoom <= 18);
  }
  ExpectSound(view);
}

TEST(ShiftCenter, MovesByTheDifferenceInDegrees) {
  MapView view = ViewAt(9, 1.0);
  ShiftCenter(view, {10.0, 20.0}, {11.5, 18.0});
  EXPECT_EQ(view.centerLon, 135.5);
  EXPECT_EQ(view.centerLat, 38.0);
}

TEST(ShiftCenter, EndsAtTheEdgeOfTheMap) {
  MapView view = ViewAt(9, 1.0);
  ShiftCenter(view, {0.0, 80.0}, {0.0, 10.0});
  EXPECT_EQ(view.centerLat, kMapEdgeLat);
  ShiftCenter(view, {0.0, -80.0}, {0.0, 80.0});
  ShiftCenter(view, {0.0, -80.0}, {0.0, 80.0});
  EXPECT_EQ(view.centerLat, -kMapEdgeLat);
}

TEST(ShiftCenter, ACentreBeyondTheEdgeStaysUntilMovedInward) {
  MapView view = ViewAt(9, 1.0);
  view.centerLat = 89.0;
  ShiftCenter(view, {}, {});
  EXPECT_EQ(view.centerLat, 89.0);
  ShiftCenter(view, {}, {0.0, 1.0});
  EXPECT_EQ(view.centerLat, 88.0);
}

TEST(ShiftCenter, ADifferenceThatIsNoNumberMovesNothing) {
  MapView view = ViewAt(9, 1.0);
  ShiftCenter(view, {kNan, 0.0}, {0.0, 0.0});
  ShiftCenter(view, {0.0, kInfinity}, {0.0, 0.0});
  EXPECT_EQ(view, ViewAt(9, 1.0));
}

}  // namespace
}  // namespace tremlo
