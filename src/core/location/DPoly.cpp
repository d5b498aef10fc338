#include "core/location/DPoly.h"

#include "core/location/SegmentIntersection.h"

#include <algorithm>

namespace tremlo {

void CDPoly::Clear() {
  *this = CDPoly();
}

void CDPoly::UpdateBox() {
  m_minCorner = {kFar, kFar};
  m_maxCorner = {-kFar, -kFar};
  for (const CDPoint& point : m_points) {
    m_minCorner.x = std::min(m_minCorner.x, point.x);
    m_minCorner.y = std::min(m_minCorner.y, point.y);
    m_maxCorner.x = std::max(m_maxCorner.x, point.x);
    m_maxCorner.y = std::max(m_maxCorner.y, point.y);
  }
}

bool CDPoly::Contains(double x, double y) const {
  constexpr double kTolerance = 1e-5;
  if (m_points.size() < 3) return false;
  if (x < m_minCorner.x || x > m_maxCorner.x || y < m_minCorner.y || y > m_maxCorner.y) return false;

  // Oblique and very long, so that it hardly ever passes through a vertex.
  const CDPoint from{x, y};
  const CDPoint to{x + 99999999.9, y + 88888888.8};
  bool inside = false;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const CDPoint& next = m_points[(i + 1) % m_points.size()];
    CDPoint crossing;
    if (IntersectSegments(m_points[i], next, from, to, kTolerance, crossing) == kOnBothSegments)
      inside = !inside;
  }
  return inside;
}

}  // namespace tremlo
