#include "numeric/sources/FaultDistances.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Plane {
  double dep = 0.0, len = 4.0, wid = 4.0, str = 0.0, dip = 90.0;
  double east = 0.0, north = 0.0;
};

FaultPlanes PlanesOf(const std::vector<Plane>& list) {
  FaultPlanes planes;
  for (const Plane& plane : list) {
    planes.eastCorner.push_back(plane.east);
    planes.northCorner.push_back(plane.north);
    planes.dep.push_back(plane.dep);
    planes.len.push_back(plane.len);
    planes.wid.push_back(plane.wid);
    planes.str.push_back(plane.str);
    planes.dip.push_back(plane.dip);
  }
  return planes;
}

std::vector<double> GridOf(const Plane& plane, double start, double eastSite = 0.0, double northSite = 0.0) {
  return PlaneGridDistances(plane.wid, plane.len, plane.dep, plane.east, plane.north, eastSite, northSite,
                            plane.str, plane.dip, start);
}

double ShortestOf(const Plane& plane, double eastSite = 0.0, double northSite = 0.0) {
  return ShortestDistances(PlanesOf({plane}), eastSite, northSite).at(0);
}

double EquivalentOf(const Plane& plane, double eastSite = 0.0, double northSite = 0.0) {
  return EquivalentDistances(PlanesOf({plane}), eastSite, northSite).at(0);
}

TEST(FaultDistances, CentreDepthGoesHalfTheWidthDownDip) {
  EXPECT_THAT(PlaneCentreDepth({2.0, 3.0, 5.0}, {16.0, 20.0, 10.0}, {90.0, 30.0, 0.0}),
              Pointwise(DoubleNear(1e-14), {10.0, 8.0, 5.0}));
}

TEST(FaultDistances, VerticalPlaneHasItsPointsBelowTheStrikeLine) {
  // wid 10 from the surface, seen from the corner itself: depths 0 to 10 in steps of 2.
  EXPECT_THAT(GridOf({.len = 1.0, .wid = 10.0}, 0.0),
              Pointwise(DoubleNear(1e-12), {0.0, 2.0, 4.0, 6.0, 8.0, 10.0}));
}

TEST(FaultDistances, SiteAboveACornerAtTheSurfaceIsAtDistanceZero) {
  EXPECT_EQ(ShortestOf({.east = 12.5, .north = -3.0}, 12.5, -3.0), 0.0);
}

TEST(FaultDistances, FourByFourPlaneUnderItsCorner) {
  EXPECT_THAT(GridOf({}, 1.0), Pointwise(DoubleNear(1e-12), {std::sqrt(2.0), std::sqrt(10.0), std::sqrt(10.0),
                                                             std::sqrt(18.0)}));
  EXPECT_EQ(ShortestOf({}), 0.0);
  EXPECT_NEAR(EquivalentOf({}), std::sqrt(4.0 / (1.0 / 2.0 + 1.0 / 10.0 + 1.0 / 10.0 + 1.0 / 18.0)), 1e-14);
}

TEST(FaultDistances, StrikeCountsClockwiseFromNorth) {
  EXPECT_NEAR(ShortestOf({.len = 10.0, .wid = 0.0}, 0.0, 10.0), 0.0, 1e-12);
  EXPECT_NEAR(ShortestOf({.len = 10.0, .wid = 0.0, .str = 90.0}, 10.0, 0.0), 0.0, 1e-12);
  EXPECT_NEAR(
      ShortestOf({.len = 10.0, .wid = 0.0, .str = 225.0}, -5.0 * std::sqrt(2.0), -5.0 * std::sqrt(2.0)), 0.0,
      1e-12);
}

TEST(FaultDistances, PlaneDipsToTheRightOfTheStrike) {
  EXPECT_NEAR(ShortestOf({.wid = 10.0, .dip = 0.0}, 10.0, 0.0), 0.0, 1e-12);
  EXPECT_NEAR(ShortestOf({.wid = 10.0, .dip = 0.0}, -10.0, 0.0), 10.0, 1e-12);
  EXPECT_NEAR(ShortestOf({.wid = 10.0, .str = 90.0, .dip = 0.0}, 0.0, -10.0), 0.0, 1e-12);
}

TEST(FaultDistances, DipGoesDown) {
  // 8 km down a dip of 30 degrees: 4 km deeper and 8·cos 30 to the right, here below the site.
  EXPECT_NEAR(
      GridOf({.dep = 1.0, .len = 0.0, .wid = 8.0, .dip = 30.0}, 0.0, 8.0 * std::sqrt(0.75), 0.0).back(), 5.0,
      1e-12);
}

