#include "window/report/ReportText.h"

#include "core/project/MorvaneDoc.h"
#include "window/report/ReportFigureObject.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextTable>

#include <algorithm>

namespace tremlo {

namespace {

constexpr double kTextPoints = 9.0;
constexpr double kTablePoints = 8.0;
constexpr double kHeadingPoints = 13.0;
constexpr int kManyColumns = 8;
constexpr int kShortTable = 12;  // rows of one that no page break parts
constexpr double kSmallTablePoints = 7.0;
constexpr double kRounding = 2.0;  // units by which a line may lie above the page that it heads
constexpr QRgb kHeadingCells = 0xFFE4EBF3;

QTextCharFormat Letters(double points, bool bold = false) {
  QTextCharFormat format;
  format.setFontPointSize(points);
  if (bold) format.setFontWeight(QFont::Bold);
  return format;
}

QTextBlockFormat Block(double above, double below, Qt::Alignment alignment = Qt::AlignLeft) {
  QTextBlockFormat format;
  format.setTopMargin(above);
  format.setBottomMargin(below);
  format.setAlignment(alignment);
  return format;
}

void SetCell(QTextTable& table, int row, int column, const QString& text, const QTextCharFormat& letters,
             Qt::Alignment alignment) {
  QTextCursor cursor = table.cellAt(row, column).firstCursorPosition();
  cursor.setBlockFormat(Block(0.0, 0.0, alignment));
  cursor.insertText(text, letters);
}

void Shade(QTextTable& table, int row, int column) {
  QTextTableCell cell = table.cellAt(row, column);
  QTextCharFormat format = cell.format();
  format.setBackground(QColor(kHeadingCells));
  cell.setFormat(format);
}

}  // namespace

ReportText::ReportText(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections,
                       QPagedPaintDevice& device, QSizeF page)
    : m_page(page) {
  QFont font;
  font.setFamilies({QStringLiteral("IPAGothic"), QStringLiteral("MS Gothic")});
  font.setPointSizeF(kTextPoints);
  m_text.setDefaultFont(font);
  m_text.setDocumentMargin(0.0);
  m_text.setUndoRedoEnabled(false);
  m_text.documentLayout()->setPaintDevice(&device);
  m_text.documentLayout()->registerHandler(ReportFigureObject::kType,
                                           new ReportFigureObject(doc, device.logicalDpiX(), &m_text));
  Fill(doc, sections);
  m_text.setPageSize(page);
  MendPageBreaks();
  FindSections();
}

void ReportText::Fill(const CMorvaneDoc& doc, const std::vector<ReportSection>& sections) {
  QTextCursor cursor(&m_text);
  // Laid out once, at its end: row by row it would take minutes.
  cursor.beginEditBlock();
  bool first = true;
  for (const ReportSection& section : sections) {
    if (first)
      cursor.setBlockFormat(Block(0.0, 6.0));
    else
      cursor.insertBlock(Block(18.0, 6.0));
    first = false;
    m_headings.push_back(cursor.position());
    cursor.insertText(section.title, Letters(kHeadingPoints, true));
    for (const ReportBlock& block : section.blocks) {
      if (const auto* const text = std::get_if<QString>(&block)) {
        for (const QString& line : text->split(u'\n')) {
          cursor.insertBlock(Block(0.0, 4.0));
          cursor.insertText(line, Letters(kTextPoints));
        }
      } else if (const auto* const table = std::get_if<ReportTable>(&block)) {
        AddTable(cursor, *table);
      } else {
        const auto& figure = std::get<ReportFigure>(block);
        if (!ReportFigureObject::IsThere(doc, figure)) continue;
        cursor.insertBlock(Block(6.0, 6.0, Qt::AlignHCenter));
        const QString caption = QStringLiteral("図 %1　%2").arg(++m_figures).arg(figure.caption);
        cursor.insertText(QString(QChar::ObjectReplacementCharacter),
                          ReportFigureObject::Format(figure.picture, caption));
      }
    }
  }
  cursor.endEditBlock();
}

void ReportText::AddTable(QTextCursor& cursor, const ReportTable& table) {
  const int columns = table.headings.isEmpty() ? 2 : static_cast<int>(table.headings.size());
  const int titles = table.title.isEmpty() ? 0 : 1;
  const int headings = titles + (table.headings.isEmpty() ? 0 : 1);
  QTextTableFormat format;
  format.setBorder(1.0);
  format.setBorderCollapse(true);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(Qt::gray);
  format.setCellPadding(2.0);
  format.setCellSpacing(0.0);
  format.setTopMargin(4.0);
  format.setBottomMargin(6.0);
  format.setHeaderRowCount(headings);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100.0));
  cursor.insertBlock(Block(0.0, 0.0));
  QTextTable* const rows =
      cursor.insertTable(headings + static_cast<int>(table.rows.size()), columns, format);
  const double points = columns >= kManyColumns ? kSmallTablePoints : kTablePoints;
  if (titles > 0) {
    rows->mergeCells(0, 0, 1, columns);
    SetCell(*rows, 0, 0, QStringLiteral("表 %1　%2").arg(++m_tables).arg(table.title),
            Letters(kTablePoints, true), Qt::AlignLeft);
  }
  for (int column = 0; column < table.headings.size(); ++column) {
    SetCell(*rows, titles, column, table.headings[column], Letters(points), Qt::AlignHCenter);
    Shade(*rows, titles, column);
  }
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const int row = headings + static_cast<int>(i);
    for (int column = 0; column < columns; ++column) {
      const bool number = table.numbers[static_cast<std::size_t>(column)];
      SetCell(*rows, row, column, table.rows[i].value(column), Letters(points),
              number ? Qt::AlignRight : Qt::AlignLeft);
      if (table.headings.isEmpty() && column == 0) Shade(*rows, row, column);
    }
  }
  cursor.movePosition(QTextCursor::End);
}

