#pragma once

#include "core/graphs/CurveTrace.h"
#include "core/graphs/GraphSeries.h"

namespace tremlo {

class GraphSurface;

/// Draws a traced curve. The pieces of one column become filled rectangles and the others single lines: Qt's
/// own polyline with a wide pen takes seconds where thousands of points crowd.
void PaintTrace(const GraphSurface& surface, const std::vector<TracePiece>& trace, const CurvePen& pen);

}  // namespace tremlo
