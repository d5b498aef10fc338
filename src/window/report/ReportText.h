#pragma once

#include "core/report/ReportBlocks.h"

#include <QTextDocument>

#include <vector>

class QPagedPaintDevice;
class QTextBlock;
class QTextCursor;

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
  ReportText(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections, QPagedPaintDevice& device,
             QSizeF page);

  int PageCount() const { return m_text.pageCount(); }
  const std::vector<SectionPlace>& Sections() const { return m_sections; }
  /// Draws the page, counted from 0, at the painter's origin.
  void DrawPage(QPainter& painter, int page);

 private:
  void Fill(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections);
  void AddTable(QTextCursor& cursor, const ReportTable& table);
  void MendPageBreaks();
  /// Each returns whether a break has been added.
  bool KeepShortTablesWhole();
  bool KeepHeadingsWithText();
  bool BeginPageWith(const QTextBlock& block);
  void FindSections();
  SectionPlace PlaceOf(const QTextBlock& block) const;  ///< of its first line

  QTextDocument m_text;
  QSizeF m_page;
  std::vector<int> m_headings;  ///< positions in the text
  std::vector<SectionPlace> m_sections;
  int m_tables = 0;
  int m_figures = 0;
};

}  // namespace tremlo
