#include "window/shell/ChartBoxView.h"

#include "window/graphs/JapaneseFont.h"
#include "window/shell/ForeignDoubleClick.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>

namespace tremlo {

namespace {

constexpr int kRoom = 3;  ///< around the outline, for its line
constexpr int kTextHeight = 13;

struct LookStyle {
  QRgb face, line, text;
  double lineWidth;
  Qt::PenStyle lineStyle;
  bool bold;
};

LookStyle StyleOf(BoxLook look) {
  switch (look) {
    case BoxLook::Lit:
      return {0xFFFFF0A8, 0xFFB03A00, 0xFF000000, 4.0, Qt::SolidLine, true};
    case BoxLook::Normal:
      return {0xFFDCEBFA, 0xFF1F3F8F, 0xFF000000, 2.0, Qt::SolidLine, false};
    default:
      return {0xFFEDEDED, 0xFF767676, 0xFF595959, 1.5, Qt::DashLine, false};
  }
}

bool IsGoal(ChartBox box) {
  return NumberOf(box).isEmpty();
}

QRect PlaceOf(ChartBox box) {
  const CDPoly outline = OutlineOf(box);
  const QRectF place(QPointF(outline.MinCorner().x, outline.MinCorner().y),
                     QPointF(outline.MaxCorner().x, outline.MaxCorner().y));
  return place.toAlignedRect().adjusted(-kRoom, -kRoom, kRoom, kRoom);
}

QPolygonF PolygonOf(ChartBox box) {
  const CDPoly outline = OutlineOf(box);
  QPolygonF polygon;
  for (const CDPoint& corner : outline.Points()) polygon << QPointF(corner.x, corner.y);
  return polygon;
}

/// A triangle before the question that is asked, a tick at a path that is taken.
void PaintMark(QPainter& painter, BoxLook look, const QRectF& place) {
  painter.save();
  QPainterPath mark;
  if (look == BoxLook::Lit) {
    mark.moveTo(place.topLeft());
    mark.lineTo(place.right(), place.center().y());
    mark.lineTo(place.bottomLeft());
    mark.closeSubpath();
    painter.fillPath(mark, QColor(StyleOf(look).line));
  } else if (look == BoxLook::Normal) {
    mark.moveTo(place.left(), place.center().y());
    mark.lineTo(place.left() + place.width() / 3, place.bottom() - 1);
    mark.lineTo(place.right(), place.top() + 1);
    painter.setPen(QPen(QColor(StyleOf(look).line), 2.5));
    painter.drawPath(mark);
  }
  painter.restore();
}

/// Number and mark in one line, as far as there are any, and the text below them.
void PaintTexts(QPainter& painter, ChartBox box, BoxLook look, const QRect& room) {
  QFont font = ChartFont();
  font.setBold(StyleOf(look).bold || IsGoal(box));
  painter.setFont(font);
  painter.setPen(QColor(StyleOf(look).text));
  const QString text = TextOf(box);
  if (IsGoal(box)) {
    painter.drawText(room, Qt::AlignCenter, text);
    return;
  }
  const int line = painter.fontMetrics().lineSpacing();
  const int lines = static_cast<int>(text.count(u'\n')) + 2;
  QRect row(room.left(), room.center().y() - lines * line / 2, room.width(), line);
  const QString number = NumberOf(box);
  painter.drawText(row, Qt::AlignCenter, number);
  const double numberLeft = row.center().x() - painter.fontMetrics().horizontalAdvance(number) / 2.0;
  PaintMark(painter, look, {numberLeft - kTextHeight - 6.0, row.top() + 1.0, kTextHeight - 1.0, line - 3.0});
  painter.setPen(QColor(StyleOf(look).text));
  painter.drawText(row.adjusted(0, line, 0, (lines - 1) * line), Qt::AlignHCenter | Qt::AlignTop, text);
}

/// In a painter whose origin is the box's own corner.
void PaintBox(QPainter& painter, ChartBox box, BoxLook look) {
  const LookStyle style = StyleOf(look);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-PlaceOf(box).topLeft());
  QPen pen(QColor(style.line), style.lineWidth, style.lineStyle);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.setBrush(QColor(style.face));
  const QPolygonF outline = PolygonOf(box);
  if (IsGoal(box))
    painter.drawRoundedRect(outline.boundingRect(), 8.0, 8.0);
  else
    painter.drawPolygon(outline);
  PaintTexts(painter, box, look, outline.boundingRect().toRect());
}

QByteArray ObjectNameOf(ChartBox box) {
  return "box" + QByteArray::number(static_cast<int>(box) + 1);
}

void Identify(QWidget* view, ChartBox box) {
  view->setObjectName(QString::fromLatin1(ObjectNameOf(box)));
  view->setAccessibleName(SpokenName(box));
  view->setGeometry(PlaceOf(box));
}

}  // namespace

QFont ChartFont() {
  QFont font = ScreenFont();
  font.setPixelSize(kTextHeight);
  return font;
}

ChartBoxLabel::ChartBoxLabel(ChartBox box, QWidget* chart) : QLabel(chart), m_box(box) {
  Identify(this, box);
  SetLook(m_look);
}

void ChartBoxLabel::SetLook(BoxLook look) {
  m_look = look;
  setAccessibleDescription(SpokenState(m_box, look));
  update();
}

void ChartBoxLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PaintBox(painter, m_box, m_look);
}

ChartBoxButton::ChartBoxButton(ChartBox box, QWidget* chart) : QAbstractButton(chart), m_box(box) {
  Identify(this, box);
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setToolTip(QStringLiteral("クリックすると「YES」と「NO」が切り替わります。"));
  SetLook(m_look);
  new ForeignDoubleClick(this);
  connect(this, &QAbstractButton::clicked, this, &ChartBoxButton::Chosen);
  // A screen reader's action toggles without a click.
  connect(this, &QAbstractButton::toggled, this, [this] {
    SetLook(m_look);
    Q_EMIT Chosen();
  });
}

void ChartBoxButton::SetLook(BoxLook look) {
  m_look = look;
  {
    const QSignalBlocker own(this);
    setChecked(look != BoxLook::Dimmed);
  }
  setAccessibleDescription(SpokenState(m_box, look));
  update();
}

void ChartBoxButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PaintBox(painter, m_box, m_look);
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0xFF000000), 1.0, Qt::DashLine));
  const QPointF middle = PlaceOf(m_box).center();
  QTransform inwards;
  inwards.translate(middle.x(), middle.y()).scale(0.95, 0.86).translate(-middle.x(), -middle.y());
  painter.drawPolygon(inwards.map(PolygonOf(m_box)));
}

void ChartBoxButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter)
    QAbstractButton::keyPressEvent(event);
  else if (!event->isAutoRepeat())
    click();
}

bool ChartBoxButton::hitButton(const QPoint& point) const {
  const QPoint onChart = point + PlaceOf(m_box).topLeft();
  return BoxAt(onChart) == m_box;
}

}  // namespace tremlo
