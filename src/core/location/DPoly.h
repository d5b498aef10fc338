#pragma once

#include <cstdint>
#include <vector>

namespace tremlo {

/// A point of the zone map, in pixels of its picture, y downwards.
struct CDPoint {
  double x = 0.0;
  double y = 0.0;
  std::int32_t marker = 0;  ///< always 0 on the zone map

  bool operator==(const CDPoint&) const = default;
};

/// A polygon with its bounding box; the last point is joined to the first.
class CDPoly {
 public:
  void Clear();
  void Add(double x, double y) { m_points.push_back({x, y}); }
  /// Takes the bounding box from the points. Add alone does not change it.
  void UpdateBox();

  /// Whether a point lies inside, by counting the edges that a long oblique ray from it crosses. Fewer than
  /// three points, or a point outside the bounding box (whose edges belong to it): false.
  bool Contains(double x, double y) const;

  const std::vector<CDPoint>& Points() const { return m_points; }
  /// Of an empty polygon the smallest corner is at 9e32 and the largest at -9e32, in both coordinates.
  const CDPoint& MinCorner() const { return m_minCorner; }
  const CDPoint& MaxCorner() const { return m_maxCorner; }

 private:
  static constexpr double kFar = 9e32;

  std::vector<CDPoint> m_points;
  CDPoint m_minCorner{kFar, kFar};
  CDPoint m_maxCorner{-kFar, -kFar};
};

}  // namespace tremlo
