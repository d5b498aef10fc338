#pragma once

#include "numeric/location/TileArithmetic.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tremlo {

struct SiteRecord;

/// A polygon over the map.
struct MapOverlay {
  std::vector<GeoPoint> points;
  std::int32_t color = 0x0000FF;  ///< 0x00BBGGRR
  std::int32_t penWidth = 3;      ///< pixels

  bool operator==(const MapOverlay&) const = default;
};

/// The zoom levels that a screen's map stores in the document.
constexpr std::int32_t kLowestStoredZoom = 4;
constexpr std::int32_t kHighestStoredZoom = 16;

/// The state of a screen's map apart from its pictures. Nothing of it is saved: before each paint the screen
/// sets the view's zoom and scale from the document, its client rectangle, and the online flag.
class TileMap {
 public:
  MapView view;
  bool online = true;  ///< tiles may be shown, else the offline picture stands in their place
  std::vector<MapOverlay> overlays;
  std::uint8_t overlayAlpha = 100;  ///< of 255

  bool IsDragging() const { return m_dragging; }
  /// Takes hold of the geographic point under the pixel.
  void BeginDrag(const PixelPoint& pixel);
  /// Moves the centre so that the point taken hold of is under the pixel; without a drag it stays. Returns
  /// the centre.
  GeoPoint MoveDrag(const PixelPoint& pixel);
  /// A last move, then the drag is over. Returns the centre.
  GeoPoint EndDrag(const PixelPoint& pixel);

  /// One turn of the wheel about a pixel, without the limits of the document.
  void Wheel(std::int32_t delta, const PixelPoint& pixel) { ZoomByWheel(view, delta, pixel); }

  /// Turns the wheel about the middle of the map by the sign of `delta`, beginning at the zoom and scale that
  /// `site` holds; a zoom key is a turn of one. A zoom within the stored levels is written to `site`; one
  /// outside is dropped and changes nothing. True when written, and the map is to be painted again.
  bool TurnWheel(std::int32_t delta, SiteRecord& site);

  /// Adds a rectangle: its four corners and the first again.
  void AddOverlay(const std::array<GeoPoint, 5>& points);
  void ClearOverlays() { overlays.clear(); }
  /// The overlay's points as they lie on the client rectangle.
  std::vector<PixelPoint> OverlayPixels(const MapOverlay& overlay) const;

 private:
  bool m_dragging = false;
  GeoPoint m_dragPoint;
};

}  // namespace tremlo
