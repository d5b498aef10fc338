#include "window/report/ReportPages.h"

#include "core/report/PdfFinish.h"
#include "core/report/ReportSections.h"
#include "core/shell/ProgramIdentity.h"
#include "core/shell/TitleText.h"
#include "window/report/ReportFont.h"
#include "window/report/ReportLines.h"
#include "window/report/ReportText.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace tremlo {

namespace {

constexpr int kDpi = 1200;
constexpr double kUnitsPerMm = kDpi / 25.4;
constexpr double kPointsPerUnit = 72.0 / kDpi;
constexpr double kPageWidth = 210.0, kPageHeight = 297.0;  // mm, A4
constexpr double kSide = 20.0, kAbove = 25.0, kBelow = 22.0;
constexpr double kHeadLine = 15.0, kFootLine = 12.0;  // from the page's edge
constexpr int kCover = 1, kContents = 1;              // pages

double Units(double mm) {
  return mm * kUnitsPerMm;
}

QRectF PlaceMm(double left, double top, double width, double height) {
  return {Units(left), Units(top), Units(width), Units(height)};
}

/// One report on its way to paper.
class Pages {
 public:
  Pages(const CMorvaneDoc& doc, const ReportFacts& facts, QPdfWriter& writer, const ReportText& text)
      : m_doc(doc), m_facts(facts), m_writer(writer), m_text(text) {}

  bool Paint() {
    if (!m_painter.begin(&m_writer)) return false;
    m_painter.setRenderHint(QPainter::LosslessImageRendering);
    m_painter.setPen(Qt::black);
    PaintCover();
    PaintContents();
    for (int page = 0; page < m_text.PageCount(); ++page) {
      Turn(kCover + kContents + page);
      m_painter.save();
      m_painter.translate(Units(kSide), Units(kAbove));
      m_text.DrawPage(m_painter, page);
      m_painter.restore();
    }
    return m_painter.end();
  }

  std::vector<PdfBookmark> Bookmarks() const {
    std::vector<PdfBookmark> bookmarks{{QStringLiteral("目次"), kCover, PointsAbove(0.0)}};
    for (const SectionPlace& section : m_text.Sections())
      bookmarks.push_back(
          {section.title, kCover + kContents + section.page, PointsAbove(Units(kAbove) + section.top)});
    return bookmarks;
  }

 private:
  static double PointsAbove(double top) { return (Units(kPageHeight) - top) * kPointsPerUnit; }

  QString Title() const { return CoverLines(m_doc).constFirst(); }

  /// A new page with its head and foot.
  void Turn(int page) {
    m_writer.newPage();
    const double width = kPageWidth - 2 * kSide;
    const QRectF head = PlaceMm(kSide, kHeadLine - 6.0, width, 5.0);
    const QRectF foot = PlaceMm(kSide, kPageHeight - kFootLine, width, 5.0);
    m_painter.setFont(ReportFont(8.0));
    const double room = m_facts.sampleTables ? 0.7 : 1.0;
    m_painter.drawText(
        QRectF(head.topLeft(), QSizeF(head.width() * room, head.height())), Qt::AlignLeft | Qt::AlignBottom,
        m_painter.fontMetrics().elidedText(Title(), Qt::ElideRight, static_cast<int>(head.width() * room)));
    if (m_facts.sampleTables) {
      m_painter.setFont(ReportFont(8.0, true));
      m_painter.drawText(head, Qt::AlignRight | Qt::AlignBottom, QString::fromUtf16(kSampleNotice));
      m_painter.setFont(ReportFont(8.0));
    }
    m_painter.setPen(QPen(Qt::gray, Units(0.2)));
    m_painter.drawLine(QLineF(Units(kSide), Units(kHeadLine), Units(kSide + width), Units(kHeadLine)));
    m_painter.setPen(Qt::black);
    m_painter.drawText(foot, Qt::AlignLeft | Qt::AlignTop,
                       QStringLiteral("Tremlo ") + AboutVersionText(kVersionMajor, kVersionMinor));
    m_painter.drawText(foot, Qt::AlignHCenter | Qt::AlignTop,
                       QStringLiteral("%1 / %2").arg(page + 1).arg(kCover + kContents + m_text.PageCount()));
    m_painter.drawText(foot, Qt::AlignRight | Qt::AlignTop, m_facts.date.toString(Qt::ISODate));
  }

