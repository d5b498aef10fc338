#pragma once

#include <QColor>

#include <cstdint>

namespace tremlo {

/// Records keep a colour as 0x00BBGGRR; whatever a file holds in the upper byte is not looked at.
inline QColor ToColor(std::int32_t color) {
  return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

inline std::int32_t FromColor(const QColor& color) {
  return color.red() | (color.green() << 8) | (color.blue() << 16);
}

}  // namespace tremlo
