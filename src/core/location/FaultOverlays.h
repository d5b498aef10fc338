#pragma once

#include "core/location/FaultInfo.h"
#include "core/location/TileMap.h"

namespace tremlo {

/// The planes of the faults over a map, in their order: each a polygon of its four corners and the first
/// again. A plane of which the service has sent fewer corners, so that one lies at 0, 0, has none.
std::vector<MapOverlay> FaultOverlays(const std::vector<FaultInfo>& faults);

}  // namespace tremlo
