#include "core/location/ScaleBar.h"

#include "core/files/FixedNumber.h"

#include <cmath>

namespace tremlo {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kEarthRadiusMetres = 6370000.0;
constexpr std::int32_t kMargin = 10;
constexpr std::int32_t kTickHeight = 15;  ///< of the tick's upper end above the window's lower edge

void PlaceLines(ScaleBar& bar, std::int32_t height) {
  const std::int32_t right = bar.pixelLength + kMargin;
  const std::int32_t middle = bar.pixelLength / 2 + kMargin;
  const std::int32_t foot = height - kMargin;
  const std::int32_t head = height - kTickHeight;
  for (std::int32_t i = 0; i < 3; ++i)
    bar.lines[static_cast<std::size_t>(i)] = {{kMargin, foot - i}, {right, foot - i}};
  bar.lines[3] = {{kMargin, foot}, {kMargin, head}};
  bar.lines[4] = {{right, foot}, {right, head}};
  bar.lines[5] = {{middle, foot}, {middle, head}};
  bar.labels = {ScaleLabel{{kMargin, head}, "0"},
                ScaleLabel{{middle, head}, ScaleMiddleText(bar.lengthMetres)},
                ScaleLabel{{right, head}, ScaleEndText(bar.lengthMetres)}};
}

}  // namespace

double ScaleBarLength(double halfWidthMetres) {
  const double base = std::pow(10.0, std::trunc(std::log10(halfWidthMetres)));
  const double ratio = halfWidthMetres / base;
  if (ratio < 2.0) return base;
  if (ratio < 5.0) return base * 2.0;
  return base * 5.0;
}

std::string ScaleMiddleText(double lengthMetres) {
  if (lengthMetres < 2000.0) return FixedNumber(lengthMetres * 0.5, 0);
  return FixedNumber(lengthMetres / 2000.0, lengthMetres == 5000.0 ? 1 : 0);
}

std::string ScaleEndText(double lengthMetres) {
  if (lengthMetres < 2000.0) return FixedNumber(lengthMetres, 0) + "m";
  return FixedNumber(lengthMetres / 1000.0, 0) + "km";
}

std::optional<ScaleBar> MakeScaleBar(const MapView& view) {
  const std::int32_t width = LimitedPosition(view.clientRect.Width());
  const std::int32_t height = LimitedPosition(view.clientRect.Height());
  const GeoPoint start = GeoAt(view, {0, height});
  const double lonAtHalf = GeoAt(view, {width / 2, height}).lon;
  const double cosine = std::cos(start.lat * kRadiansPerDegree);
  const double halfWidthMetres = cosine * (lonAtHalf - start.lon) * kRadiansPerDegree * kEarthRadiusMetres;
  if (!std::isfinite(halfWidthMetres) || halfWidthMetres <= 0.0) return std::nullopt;

  ScaleBar bar;
  bar.lengthMetres = ScaleBarLength(halfWidthMetres);
  const double endLon = bar.lengthMetres / (cosine * kEarthRadiusMetres) * kDegreesPerRadian + start.lon;
  bar.pixelLength = PixelAt(view, {endLon, start.lat}).x;
  PlaceLines(bar, height);
  return bar;
}

}  // namespace tremlo
