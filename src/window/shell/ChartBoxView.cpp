#include "window/shell/ChartBoxView.h"

#include "core/shell/ChartLayout.h"
#include "window/graphs/ChartPaint.h"
#include "window/shell/ForeignDoubleClick.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace tremlo {

namespace {

QByteArray ObjectNameOf(ChartBox box) {
  return "box" + QByteArray::number(static_cast<int>(box) + 1);
}

void Identify(QWidget* view, ChartBox box) {
  view->setObjectName(QString::fromLatin1(ObjectNameOf(box)));
  view->setAccessibleName(SpokenName(box));
  view->setGeometry(PlaceOfBox(box));
}

}  // namespace

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
  painter.translate(-PlaceOfBox(m_box).topLeft());
  PaintChartBox(painter, m_box, m_look);
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
  painter.translate(-PlaceOfBox(m_box).topLeft());
  PaintChartBox(painter, m_box, m_look);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0xFF000000), 1.0, Qt::DashLine));
  const QPointF middle = PlaceOfBox(m_box).center();
  QTransform inwards;
  inwards.translate(middle.x(), middle.y()).scale(0.95, 0.86).translate(-middle.x(), -middle.y());
  painter.drawPolygon(inwards.map(OutlinePolygon(m_box)));
}

void ChartBoxButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter)
    QAbstractButton::keyPressEvent(event);
  else if (!event->isAutoRepeat())
    click();
}

bool ChartBoxButton::hitButton(const QPoint& point) const {
  const QPoint onChart = point + PlaceOfBox(m_box).topLeft();
  return BoxAt(onChart) == m_box;
}

}  // namespace tremlo
