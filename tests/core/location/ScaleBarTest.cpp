#include "core/location/ScaleBar.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace tremlo {
namespace {

MapView ViewOf(std::int32_t zoom, double scale, std::int32_t width, std::int32_t height) {
  MapView view;
  view.zoom = zoom;
  view.scale = scale;
  view.clientRect = {0, 0, width, height};
  return view;
}

void ExpectLabels(double lengthMetres, const std::string& middle, const std::string& end) {
  EXPECT_EQ(ScaleMiddleText(lengthMetres), middle);
  EXPECT_EQ(ScaleEndText(lengthMetres), end);
}

TEST(ScaleBarLength, IsOneTwoOrFiveTimesAPowerOfTen) {
  EXPECT_EQ(ScaleBarLength(10000.0), 10000.0);
  EXPECT_EQ(ScaleBarLength(19999.0), 10000.0);
  EXPECT_EQ(ScaleBarLength(20000.0), 20000.0);
  EXPECT_EQ(ScaleBarLength(49999.0), 20000.0);
  EXPECT_EQ(ScaleBarLength(50000.0), 50000.0);
  EXPECT_EQ(ScaleBarLength(99999.0), 50000.0);
  EXPECT_EQ(ScaleBarLength(1.0), 1.0);
  EXPECT_EQ(ScaleBarLength(7.0), 5.0);
}

TEST(ScaleBarLength, BelowAMetreThePowerIsCutTowardsOne) {
  EXPECT_EQ(ScaleBarLength(0.5), 1.0);
  EXPECT_EQ(ScaleBarLength(0.05), 0.1);
}

TEST(ScaleLabels, TwentyKilometres) {
  ExpectLabels(20000.0, "10", "20km");
}

TEST(ScaleLabels, BelowTwoKilometresInMetres) {
  ExpectLabels(1000.0, "500", "1000m");
  ExpectLabels(500.0, "250", "500m");
  ExpectLabels(50.0, "25", "50m");
  ExpectLabels(1.0, "0", "1m");  // one half rounds to the even neighbour
  ExpectLabels(5.0, "2", "5m");
}

TEST(ScaleLabels, FromTwoKilometresInKilometres) {
  ExpectLabels(2000.0, "1", "2km");
  ExpectLabels(5000.0, "2.5", "5km");
  ExpectLabels(10000.0, "5", "10km");
  ExpectLabels(50000.0, "25", "50km");
  ExpectLabels(1000000.0, "500", "1000km");
}

TEST(ScaleBar, HasTheLengthOfItsMetresAtTheLowerEdge) {
  for (const std::int32_t zoom : {4, 9, 14, 16})
    for (const double scale : {0.76, 1.0, 1.49}) {
      const MapView view = ViewOf(zoom, scale, 800, 600);
      const auto bar = MakeScaleBar(view);
      ASSERT_TRUE(bar);
      const double lat = GeoAt(view, {400, 600}).lat * std::numbers::pi / 180.0;
      const double metresPerPixel =
          2.0 * std::numbers::pi * 6370000.0 * std::cos(lat) / std::ldexp(TilePixels(view), zoom);
      // Left of the middle a position gains one half and is then cut to the right by up to a whole pixel.
      EXPECT_NEAR(bar->pixelLength, bar->lengthMetres / metresPerPixel + 1.0, 0.5 + 1e-6);
      EXPECT_LE(bar->pixelLength, 401);
      EXPECT_GE(bar->pixelLength, 159);  // the worst steps are 2 to 5 and 10
    }
}

TEST(ScaleBar, LinesAndLabelsStandInTheLowerLeftCorner) {
  const auto bar = MakeScaleBar(ViewOf(9, 1.0, 800, 600));
  ASSERT_TRUE(bar);
  EXPECT_EQ(bar->lengthMetres, 50000.0);
  const std::int32_t b = bar->pixelLength;
  const std::array<PixelLine, 6> lines{
      PixelLine{{10, 590}, {b + 10, 590}},     PixelLine{{10, 589}, {b + 10, 589}},
      PixelLine{{10, 588}, {b + 10, 588}},     PixelLine{{10, 590}, {10, 585}},
      PixelLine{{b + 10, 590}, {b + 10, 585}}, PixelLine{{b / 2 + 10, 590}, {b / 2 + 10, 585}}};
  EXPECT_EQ(bar->lines, lines);
  const std::array<ScaleLabel, 3> labels{ScaleLabel{{10, 585}, "0"}, ScaleLabel{{b / 2 + 10, 585}, "25"},
                                         ScaleLabel{{b + 10, 585}, "50km"}};
  EXPECT_EQ(bar->labels, labels);
}

TEST(ScaleBar, AWindowWithoutTwoPixelsOfWidthHasNone) {
  EXPECT_FALSE(MakeScaleBar(ViewOf(9, 1.0, 0, 600)));
  EXPECT_FALSE(MakeScaleBar(ViewOf(9, 1.0, 1, 600)));
  EXPECT_TRUE(MakeScaleBar(ViewOf(9, 1.0, 2, 600)));
}

TEST(ScaleBar, ACentreThatIsNoPositionHasNone) {
  MapView view = ViewOf(9, 1.0, 800, 600);
  view.centerLat = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(MakeScaleBar(view));
  view.centerLat = 36.0;
  view.centerLon = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(MakeScaleBar(view));
}

TEST(ScaleBar, AnyScaleAndZoomIsSurvived) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const double scale : {0.0, 1e-300, 1e300, std::numeric_limits<double>::quiet_NaN()})
    for (const std::int32_t zoom : {-kMost, 0, 18, kMost})
      for (const double lat : {-90.0, 0.0, 90.0, 1e9}) {
        MapView view = ViewOf(zoom, scale, kMost, kMost);
        view.centerLat = lat;
        if (const auto bar = MakeScaleBar(view)) {
          EXPECT_TRUE(std::isfinite(bar->lengthMetres) && bar->lengthMetres > 0.0);
          EXPECT_EQ(bar->labels[2].text.back(), 'm');
        }
      }
}

}  // namespace
}  // namespace tremlo
