#include "window/shell/StepButton.h"

#include "window/graphs/BgrColor.h"

#include <QPainter>

namespace tremlo {

namespace {

const ExpButtonColors kColors = {.pressedFace = ColorFromBgr(0xFFBCA3),
                                 .flash = ColorFromBgr(0xEFE2FF),
                                 .face = ColorFromBgr(0xEFE2B7),
                                 .disabledFace = ColorFromBgr(0xD0D0D0),
                                 .highlight = ColorFromBgr(0xFFFFFF),
                                 .shadow = ColorFromBgr(0xB4A791),
                                 .line = ColorFromBgr(0x808080),
                                 .text = ColorFromBgr(0x000000)};
constexpr QRgb kBar = 0xFF1F3F8F;
constexpr int kMargin = 12;

}  // namespace

StepButton::StepButton(const QString& title, QWidget* parent) : CExpButton(parent) {
  setText(title);
  setAccessibleName(title);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  SetStyle(kFlowStyle);
  SetColors(kColors);
}

void StepButton::SetCurrent(bool current) {
  m_current = current;
  setAccessibleDescription(current ? QStringLiteral("現在の手順") : QString());
}

QSize StepButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + 2 * kMargin, metrics.height() + 2 * kMargin};
}

void StepButton::paintEvent(QPaintEvent* event) {
  // Not before: setting it asks for a paint.
  if (IsPressed() != m_current) SetPressed(m_current);
  CExpButton::paintEvent(event);
  if (m_current) QPainter(this).fillRect(QRect(3, 5, 4, height() - 11), QColor(kBar));
}

}  // namespace tremlo
