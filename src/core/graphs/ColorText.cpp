#include "core/graphs/ColorText.h"

namespace tremlo {

namespace {

struct Parts {
  std::uint32_t red, green, blue;
};

Parts PartsOf(std::int32_t bgr) {
  const auto bits = static_cast<std::uint32_t>(bgr);
  return {bits & 0xFFU, (bits >> 8U) & 0xFFU, (bits >> 16U) & 0xFFU};
}

}  // namespace

QString ColorToText(std::int32_t bgr) {
  const auto [red, green, blue] = PartsOf(bgr);
  return QStringLiteral("#%1").arg(red << 16U | green << 8U | blue, 6, 16, QLatin1Char('0')).toUpper();
}

std::optional<std::int32_t> TextToColor(const QString& text) {
  if (text.size() != 7 || text[0] != u'#') return {};
  bool isHexadecimal = false;
  const std::uint32_t rgb = text.mid(1).toUInt(&isHexadecimal, 16);
  if (!isHexadecimal) return {};
  return static_cast<std::int32_t>((rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | rgb >> 16U);
}

QString SpokenColor(std::int32_t bgr) {
  const auto [red, green, blue] = PartsOf(bgr);
  return QStringLiteral("色 赤%1 緑%2 青%3").arg(red).arg(green).arg(blue);
}

}  // namespace tremlo
