#include "core/verify/VerifyProject.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"
#include "window/report/PdfText.h"
#include "window/report/ReportPages.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::PagesOfPdf;

QByteArray ReportOf(const CMorvaneDoc& doc, const ReportFacts& facts, const VerifyReport& check) {
  const std::optional<QByteArray> pdf = ReportPdf(doc, facts, check);
  EXPECT_TRUE(pdf);
  return pdf.value_or(QByteArray());
}

/// The project, with all that is computed for its report.
struct Sound {
  CMorvaneDoc doc = test::SoundProject();
  ReportFacts facts = GatherReportFacts(doc, QDate(2026, 1, 2));
  VerifyReport check = VerifyProject(doc);
  QByteArray pdf = ReportOf(doc, facts, check);
  QStringList pages = PagesOfPdf(pdf);
};

const Sound& SoundOnce() {
  static const Sound sound;
  return sound;
}

/// The pages for a document that differs from it in texts or faults alone.
QStringList PagesWith(const CMorvaneDoc& doc) {
  return PagesOfPdf(ReportOf(doc, SoundOnce().facts, SoundOnce().check));
}

/// The text of the page without its blanks, which pdftotext sets by the places of the letters.
QString Packed(QString text) {
  return text.remove(QRegularExpression(QStringLiteral("\\s")));
}

/// The page, counted from 1, on which a heading stands; 0 for none. The contents are passed over.
int PageOf(const QStringList& pages, const QString& heading) {
  for (qsizetype i = 2; i < pages.size(); ++i)
    for (const QString& line : pages[i].split(u'\n'))
      if (Packed(line) == Packed(heading)) return static_cast<int>(i) + 1;
  return 0;
}

TEST(ReportPagesTest, TheSameProjectGivesTheSameBytes) {
  const CMorvaneDoc same = test::SoundProject();
  EXPECT_EQ(ReportOf(same, GatherReportFacts(same, QDate(2026, 1, 2)), VerifyProject(same)), SoundOnce().pdf);
}

TEST(ReportPagesTest, AnotherDateChangesNothingElse) {
  ReportFacts facts = SoundOnce().facts;
  facts.date = QDate(2026, 1, 3);
  const QByteArray other = ReportOf(SoundOnce().doc, facts, SoundOnce().check);
  EXPECT_NE(other, SoundOnce().pdf);
  EXPECT_EQ(PagesOfPdf(other).join(u'\f').replace(QStringLiteral("2026-01-03"), QStringLiteral("2026-01-02")),
            SoundOnce().pages.join(u'\f'));
}

TEST(ReportPagesTest, TheContentsTellThePagesOfTheSections) {
  const QStringList& pages = SoundOnce().pages;
  ASSERT_GT(pages.size(), 3);
  int sections = 0;
  for (const QString& line : pages[1].split(u'\n')) {
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^(\\d+\\s|付録).*?\\s+(\\d+)\\s*$")).match(line.trimmed());
    if (!match.hasMatch()) continue;
    QString heading = line.trimmed();
    heading.chop(match.captured(2).size());
    EXPECT_EQ(PageOf(pages, heading), match.captured(2).toInt()) << heading.toStdString();
    ++sections;
  }
  EXPECT_EQ(sections, 17);
}

TEST(ReportPagesTest, EveryPageIsNumberedAndTellsOfSamples) {
  const QStringList& pages = SoundOnce().pages;
  for (qsizetype i = 0; i < pages.size(); ++i) {
    EXPECT_TRUE(pages[i].contains(u"見本の表による試算")) << i;
    if (i > 0) {
      EXPECT_TRUE(Packed(pages[i]).contains(QStringLiteral("%1/%2").arg(i + 1).arg(pages.size()))) << i;
    }
  }
  ReportFacts facts = SoundOnce().facts;
  facts.sampleTables = false;
  EXPECT_FALSE(
      PagesOfPdf(ReportOf(SoundOnce().doc, facts, SoundOnce().check)).join(u' ').contains(u"見本の表"));
}

TEST(ReportPagesTest, TextsOfGraphsAndChartCanBeSearched) {
  const QString text = Packed(SoundOnce().pages.join(u' '));
  for (const char16_t* words : {u"加速度応答スペクトルS(gal)", u"原種波形", u"スタート",
                                u"図1確定した作業手順", u"表1断層と距離", u"目標スペクトル"})
    EXPECT_TRUE(text.contains(QString::fromUtf16(words))) << QString::fromUtf16(words).toStdString();
}

