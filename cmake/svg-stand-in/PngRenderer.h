#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>

#include <vector>

class QPainter;

/// What the program asks of Qt's class of this name, for a file of PNG pictures that were drawn from one SVG:
/// the largest first, the last as large as the SVG states. A file "x.svg" on disk has them in "x.svg.png".
class QSvgRenderer {
 public:
  QSvgRenderer() = default;
  explicit QSvgRenderer(const QString& file) { load(file); }

  bool load(const QString& file);
  bool isValid() const { return !m_pictures.empty(); }
  QSize defaultSize() const { return isValid() ? m_pictures.back().size() : QSize(); }
  void render(QPainter* painter, const QRectF& area) const;

 private:
  /// The smallest that need not be made larger; the largest where there is none.
  const QImage& PictureFor(const QSize& pixels) const;

  std::vector<QImage> m_pictures;
};
