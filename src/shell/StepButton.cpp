#include "shell/StepButton.h"

#include <QPainter>

namespace tremlo {

namespace {

const ExpButtonColors kColors = {.pressedFace = QColor(0xA3, 0xBC, 0xFF),
                                 .flash = QColor(0xFF, 0xE2, 0xEF),
                                 .face = QColor(0xB7, 0xE2, 0xEF),
                                 .disabledFace = QColor(0xD0, 0xD0, 0xD0),
                                 .highlight = QColor(0xFF, 0xFF, 0xFF),
                                 .shadow = QColor(0x91, 0xA7, 0xB4),
                                 .line = QColor(0x80, 0x80, 0x80),
                                 .text = QColor(Qt::black)};
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
