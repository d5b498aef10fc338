#include "core/files/FixedNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tremlo {

namespace {

/// Room for the largest double written out in full, its sign and point.
constexpr int kIntegerRoom = 320;
constexpr int kMostDecimals = 100;

}  // namespace

std::string FixedNumber(double value, int decimals) {
  if (std::isnan(value)) return "nan";  // a sign would be that of the processor
  const int places = std::clamp(decimals, 0, kMostDecimals);
  std::array<char, kIntegerRoom + kMostDecimals> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, places);
  return {text.data(), end};
}

}  // namespace tremlo
