#include "window/graphs/ExpButton.h"

#include "window/graphs/BgrColor.h"

#include <QKeyEvent>
#include <QPainter>

namespace tremlo {

namespace {

constexpr int kStyleCount = 8;
constexpr int kTextMargin = 4;
constexpr int kFocusMargin = 3;

/// A frame one pixel wide inside the rectangle, one colour above and left, the other below and right.
void DrawEdge(QPainter& painter, const QRect& rect, const QColor& upper, const QColor& lower) {
  painter.fillRect(rect.left(), rect.top(), rect.width(), 1, upper);
  painter.fillRect(rect.left(), rect.top(), 1, rect.height(), upper);
  painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, lower);
  painter.fillRect(rect.right(), rect.top(), 1, rect.height(), lower);
}

double CornerRadius(int style, const QRect& box) {
  switch (style) {
    case CExpButton::kFlowStyle:
      return 4.0;
    case 4:
      return 8.0;
    case 5:
      return box.height() / 2.0;
    default:
      return 0.0;
  }
}

}  // namespace

CExpButton::CExpButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(false);
}

void CExpButton::SetStyle(int style) {
  if (style < 0 || style >= kStyleCount) return;
  m_style = style;
  FollowState();
}

void CExpButton::SetToggles(bool toggles) {
  m_toggles = toggles;
  FollowState();
}

void CExpButton::SetPressed(bool pressed) {
  m_pressed = pressed;
  FollowState();
}

/// Screen readers are told of the state of a button that toggles, and that the others have none.
void CExpButton::FollowState() {
  setCheckable(CanToggle());
  if (isCheckable()) setChecked(m_pressed);
  update();
}

void CExpButton::SetFlash(bool flash) {
  m_flash = flash;
  update();
}

void CExpButton::SetTextAlign(Qt::Alignment align) {
  m_align = align;
  update();
}

void CExpButton::SetColors(const ExpButtonColors& colors) {
  m_colors = colors;
  update();
}

void CExpButton::SetPictures(const QIcon& up, const QIcon& down) {
  m_up = up;
  m_down = down;
  update();
}

void CExpButton::nextCheckState() {
  if (CanToggle()) SetPressed(!m_pressed);
}

void CExpButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) {
    QPushButton::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    click();
  }
}

QColor CExpButton::ColorOr(const QColor& color, QPalette::ColorRole role) const {
  return color.isValid() ? color : palette().color(role);
}

QColor CExpButton::FaceColor() const {
  const QColor face = ColorOr(m_colors.face, QPalette::Button);
  if (!isEnabled()) return m_colors.disabledFace.isValid() ? m_colors.disabledFace : face;
  if (m_flash && m_style == kFlowStyle && m_colors.flash.isValid()) return m_colors.flash;
  return IsIn() && m_colors.pressedFace.isValid() ? m_colors.pressedFace : face;
}

QColor CExpButton::TextColor() const {
  const QColor face = m_style <= 1 ? palette().color(QPalette::Button) : FaceColor();
  const QColor text = m_colors.text.isValid() ? m_colors.text : ReadableOn(face);
  return isEnabled() ? text : Between(text, face);
}

void CExpButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (m_style == kPictureStyle)
    PaintPicture(painter);
  else if (m_style <= 1)
    PaintEdge(painter);
  else
    PaintBox(painter);
  PaintText(painter);
  if (hasFocus()) PaintFocus(painter);
  if (m_style == kFlowStyle && m_flash && isDown()) SetFlash(false);
}

void CExpButton::PaintEdge(QPainter& painter) const {
  const QColor light = ColorOr(m_colors.highlight, QPalette::Light);
  const QColor dark = ColorOr(m_colors.shadow, QPalette::Dark);
  const QRect edge = IsIn() ? rect() : rect().adjusted(0, 0, -1, -1);
  painter.fillRect(edge, palette().color(QPalette::Button));
  DrawEdge(painter, edge, IsIn() ? dark : light, IsIn() ? light : dark);
}

void CExpButton::PaintBox(QPainter& painter) const {
  const QColor light = ColorOr(m_colors.highlight, QPalette::Light);
  const QColor dark = ColorOr(m_colors.shadow, QPalette::Dark);
  const QRect box = rect().adjusted(0, 0, -1, -1).translated(isDown() ? 1 : 0, isDown() ? 1 : 0);
  const double radius = CornerRadius(m_style, box);
  const QRectF line = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, radius > 0.0);
  painter.setBrush(FaceColor());
  painter.setPen(m_style == 6 ? QPen(Qt::NoPen) : QPen(ColorOr(m_colors.line, QPalette::Dark)));
  painter.drawRoundedRect(line, radius, radius);
  if (radius == 0.0) {
    DrawEdge(painter, box.adjusted(1, 1, -1, -1), isDown() ? dark : light, isDown() ? light : dark);
  } else {
    painter.setBrush(Qt::NoBrush);
    const QRectF inner = line.adjusted(1, 1, -1, -1);
    painter.setPen(isDown() ? dark : light);
    painter.drawRoundedRect(inner, radius - 1, radius - 1);
  }
  painter.restore();
}

void CExpButton::PaintPicture(QPainter& painter) const {
  const QIcon& icon = IsIn() ? m_down : m_up;
  const QPixmap picture =
      icon.pixmap(size(), devicePixelRatioF(), isEnabled() ? QIcon::Normal : QIcon::Disabled);
  if (picture.isNull()) return;
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture);
  painter.restore();
}

void CExpButton::PaintText(QPainter& painter) const {
  if (text().isEmpty()) return;
  const bool sunk = m_style <= 1 || m_style == kPictureStyle ? IsIn() : isDown();
  const int shift = sunk ? 1 : 0;
  const QRect room =
      rect().adjusted(kTextMargin, kTextMargin, -kTextMargin, -kTextMargin).translated(shift, shift);
  painter.setPen(TextColor());
  painter.drawText(room, static_cast<int>(m_align) | Qt::TextWordWrap | Qt::TextShowMnemonic, text());
}

/// Dashes of black over white are seen on any face and any picture.
void CExpButton::PaintFocus(QPainter& painter) const {
  const QRectF frame = QRectF(rect()).adjusted(kFocusMargin + 0.5, kFocusMargin + 0.5, -kFocusMargin - 0.5,
                                               -kFocusMargin - 0.5);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(Qt::white);
  painter.drawRect(frame);
  painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
  painter.drawRect(frame);
}

}  // namespace tremlo
