#include "window/report/MapPicture.h"

#include "core/location/FaultOverlays.h"
#include "core/location/ScaleBar.h"
#include "core/location/ServiceAddresses.h"
#include "core/location/SitePosition.h"
#include "core/location/TileCache.h"
#include "core/location/TileMap.h"
#include "numeric/location/TileGrid.h"
#include "window/location/MapAttribution.h"
#include "window/location/MapSurface.h"
#include "window/location/TileImage.h"

namespace tremlo {

namespace {

TileMap MapOfSite(const CMorvaneDoc& doc, QSize size) {
  const GeoPoint place = PlaceOf(PositionOf(doc.site));
  TileMap map;
  map.view.zoom = doc.site.mapZoom;
  map.view.scale = doc.site.mapScale;
  map.view.centerLon = place.lon;
  map.view.centerLat = place.lat;
  map.view.clientRect = {0, 0, size.width(), size.height()};
  if (doc.flowFaultSource) map.overlays = FaultOverlays(doc.faults);
  return map;
}

}  // namespace

std::optional<QImage> MapPicture(const CMorvaneDoc& doc, QSize size, double ratio) {
  const TileMap map = MapOfSite(doc, size);
  const TileCache cache(doc.Folders().Own(), {}, {});
  MapSurface surface;
  surface.Begin(size, ratio);
  TileGrid grid(map.view);
  while (const std::optional<TilePlacement> placement = grid.Next()) {
    const std::optional<QString> path = cache.Find(placement->tile);
    const std::optional<QImage> tile = path ? LoadTileImage(*path) : std::nullopt;
    if (!tile) return std::nullopt;
    surface.DrawTile(*tile, placement->target);
  }
  surface.DrawOverlays(map);
  surface.DrawCrosshair(map.view.clientRect);
  if (const std::optional<ScaleBar> bar = MakeScaleBar(map.view)) surface.DrawScaleBar(*bar);
  return surface.Image();
}

QString MapAttributionText() {
  return QStringLiteral("%1\n%2（%3）")
      .arg(QString::fromUtf16(kMapCredit), QString::fromUtf16(kMapTerms),
           QString::fromLatin1(kTileTermsAddress));
}

}  // namespace tremlo
