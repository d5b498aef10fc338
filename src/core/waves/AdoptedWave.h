#pragma once

#include "core/waves/SeismicWaveSet.h"

#include <optional>

namespace tremlo {

/// Index of the adopted wave, the first of several; none while no wave is adopted.
std::optional<std::size_t> AdoptedWave(const CSeismicWaveSet& waves);

}  // namespace tremlo