void ReportText::MendPageBreaks() {
  // Each break moves all that follows; few passes settle it.
  constexpr int kMostPasses = 5;
  for (int pass = 0; pass < kMostPasses; ++pass)
    if (!KeepShortTablesWhole() && !KeepHeadingsWithText()) return;
}

bool ReportText::KeepShortTablesWhole() {
  bool changed = false;
  for (QTextFrame* const frame : m_text.rootFrame()->childFrames()) {
    auto* const table = qobject_cast<QTextTable*>(frame);
    if (!table || table->rows() > kShortTable) continue;
    const QTextBlock first = table->cellAt(0, 0).firstCursorPosition().block();
    const QTextBlock last = table->cellAt(table->rows() - 1, 0).firstCursorPosition().block();
    if (PlaceOf(first).page == PlaceOf(last).page) continue;
    QTextBlock before = first.previous();
    while (before.isValid() && before.length() <= 1) before = before.previous();
    const bool underHeading =
        std::find(m_headings.begin(), m_headings.end(), before.position()) != m_headings.end();
    changed |= BeginPageWith(underHeading ? before : first);
  }
  return changed;
}

bool ReportText::KeepHeadingsWithText() {
  bool changed = false;
  for (const int position : m_headings) {
    const QTextBlock heading = m_text.findBlock(position);
    QTextBlock text = heading.next();
    while (text.isValid() && text.length() <= 1) text = text.next();  // the empty one before a table
    if (text.isValid() && PlaceOf(heading).page != PlaceOf(text).page) changed |= BeginPageWith(heading);
  }
  return changed;
}

bool ReportText::BeginPageWith(const QTextBlock& block) {
  QTextCursor cursor(block);
  QTextTable* const table = cursor.currentTable();
  const auto begins = [](const auto& format) {
    return format.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore;
  };
  if (table ? begins(table->format()) : begins(block.blockFormat())) return false;
  if (table) {
    QTextTableFormat format = table->format();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    table->setFormat(format);
  } else {
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    cursor.setBlockFormat(format);
  }
  // To the end: of what the change itself lays out anew, later headings lose their lines.
  m_text.markContentsDirty(block.position(), m_text.characterCount() - block.position());
  return true;
}

void ReportText::FindSections() {
  for (const int position : m_headings) {
    const QTextBlock heading = m_text.findBlock(position);
    m_sections.push_back(PlaceOf(heading));
    m_sections.back().title = heading.text();
  }
}

SectionPlace ReportText::PlaceOf(const QTextBlock& block) const {
  const QRectF rect = m_text.documentLayout()->blockBoundingRect(block);
  // A block begins on the page before when only its first line has gone to the next.
  const double top = rect.top() + (block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0.0);
  const int page = static_cast<int>((top + kRounding) / m_page.height());
  return {{}, page, top - page * m_page.height()};
}

void ReportText::DrawPage(QPainter& painter, int page) {
  const QRectF shown(0.0, page * m_page.height(), m_page.width(), m_page.height());
  painter.save();
  painter.translate(0.0, -shown.top());
  painter.setClipRect(shown);
  QAbstractTextDocumentLayout::PaintContext context;
  // What begins on the next page is not drawn here, be it out of sight: it would be found on both.
  context.clip = shown.adjusted(0.0, kRounding, 0.0, -kRounding);
  context.palette.setColor(QPalette::Text, Qt::black);
  m_text.documentLayout()->draw(&painter, context);
  painter.restore();
}

}  // namespace tremlo
