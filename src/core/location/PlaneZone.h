#pragma once

#include <QStringView>

#include <array>

namespace tremlo {

/// One of the 19 zones of the Japanese plane rectangular coordinate system (JGD2000).
struct PlaneZone {
  int number;         ///< 1 to 19
  QStringView label;  ///< "I (1)" to "XIX (19)": what the project keeps
  int epsg;
  double lonOrigin;      ///< degrees
  double latOrigin;      ///< degrees
  QStringView shownLon;  ///< the origin as the selection dialog shows it
  QStringView shownLat;
  QStringView areaText;  ///< area of application
};

inline constexpr std::size_t kPlaneZoneCount = 19;

/// The zones in order: zone n is element n - 1.
const std::array<PlaneZone, kPlaneZoneCount>& PlaneZones();

/// The number of the zone with exactly this label, 1 to 19; -1 for any other text.
int ZoneFromLabel(QStringView label);

/// Headers of the selection dialog's grid: number, origin, its longitude, its latitude.
inline constexpr std::array<QStringView, 4> kZoneGridHeaders = {u"系番号", u"座標系原点の経緯度",
                                                                u"経度(東経)", u"緯度(北緯)"};

/// Shown when a calculation needs the zone and the label is none of the 19.
inline constexpr char16_t kUnknownZoneText[] =
    u"平面直角座標系番号の指定が間違っています。「現場設定」で指定して下さい。";

}  // namespace tremlo
