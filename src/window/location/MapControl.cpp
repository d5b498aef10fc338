#include "window/location/MapControl.h"

#include "core/location/PictureBound.h"
#include "window/location/TileImage.h"

#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cstdlib>
#include <optional>

namespace tremlo {

namespace {

/// Longest time that tiles at hand are painted before the event loop has its turn. Longer than a whole frame
/// of them takes, so that a drag, which begins anew with every move, shows something.
constexpr int kSliceMs = 25;
constexpr int kWheelNotch = 120;
constexpr int kArrowPart = 10;  ///< an arrow key shifts the view by this part of it
constexpr QSize kSmallest{240, 200};

PixelPoint PixelOf(const QMouseEvent& event) {
  const QPoint point = event.position().toPoint();
  return {point.x(), point.y()};
}

}  // namespace

MapControl::MapControl(CMorvaneDoc& doc, OnlineFlag online, TileCache tiles, QWidget* parent)
    : QWidget(parent),
      m_doc(doc),
      m_online(std::move(online)),
      m_tiles(std::move(tiles), LoadTileImage),
      m_worker([cache = m_tiles.Cache()](const TileNumber& tile,
                                         const std::stop_token& stop) { return cache.Download(tile, stop); },
               [this](const TileNumber& tile, TileOutcome outcome) { TakeAnswer(tile, outcome); }) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(kSmallest);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  m_steps.setInterval(0);
  m_steps.setSingleShot(true);
  connect(&m_steps, &QTimer::timeout, this, &MapControl::Step);
  TakeDocument();
}

MapControl::~MapControl() = default;

void MapControl::TakeDocument() {
  m_map.online = m_online();
  m_map.view.zoom = m_doc.site.mapZoom;
  m_map.view.scale = m_doc.site.mapScale;
  m_map.view.clientRect = {0, 0, width(), height()};
}

void MapControl::CenterOn(const GeoPoint& place) {
  m_map.view.centerLon = place.lon;
  m_map.view.centerLat = place.lat;
  Repaint();
}

void MapControl::Repaint() {
  const PixelRect before = m_map.view.clientRect;
  TakeDocument();
  m_waiting = false;
  m_job.Abandon();
  // The next painting often asks for the tile that this one waits for: in a drag each move begins a new one.
  if (!m_map.online || m_map.view.clientRect != before) m_worker.BreakOff();
  m_due = !isVisible();
  if (m_due) return;
  m_surface.Begin(size(), devicePixelRatioF());
  m_job.Start(m_map.view, m_map.online);
  m_steps.start();
}

void MapControl::Abandon() {
  m_due = true;
  m_steps.stop();
  m_job.Abandon();
  m_waiting = false;
  m_worker.End();
  if (m_movesView && m_map.IsDragging()) m_map.EndDrag(m_pointer);
}

void MapControl::Step() {
  QElapsedTimer slice;
  slice.start();
  while (m_job.IsRunning()) {
    const MapPaintStep step = m_job.Next();
    if (step.kind == MapPaintStep::Kind::OfflinePicture) {
      PaintOffline();
    } else if (step.kind == MapPaintStep::Kind::Completion) {
      Complete();
    } else if (!PaintTile(step.placement)) {
      Await(step.placement);
      return;
    } else if (slice.elapsed() >= kSliceMs) {
      m_steps.start();
      return;
    }
  }
}

/// False when the tile has to be asked for.
bool MapControl::PaintTile(const TilePlacement& placement) {
  const std::optional<const QImage*> known = m_tiles.Find(placement.tile);
  if (known && *known) m_surface.DrawTile(**known, placement.target);
  return known.has_value();
}

void MapControl::Await(const TilePlacement& placement) {
  const bool asked = m_worker.IsAsking() && m_asked == placement.tile;
  m_awaited = placement;
  m_waiting = true;
  if (asked) return;
  m_asked = placement.tile;
  m_worker.Request(m_asked);
}

void MapControl::TakeAnswer(const TileNumber& tile, TileOutcome outcome) {
  m_tiles.TakeAnswer(tile, outcome);
  if (!m_waiting || tile != m_awaited.tile) return;
  m_waiting = false;
  PaintTile(m_awaited);
  m_steps.start();
}

void MapControl::PaintOffline() {
  const QString path =
      QDir(m_doc.Folders().TableFolder(QStringLiteral("SystemData"))).filePath(QStringLiteral("OffLine.bmp"));
  if (const auto picture = LoadPicture(path, kLargestOfflineSide)) m_surface.DrawOver(*picture);
  Show();
}

void MapControl::Complete() {
  if (m_showsOverlays) m_surface.DrawOverlays(m_map);
  m_surface.DrawCrosshair(m_map.view.clientRect);
  if (const auto bar = MakeScaleBar(m_map.view)) m_surface.DrawScaleBar(*bar);
  Show();
}