TEST(ReportPagesTest, BookmarksLeadToEverySection) {
  EXPECT_EQ(SoundOnce().pdf.count("/XYZ"), 18);  // the contents and 17 sections
  EXPECT_TRUE(SoundOnce().pdf.contains("/PageMode /UseOutlines"));
}

TEST(ReportPagesTest, ALongTableRepeatsItsHeadingOnEachPage) {
  constexpr int kMoreFaults = 48;
  CMorvaneDoc doc = SoundOnce().doc;
  const FaultInfo fault = doc.faults[1];
  doc.faults.insert(doc.faults.end(), kMoreFaults, fault);
  const QStringList pages = PagesWith(doc);
  static const QRegularExpression magnitude(QStringLiteral("(?<![\\d.])7\\.2(?![\\d.])"));
  int headings = 0, rows = 0;
  for (const QString& page : pages) {
    const auto own = page.count(magnitude);
    rows += static_cast<int>(own);
    headings += static_cast<int>(page.count(u"断層と距離"));
    if (own > 0) {
      EXPECT_TRUE(page.contains(u"断層と距離")) << page.toStdString();
      EXPECT_TRUE(page.contains(u"マグニチュード")) << page.toStdString();
    }
  }
  EXPECT_EQ(headings, 3);
  EXPECT_EQ(rows, 3 + 2 * kMoreFaults);
}

/// How often the letter stands on the pages.
int LettersOf(const QStringList& pages, QChar letter) {
  return static_cast<int>(pages.join(QChar()).count(letter));
}

TEST(ReportPagesTest, LongTextsOfTheJobStayOnTheirPages) {
  CMorvaneDoc doc = SoundOnce().doc;
  doc.site.title = QStringLiteral("長い題名").repeated(60);
  doc.site.comments[0] = QStringLiteral("鮎").repeated(4000);
  // Of a cell.
  doc.site.address = QStringLiteral("鰯").repeated(5000);
  const QStringList pages = PagesWith(doc);
  EXPECT_EQ(LettersOf(pages, u'鮎'), 4000);
  EXPECT_EQ(LettersOf(pages, u'鰯'), 5000);
  EXPECT_GE(Packed(pages[0]).count(u"長い題名"), 60);
}

TEST(ReportPagesTest, NoPageBreakPartsAHeadingFromWhatFollows) {
  CMorvaneDoc doc = SoundOnce().doc;
  // Every height of the comments puts the pages' ends elsewhere in what follows them.
  for (int lines = 0; lines < 6; ++lines) {
    doc.site.comments[0] = QStringLiteral("鮎").repeated(500 * lines + 1);
    for (const QString& page : PagesWith(doc)) {
      const QStringList texts = page.split(u'\n', Qt::SkipEmptyParts);
      // The last line is the page's foot.
      const QString last = texts.value(texts.size() - 2).trimmed();
      EXPECT_FALSE(QRegularExpression(QStringLiteral("^(\\d+\\s+\\D+|付録\\s+\\S+)$")).match(last).hasMatch())
          << last.toStdString();
    }
  }
}

/// How many of a strip's rows show something; the strip from one distance from the upper edge to another, in
/// mm.
int RowsWithInk(const QImage& cover, int from, int to) {
  int rows = 0;
  for (int y = 2 * from; y < 2 * to; ++y) {
    bool ink = false;
    for (int x = 0; x < cover.width(); ++x) ink = ink || qGray(cover.pixel(x, y)) < 128;
    rows += ink ? 1 : 0;
  }
  return rows;
}

TEST(ReportPagesTest, ALongTitleIsShownToItsEnd) {
  CMorvaneDoc doc = SoundOnce().doc;
  const auto cover = [&] { return test::CoverOfPdf(ReportOf(doc, SoundOnce().facts, SoundOnce().check)); };
  EXPECT_EQ(RowsWithInk(cover(), 110, 250), 0);
  doc.site.title = QStringLiteral("長い題名").repeated(60);
  EXPECT_GT(RowsWithInk(cover(), 110, 180), 70);
  EXPECT_EQ(RowsWithInk(cover(), 200, 250), 0);
  // Smaller, where there is more than a page holds.
  doc.site.title = QStringLiteral("長い題名").repeated(600);
  EXPECT_GT(RowsWithInk(cover(), 110, 240), 130);
  EXPECT_EQ(RowsWithInk(cover(), 245, 253), 0);
}

}  // namespace
}  // namespace tremlo
