#include "waves/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tremlo {

namespace {

/// Room for the largest double written out in full, its sign and point.
constexpr int kIntegerRoom = 320;
constexpr int kMostPlaces = 100;

}  // namespace

QString FixedText(double value, int decimals) {
  const int places = std::clamp(decimals, 0, kMostPlaces);
  std::array<char, kIntegerRoom + kMostPlaces> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, places);
  return QString::fromLatin1(text.data(), end - text.data());
}

}  // namespace tremlo
