#include "core/location/DPoly.h"

#include <gtest/gtest.h>
#include <utility>

namespace tremlo {
namespace {

CDPoly PolygonOf(const std::vector<std::pair<double, double>>& points) {
  CDPoly polygon;
  for (const auto& [x, y] : points) polygon.Add(x, y);
  polygon.UpdateBox();
  return polygon;
}

const CDPoly kSquare = PolygonOf({{10, 10}, {30, 10}, {30, 30}, {10, 30}});

void ExpectEmptyBox(const CDPoly& polygon) {
  EXPECT_EQ(polygon.MinCorner(), (CDPoint{9e32, 9e32, 0}));
  EXPECT_EQ(polygon.MaxCorner(), (CDPoint{-9e32, -9e32, 0}));
}

TEST(DPoly, NewAndEmptiedPolygonHaveTheEmptyBox) {
  ExpectEmptyBox(CDPoly());
  CDPoly polygon = kSquare;
  polygon.Clear();
  EXPECT_TRUE(polygon.Points().empty());
  ExpectEmptyBox(polygon);
}

TEST(DPoly, BoxIsTakenFromThePointsOnDemand) {
  CDPoly polygon;
  polygon.Add(1, 5);
  polygon.Add(-3, 7);
  ExpectEmptyBox(polygon);
  polygon.UpdateBox();
  EXPECT_EQ(polygon.MinCorner(), (CDPoint{-3, 5, 0}));
  EXPECT_EQ(polygon.MaxCorner(), (CDPoint{1, 7, 0}));
}

TEST(DPoly, PointsInsideAndOutside) {
  EXPECT_TRUE(kSquare.Contains(20, 20));
  EXPECT_TRUE(kSquare.Contains(10.5, 29.5));
  EXPECT_FALSE(kSquare.Contains(9, 20));
  EXPECT_FALSE(kSquare.Contains(20, 31));
}

TEST(DPoly, DirectionOfTheRingDoesNotMatter) {
  EXPECT_TRUE(PolygonOf({{10, 30}, {30, 30}, {30, 10}, {10, 10}}).Contains(20, 20));
}

TEST(DPoly, FewerThanThreePointsContainNothing) {
  EXPECT_FALSE(CDPoly().Contains(0, 0));
  EXPECT_FALSE(PolygonOf({{0, 0}, {10, 10}}).Contains(5, 5));
  EXPECT_FALSE(PolygonOf({{0, 0}, {10, 0}}).Contains(5, 0));
}

TEST(DPoly, PointOnTheEdgeOfTheBoxIsTestedFurther) {
  // The ray leaves the square in its starting point on the right side; from the left side it crosses two
  // sides.
  EXPECT_TRUE(kSquare.Contains(30, 20));
  EXPECT_FALSE(kSquare.Contains(10, 20));
  EXPECT_FALSE(PolygonOf({{0, 0}, {40, 20}, {0, 40}}).Contains(40, 30));
}

TEST(DPoly, AVertexLevelWithThePointOrOnItsDiagonalIsNotMet) {
  const CDPoly diamond = PolygonOf({{20, 0}, {40, 20}, {20, 40}, {0, 20}});
  EXPECT_TRUE(diamond.Contains(20, 20));  // level with two corners, above and below the others
  EXPECT_TRUE(kSquare.Contains(20, 20));  // on the diagonals
  EXPECT_TRUE(PolygonOf({{10, 10}, {40, 10}, {28, 29}, {10, 40}}).Contains(20, 20));  // 9 below for 8 across
}

TEST(DPoly, AVertexEightBelowForNineAcrossCountsTwice) {
  // The ray runs through the corner, which both its edges hold: the price of the one direction.
  EXPECT_FALSE(PolygonOf({{10, 10}, {40, 10}, {29, 28}, {10, 40}}).Contains(20, 20));
  EXPECT_TRUE(PolygonOf({{10, 10}, {40, 10}, {29, 28.01}, {10, 40}}).Contains(20, 20));
}

TEST(DPoly, ConcavePolygonLeavesOutItsNotch) {
  const CDPoly notched = PolygonOf({{0, 0}, {50, 0}, {50, 50}, {25, 10}, {0, 50}});
  EXPECT_FALSE(notched.Contains(25, 30));
  EXPECT_TRUE(notched.Contains(5, 30));
  EXPECT_TRUE(notched.Contains(45, 30));
  EXPECT_TRUE(notched.Contains(25, 5));
}

TEST(DPoly, ABridgeThereAndBackIsNoPartOfTheArea) {
  const CDPoly islands = PolygonOf({{0, 0},
                                    {10, 0},
                                    {10, 10},
                                    {30, 10},
                                    {30, 0},
                                    {40, 0},
                                    {40, 20},
                                    {30, 20},
                                    {30, 10},
                                    {10, 10},
                                    {10, 20},
                                    {0, 20}});
  EXPECT_TRUE(islands.Contains(5, 10.5));
  EXPECT_TRUE(islands.Contains(35, 10.5));
  EXPECT_FALSE(islands.Contains(20, 9.5));
  EXPECT_FALSE(islands.Contains(20, 10.5));
}

}  // namespace
}  // namespace tremlo
