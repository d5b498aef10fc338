#pragma once

#include <cstdint>

namespace tremlo {

/// A position in degrees, east and north positive.
struct GeoPoint {
  double lon = 0.0;
  double lat = 0.0;

  bool operator==(const GeoPoint&) const = default;
};

/// Fractional tile coordinates at one zoom level: x grows eastward from 180° W, y southward from about 85° N,
/// one unit per tile.
struct TilePoint {
  double x = 0.0;
  double y = 0.0;
};

/// Logical pixels of the map's control, y downward.
struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  bool operator==(const PixelPoint&) const = default;
};

/// Right and bottom are the first pixels outside.
struct PixelRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  /// 0 for a rectangle turned inside out.
  std::int64_t Width() const { return right > left ? std::int64_t{right} - left : 0; }
  std::int64_t Height() const { return bottom > top ? std::int64_t{bottom} - top : 0; }
  /// The middle as every transform takes it: the integer half of the sum, cut towards 0.
  PixelPoint Middle() const;

  bool operator==(const PixelRect&) const = default;
};

/// Bounds of the displayed tile. The scale can shrink and grow without end; a tile of no pixels would divide
/// by 0, and one beyond the upper bound would carry pixel positions out of the integers.
constexpr std::int32_t kSmallestTilePixels = 1;
constexpr std::int32_t kLargestTilePixels = 1 << 20;

/// The zoom levels that the tile service knows.
constexpr std::int32_t kLowestZoom = 0;
constexpr std::int32_t kHighestZoom = 18;

/// Latitude at which the square world of the tiles ends: atan(sinh(π)).
constexpr double kMapEdgeLat = 85.05112877980659;

/// What part of the world the map shows and where. Zoom and scale may hold anything, since they come from a
/// file: every function below is defined for all values and casts no number that its integer cannot hold.
struct MapView {
  std::int32_t tileSize = 256;  ///< pixels of a tile as the service sends it
  std::int32_t zoom = 6;
  double centerLon = 137.0;  ///< degrees
  double centerLat = 36.0;
  double scale = 1.0;  ///< magnification of a tile
  PixelRect clientRect;

  bool operator==(const MapView&) const = default;
};

/// Web Mercator tile coordinates (spherical, n = 2^zoom tiles round the world):
/// x = (lon/180 + 1)·n/2, y = (π - ln tan(lat/2 + 45°))·n/2π. Latitudes beyond a pole count as the pole and
/// the poles are kept finite, so that every position on earth gives finite coordinates. A zoom outside 0 to
/// 30 counts as the nearer of the two: above, tile numbers leave 32 bits.
TilePoint LonLatToTile(std::int32_t zoom, double lon, double lat);

/// The inverse: lon = x/n·360 - 180, lat = 2·atan(exp(π - 2π·y/n)) - 90°. Latitude -90 to 90 for any y.
GeoPoint TileToLonLat(std::int32_t zoom, double x, double y);

/// The double cut towards 0, NaN as 0, limited to ±2^30 so that sums of two such positions stay in 32 bits.
std::int32_t TruncatedPosition(double value);
/// The same limits for a sum of positions.
std::int32_t LimitedPosition(std::int64_t value);

/// Displayed size of a tile: tileSize·scale rounded to the nearest pixel, within the bounds above; a scale
/// that is no number counts as the smallest.
std::int32_t TilePixels(const MapView& view);

/// Tile coordinates of the view's centre.
TilePoint CenterTile(const MapView& view);

/// Pixel of a geographic point: its distance from the centre in tiles times the tile's pixels, plus one half
/// and cut towards 0, from the middle of the client rectangle.
PixelPoint PixelAt(const MapView& view, const GeoPoint& point);

/// Geographic point under a pixel.
GeoPoint GeoAt(const MapView& view, const PixelPoint& pixel);

/// Moves the centre by the difference in degrees that brings `grabbed` to where `now` is. A difference that
/// is no number moves nothing.
void ShiftCenter(MapView& view, const GeoPoint& grabbed, const GeoPoint& now);

/// One turn of the wheel about a pixel: only the sign of `delta` counts. The scale grows by 1.1 or shrinks by
/// 0.9; beyond 1.5 the next zoom level takes over at half the scale, below 0.75 the one before at double, as
/// far as there are levels. The point under the pixel stays there, exactly in longitude and nearly in
/// latitude, whose degrees are not of one length. A scale that is no positive number starts again at 1.
void ZoomByWheel(MapView& view, std::int32_t delta, const PixelPoint& pixel);

}  // namespace tremlo
