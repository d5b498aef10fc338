#include "window/graphs/GraphSurface.h"

#include "window/graphs/JapaneseFont.h"

#include <QPaintEngine>

namespace tremlo {

GraphSurface::GraphSurface(QPainter& painter, const QRectF& area) : m_painter(painter) {
  const QTransform toDevice = painter.deviceTransform();
  m_scale = toDevice.m11();
  const QRectF pixels = toDevice.mapRect(area);
  m_area = QRect(QPoint(qRound(pixels.left()), qRound(pixels.top())),
                 QPoint(qRound(pixels.right()) - 1, qRound(pixels.bottom()) - 1));
  painter.save();
  painter.resetTransform();
  painter.setWorldTransform(painter.deviceTransform().inverted());
}

GraphSurface::~GraphSurface() {
  m_painter.restore();
}

bool GraphSurface::IsVector() const {
  const QPaintEngine::Type type = m_painter.paintEngine()->type();
  return type == QPaintEngine::SVG || type == QPaintEngine::Pdf;
}

QFont GraphSurface::Font(double factor) const {
  constexpr double kPixelsPerPoint = 96.0 / 72.0;
  QFont font = ScreenFont();
  font.setPixelSize(qMax(1, Pixels(font.pointSizeF() * kPixelsPerPoint * factor)));
  return font;
}

void GraphSurface::FillPixels(int x1, int y1, int x2, int y2, int penWidth, const QColor& color) const {
  m_painter.fillRect(PenRect(x1, y1, x2, y2, penWidth), color);
}

QRect PenRect(int x1, int y1, int x2, int y2, int penWidth) {
  const int before = (penWidth - 1) / 2;
  const int after = penWidth / 2;
  return {QPoint(x1 - before, y1 - before), QPoint(x2 + after, y2 + after)};
}

double PenCentre(int penWidth) {
  return penWidth % 2 == 1 ? 0.5 : 1.0;
}

}  // namespace tremlo
