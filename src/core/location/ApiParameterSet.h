#pragma once

#include <cstdint>

namespace tremlo {

/// What the user chooses for the requests to the hazard service. The indices point into the service's tables.
struct ApiParameterSet {
  std::int32_t intensityIndex = 2;         ///< exceedance intensity threshold
  double catastropheWeight = 0.6;          ///< evaluation parameter, -1 to 1
  std::int32_t modeIndex = 0;              ///< kind of scenario search
  std::int32_t versionIndex = 13;          ///< map version of the mesh search
  std::int32_t activityVersionIndex = 15;  ///< map version of the activity model
  std::int32_t caseIndex = 0;              ///< average or maximum case
  std::int32_t periodIndex = 0;            ///< 30 or 50 years

  bool operator==(const ApiParameterSet&) const = default;
};

}  // namespace tremlo
