#include "PngRenderer.h"

#include <QPainter>

bool QSvgRenderer::load(const QString& file) {
  const bool isLoaded = m_picture.load(file, "PNG") || m_picture.load(file + QStringLiteral(".png"), "PNG");
  if (!isLoaded) m_picture = {};
  return isLoaded;
}

void QSvgRenderer::render(QPainter* painter, const QRectF& area) const {
  if (!isValid()) return;
  const QTransform toDevice = painter->deviceTransform();
  const QSizeF pixels(area.width() * toDevice.m11(), area.height() * toDevice.m22());
  painter->save();
  painter->setRenderHint(QPainter::SmoothPixmapTransform);
  // Made as small as it is shown by all its pixels, and not by the nearest four.
  painter->drawImage(area, m_picture.scaled(pixels.toSize().expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                                            Qt::SmoothTransformation));
  painter->restore();
}
