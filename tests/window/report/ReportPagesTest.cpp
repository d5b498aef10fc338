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

QByteArray ReportOf(const CMorvaneDoc& doc, QDate date = {2026, 1, 2}) {
  const std::optional<QByteArray> pdf = ReportPdf(doc, GatherReportFacts(doc, date), VerifyProject(doc));
  EXPECT_TRUE(pdf);
  return pdf.value_or(QByteArray());
}

const QByteArray& SoundReport() {
  static const QByteArray pdf = ReportOf(test::SoundProject());
  return pdf;
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
  EXPECT_EQ(ReportOf(test::SoundProject()), SoundReport());
}

TEST(ReportPagesTest, AnotherDateChangesNothingElse) {
  const QByteArray other = ReportOf(test::SoundProject(), {2026, 1, 3});
  EXPECT_NE(other, SoundReport());
  const QStringList pages = PagesOfPdf(SoundReport()), others = PagesOfPdf(other);
  EXPECT_EQ(others.join(u'\f').replace(QStringLiteral("2026-01-03"), QStringLiteral("2026-01-02")),
            pages.join(u'\f'));
}

TEST(ReportPagesTest, TheContentsTellThePagesOfTheSections) {
  const QStringList pages = PagesOfPdf(SoundReport());
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
  CMorvaneDoc doc = test::SoundProject();
  const QStringList pages = PagesOfPdf(SoundReport());
  for (qsizetype i = 0; i < pages.size(); ++i) {
    EXPECT_TRUE(pages[i].contains(u"見本の表による試算")) << i;
    if (i > 0) {
      EXPECT_TRUE(Packed(pages[i]).contains(QStringLiteral("%1/%2").arg(i + 1).arg(pages.size()))) << i;
    }
  }
  EXPECT_FALSE(PagesOfPdf(ReportOf(test::SoundResponseProject())).join(u' ').contains(u"見本の表"));
}

TEST(ReportPagesTest, TextsOfGraphsAndChartCanBeSearched) {
  const QString text = Packed(PagesOfPdf(SoundReport()).join(u' '));
  for (const char16_t* words : {u"加速度応答スペクトルS(gal)", u"原種波形", u"スタート",
                                u"図1確定した作業手順", u"表1断層と距離", u"目標スペクトル"})
    EXPECT_TRUE(text.contains(QString::fromUtf16(words))) << QString::fromUtf16(words).toStdString();
}

TEST(ReportPagesTest, BookmarksLeadToEverySection) {
  EXPECT_EQ(SoundReport().count("/XYZ"), 18);  // the contents and 17 sections
  EXPECT_TRUE(SoundReport().contains("/PageMode /UseOutlines"));
}

TEST(ReportPagesTest, ALongTableRepeatsItsHeadingOnEachPage) {
  CMorvaneDoc doc = test::SoundProject();
  const FaultInfo fault = doc.faults[1];
  for (int i = 0; i < 148; ++i) doc.faults.push_back(fault);
  const QStringList pages = PagesOfPdf(ReportOf(doc));
  int headings = 0, rows = 0;
  for (const QString& page : pages) {
    headings += static_cast<int>(page.count(u"断層と距離"));
    if (page.contains(u"断層と距離")) rows += static_cast<int>(page.count(u"7.2"));
  }
  EXPECT_GE(headings, 4);
  EXPECT_GE(rows, 150);
  EXPECT_GT(pages.size(), 25);
}

TEST(ReportPagesTest, LongTextsOfTheJobStayOnTheirPages) {
  CMorvaneDoc doc = test::SoundProject();
  doc.site.title = QStringLiteral("長い題名").repeated(60);
  doc.site.comments[0] = QStringLiteral("備考").repeated(2000);
  const QStringList pages = PagesOfPdf(ReportOf(doc));
  // The heading and its line in the contents bear the word too. Of a paragraph over two pages Qt draws the
  // last line of the one on the other again, out of sight.
  constexpr int kLine = 30;
  const auto words = Packed(pages.join(u' ')).count(u"備考");
  EXPECT_GE(words, 2000 + 2);
  EXPECT_LE(words, 2000 + 2 + kLine);
  EXPECT_GE(Packed(pages[0]).count(u"長い題名"), 60);
}

}  // namespace
}  // namespace tremlo
