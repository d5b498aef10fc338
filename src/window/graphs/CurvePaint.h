#pragma once

#include "core/graphs/CurveTrace.h"
#include "core/graphs/GraphSeries.h"

namespace tremlo {

class GraphSurface;

/// Draws a traced curve. The pieces of one column, and dots, become filled rectangles, the others single
/// lines with square ends: Qt's own polyline with a wide pen takes seconds where thousands of points crowd,
/// and round ends or a line for each dot take many times as long where hundreds of curves are drawn.
void PaintTrace(const GraphSurface& surface, const std::vector<TracePiece>& trace, const CurvePen& pen);

}  // namespace tremlo