void MapControl::Show() {
  std::swap(m_surface, m_shown);
  m_hasShown = true;
  DescribeView();
  update();
  Q_EMIT Painted();
}

void MapControl::DescribeView() {
  const QString text = m_map.online ? QStringLiteral("ズーム %1").arg(m_map.view.zoom)
                                    : QStringLiteral("オフラインのため地図は表示されていません。");
  if (accessibleDescription() != text) setAccessibleDescription(text);
}

void MapControl::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!m_hasShown || m_shown.Size() != size()) painter.fillRect(rect(), QColor(MapSurface::kGap));
  if (m_hasShown) {
    PaintShown(painter);
  } else if (IsPainting()) {
    painter.setPen(Qt::black);
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("地図を取得しています。"));
  }
  if (!hasFocus()) return;
  const QRectF frame = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  painter.setPen(Qt::white);
  painter.drawRect(frame);
  painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
  painter.drawRect(frame);
}

/// Pixel by pixel of the device: nothing is to be stretched.
void MapControl::PaintShown(QPainter& painter) {
  const double ratio = m_shown.PixelRatio();
  // One of another size, while the next is painted, keeps its middle.
  const QPoint corner(width() / 2 - m_shown.Size().width() / 2, height() / 2 - m_shown.Size().height() / 2);
  painter.save();
  painter.scale(1.0 / ratio, 1.0 / ratio);
  painter.drawImage(QPointF(corner) * ratio, m_shown.Image());
  painter.restore();
  if (ratio != devicePixelRatioF())
    QMetaObject::invokeMethod(this, &MapControl::Repaint, Qt::QueuedConnection);
}

void MapControl::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Repaint();
}

void MapControl::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (m_due) Repaint();
}

void MapControl::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  setFocus(Qt::MouseFocusReason);
  const PixelPoint pixel = m_pointer = PixelOf(*event);
  if (m_movesView) m_map.BeginDrag(pixel);
  Q_EMIT Pressed(pixel);
}

void MapControl::mouseMoveEvent(QMouseEvent* event) {
  const PixelPoint pixel = m_pointer = PixelOf(*event);
  Q_EMIT PointerAt(GeoAt(m_map.view, pixel));
  if (m_job.DropsMouseMove(m_map.IsDragging())) return;
  const bool buttonDown = (event->buttons() & Qt::LeftButton) != 0;
  if (m_movesView && m_map.IsDragging()) {
    buttonDown ? m_map.MoveDrag(pixel) : m_map.EndDrag(pixel);
    Repaint();
  }
  Q_EMIT Moved(pixel, buttonDown);
}

void MapControl::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const PixelPoint pixel = PixelOf(*event);
  if (m_movesView && m_map.IsDragging()) {
    m_map.EndDrag(pixel);
    Repaint();
  }
  Q_EMIT Released(pixel);
}

void MapControl::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Q_EMIT PointerLeft();
}

void MapControl::wheelEvent(QWheelEvent* event) {
  // Also where the zoom goes no further: the page around the map must not scroll away instead.
  event->accept();
  const int delta = event->angleDelta().y();
  if ((delta > 0) != (m_wheel > 0)) m_wheel = 0;
  m_wheel += delta;
  if (std::abs(m_wheel) < kWheelNotch) return;
  const int turn = m_wheel;
  m_wheel = 0;
  Turn(turn);
}

void MapControl::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Plus || key == Qt::Key_Minus) {
    Turn(key == Qt::Key_Plus ? 1 : -1);
  } else if (!m_movesView || !ShiftByKey(key)) {
    QWidget::keyPressEvent(event);
  }
}

void MapControl::Turn(int delta) {
  if (!m_map.TurnWheel(delta, m_doc.site)) return;
  m_doc.SetModified(true);
  Repaint();
  // Another place has come under a pointer that stands still.
  if (underMouse()) Q_EMIT PointerAt(GeoAt(m_map.view, m_pointer));
}

bool MapControl::ShiftByKey(int key) {
  const PixelPoint middle = m_map.view.clientRect.Middle();
  PixelPoint to = middle;
  switch (key) {
    case Qt::Key_Left:
      to.x -= width() / kArrowPart;
      break;
    case Qt::Key_Right:
      to.x += width() / kArrowPart;
      break;
    case Qt::Key_Up:
      to.y -= height() / kArrowPart;
      break;
    case Qt::Key_Down:
      to.y += height() / kArrowPart;
      break;
    default:
      return false;
  }
  ShiftCenter(m_map.view, GeoAt(m_map.view, to), GeoAt(m_map.view, middle));
  Repaint();
  return true;
}

}  // namespace tremlo
