#pragma once

#include "core/graphs/GraphSeries.h"

#include <QRect>

#include <vector>

namespace tremlo {

class GraphSurface;

/// Names the curves of a graph that has several, inside its frame at the top right: for each of the first a
/// sample of its line and its name, cut in the middle where it is too long, then how many others there are.
/// The frame is in pixels of the surface, as is the right end of the note at its top left. The font is
/// 9 points times the factor.
void PaintLegend(const GraphSurface& surface, const QRect& frame, int noteRight,
                 const std::vector<GraphSeries>& series, double fontFactor);

}  // namespace tremlo
