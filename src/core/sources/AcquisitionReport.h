#pragma once

#include "core/sources/FaultAcquisition.h"

#include <optional>

namespace tremlo {

/// What an acquisition really asked and could not get.
struct AcquisitionReport {
  std::optional<std::int32_t> searchVersion;    ///< map version, if the mesh search was asked
  std::optional<std::int32_t> activityVersion;  ///< map version, if the activity model was asked
  bool searchUnread = false;                    ///< the ranking itself could not be read
  /// Names of the sources whose planes are lacking: those that could not be read, then those of which the
  /// service has none.
  std::vector<QString> unread;

  bool operator==(const AcquisitionReport&) const = default;
};

AcquisitionReport ReportOf(const FaultAcquisitionInput& input, const FaultAcquisitionResult& result);

/// The report as one line: the service, the versions, and of the sources without planes the first
/// `mostNames`. Empty when nothing was asked.
QString AcquisitionLine(const AcquisitionReport& report, std::size_t mostNames);

}  // namespace tremlo
