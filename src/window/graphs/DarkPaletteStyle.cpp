#include "window/graphs/DarkPaletteStyle.h"

#include "window/graphs/BgrColor.h"

#include <QPainter>
#include <QStyleOption>

namespace tremlo {

namespace {

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

}  // namespace

#ifdef Q_OS_WIN
// Windows' own style draws light controls on any palette.
DarkPaletteStyle::DarkPaletteStyle() : QProxyStyle(QStringLiteral("fusion")) {}
#else
DarkPaletteStyle::DarkPaletteStyle() = default;
#endif

void DarkPaletteStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element != PE_IndicatorCheckBox || !IsDark(option->palette)) return;
  const QPalette& palette = option->palette;
  painter->save();
  painter->setPen(Between(palette.color(QPalette::Window), palette.color(QPalette::WindowText)));
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
  painter->restore();
}

void DarkPaletteStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const {
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element != CE_PushButton || !button || !(button->state & State_On) || !IsDark(button->palette)) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionButton down = *button;
  down.palette.setBrush(QPalette::Button, button->palette.highlight());
  down.palette.setBrush(QPalette::ButtonText, button->palette.highlightedText());
  QProxyStyle::drawControl(element, &down, painter, widget);
}

}  // namespace tremlo
