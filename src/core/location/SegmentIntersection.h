#pragma once

#include "core/location/DPoly.h"

namespace tremlo {

/// Results of IntersectSegments; 0 stands for a crossing of the two lines on neither segment.
inline constexpr int kNoIntersection = -1;
inline constexpr int kOnFirstSegment = 1;
inline constexpr int kOnSecondSegment = 2;
inline constexpr int kOnBothSegments = kOnFirstSegment | kOnSecondSegment;

/// Where the line through segment A (a1 to a2) crosses the line through segment B. Returns -1, `crossing`
/// kept, when the segments coincide or are parallel, else the sum of kOnFirstSegment when the crossing lies
/// on A and kOnSecondSegment when it lies on B. A crossing lies on a segment when it is within `tolerance` of
/// one of its ends or strictly between them. Segments with a common end cross there: on both for a tolerance
/// other than 0, on neither for 0.
int IntersectSegments(const CDPoint& a1, const CDPoint& a2, const CDPoint& b1, const CDPoint& b2,
                      double tolerance, CDPoint& crossing);

}  // namespace tremlo
