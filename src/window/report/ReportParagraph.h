#pragma once

#include "window/report/ReportLines.h"
#include "window/report/ReportPart.h"

namespace tremlo {

/// A heading or a paragraph: a piece for each line.
class ReportParagraph : public ReportPart {
 public:
  /// A text of which no page shows one line alone.
  static ReportParagraph Text(const QString& text, QPaintDevice& device, double width);
  /// A heading that stays with what follows it.
  static ReportParagraph Heading(const QString& text, QPaintDevice& device, double width);

  void Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const override;

 private:
  ReportParagraph(ReportLines lines, double width, double above, double below);

  ReportLines m_lines;
  double m_width;
};

}  // namespace tremlo
