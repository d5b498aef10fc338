#include "shell/StepButton.h"

#include <QPainter>

namespace tremlo {

namespace {

constexpr QRgb kPressedFace = 0xFFA3BCFF;
constexpr QRgb kFace = 0xFFB7E2EF;
constexpr QRgb kDisabledFace = 0xFFD0D0D0;
constexpr QRgb kHighlight = 0xFFFFFFFF;
constexpr QRgb kShadow = 0xFF91A7B4;
constexpr QRgb kDisabledText = 0xFF707070;
constexpr QRgb kMark = 0xFF1F3F8F;
constexpr qreal kCorner = 5.0;
constexpr int kMargin = 8;

}  // namespace

StepButton::StepButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
  setAccessibleName(title);
  setAutoDefault(true);  // Enter presses it as Space does
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StepButton::SetCurrent(bool current) {
  m_current = current;
  setAccessibleDescription(current ? QStringLiteral("現在の手順") : QString());
}

QSize StepButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + 3 * kMargin, metrics.height() + 3 * kMargin};
}

void StepButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool down = isDown() || m_current;
  const QRgb face = !isEnabled() ? kDisabledFace : down ? kPressedFace : kFace;
  const QRectF box = QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0);
  painter.setPen(QPen(QColor(kShadow), 1.5));
  painter.setBrush(QColor(face));
  painter.drawRoundedRect(box, kCorner, kCorner);
  painter.setPen(QPen(QColor(down ? kShadow : kHighlight), 1.0));
  painter.drawLine(QPointF(box.left() + kCorner, box.top() + 1.5),
                   QPointF(box.right() - kCorner, box.top() + 1.5));
  if (m_current)
    painter.fillRect(QRectF(box.left() + 2.5, box.top() + kCorner, 3.5, box.height() - 2 * kCorner),
                     QColor(kMark));
  if (hasFocus()) {
    painter.setPen(QPen(QColor(kMark), 1.0, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(2.5, 2.5, -2.5, -2.5), kCorner - 2.0, kCorner - 2.0);
  }
  painter.setPen(isEnabled() ? QColor(Qt::black) : QColor(kDisabledText));
  painter.drawText(rect().adjusted(kMargin, 0, -kMargin / 2, 0), Qt::AlignCenter, text());
}

}  // namespace tremlo
