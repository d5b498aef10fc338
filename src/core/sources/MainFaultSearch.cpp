#include "core/sources/MainFaultSearch.h"

#include "core/location/Coordinates.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

std::vector<MainFaultGroup> FindMainFaults(const std::vector<MainFaultRow>& rows, int zone, double eastSiteKm,
                                           double northSiteKm, double rangeKm) {
  constexpr double kMetresPerKm = 1000.0;
  std::vector<MainFaultGroup> groups;
  for (const MainFaultRow& row : rows) {
    const PlanePoint point = ToPlaneRectangular(zone, row.lat, row.lon);
    const double east = point.easting / kMetresPerKm - eastSiteKm;
    const double north = point.northing / kMetresPerKm - northSiteKm;
    const double distance = std::sqrt(east * east + north * north);
    if (!(distance <= rangeKm)) continue;
    if (groups.empty() || groups.back().code != row.code) groups.push_back({row.code, row.name, distance});
  }
  std::stable_sort(groups.begin(), groups.end(), [](const MainFaultGroup& a, const MainFaultGroup& b) {
    return a.distanceKm < b.distanceKm;
  });
  return groups;
}

}  // namespace tremlo
