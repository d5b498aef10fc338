#pragma once

#include "core/report/ReportBlocks.h"
#include "window/report/ReportPart.h"

#include <QSizeF>

#include <memory>
#include <vector>

class QPaintDevice;

namespace tremlo {

class CMorvaneDoc;

/// Where a section begins in the text.
struct SectionPlace {
  QString title;
  int page = 0;      ///< counted from 0
  double top = 0.0;  ///< from the upper edge of the page's text, in units of the device
};

/// The sections as one text over pages: headings, numbered tables whose headings come again on each page,
/// numbered figures. No page break parts a heading from what follows it, or a short table.
class ReportText {
 public:
  /// `page`: room for text on a page, in units of the device. Document and device outlive the text.
  ReportText(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections, QPaintDevice& device,
             QSizeF page);

  int PageCount() const;
  const std::vector<SectionPlace>& Sections() const { return m_sections; }
  /// Draws the page, counted from 0, at the painter's origin.
  void DrawPage(QPainter& painter, int page) const;

 private:
  void AddBlock(const CMorvaneDoc& doc, const ReportBlock& block, QPaintDevice& device, double width);
  template <class Part>
  void Add(Part part);

  struct PlacedPart {
    std::unique_ptr<ReportPart> part;
    std::size_t firstPiece = 0;  ///< among all
  };
  std::vector<PlacedPart> m_parts;
  std::vector<PagePiece> m_pieces;  ///< of all parts
  std::vector<PiecePlace> m_places;
  std::vector<SectionPlace> m_sections;
  int m_tables = 0;
  int m_figures = 0;
};

}  // namespace tremlo
