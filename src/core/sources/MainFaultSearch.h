#pragma once

#include "core/sources/SystemTables.h"

#include <vector>

namespace tremlo {

/// Consecutive rows of one code within the search range: what is asked for as one fault.
struct MainFaultGroup {
  QString code;
  QString name;
  double distanceKm = 0.0;  ///< horizontal, from the site to the first row of the group

  bool operator==(const MainFaultGroup&) const = default;
};

/// The faults of the table whose points lie within `rangeKm` of a site (km in the plane rectangular zone
/// `zone`), nearest first, equal distances in the order of the table. Two rows of one code make one group
/// when no row of another code within the range stands between them.
std::vector<MainFaultGroup> FindMainFaults(const std::vector<MainFaultRow>& rows, int zone, double eastSiteKm,
                                           double northSiteKm, double rangeKm);

}  // namespace tremlo
