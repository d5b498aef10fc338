#pragma once

#include "core/graphs/GraphRange.h"
#include "core/graphs/GraphSeries.h"

#include <string>

namespace tremlo {

/// Whether the graph draws the curve as a line. One point alone makes none: a graph without data is given
/// such a point for its axes.
bool IsLine(const GraphSeries& curve);

/// The lines of a graph as a CSV file: all their points, also those beyond the limits of the axes, in CP932
/// as every CSV file of the program. The first line holds names and units. Curves that stand at the same x
/// share its column, even where one of them ends earlier; behind them follow, in the order in which they are
/// drawn, the others with an x of their own. A number is written with as many digits as it takes to read
/// back the same; what is not finite, and what a shorter curve has not, is an empty cell. Empty when there is
/// no line.
std::string CurvesCsv(GraphKind kind, const std::vector<GraphSeries>& curves);

}  // namespace tremlo
