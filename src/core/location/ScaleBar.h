#pragma once

#include "numeric/location/TileArithmetic.h"

#include <array>
#include <optional>
#include <string>

namespace tremlo {

struct PixelLine {
  PixelPoint from;
  PixelPoint to;

  bool operator==(const PixelLine&) const = default;
};

struct ScaleLabel {
  PixelPoint at;
  std::string text;

  bool operator==(const ScaleLabel&) const = default;
};

/// The scale bar at the bottom left of the map: everything that is drawn, worked out.
struct ScaleBar {
  double lengthMetres = 0.0;
  std::int32_t pixelLength = 0;
  std::array<PixelLine, 6> lines;  ///< three along the bar, then the ticks at its left, right end and middle
  std::array<ScaleLabel, 3> labels;  ///< at the left, middle and right tick
};

/// Length of the bar for the metres across half the window, which must be above 0: the power of ten at or
/// below them times 1, 2 or 5. Below 1 m the power is cut towards 1 and may exceed the metres.
double ScaleBarLength(double halfWidthMetres);

/// Texts of the middle and the right tick, with a point as decimal mark: metres below 2000 m, else
/// kilometres.
std::string ScaleMiddleText(double lengthMetres);
std::string ScaleEndText(double lengthMetres);

/// The bar of a view whose client rectangle begins at 0, 0. Distances are those of a sphere of 6370 km at the
/// latitude of the window's lower edge. None for a window less than two pixels wide or a centre that is no
/// position.
std::optional<ScaleBar> MakeScaleBar(const MapView& view);

}  // namespace tremlo
