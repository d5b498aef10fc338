#pragma once

#include "core/graphs/GraphSeries.h"

#include <QRect>

#include <cstddef>
#include <vector>

namespace tremlo {

/// Lengths of a legend, in pixels of the surface.
struct LegendMetrics {
  int rowHeight = 0;
  int sampleWidth = 0;  ///< of the line before a name
  int gap = 0;          ///< around the box, along its inside, and between a line and its name
};

/// The rows of a legend: one for each of the first curves, and behind them one that counts the others.
struct LegendRows {
  int named = 0;
  int others = 0;
  int Count() const { return named + (others > 0 ? 1 : 0); }
  bool operator==(const LegendRows&) const = default;
};

/// Where a legend stands. Without a box there is none.
struct LegendPlace {
  QRect box;
  int textWidth = 0;  ///< room of the names: a longer one has to be cut
};

/// The curves that a legend names, by their number: those that have points and a name. None while only one
/// curve has points: its screen says what it is.
std::vector<std::size_t> CurvesToName(const std::vector<GraphSeries>& series);

/// Rows for `curves` curves in a frame of that height. A legend stays in its upper third; where not even one
/// name and the count of the others find room there are no rows.
LegendRows FitLegendRows(int curves, int frameHeight, const LegendMetrics& metrics);

/// The box at the top right of the frame, as wide as its widest text needs but within the frame's right half,
/// and off the note at the top left, whose right end is `noteRight`. No box for no rows, or where a name
/// would be cut to next to nothing.
LegendPlace PlaceLegend(const LegendRows& rows, const QRect& frame, int noteRight, int widestText,
                        const LegendMetrics& metrics);

/// What the last row says: "他 n 本".
QString OtherCurvesText(int count);

}  // namespace tremlo
