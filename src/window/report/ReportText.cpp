#include "window/report/ReportText.h"

#include "window/report/ReportFigurePart.h"
#include "window/report/ReportFigures.h"
#include "window/report/ReportParagraph.h"
#include "window/report/ReportTablePart.h"

#include <algorithm>

namespace tremlo {

ReportText::ReportText(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections,
                       QPaintDevice& device, QSizeF page) {
  std::vector<std::size_t> headings;  // first pieces
  for (const ReportSection& section : sections) {
    headings.push_back(m_pieces.size());
    Add(ReportParagraph::Heading(section.title, device, page.width()));
    for (const ReportBlock& block : section.blocks) AddBlock(doc, block, device, page.width());
  }
  m_places = BreakPages(m_pieces, page.height());
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const PiecePlace& place = m_places[headings[i]];
    m_sections.push_back({sections[i].title, place.page, place.top});
  }
}

void ReportText::AddBlock(const CMorvaneDoc& doc, const ReportBlock& block, QPaintDevice& device,
                          double width) {
  if (const auto* const text = std::get_if<QString>(&block)) {
    for (const QString& line : text->split(u'\n')) Add(ReportParagraph::Text(line, device, width));
  } else if (const auto* const table = std::get_if<ReportTable>(&block)) {
    const QString title =
        table->title.isEmpty() ? QString() : QStringLiteral("表 %1　%2").arg(++m_tables).arg(table->title);
    Add(ReportTablePart(*table, title, device, width));
  } else {
    const auto& figure = std::get<ReportFigure>(block);
    const std::optional<int> height = FigureHeight(doc, figure.picture);
    if (!height) return;
    const QString caption = QStringLiteral("図 %1　%2").arg(++m_figures).arg(figure.caption);
    Add(ReportFigurePart(doc, figure.picture, *height, caption, device, width));
  }
}

template <class Part>
void ReportText::Add(Part part) {
  m_parts.push_back({std::make_unique<Part>(std::move(part)), m_pieces.size()});
  const std::vector<PagePiece>& pieces = m_parts.back().part->Pieces();
  m_pieces.insert(m_pieces.end(), pieces.begin(), pieces.end());
}

int ReportText::PageCount() const {
  return m_places.empty() ? 0 : m_places.back().page + 1;
}

void ReportText::DrawPage(QPainter& painter, int page) const {
  const auto onPage =
      std::equal_range(m_places.begin(), m_places.end(), PiecePlace{page, 0.0, false},
                       [](const PiecePlace& a, const PiecePlace& b) { return a.page < b.page; });
  const auto begin = static_cast<std::size_t>(onPage.first - m_places.begin());
  const auto end = static_cast<std::size_t>(onPage.second - m_places.begin());
  for (const PlacedPart& placed : m_parts) {
    const std::size_t first = std::max(begin, placed.firstPiece);
    const std::size_t last = std::min(end, placed.firstPiece + placed.part->Pieces().size());
    if (first < last)
      placed.part->Draw(painter, first - placed.firstPiece, std::span(m_places).subspan(first, last - first));
  }
}

}  // namespace tremlo
