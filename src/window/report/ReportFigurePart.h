#pragma once

#include "core/report/ReportBlocks.h"
#include "window/report/ReportPart.h"

class QPaintDevice;

namespace tremlo {

class CMorvaneDoc;

/// A figure with its caption below it, as one piece.
class ReportFigurePart : public ReportPart {
 public:
  /// `height` is what FigureHeight gives; the document outlives the part.
  ReportFigurePart(const CMorvaneDoc& doc, ReportPicture picture, int height, QString caption,
                   QPaintDevice& device, double width);

  void Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const override;

 private:
  const CMorvaneDoc& m_doc;
  ReportPicture m_picture;
  int m_height;  ///< of the figure alone, in pixels
  QString m_caption;
  double m_unit;  ///< units of the device to a pixel
  double m_left;
};

}  // namespace tremlo
