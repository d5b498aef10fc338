#pragma once

#include <QProxyStyle>

namespace tremlo {

/// The style of the desktop, which on a dark palette also shows two things that would hardly be told from
/// their surroundings there: the edge of a check box, and which of several buttons is down.
class DarkPaletteStyle : public QProxyStyle {
  Q_OBJECT
 public:
  DarkPaletteStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;
};

}  // namespace tremlo