TEST(FaultDistances, RowsRunAlongTheStrikeOneBelowTheOther) {
  const std::vector<double> grid = GridOf({.len = 4.0, .wid = 2.0}, 0.0);
  EXPECT_THAT(grid, Pointwise(DoubleNear(1e-12), {0.0, 2.0, 4.0, 2.0, std::sqrt(8.0), std::sqrt(20.0)}));
}

TEST(FaultDistances, FarEdgeBelongsToTheGridOnlyAtEvenLengths) {
  EXPECT_NEAR(ShortestOf({.len = 6.0, .wid = 0.0}, 0.0, 10.0), 4.0, 1e-12);
  EXPECT_NEAR(ShortestOf({.len = 5.9, .wid = 0.0}, 0.0, 10.0), 6.0, 1e-12);
}

TEST(FaultDistances, LastCellNeedNotBeWhole) {
  EXPECT_EQ(GridOf({.len = 5.0, .wid = 1.0}, 1.0).size(), 3U);
  EXPECT_EQ(GridOf({.len = 4.999, .wid = 1.0}, 1.0).size(), 2U);
  EXPECT_EQ(GridOf({.len = 100.0, .wid = 20.0}, 0.0).size(), 561U);
}

TEST(FaultDistances, SideBelowOneKilometreHasNoEquivalentDistance) {
  EXPECT_TRUE(std::isnan(EquivalentOf({.len = 0.99})));
  EXPECT_TRUE(std::isnan(EquivalentOf({.wid = 0.0})));
  EXPECT_EQ(ShortestOf({.dep = 3.0, .len = 0.99, .wid = 0.0}), 3.0);
  EXPECT_FALSE(std::isnan(EquivalentOf({.len = 1.0, .wid = 1.0})));
}

TEST(FaultDistances, NegativeSidesLeaveNoPoints) {
  EXPECT_TRUE(GridOf({.wid = -1.0}, 0.0).empty());
  EXPECT_TRUE(std::isnan(ShortestOf({.len = -1.0})));
  EXPECT_TRUE(std::isnan(EquivalentOf({.len = -1.0, .wid = -1.0})));
}

TEST(FaultDistances, SidesThatNoPlaneOnEarthHasLeaveNoPoints) {
  for (const Plane& plane :
       {Plane{.len = kInfinity}, Plane{.len = -1.0, .wid = kInfinity}, Plane{.len = std::nan("")},
        Plane{.len = 1e300, .wid = 1e300}, Plane{.len = 1e6, .wid = 1e6}}) {
    EXPECT_TRUE(GridOf(plane, 0.0).empty());
    EXPECT_TRUE(std::isnan(ShortestOf(plane)));
    EXPECT_TRUE(std::isnan(EquivalentOf(plane)));
  }
  EXPECT_EQ(ShortestOf({.dep = 7.0, .len = 20000.0, .wid = 1000.0}), 7.0);
}

TEST(FaultDistances, CellUnderTheSiteAtTheSurfaceMakesTheEquivalentDistanceZero) {
  EXPECT_EQ(EquivalentOf({.dip = 0.0}, 1.0, 1.0), 0.0);
}

TEST(FaultDistances, DistancesAreThoseOfTheGrid) {
  const Plane plane{
      .dep = 2.5, .len = 37.0, .wid = 17.5, .str = 59.6, .dip = 52.0, .east = -20.0, .north = 8.0};
  const std::vector<double> corners = GridOf(plane, 0.0, 3.0, 4.0);
  EXPECT_EQ(ShortestOf(plane, 3.0, 4.0), *std::min_element(corners.begin(), corners.end()));
  long double sum = 0.0L;
  const std::vector<double> centres = GridOf(plane, 1.0, 3.0, 4.0);
  for (const double distance : centres) sum += 1.0L / (static_cast<long double>(distance) * distance);
  EXPECT_NEAR(EquivalentOf(plane, 3.0, 4.0),
              static_cast<double>(std::sqrt(static_cast<long double>(centres.size()) / sum)), 1e-12);
}

TEST(FaultDistances, EachPlaneHasItsOwnDistances) {
  const FaultPlanes planes = PlanesOf({{}, {.dep = 5.0}, {.len = -1.0}});
  const std::vector<double> shortest = ShortestDistances(planes, 0.0, 0.0);
  ASSERT_EQ(shortest.size(), 3U);
  EXPECT_EQ(shortest[0], 0.0);
  EXPECT_EQ(shortest[1], 5.0);
  EXPECT_TRUE(std::isnan(shortest[2]));
  EXPECT_TRUE(ShortestDistances({}, 0.0, 0.0).empty());
  EXPECT_TRUE(EquivalentDistances({}, 0.0, 0.0).empty());
}

}  // namespace
}  // namespace tremlo
