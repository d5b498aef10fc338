#include "window/report/ReportFigureObject.h"

#include "window/report/MapPicture.h"
#include "window/report/ReportFigures.h"

#include <QPainter>

namespace tremlo {

namespace {

constexpr int kPicture = QTextFormat::UserProperty;
constexpr int kCaption = QTextFormat::UserProperty + 1;
constexpr double kPixelsPerInch = 96.0;
constexpr int kLineHeight = 16;
constexpr int kCaptionLetters = 12;  // pixels
constexpr int kAttributionLetters = 10;
constexpr int kAttributionLines = 2;

ReportPicture PictureOf(const QTextFormat& format) {
  return static_cast<ReportPicture>(format.intProperty(kPicture));
}

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

ReportFigureObject::ReportFigureObject(const CMorvaneDoc& doc, double dpi, QObject* parent)
    : QObject(parent), m_doc(doc), m_scale(dpi / kPixelsPerInch) {}

bool ReportFigureObject::IsThere(const CMorvaneDoc& doc, const ReportFigure& figure) {
  return FigureHeight(doc, figure.picture).has_value();
}

QTextCharFormat ReportFigureObject::Format(ReportPicture picture, const QString& caption) {
  QTextCharFormat format;
  format.setObjectType(kType);
  format.setProperty(kPicture, static_cast<int>(picture));
  format.setProperty(kCaption, caption);
  return format;
}

QSizeF ReportFigureObject::intrinsicSize(QTextDocument* /*text*/, int /*position*/,
                                         const QTextFormat& format) {
  const ReportPicture picture = PictureOf(format);
  const int height = FigureHeight(m_doc, picture).value_or(0) + LinesBelow(picture) * kLineHeight;
  return QSizeF(kFigureWidth, height) * m_scale;
}

void ReportFigureObject::drawObject(QPainter* painter, const QRectF& place, QTextDocument* text,
                                    int /*position*/, const QTextFormat& format) {
  const ReportPicture picture = PictureOf(format);
  const int height = FigureHeight(m_doc, picture).value_or(0);
  painter->save();
  painter->translate(place.topLeft());
  painter->scale(m_scale, m_scale);
  painter->setPen(Qt::black);
  painter->setFont(text->defaultFont());
  int top = height;
  if (picture == ReportPicture::Map) {
    DrawLines(*painter, MapAttributionText(), kAttributionLetters, top, kAttributionLines);
    top += kAttributionLines * kLineHeight;
  }
  DrawLines(*painter, format.stringProperty(kCaption), kCaptionLetters, top, 1);
  painter->setClipRect(QRectF(0, 0, kFigureWidth, height), Qt::IntersectClip);
  PaintFigure(m_doc, picture, *painter);
  painter->restore();
}

}  // namespace tremlo
