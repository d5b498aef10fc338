#pragma once

#include "core/location/SiteRecord.h"
#include "numeric/location/TileArithmetic.h"

#include <QString>

namespace tremlo {

/// A place in degrees, minutes and seconds, the seconds cut to thousandths: "北緯 36°33′41.184″
/// 東経 136°36′50.724″". South and west are named; a longitude beyond 180° is counted from the other side.
QString PlaceText(const GeoPoint& place);

/// The site in the plane rectangular zone that the record names, in metres to 0.001: northing X and easting
/// Y. For an unknown zone it says that one is to be chosen; "-" stands for a coordinate that there is none
/// of.
QString PlaneText(const SiteRecord& site);

/// Farthest that the meridian of a zone's origin may lie from the site without a hint, degrees.
inline constexpr double kFarFromMeridian = 6.0;

/// Whether the zone named in the record lies so far from the site that it was hardly meant.
bool IsFarFromZone(const SiteRecord& site);

/// The hint that is given then; it refuses nothing. Empty for an unknown zone.
QString ZoneHintText(const QString& zone);

}  // namespace tremlo
