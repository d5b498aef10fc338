#include "window/location/MapSurface.h"

#include "window/graphs/BgrColor.h"
#include "window/graphs/JapaneseFont.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPolygon>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

QPoint ToPoint(const PixelPoint& pixel) {
  return {pixel.x, pixel.y};
}

/// One pixel wide whatever the surface's ratio, and on whole pixels.
QPen LinePen(int width) {
  QPen pen(Qt::black, width);
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

QPolygon PolygonOf(const TileMap& map, const MapOverlay& overlay) {
  QPolygon polygon;
  for (const PixelPoint& pixel : map.OverlayPixels(overlay)) polygon << ToPoint(pixel);
  return polygon;
}

}  // namespace

void MapSurface::Begin(QSize size, double devicePixelRatio) {
  const QSize pixels(static_cast<int>(std::lround(size.width() * devicePixelRatio)),
                     static_cast<int>(std::lround(size.height() * devicePixelRatio)));
  if (m_image.size() != pixels) m_image = QImage(pixels, QImage::Format_RGB32);
  m_size = size;
  m_ratio = devicePixelRatio;
  m_image.setDevicePixelRatio(1.0);
  m_image.fill(kGap);
}

QRect MapSurface::DevicePixels(const PixelRect& rect) const {
  const auto scaled = [this](std::int32_t position) {
    return static_cast<int>(std::lround(position * m_ratio));
  };
  const QPoint corner(scaled(rect.left), scaled(rect.top));
  return {corner, QSize(scaled(rect.right) - corner.x(), scaled(rect.bottom) - corner.y())};
}

void MapSurface::DrawTile(const QImage& tile, const PixelRect& target) {
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  // Whole device pixels, or neighbours would leave a seam between them at a ratio of 1.5.
  // In memory a tile keeps the form in which it came, with a palette a quarter of the size; that would be
  // stretched far more slowly.
  painter.drawImage(DevicePixels(target), tile.convertToFormat(QImage::Format_RGB32));
}

void MapSurface::DrawOver(const QImage& picture) {
  QPainter painter(&m_image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(m_image.rect(), picture);
}

void MapSurface::DrawOverlays(const TileMap& map) {
  if (map.overlays.empty()) return;
  BlendPass(map, true);
  BlendPass(map, false);
}

void MapSurface::BlendPass(const TileMap& map, bool filled) {
  QImage copy = m_image.copy();
  QPainter painter(&copy);
  painter.scale(m_ratio, m_ratio);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const MapOverlay& overlay : map.overlays) {
    const QColor color = ColorFromBgr(overlay.color);
    painter.setPen(QPen(color, overlay.penWidth));
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPolygon(PolygonOf(map, overlay));
  }
  painter.end();
  QPainter blender(&m_image);
  blender.setOpacity(map.overlayAlpha / 255.0);
  blender.drawImage(0, 0, copy);
}

void MapSurface::DrawCrosshair(const PixelRect& client) {
  const PixelPoint middle = client.Middle();
  // Both lines of one width in device pixels.
  const int width = std::max(1, static_cast<int>(m_ratio));
  QRect upright = DevicePixels({middle.x, client.top, middle.x, client.bottom});
  QRect level = DevicePixels({client.left, middle.y, client.right, middle.y});
  upright.setWidth(width);
  level.setHeight(width);
  QPainter painter(&m_image);
  painter.fillRect(upright, Qt::black);
  painter.fillRect(level, Qt::black);
}

void MapSurface::DrawScaleBar(const ScaleBar& bar) {
  QPainter painter(&m_image);
  painter.scale(m_ratio, m_ratio);
  painter.translate(0.5, 0.5);
  painter.setPen(LinePen(1));
  for (const PixelLine& line : bar.lines) painter.drawLine(ToPoint(line.from), ToPoint(line.to));
  painter.setFont(ScreenFont());
  const QFontMetrics metrics(painter.font());
  for (const ScaleLabel& label : bar.labels) {
    const QString text = QString::fromStdString(label.text);
    const int left = std::max(0, label.at.x - metrics.horizontalAdvance(text) / 2);
    painter.drawText(left, label.at.y - metrics.descent(), text);
  }
}

}  // namespace tremlo