  /// In letters so small, if need be, that there is room for all of them.
  void PaintCoverLines() {
    constexpr double kTop = 75.0, kRoom = 170.0, kGap = 8.0, kLeastScale = 0.2;
    const double width = Units(kPageWidth - 2 * kSide);
    for (double scale = 1.0;; scale *= 0.9) {
      std::vector<ReportLines> texts;
      double height = 0.0;
      for (const QString& line : CoverLines(m_doc)) {
        const QFont font = texts.empty() ? ReportFont(22.0 * scale, true) : ReportFont(14.0 * scale);
        texts.emplace_back(line, font, m_writer).Break(width);
        for (int i = 0; i < texts.back().Count(); ++i) height += texts.back().Height(i);
        height += Units(kGap);
      }
      if (height > Units(kRoom) && scale > kLeastScale) continue;
      double top = Units(kTop);
      for (const ReportLines& text : texts) {
        for (int i = 0; i < text.Count(); top += text.Height(i++))
          text.Draw(m_painter, i, Units(kSide), top, width, Qt::AlignHCenter);
        top += Units(kGap);
      }
      return;
    }
  }

  void PaintCover() {
    PaintCoverLines();
    m_painter.setFont(ReportFont(16.0, true));
    m_painter.drawText(PlaceMm(kSide, 50.0, kPageWidth - 2 * kSide, 12.0), Qt::AlignCenter,
                       QStringLiteral("設計地震波作成報告書"));
    m_painter.setFont(ReportFont(12.0, true));
    if (m_facts.sampleTables)
      m_painter.drawText(PlaceMm(kSide, 30.0, kPageWidth - 2 * kSide, 10.0), Qt::AlignCenter,
                         QString::fromUtf16(kSampleNotice));
    m_painter.setFont(ReportFont(10.0));
    m_painter.drawText(
        PlaceMm(kSide, 255.0, kPageWidth - 2 * kSide, 16.0), Qt::AlignHCenter | Qt::AlignTop,
        QStringLiteral("作成日 %1\n%2").arg(m_facts.date.toString(Qt::ISODate), m_facts.projectName));
  }

  void PaintContents() {
    Turn(kCover);
    m_painter.setFont(ReportFont(14.0, true));
    m_painter.drawText(PlaceMm(kSide, kAbove, kPageWidth - 2 * kSide, 10.0), Qt::AlignLeft,
                       QStringLiteral("目次"));
    m_painter.setFont(ReportFont(10.0));
    double top = kAbove + 14.0;
    for (const SectionPlace& section : m_text.Sections()) {
      const QRectF line = PlaceMm(kSide, top, kPageWidth - 2 * kSide, 6.0);
      const QString page = QString::number(kCover + kContents + section.page + 1);
      m_painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, section.title);
      m_painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, page);
      const QFontMetrics metrics = m_painter.fontMetrics();
      const double gap = Units(2.0), middle = line.bottom() - Units(1.6);
      m_painter.setPen(QPen(Qt::gray, Units(0.2), Qt::DotLine));
      m_painter.drawLine(QLineF(line.left() + metrics.horizontalAdvance(section.title) + gap, middle,
                                line.right() - metrics.horizontalAdvance(page) - gap, middle));
      m_painter.setPen(Qt::black);
      top += 8.0;
    }
  }

  const CMorvaneDoc& m_doc;
  const ReportFacts& m_facts;
  QPdfWriter& m_writer;
  const ReportText& m_text;
  QPainter m_painter;
};

}  // namespace

std::optional<QByteArray> ReportPdf(const CMorvaneDoc& doc, const ReportFacts& facts,
                                    const VerifyReport& check) {
  QByteArray painted;
  QBuffer buffer(&painted);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  writer.setResolution(kDpi);
  writer.setTitle(CoverLines(doc).constFirst());
  writer.setCreator(QStringLiteral("Tremlo ") + AboutVersionText(kVersionMajor, kVersionMinor));
  const QSizeF room(Units(kPageWidth - 2 * kSide), Units(kPageHeight - kAbove - kBelow));
  const ReportText text(doc, ReportSections(doc, facts, check), writer, room);
  Pages pages(doc, facts, writer, text);
  if (!pages.Paint()) return std::nullopt;
  buffer.close();
  return FinishPdf(painted, {facts.date, doc.site.company, pages.Bookmarks()});
}

}  // namespace tremlo
