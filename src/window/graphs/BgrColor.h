#pragma once

#include <QColor>

#include <cstdint>

namespace tremlo {

/// Records and grids keep a colour as 0x00BBGGRR.
inline QColor ColorFromBgr(std::int32_t bgr) {
  return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

inline std::int32_t BgrFromColor(const QColor& color) {
  return color.red() | color.green() << 8 | color.blue() << 16;
}

/// The colour halfway between two.
inline QColor Between(const QColor& a, const QColor& b) {
  return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

/// Black or white, whichever is easier to read on the colour.
inline QColor ReadableOn(const QColor& back) {
  const int luminance = (back.red() * 299 + back.green() * 587 + back.blue() * 114) / 1000;
  return luminance >= 128 ? Qt::black : Qt::white;
}

}  // namespace tremlo
