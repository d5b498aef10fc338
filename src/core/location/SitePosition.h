#pragma once

#include "core/location/SiteRecord.h"
#include "numeric/location/TileArithmetic.h"

namespace tremlo {

/// The six numbers of the site's position.
struct SitePosition {
  double latDeg = 0.0, latMin = 0.0, latSec = 0.0;
  double lonDeg = 0.0, lonMin = 0.0, lonSec = 0.0;

  bool operator==(const SitePosition&) const = default;
};

SitePosition PositionOf(const SiteRecord& site);
void StorePosition(const SitePosition& position, SiteRecord& site);

/// The six numbers of a place on the map, the seconds cut to thousandths.
SitePosition PositionAt(const GeoPoint& place);

/// Decimal degrees.
GeoPoint PlaceOf(const SitePosition& position);

}  // namespace tremlo
