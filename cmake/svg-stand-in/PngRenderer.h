#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>

class QPainter;

/// What the program asks of Qt's class of this name, for a PNG of kPixels times the size of the SVG that it
/// was drawn from. A file "x.svg" on disk has its picture in "x.svg.png".
class QSvgRenderer {
 public:
  QSvgRenderer() = default;
  explicit QSvgRenderer(const QString& file) { load(file); }

  bool load(const QString& file);
  bool isValid() const { return !m_picture.isNull(); }
  QSize defaultSize() const { return m_picture.size() / kPixels; }
  void render(QPainter* painter, const QRectF& area) const;

 private:
  static constexpr int kPixels = 4;
  QImage m_picture;
};
