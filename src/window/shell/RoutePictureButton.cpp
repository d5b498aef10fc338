#include "window/shell/RoutePictureButton.h"

#include "window/shell/Pictures.h"

#include <QPainter>

namespace tremlo {

namespace {

constexpr int kMargin = 8;
constexpr QRgb kCard = 0xFFFFFFFF;
constexpr QRgb kChosenCard = 0xFFA3BCFF;
constexpr QRgb kDisabledCard = 0xFFD0D0D0;
constexpr QRgb kEdge = 0xFF91A7B4;
constexpr QRgb kChosenEdge = 0xFF1F3F8F;

}  // namespace

RoutePictureButton::RoutePictureButton(const QString& picture, const QString& title, QWidget* parent)
    : QAbstractButton(parent) {
  LoadPictures();
  m_picture.load(picture);
  setText(title);
  setAccessibleName(title);
  setToolTip(title);
  setCheckable(true);
  setAutoExclusive(true);
  setFocusPolicy(Qt::StrongFocus);
}

QSize RoutePictureButton::sizeHint() const {
  const QFontMetrics metrics(font());
  const int width = qMax(m_picture.defaultSize().width(), metrics.horizontalAdvance(text()));
  return {width + 2 * kMargin, m_picture.defaultSize().height() + metrics.height() + 3 * kMargin};
}

void RoutePictureButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF card = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  painter.setPen(QPen(QColor(isChecked() ? kChosenEdge : kEdge), isChecked() ? 3.0 : 1.0));
  painter.setBrush(QColor(!isEnabled() ? kDisabledCard : isChecked() ? kChosenCard : kCard));
  painter.drawRoundedRect(card, 6.0, 6.0);

  const QSizeF size = m_picture.defaultSize();
  painter.setOpacity(isEnabled() ? 1.0 : 0.4);
  m_picture.render(&painter, QRectF(QPointF((width() - size.width()) / 2.0, kMargin), size));
  painter.setOpacity(1.0);

  const QRect title = rect().adjusted(kMargin, kMargin + static_cast<int>(size.height()), -kMargin, 0);
  painter.setPen(isEnabled() ? Qt::black : QColor(0xFF606060));
  painter.drawText(title, Qt::AlignCenter, text());
  if (!hasFocus()) return;
  painter.setPen(QPen(QColor(kChosenEdge), 1.0, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(card.adjusted(4.0, 4.0, -4.0, -4.0), 4.0, 4.0);
}

}  // namespace tremlo
