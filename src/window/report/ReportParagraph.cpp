#include "window/report/ReportParagraph.h"

#include "window/report/ReportFont.h"

namespace tremlo {

namespace {

constexpr double kTextPoints = 9.0;
constexpr double kHeadingPoints = 13.0;
constexpr double kBelowText = 4.0;  // pixels
constexpr double kAboveHeading = 18.0, kBelowHeading = 6.0;

}  // namespace

ReportParagraph::ReportParagraph(ReportLines lines, double width, double above, double below)
    : m_lines(std::move(lines)), m_width(width) {
  m_lines.Break(width);
  for (int line = 0; line < m_lines.Count(); ++line) m_pieces.push_back({.height = m_lines.Height(line)});
  m_pieces.front().above = above;
  m_pieces.back().below = below;
}

ReportParagraph ReportParagraph::Text(const QString& text, QPaintDevice& device, double width) {
  ReportParagraph paragraph(ReportLines(text, ReportFont(kTextPoints), device), width, 0.0,
                            kBelowText * UnitsPerPixel(device));
  const std::size_t count = paragraph.m_pieces.size();
  if (count > 1) paragraph.m_pieces[0].withNext = paragraph.m_pieces[count - 2].withNext = true;
  return paragraph;
}

ReportParagraph ReportParagraph::Heading(const QString& text, QPaintDevice& device, double width) {
  const double unit = UnitsPerPixel(device);
  ReportParagraph paragraph(ReportLines(text, ReportFont(kHeadingPoints, true), device), width,
                            kAboveHeading * unit, kBelowHeading * unit);
  for (PagePiece& line : paragraph.m_pieces) line.withNext = true;
  return paragraph;
}

void ReportParagraph::Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const {
  for (std::size_t i = 0; i < places.size(); ++i)
    m_lines.Draw(painter, static_cast<int>(first + i), 0.0, places[i].top, m_width, Qt::AlignLeft);
}

}  // namespace tremlo
