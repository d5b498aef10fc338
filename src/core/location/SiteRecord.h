#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace tremlo {

/// The job texts, the position of the dam and the view of the map.
struct SiteRecord {
  QString title;
  QString subtitle;
  QString workDate;
  QString company;
  QString phone;
  QString fax;
  QString siteName;
  QString address;
  /// North latitude and east longitude, each as degrees, minutes, seconds exactly as typed or picked.
  double latDeg = 38.0, latMin = 15.0, latSec = 20.66;
  double lonDeg = 137.0, lonMin = 46.0, lonSec = 37.0;
  QString planeZone = QStringLiteral("I (1)");  ///< display label of the plane rectangular zone
  std::array<QString, 10> comments;
  std::int32_t mapZoom = 5;              ///< tile zoom level of the view
  double mapScale = 0.8128668946369415;  ///< magnification of a tile

  bool operator==(const SiteRecord&) const = default;
};

}  // namespace tremlo
