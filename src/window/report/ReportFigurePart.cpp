#include "window/report/ReportFigurePart.h"

#include "window/report/MapPicture.h"
#include "window/report/ReportFigures.h"
#include "window/report/ReportFont.h"

#include <QPainter>

#include <utility>

namespace tremlo {

namespace {

constexpr double kAround = 6.0;  // pixels, above and below
constexpr int kLineHeight = 16;
constexpr int kCaptionLetters = 12;
constexpr int kAttributionLetters = 10;
constexpr int kAttributionLines = 2;

int LinesBelow(ReportPicture picture) {
  return 1 + (picture == ReportPicture::Map ? kAttributionLines : 0);
}

void DrawLines(QPainter& painter, const QString& text, int letters, int top, int lines) {
  QFont font = painter.font();
  font.setPixelSize(letters);
  painter.setFont(font);
  painter.drawText(QRectF(0, top, kFigureWidth, lines * kLineHeight), Qt::AlignHCenter | Qt::AlignVCenter,
                   text);
}

}  // namespace

ReportFigurePart::ReportFigurePart(const CMorvaneDoc& doc, ReportPicture picture, int height, QString caption,
                                   QPaintDevice& device, double width)
    : m_doc(doc),
      m_picture(picture),
      m_height(height),
      m_caption(std::move(caption)),
      m_unit(UnitsPerPixel(device)),
      m_left((width - kFigureWidth * m_unit) / 2.0) {
  m_pieces.push_back({.height = (m_height + LinesBelow(picture) * kLineHeight) * m_unit,
                      .above = kAround * m_unit,
                      .below = kAround * m_unit});
}

void ReportFigurePart::Draw(QPainter& painter, std::size_t /*first*/,
                            std::span<const PiecePlace> places) const {
  painter.save();
  painter.translate(m_left, places.front().top);
  painter.scale(m_unit, m_unit);
  painter.setPen(Qt::black);
  painter.setFont(ReportFont(kCaptionLetters));
  int top = m_height;
  if (m_picture == ReportPicture::Map) {
    DrawLines(painter, MapAttributionText(), kAttributionLetters, top, kAttributionLines);
    top += kAttributionLines * kLineHeight;
  }
  DrawLines(painter, m_caption, kCaptionLetters, top, 1);
  painter.setClipRect(QRectF(0, 0, kFigureWidth, m_height), Qt::IntersectClip);
  PaintFigure(m_doc, m_picture, painter);
  painter.restore();
}

}  // namespace tremlo
