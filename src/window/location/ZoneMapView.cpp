#include "window/location/ZoneMapView.h"

#include "core/location/ZoneMap.h"

#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace tremlo {

namespace {

constexpr int kSide = 500;
constexpr QColor kSea(0xEA, 0xF4, 0xFB);
constexpr QColor kMark(255, 0, 128, 110);

/// The bridges by which an area reaches its islands run there and back and leave no line.
QPainterPath PathOf(const CDPoly& area) {
  QPolygonF polygon;
  for (const CDPoint& point : area.Points()) polygon << QPointF(point.x, point.y);
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

}  // namespace

ZoneMapView::ZoneMapView(const QString& picture, std::vector<CDPoly> areas, QWidget* parent)
    : QWidget(parent), m_areas(std::move(areas)) {
  if (QFileInfo(picture).isFile()) m_picture.load(picture);
  setFixedSize(kSide, kSide);
  if (!m_areas.empty()) setCursor(Qt::PointingHandCursor);
}

void ZoneMapView::MarkZone(int index) {
  m_marked = index;
  update();
}

void ZoneMapView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), kSea);
  if (m_picture.isValid()) m_picture.render(&painter, QRectF(rect()));
  if (m_marked < 0 || static_cast<std::size_t>(m_marked) >= m_areas.size()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(PathOf(m_areas[static_cast<std::size_t>(m_marked)]), kMark);
}

void ZoneMapView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint pixel = event->position().toPoint();
  const int index = PickZone(m_areas, pixel.x(), pixel.y());
  if (index >= 0) Q_EMIT Picked(index);
}

}  // namespace tremlo
