#include "waves/NumberText.h"

#include <array>
#include <charconv>

namespace tremlo {

QString FixedText(double value, int decimals) {
  std::array<char, 400> text{};  // the largest double has 309 digits before the point
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  return error == std::errc() ? QString::fromLatin1(text.data(), end - text.data()) : QString();
}

}  // namespace tremlo
