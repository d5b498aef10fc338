#include "core/location/SitePosition.h"

#include "core/location/Coordinates.h"

namespace tremlo {

SitePosition PositionOf(const SiteRecord& site) {
  return {site.latDeg, site.latMin, site.latSec, site.lonDeg, site.lonMin, site.lonSec};
}

void StorePosition(const SitePosition& position, SiteRecord& site) {
  site.latDeg = position.latDeg;
  site.latMin = position.latMin;
  site.latSec = position.latSec;
  site.lonDeg = position.lonDeg;
  site.lonMin = position.lonMin;
  site.lonSec = position.lonSec;
}

SitePosition PositionAt(const GeoPoint& place) {
  const SplitDegrees lat = SplitDecimalDegrees(place.lat);
  const SplitDegrees lon = SplitDecimalDegrees(place.lon);
  return {lat.degrees, lat.minutes, lat.seconds, lon.degrees, lon.minutes, lon.seconds};
}

GeoPoint PlaceOf(const SitePosition& position) {
  return {DecimalDegrees(position.lonDeg, position.lonMin, position.lonSec),
          DecimalDegrees(position.latDeg, position.latMin, position.latSec)};
}

}  // namespace tremlo
