#pragma once

#include "core/ask/Prompt.h"
#include "core/location/ApiParameterSet.h"
#include "core/location/FaultInfo.h"
#include "core/location/HazardAnswer.h"
#include "core/location/ServiceSettings.h"
#include "core/sources/SystemTables.h"

#include <cstdint>
#include <functional>
#include <stop_token>
#include <vector>

namespace tremlo {

inline constexpr std::int32_t kAcquireRanking =
    0;                                            ///< the sources that matter most, as the service ranks them
inline constexpr std::int32_t kAcquireRange = 1;  ///< the faults of the table within the search range

struct FaultAcquisitionInput {
  std::int32_t mode = kAcquireRanking;
  double searchRangeKm = 50.0;  ///< of the search range
  double latitude = 0.0;        ///< of the site, decimal degrees
  double longitude = 0.0;
  int zone = -1;  ///< plane rectangular zone of the site; outside 1 to 19: unknown
  ApiParameterSet parameters;
  std::vector<MainFaultRow> mainFaultRows;  ///< of the search range
};

struct SourceName {
  QString code;
  QString name;

  bool operator==(const SourceName&) const = default;
};

struct FaultAcquisitionResult {
  bool changed = false;  ///< the list was emptied and filled anew; false for an unknown zone alone
  /// The first that went wrong. A source that the activity model does not know is no failure; NothingFound
  /// stands for a site without any source.
  ServiceOutcome outcome = ServiceOutcome::Done;
  QString url;      ///< the request that it happened to, if any
  QString message;  ///< what was shown about it; empty for a failure of the network

  /// The sources of the ranking or of the range that have no planes in the list, each in one of these, in the
  /// order of asking. Since a failure of the network is not shown, the first list is how a user learns of it.
  std::vector<SourceName> unread;  ///< could not be read, or were not asked for any more
  std::vector<SourceName>
      withoutPlanes;                ///< the service answered that it has no data or no rectangle of them
  std::vector<SourceName> leftOut;  ///< by rule: of the Sagami trough, or of another geometry
};

/// Fault k of n, k from 1, is about to be asked for by its name.
using AcquisitionProgress = std::function<void(int fault, int count, const QString& name)>;

/// Fetches the faults for a site and completes their records: magnitude, probabilities in per cent, depth and
/// distances, and the state of each plane that the screens start with (colours 0). Blocks as long as the
/// service takes; made for a worker thread, which calls `prompt` and `progress`.
///
/// In a ranking a source without planes leaves the list, and those behind it move up. In the search range a
/// source without planes stays, unless the service gives it another geometry. A type fault in an answer ends
/// the asking; the records that are there are completed. A stop breaks the request at hand off and asks no
/// more: what is returned then is of no use.
FaultAcquisitionResult AcquireFaults(const FaultAcquisitionInput& input, const ServiceSettings& settings,
                                     Prompt& prompt, std::vector<FaultInfo>& faults,
                                     const AcquisitionProgress& progress = {},
                                     const std::stop_token& stop = {});

}  // namespace tremlo
