#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QStringList>

namespace tremlo {

/// The letters of a report's texts.
inline QFont ReportFont(double points, bool bold = false) {
  QFont font;
  font.setFamilies({QStringLiteral("IPAGothic"), QStringLiteral("MS Gothic")});
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

/// Units of the device to a logical pixel of a screen at 100 %, in which a report's distances are given.
inline double UnitsPerPixel(const QPaintDevice& device) {
  constexpr double kPixelsPerInch = 96.0;
  return device.logicalDpiY() / kPixelsPerInch;
}

}  // namespace tremlo
