#pragma once

#include "core/report/ReportBlocks.h"

#include <QTextObjectInterface>

namespace tremlo {

class CMorvaneDoc;

/// A figure with its caption as one letter of a text, so that no page break comes between the two.
class ReportFigureObject : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  static constexpr int kType = QTextFormat::UserObject + 1;

  /// `dpi` of the device; the document outlives the object.
  ReportFigureObject(const CMorvaneDoc& doc, double dpi, QObject* parent);

  static bool IsThere(const CMorvaneDoc& doc, const ReportFigure& figure);
  /// Of the letter that stands for the figure.
  static QTextCharFormat Format(ReportPicture picture, const QString& caption);

  QSizeF intrinsicSize(QTextDocument* text, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& place, QTextDocument* text, int position,
                  const QTextFormat& format) override;

 private:
  const CMorvaneDoc& m_doc;
  double m_scale;  ///< units of the device to a pixel
};

}  // namespace tremlo
