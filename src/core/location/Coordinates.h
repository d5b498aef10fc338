#pragma once

#include "core/location/SiteRecord.h"

namespace tremlo {

/// A place in a plane rectangular zone, in metres from the zone's origin: X of Japanese surveying is the
/// northing, Y the easting.
struct PlanePoint {
  double northing = 0.0;
  double easting = 0.0;
};

/// Projects a place (degrees, north and east positive) into a zone: Gauss-Krueger on GRS80, scale 0.9999 on
/// the zone's meridian. WGS84 and JGD2000 count as one. A zone outside 1 to 19 means zone 1; who needs to
/// refuse an unknown zone does so before. A place that cannot be projected gives infinite coordinates. May be
/// called from any thread.
PlanePoint ToPlaneRectangular(int zone, double latDegrees, double lonDegrees);

/// Decimal degrees of degrees, minutes and seconds, none of which need lie in its usual range.
double DecimalDegrees(double degrees, double minutes, double seconds);

double SiteLatitude(const SiteRecord& site);   ///< decimal degrees
double SiteLongitude(const SiteRecord& site);  ///< decimal degrees

/// Degrees and minutes are whole, seconds have three decimals.
struct SplitDegrees {
  double degrees = 0.0;
  double minutes = 0.0;
  double seconds = 0.0;

  bool operator==(const SplitDegrees&) const = default;
};

/// Splits decimal degrees, the seconds cut (not rounded) to thousandths; all three carry the sign of a
/// negative value. A value within 3e-13 degrees below a full thousandth counts as that thousandth: 36.56144,
/// which has no exact double, is 36, 33, 41.184.
SplitDegrees SplitDecimalDegrees(double decimalDegrees);

}  // namespace tremlo
