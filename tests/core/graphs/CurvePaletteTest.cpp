#include "core/graphs/CurvePalette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

using Triple = std::array<double, 3>;

Triple LinearRgb(std::int32_t color) {
  // Red stands in the lowest byte.
  const auto linear = [color](int shift) {
    const double v = ((color >> shift) & 0xFF) / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return {linear(0), linear(8), linear(16)};
}

double Luminance(const Triple& rgb) {
  return 0.2126 * rgb[0] + 0.7152 * rgb[1] + 0.0722 * rgb[2];
}

// Viénot, Brettel, Mollon: Digital video colourmaps for checking the legibility of displays by dichromats,
// Color Research and Application 24 (1999): what is seen without red, without green receptors.
Triple WithoutRed(const Triple& c) {
  const double yellow = 0.11238 * c[0] + 0.88762 * c[1];
  return {yellow, yellow, std::max(0.0, 0.00401 * c[0] - 0.00401 * c[1] + c[2])};
}
Triple WithoutGreen(const Triple& c) {
  const double yellow = 0.29275 * c[0] + 0.70725 * c[1];
  return {yellow, yellow, std::max(0.0, -0.02234 * c[0] + 0.02234 * c[1] + c[2])};
}

// CIE 1976 L*a*b* of a colour, for D65.
Triple Lab(const Triple& c) {
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
  const double x = f((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
  const double y = f(Luminance(c));
  const double z = f((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
  return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

double Difference(const Triple& a, const Triple& b) {
  const Triple p = Lab(a), q = Lab(b);
  return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
}

TEST(CurvePalette, EveryColourIsReadableOnWhite) {
  for (std::size_t i = 0; i < kPaletteSize; ++i)
    EXPECT_GE(1.05 / (Luminance(LinearRgb(PaletteColor(i))) + 0.05), 3.0) << i;
}

TEST(CurvePalette, AnyTwoColoursStayApartForTheColourBlind) {
  constexpr double kApart = 20.0;  // ten times a difference that is seen side by side
  for (std::size_t i = 0; i < kPaletteSize; ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const Triple a = LinearRgb(PaletteColor(i)), b = LinearRgb(PaletteColor(j));
      EXPECT_GE(Difference(a, b), kApart) << i << ' ' << j;
      EXPECT_GE(Difference(WithoutRed(a), WithoutRed(b)), kApart) << i << ' ' << j;
      EXPECT_GE(Difference(WithoutGreen(a), WithoutGreen(b)), kApart) << i << ' ' << j;
    }
  }
}

TEST(CurvePalette, StartsAgainAfterItsLastColour) {
  EXPECT_EQ(PaletteColor(kPaletteSize), PaletteColor(0));
  EXPECT_EQ(PaletteColor(3 * kPaletteSize + 2), PaletteColor(2));
}

}  // namespace
}  // namespace tremlo
