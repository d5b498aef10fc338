#include "core/location/PositionTexts.h"

#include "core/files/NumberText.h"
#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"

#include <cmath>

namespace tremlo {

namespace {

QString AngleText(double degrees) {
  const SplitDegrees parts = SplitDecimalDegrees(std::fabs(degrees));
  return QStringLiteral("%1°%2′%3″")
      .arg(FixedText(parts.degrees, 0), FixedText(parts.minutes, 0).rightJustified(2, u'0'),
           FixedText(parts.seconds, 3).rightJustified(6, u'0'));
}

double BetweenHalfTurns(double lon) {
  return lon < -180.0 || lon > 180.0 ? std::remainder(lon, 360.0) : lon;
}

QString MetresText(double metres) {
  if (!std::isfinite(metres)) return QStringLiteral("-");
  // Adding 0 takes the sign off what is rounded to zero.
  return FixedText(std::round(metres * 1000.0) / 1000.0 + 0.0, 3) + QStringLiteral(" m");
}

}  // namespace

QString PlaceText(const GeoPoint& place) {
  if (!std::isfinite(place.lat) || !std::isfinite(place.lon)) return {};
  const double lon = BetweenHalfTurns(place.lon);
  return (place.lat < 0.0 ? QStringLiteral("南緯 ") : QStringLiteral("北緯 ")) + AngleText(place.lat) +
         (lon < 0.0 ? QStringLiteral("　西経 ") : QStringLiteral("　東経 ")) + AngleText(lon);
}

QString PlaneText(const SiteRecord& site) {
  const int zone = ZoneFromLabel(site.planeZone);
  if (zone < 0) return QStringLiteral("平面直角座標: 座標系番号を選択してください。");
  const PlanePoint point = ToPlaneRectangular(zone, SiteLatitude(site), SiteLongitude(site));
  return QStringLiteral("平面直角座標 %1系　X = %2　Y = %3")
      .arg(site.planeZone, MetresText(point.northing), MetresText(point.easting));
}

bool IsFarFromZone(const SiteRecord& site) {
  const int zone = ZoneFromLabel(site.planeZone);
  if (zone < 0) return false;
  const double apart =
      std::remainder(SiteLongitude(site) - PlaneZones()[static_cast<std::size_t>(zone - 1)].lonOrigin, 360.0);
  return std::fabs(apart) > kFarFromMeridian;
}

QString ZoneHintText(const QString& zone) {
  if (ZoneFromLabel(zone) < 0) return {};
  return QStringLiteral("現場の経度が%1系の原点から%2度を超えて離れています。座標系番号を確認してください。")
      .arg(zone, FixedText(kFarFromMeridian, 0));
}

}  // namespace tremlo
