#include "numeric/location/TileArithmetic.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace tremlo {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr std::int32_t kFarthestPosition = 1 << 30;
constexpr std::int32_t kLargestExponent = 30;

/// The tangent is 0 at the south pole alone. This is the reciprocal of its value at the north pole, where the
/// rounding of pi keeps it finite, so that both poles lie equally far out.
constexpr double kSmallestTangent = 6.123233995736766e-17;

/// 2 to the power of the zoom, by repeated squaring.
double TilesRound(std::int32_t zoom) {
  auto exponent = static_cast<std::uint32_t>(std::clamp(zoom, 0, kLargestExponent));
  double result = 1.0;
  for (double square = 2.0; exponent != 0; square *= square, exponent >>= 1U)
    if ((exponent & 1U) != 0) result *= square;
  return result;
}

void ScaleByWheel(MapView& view, std::int32_t delta) {
  if (!std::isfinite(view.scale) || view.scale <= 0.0) view.scale = 1.0;
  if (delta > 0) view.scale *= 1.1;
  if (delta < 0) view.scale *= 0.9;
  // Neither 0 nor infinity could be left again by multiplying.
  view.scale = std::clamp(view.scale, std::numeric_limits<double>::min(), std::numeric_limits<double>::max());
}

void ChangeLevel(MapView& view) {
  if (view.scale > 1.5 && view.zoom < kHighestZoom) {
    ++view.zoom;
    view.scale *= 0.5;
  } else if (view.scale < 0.75 && view.zoom > kLowestZoom) {
    --view.zoom;
    view.scale *= 2.0;
  }
}

}  // namespace

PixelPoint PixelRect::Middle() const {
  return {static_cast<std::int32_t>((std::int64_t{left} + right) / 2),
          static_cast<std::int32_t>((std::int64_t{top} + bottom) / 2)};
}

TilePoint LonLatToTile(std::int32_t zoom, double lon, double lat) {
  const double n = TilesRound(zoom);
  const double tangent = std::tan((std::clamp(lat, -90.0, 90.0) * 0.5 + 45.0) * kPi / 180.0);
  return {(lon / 180.0 + 1.0) * n * 0.5,
          (kPi - std::log(std::max(tangent, kSmallestTangent))) * n / (2.0 * kPi)};
}

GeoPoint TileToLonLat(std::int32_t zoom, double x, double y) {
  const double n = TilesRound(zoom);
  return {x / n * 360.0 - 180.0, std::atan(std::exp(-(y / n * 2.0 * kPi - kPi))) * 2.0 * 180.0 / kPi - 90.0};
}

std::int32_t TruncatedPosition(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp<double>(value, -kFarthestPosition, kFarthestPosition));
}

std::int32_t LimitedPosition(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, -kFarthestPosition, kFarthestPosition));
}

std::int32_t TilePixels(const MapView& view) {
  return std::clamp(TruncatedPosition(view.tileSize * view.scale + 0.5), kSmallestTilePixels,
                    kLargestTilePixels);
}

TilePoint CenterTile(const MapView& view) {
  return LonLatToTile(view.zoom, view.centerLon, view.centerLat);
}

PixelPoint PixelAt(const MapView& view, const GeoPoint& point) {
  const TilePoint center = CenterTile(view);
  const TilePoint tile = LonLatToTile(view.zoom, point.lon, point.lat);
  const std::int32_t p = TilePixels(view);
  const PixelPoint middle = view.clientRect.Middle();
  return {LimitedPosition(std::int64_t{TruncatedPosition((tile.x - center.x) * p + 0.5)} + middle.x),
          LimitedPosition(std::int64_t{TruncatedPosition((tile.y - center.y) * p + 0.5)} + middle.y)};
}

GeoPoint GeoAt(const MapView& view, const PixelPoint& pixel) {
  const TilePoint center = CenterTile(view);
  const double p = TilePixels(view);
  const PixelPoint middle = view.clientRect.Middle();
  return TileToLonLat(view.zoom, static_cast<double>(std::int64_t{pixel.x} - middle.x) / p + center.x,
                      static_cast<double>(std::int64_t{pixel.y} - middle.y) / p + center.y);
}

void ShiftCenter(MapView& view, const GeoPoint& grabbed, const GeoPoint& now) {
  const double lon = view.centerLon + (grabbed.lon - now.lon);
  const double lat = view.centerLat + (grabbed.lat - now.lat);
  if (!std::isfinite(lon) || !std::isfinite(lat)) return;
  view.centerLon = lon;
  // Towards a pole degrees grow without end on the map: a centre carried there could not be dragged back.
  view.centerLat =
      std::clamp(lat, std::min(-kMapEdgeLat, view.centerLat), std::max(kMapEdgeLat, view.centerLat));
}

void ZoomByWheel(MapView& view, std::int32_t delta, const PixelPoint& pixel) {
  const GeoPoint grabbed = GeoAt(view, pixel);
  ScaleByWheel(view, delta);
  ChangeLevel(view);
  ShiftCenter(view, grabbed, GeoAt(view, pixel));
}

}  // namespace tremlo
