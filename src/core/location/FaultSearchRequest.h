#pragma once

#include "core/location/ApiParameterSet.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace tremlo {

/// The parameters of one acquisition with the position, and what the checks below make of them.
struct FaultSearchRequest : ApiParameterSet {
  FaultSearchRequest() = default;
  FaultSearchRequest(const ApiParameterSet& parameters, double latitudeDegrees, double longitudeDegrees)
      : ApiParameterSet(parameters), latitude(latitudeDegrees), longitude(longitudeDegrees) {}

  double latitude = 0.0;   ///< decimal degrees, north
  double longitude = 0.0;  ///< decimal degrees, east
  std::int32_t ijma = 0;   ///< intensity threshold, ten times its lower bound
  QString modeText, versionText, caseText, periodText, activityVersionText;  ///< keys of the query
};

/// Checks before a mesh search: the position, then the parameters in their fixed order, whose keys are filled
/// up to the first that is bad. Returns the message for that one.
std::optional<QString> CheckSearchParameters(FaultSearchRequest& request);

/// Its two halves: the position must lie in Japan, limits included.
std::optional<QString> CheckPosition(const FaultSearchRequest& request);
std::optional<QString> CheckSearchIndices(FaultSearchRequest& request);

/// The same for the two parameters of the activity model.
std::optional<QString> CheckActivityParameters(FaultSearchRequest& request);

/// Path and query of a checked request, in the service's geographic system EPSG 4612.
QString SearchPath(const FaultSearchRequest& request);
QString ActivityPath(const FaultSearchRequest& request, const QString& ltecode);

/// `address` is scheme and host, with or without a slash at the end.
QString ServiceUrl(const QString& address, const QString& path);

}  // namespace tremlo
