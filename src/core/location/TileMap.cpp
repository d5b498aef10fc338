#include "core/location/TileMap.h"

#include "core/location/SiteRecord.h"

namespace tremlo {

void TileMap::BeginDrag(const PixelPoint& pixel) {
  m_dragPoint = GeoAt(view, pixel);
  m_dragging = true;
}

GeoPoint TileMap::MoveDrag(const PixelPoint& pixel) {
  if (m_dragging) ShiftCenter(view, m_dragPoint, GeoAt(view, pixel));
  return {view.centerLon, view.centerLat};
}

GeoPoint TileMap::EndDrag(const PixelPoint& pixel) {
  const GeoPoint center = MoveDrag(pixel);
  m_dragging = false;
  return center;
}

bool TileMap::TurnWheel(std::int32_t delta, SiteRecord& site) {
  MapView turned = view;
  turned.zoom = site.mapZoom;
  turned.scale = site.mapScale;
  ZoomByWheel(turned, delta, turned.clientRect.Middle());
  if (turned.zoom < kLowestStoredZoom || turned.zoom > kHighestStoredZoom) return false;
  view = turned;
  site.mapZoom = turned.zoom;
  site.mapScale = turned.scale;
  return true;
}

void TileMap::AddOverlay(const std::array<GeoPoint, 5>& points) {
  overlays.push_back({.points = {points.begin(), points.end()}});
}

std::vector<PixelPoint> TileMap::OverlayPixels(const MapOverlay& overlay) const {
  std::vector<PixelPoint> pixels;
  pixels.reserve(overlay.points.size());
  for (const GeoPoint& point : overlay.points) pixels.push_back(PixelAt(view, point));
  return pixels;
}

}  // namespace tremlo
