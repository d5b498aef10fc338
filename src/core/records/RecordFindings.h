#pragma once

#include "core/records/Record.h"

namespace tremlo {

/// What makes the samples of a component doubtful, in sentences for the user: time step over 0.02 s, an
/// offset over ten times the PGA, a PGA that hints at another unit, clipping, spikes, a part repeated 2 s
/// later, a start or an end in the middle of the shaking, too few or too many samples. The limits were tried
/// on about 70 records of K-NET, KiK-net and GeoNet. Nothing is said while unit or step are asked.
std::vector<QString> FindDoubts(const RecordComponent& component);

}  // namespace tremlo
