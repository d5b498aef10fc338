#include "PngRenderer.h"

#include <QFile>
#include <QPainter>

#include <algorithm>

namespace {

/// Empty where something else than pictures stands in the file.
std::vector<QImage> PicturesOf(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return {};
  std::vector<QImage> pictures;
  while (!file.atEnd()) {
    QImage picture;
    if (!picture.load(&file, "PNG")) return {};
    pictures.push_back(picture);
  }
  return pictures;
}

}  // namespace

bool QSvgRenderer::load(const QString& file) {
  m_pictures = PicturesOf(file);
  if (!isValid()) m_pictures = PicturesOf(file + QStringLiteral(".png"));
  return isValid();
}

const QImage& QSvgRenderer::PictureFor(const QSize& pixels) const {
  const auto isLarge = [&](const QImage& picture) {
    return picture.width() >= pixels.width() && picture.height() >= pixels.height();
  };
  const auto found = std::find_if(m_pictures.rbegin(), m_pictures.rend(), isLarge);
  return found == m_pictures.rend() ? m_pictures.front() : *found;
}

void QSvgRenderer::render(QPainter* painter, const QRectF& area) const {
  if (!isValid()) return;
  const QTransform toDevice = painter->deviceTransform();
  const QSize pixels =
      QSizeF(area.width() * toDevice.m11(), area.height() * toDevice.m22()).toSize().expandedTo({1, 1});
  painter->save();
  painter->setRenderHint(QPainter::SmoothPixmapTransform);
  // Made as small as it is shown by all its pixels, and not by the nearest four.
  painter->drawImage(area,
                     PictureFor(pixels).scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  painter->restore();
}
