#include "core/waves/AdoptedWave.h"

#include <algorithm>

namespace tremlo {

std::optional<std::size_t> AdoptedWave(const CSeismicWaveSet& waves) {
  const auto found = std::find_if(waves.Records().begin(), waves.Records().end(),
                                  [](const CSeismicWave& wave) { return wave.adopted; });
  if (found == waves.Records().end()) return std::nullopt;
  return static_cast<std::size_t>(found - waves.Records().begin());
}

}  // namespace tremlo
