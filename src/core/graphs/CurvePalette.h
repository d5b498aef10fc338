#pragma once

#include <cstddef>
#include <cstdint>

namespace tremlo {

inline constexpr std::size_t kPaletteSize = 8;

/// The colour, 0x00BBGGRR, that the curve with this number is given until the user picks one; the palette
/// starts again after its last. Every colour has a contrast of at least 3 on white, and any two stay apart
/// for eyes without red or without green receptors too.
std::int32_t PaletteColor(std::size_t number);

}  // namespace tremlo
