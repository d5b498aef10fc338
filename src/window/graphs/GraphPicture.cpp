#include "window/graphs/GraphPicture.h"

#include "core/graphs/GraphTexts.h"
#include "window/graphs/DrawGraph.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <cmath>
#include <new>

namespace tremlo {

namespace {

constexpr QColor kEmptyArea(0xD4, 0xD0, 0xC8);
constexpr double kDotsPerInch = 96.0;  // of a screen at 100 %
constexpr double kPointsPerInch = 72.0;
constexpr double kMetresPerInch = 0.0254;
// A graph rounds to whole units of its device. No print shows units as fine as these.
constexpr int kUnitsPerPixel = 8;

/// The part of a view that its picture shows.
QRectF WithoutRim(const QSize& view) {
  return {2.0, 4.0, view.width() - 4.0, view.height() - 8.0};
}

void DrawOn(QPaintDevice& device, CDrawGraph& graph, const QSize& view) {
  QPainter painter(&device);
  painter.scale(kUnitsPerPixel, kUnitsPerPixel);
  painter.translate(-WithoutRim(view).topLeft());
  graph.Draw(painter, QRectF(QPointF(0.0, 0.0), QSizeF(view)));
}

QByteArray PngFile(CDrawGraph& graph, const QSize& view, double devicePixelRatio) {
  QImage image = GraphPicture(&graph, view, devicePixelRatio);
  const auto dotsPerMetre = static_cast<int>(std::lround(devicePixelRatio * kDotsPerInch / kMetresPerInch));
  image.setDotsPerMeterX(dotsPerMetre);
  image.setDotsPerMeterY(dotsPerMetre);
  QByteArray content;
  QBuffer buffer(&content);
  if (image.isNull() || !image.save(&buffer, "PNG")) throw std::bad_alloc();
  return content;
}

QByteArray SvgFile(CDrawGraph& graph, const QSize& view) {
  QByteArray content;
  QBuffer buffer(&content);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(static_cast<int>(kDotsPerInch));
  const QSize size = WithoutRim(view).size().toSize();
  svg.setSize(size);
  svg.setViewBox(QRect(QPoint(0, 0), size * kUnitsPerPixel));
  svg.setTitle(TextsOf(graph.Kind()).Caption());
  DrawOn(svg, graph, view);
  return content;
}

QByteArray PdfFile(CDrawGraph& graph, const QSize& view) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  // Of a page Qt keeps whole points.
  const QSizeF points = WithoutRim(view).size() * (kPointsPerInch / kDotsPerInch);
  const QPageSize page(QSizeF(std::ceil(points.width()), std::ceil(points.height())), QPageSize::Point,
                       QString(), QPageSize::ExactMatch);
  pdf.setPageLayout({page, QPageLayout::Portrait, QMarginsF()});
  pdf.setResolution(static_cast<int>(kDotsPerInch) * kUnitsPerPixel);
  pdf.setTitle(TextsOf(graph.Kind()).Caption());
  pdf.setCreator(QStringLiteral("Tremlo"));
  DrawOn(pdf, graph, view);
  return content;
}

}  // namespace

QImage PaintedGraph(CDrawGraph* graph, const QSize& pixels, double devicePixelRatio) {
  QImage image(pixels, QImage::Format_RGB32);
  image.fill(graph ? QColor(Qt::white) : kEmptyArea);
  if (!graph || image.isNull()) return image;
  image.setDevicePixelRatio(devicePixelRatio);
  QPainter painter(&image);
  graph->Draw(painter, QRectF(QPointF(0.0, 0.0), QSizeF(pixels) / devicePixelRatio));
  painter.end();
  image.setDevicePixelRatio(1.0);
  return image;
}

QImage GraphPicture(CDrawGraph* graph, const QSize& view, double devicePixelRatio) {
  const auto pixels = [devicePixelRatio](double length) { return qRound(length * devicePixelRatio); };
  const QRectF seen = WithoutRim(view);
  return PaintedGraph(graph, {pixels(view.width()), pixels(view.height())}, devicePixelRatio)
      .copy(pixels(seen.left()), pixels(seen.top()), pixels(seen.width()), pixels(seen.height()));
}

QByteArray PictureFile(PictureFormat format, CDrawGraph& graph, const QSize& view, double devicePixelRatio) {
  switch (format) {
    case PictureFormat::Png:
      return PngFile(graph, view, 2.0 * devicePixelRatio);
    case PictureFormat::Svg:
      return SvgFile(graph, view);
    case PictureFormat::Pdf:
      break;
  }
  return PdfFile(graph, view);
}

}  // namespace tremlo
