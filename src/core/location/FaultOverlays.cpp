#include "core/location/FaultOverlays.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

bool IsPlace(const GeoPoint& corner) {
  return std::isfinite(corner.lon) && std::isfinite(corner.lat) && (corner.lon != 0.0 || corner.lat != 0.0);
}

}  // namespace

std::vector<MapOverlay> FaultOverlays(const std::vector<FaultInfo>& faults) {
  TileMap map;
  for (const FaultInfo& fault : faults) {
    const std::size_t planes =
        PlaneCount(fault, fault.corner1Lon, fault.corner1Lat, fault.corner2Lon, fault.corner2Lat,
                   fault.corner3Lon, fault.corner3Lat, fault.corner4Lon, fault.corner4Lat);
    for (std::size_t i = 0; i < planes; ++i) {
      const GeoPoint first{fault.corner1Lon[i], fault.corner1Lat[i]};
      const std::array<GeoPoint, 5> points{first,
                                           {fault.corner2Lon[i], fault.corner2Lat[i]},
                                           {fault.corner3Lon[i], fault.corner3Lat[i]},
                                           {fault.corner4Lon[i], fault.corner4Lat[i]},
                                           first};
      if (std::all_of(points.begin(), points.end(), IsPlace)) map.AddOverlay(points);
    }
  }
  return map.overlays;
}

}  // namespace tremlo
