#include "core/graphs/CurvePalette.h"

#include <array>

namespace tremlo {
namespace {

constexpr std::int32_t FromRgb(std::int32_t rgb) {
  return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16);
}

// Indigo, orange, sky blue, wine, green, red, purple, dark green: from the colour-blind safe sets of Okabe
// and Ito (2008) and of Tol (2021), the light ones darkened for lines on white.
constexpr std::array<std::int32_t, kPaletteSize> kPalette = {
    FromRgb(0x332288), FromRgb(0xC88400), FromRgb(0x3A9BD9), FromRgb(0x882255),
    FromRgb(0x009E73), FromRgb(0xC00020), FromRgb(0xAA4499), FromRgb(0x117733)};

}  // namespace

std::int32_t PaletteColor(std::size_t number) {
  return kPalette[number % kPaletteSize];
}

}  // namespace tremlo
