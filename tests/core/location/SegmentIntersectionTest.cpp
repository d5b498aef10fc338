#include "core/location/SegmentIntersection.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

constexpr double kTolerance = 1e-5;
const CDPoint kUntouched{-77.0, -77.0};

void CheckCrossing(CDPoint a1, CDPoint a2, CDPoint b1, CDPoint b2, int code, CDPoint expected,
                   double tolerance = kTolerance) {
  CDPoint crossing = kUntouched;
  EXPECT_EQ(IntersectSegments(a1, a2, b1, b2, tolerance, crossing), code);
  EXPECT_NEAR(crossing.x, expected.x, 1e-12);
  EXPECT_NEAR(crossing.y, expected.y, 1e-12);
}

TEST(SegmentIntersection, ObliqueSegmentsCross) {
  CheckCrossing({0, 0}, {4, 2}, {0, 2}, {4, 0}, kOnBothSegments, {2, 1});
}

TEST(SegmentIntersection, CodeTellsOnWhichSegmentTheCrossingLies) {
  CheckCrossing({0, 0}, {4, 2}, {3, 0.5}, {4, 0}, kOnFirstSegment, {2, 1});
  CheckCrossing({3, 1.5}, {4, 2}, {0, 2}, {4, 0}, kOnSecondSegment, {2, 1});
  CheckCrossing({3, 1.5}, {4, 2}, {3, 0.5}, {4, 0}, 0, {2, 1});
}

TEST(SegmentIntersection, SameSegmentInEitherDirectionIsDegenerate) {
  CheckCrossing({0, 0}, {4, 2}, {0, 0}, {4, 2}, kNoIntersection, kUntouched);
  CheckCrossing({0, 0}, {4, 2}, {4, 2}, {0, 0}, kNoIntersection, kUntouched);
  CheckCrossing({0, 0}, {4, 2}, {4.000005, 2}, {0, -0.000005}, kNoIntersection, kUntouched);
}

TEST(SegmentIntersection, TwoVerticalOrTwoHorizontalSegmentsDoNotCross) {
  CheckCrossing({1, 0}, {1, 4}, {2, 0}, {2, 4}, kNoIntersection, kUntouched);
  CheckCrossing({1, 0}, {1, 4}, {1, 2}, {1.000000001, 7}, kNoIntersection, kUntouched);
  CheckCrossing({0, 1}, {4, 1}, {0, 2}, {4, 2}, kNoIntersection, kUntouched);
}

TEST(SegmentIntersection, VerticalSegmentsTakeTheirOwnX) {
  CheckCrossing({1, 0}, {1, 4}, {0, 1}, {4, 3}, kOnBothSegments, {1, 1.5});
  CheckCrossing({0, 1}, {4, 3}, {1, 0}, {1, 4}, kOnBothSegments, {1, 1.5});
}

TEST(SegmentIntersection, HorizontalSegmentsTakeTheirOwnY) {
  CheckCrossing({0, 1}, {4, 1}, {0, 0}, {4, 2}, kOnBothSegments, {2, 1});
  CheckCrossing({0, 0}, {4, 2}, {0, 1}, {4, 1}, kOnBothSegments, {2, 1});
  CheckCrossing({1, 0}, {1, 4}, {0, 2}, {4, 2}, kOnBothSegments, {1, 2});
}

TEST(SegmentIntersection, SlopesOfOneSignAndSizeAreParallel) {
  CheckCrossing({0, 0}, {4, 2}, {0, 1}, {4, 3}, kNoIntersection, kUntouched);
  CheckCrossing({0, 0}, {4, 2}, {0, 1}, {4, 3.000003}, kNoIntersection, kUntouched);
}

TEST(SegmentIntersection, SlopesOfOneSizeAndOtherSignCross) {
  CheckCrossing({0, 0}, {4, 2}, {0, 2}, {4, 0}, kOnBothSegments, {2, 1});
}

TEST(SegmentIntersection, CommonEndIsOnBothUnlessTheToleranceIsZero) {
  CheckCrossing({0, 0}, {4, 2}, {4, 2}, {8, 0}, kOnBothSegments, {4, 2});
  CheckCrossing({0, 0}, {4, 2}, {-3, 5}, {0, 0}, kOnBothSegments, {0, 0});
  CheckCrossing({0, 0}, {4, 2}, {4, 2}, {8, 0}, 0, {4, 2}, 0.0);
}

TEST(SegmentIntersection, ParallelSegmentsWithACommonEndMeetThere) {
  CheckCrossing({0, 0}, {4, 2}, {4, 2}, {8, 4}, kOnBothSegments, {4, 2});
}

TEST(SegmentIntersection, CrossingAtAnEndLiesOnTheSegmentWithinTheTolerance) {
  CheckCrossing({0, 0}, {2, 1}, {0, 2}, {4, 0}, kOnBothSegments, {2, 1});
  CheckCrossing({0, 0}, {2, 1}, {0, 2}, {4, 0}, kOnSecondSegment, {2, 1}, 0.0);
  CheckCrossing({0, 0}, {1.999995, 0.9999975}, {0, 2}, {4, 0}, kOnBothSegments, {2, 1});
  CheckCrossing({0, 0}, {1.99, 0.995}, {0, 2}, {4, 0}, kOnSecondSegment, {2, 1});
}

TEST(SegmentIntersection, SteepSegmentIsJudgedByItsY) {
  CheckCrossing({1, 0}, {1.000000005, 4}, {0, 3}, {4, 3}, kOnBothSegments, {1, 3});
  CheckCrossing({1, 0}, {2, 4}, {0, 3}, {4, 3}, kOnBothSegments, {1.75, 3});
  CheckCrossing({1, 0}, {2, 4}, {0, 5}, {4, 5}, kOnSecondSegment, {2.25, 5});
}

}  // namespace
}  // namespace tremlo
