#include "core/location/SegmentIntersection.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kSamePoint = 1e-5;
constexpr double kSameCoordinate = 1e-8;
constexpr double kSameSlope = 1e-6;

bool IsNear(const CDPoint& a, const CDPoint& b, double distance) {
  return std::hypot(a.x - b.x, a.y - b.y) < distance;
}

bool IsSame(const CDPoint& a, const CDPoint& b) {
  return IsNear(a, b, kSamePoint);
}

/// A segment's line as y = slope·x + intercept; without a meaning when it is vertical.
struct Line {
  Line(const CDPoint& from, const CDPoint& to)
      : isVertical(std::fabs(from.x - to.x) < kSameCoordinate),
        isHorizontal(std::fabs(from.y - to.y) < kSameCoordinate),
        slope((to.y - from.y) / (to.x - from.x)),
        intercept(from.y - slope * from.x) {}

  double At(double x) const { return slope * x + intercept; }

  bool isVertical;
  bool isHorizontal;
  double slope;
  double intercept;
};

bool LiesOn(const CDPoint& point, const CDPoint& from, const CDPoint& to, double tolerance) {
  if (IsNear(point, from, tolerance) || IsNear(point, to, tolerance)) return true;
  const auto isBetween = [](double value, double a, double b) {
    return std::min(a, b) < value && value < std::max(a, b);
  };
  return std::fabs(from.x - to.x) > std::fabs(from.y - to.y) ? isBetween(point.x, from.x, to.x)
                                                             : isBetween(point.y, from.y, to.y);
}

/// False when the lines count as parallel.
bool CrossLines(const Line& a, const Line& b, const CDPoint& a1, const CDPoint& b1, CDPoint& crossing) {
  if (a.isVertical) {
    crossing = {a1.x, b.At(a1.x)};
    return true;
  }
  if (b.isVertical) {
    crossing = {b1.x, a.At(b1.x)};
    return true;
  }
  const bool parallel =
      std::fabs(std::fabs(a.slope) - std::fabs(b.slope)) < kSameSlope && a.slope * b.slope > 0.0;
  if (parallel) return false;
  crossing.x = (b.intercept - a.intercept) / (a.slope - b.slope);
  if (a.isHorizontal) {
    crossing.y = a1.y;
  } else {
    crossing.y = b.isHorizontal ? b1.y : a.At(crossing.x);
  }
  return true;
}

}  // namespace

int IntersectSegments(const CDPoint& a1, const CDPoint& a2, const CDPoint& b1, const CDPoint& b2,
                      double tolerance, CDPoint& crossing) {
  if ((IsSame(a1, b1) && IsSame(a2, b2)) || (IsSame(a1, b2) && IsSame(a2, b1))) return kNoIntersection;
  const Line a(a1, a2);
  const Line b(b1, b2);
  if ((a.isVertical && b.isVertical) || (a.isHorizontal && b.isHorizontal)) return kNoIntersection;
  for (const CDPoint& end : {a1, a2}) {
    if (!IsSame(end, b1) && !IsSame(end, b2)) continue;
    crossing = end;
    return tolerance != 0.0 ? kOnBothSegments : 0;
  }
  CDPoint point;
  if (!CrossLines(a, b, a1, b1, point)) return kNoIntersection;
  crossing = point;
  return (LiesOn(point, a1, a2, tolerance) ? kOnFirstSegment : 0) |
         (LiesOn(point, b1, b2, tolerance) ? kOnSecondSegment : 0);
}

}  // namespace tremlo
