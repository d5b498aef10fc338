#include "core/report/PdfFinish.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::HasSubstr;

/// A file of two empty pages in the form that Qt's writer gives it, its objects not in the order of their
/// numbers.
QByteArray PaintedPdf() {
  const std::vector<std::pair<int, QByteArray>> objects = {
      {1, "<<\n/Title (\xfe\xff\x30\x42)\n/CreationDate (D:20261122101945+09'00')\n>>\n"},
      {2, "<<\n/Type /Catalog\n/Pages 3 0 R\n>>\n"},
      {5, "<<\n/Type /Page\n/Parent 3 0 R\n>>\n"},
      {4, "<<\n/Type /Page\n/Parent 3 0 R\n>>\n"},
      {3, "<<\n/Type /Pages\n/Kids \n[\n5 0 R\n4 0 R\n]\n/Count 2\n>>\n"}};
  QByteArray pdf = "%PDF-1.4\n%\xe2\xe3\xcf\xd3\n";
  std::vector<qsizetype> starts(objects.size() + 1, 0);
  for (const auto& [number, content] : objects) {
    starts[static_cast<std::size_t>(number)] = pdf.size();
    pdf += QByteArray::number(number) + " 0 obj\n" + content + "endobj\n";
  }
  const QByteArray xref = QByteArray::number(pdf.size());
  pdf += "xref\n0 6\n0000000000 65535 f \n";
  for (std::size_t i = 1; i < starts.size(); ++i)
    pdf += QByteArray::number(starts[i]).rightJustified(10, '0') + " 00000 n \n";
  return pdf + "trailer\n<<\n/Size 6\n/Info 1 0 R\n/Root 2 0 R\n>>\nstartxref\n" + xref + "\n%%EOF\n";
}

PdfFinish Finish() {
  return {QDate(2026, 3, 4),
          QStringLiteral("社"),
          {{QStringLiteral("目次"), 1, 800.0}, {QStringLiteral("章"), 0, 700.5}}};
}

/// Each entry of the table points at the object of its number.
void ExpectSoundTable(const QByteArray& pdf) {
  const qsizetype xref = pdf.mid(pdf.lastIndexOf("startxref") + 10).split('\n').first().toLongLong();
  ASSERT_TRUE(pdf.mid(xref).startsWith("xref\n0 "));
  const QList<QByteArray> lines = pdf.mid(xref).split('\n');
  const int count = lines[1].split(' ')[1].toInt();
  EXPECT_TRUE(pdf.contains("/Size " + QByteArray::number(count) + '\n'));
  for (int i = 1; i < count; ++i) {
    EXPECT_EQ(lines[2 + i].size(), 19) << i;
    EXPECT_TRUE(pdf.mid(lines[2 + i].left(10).toLongLong()).startsWith(QByteArray::number(i) + " 0 obj\n"))
        << i;
  }
}

TEST(PdfFinishTest, BookmarksLeadToTheirPages) {
  const std::optional<QByteArray> pdf = FinishPdf(PaintedPdf(), Finish());
  ASSERT_TRUE(pdf);
  ExpectSoundTable(*pdf);
  const std::string text = pdf->toStdString();
  EXPECT_THAT(text, HasSubstr("/Outlines 6 0 R\n/PageMode /UseOutlines\n"));
  EXPECT_THAT(text,
              HasSubstr("6 0 obj\n<<\n/Type /Outlines\n/First 7 0 R\n/Last 8 0 R\n/Count 2\n>>\nendobj\n"));
  EXPECT_THAT(text, HasSubstr("7 0 obj\n<<\n/Title <feff76ee6b21>\n/Parent 6 0 R\n/Next 8 0 R\n"
                              "/Dest [4 0 R /XYZ 0 800.00 null]\n>>\nendobj\n"));
  EXPECT_THAT(text, HasSubstr("8 0 obj\n<<\n/Title <feff7ae0>\n/Parent 6 0 R\n/Prev 7 0 R\n"
                              "/Dest [5 0 R /XYZ 0 700.50 null]\n>>\nendobj\n"));
}

TEST(PdfFinishTest, DateLanguageAndAuthorAreThoseOfTheReport) {
  const std::optional<QByteArray> pdf = FinishPdf(PaintedPdf(), Finish());
  ASSERT_TRUE(pdf);
  EXPECT_TRUE(pdf->contains("/CreationDate (D:20260304000000Z)\n"));
  EXPECT_FALSE(pdf->contains("20261122"));
  EXPECT_TRUE(pdf->contains("/Lang (ja-JP)\n"));
  EXPECT_TRUE(pdf->contains("/Author <feff793e>\n"));
  EXPECT_TRUE(pdf->contains("/Title (\xfe\xff\x30\x42)\n"));
}

TEST(PdfFinishTest, WithoutBookmarksThereIsNoOutline) {
  const std::optional<QByteArray> pdf = FinishPdf(PaintedPdf(), {QDate(2026, 3, 4), {}, {}});
  ASSERT_TRUE(pdf);
  ExpectSoundTable(*pdf);
  EXPECT_FALSE(pdf->contains("/Outlines"));
  EXPECT_FALSE(pdf->contains("/Author"));
}

TEST(PdfFinishTest, ABookmarkToNoPageIsRefused) {
  for (const int page : {-1, 2})
    EXPECT_FALSE(FinishPdf(PaintedPdf(), {QDate(2026, 3, 4), {}, {{QStringLiteral("章"), page, 0.0}}}))
        << page;
}

TEST(PdfFinishTest, NoDateIsRefused) {
  EXPECT_FALSE(FinishPdf(PaintedPdf(), {}));
}

TEST(PdfFinishTest, BytesThatAreNoWholeFileAreRefused) {
  const QByteArray whole = PaintedPdf();
  const qsizetype end = whole.lastIndexOf("\n%%EOF");
  for (qsizetype size = 0; size < end; ++size) {
    const std::optional<QByteArray> pdf = FinishPdf(whole.left(size), Finish());
    // The last number may be cut so that it still points at a table: it does not here.
    EXPECT_FALSE(pdf) << size;
  }
}

TEST(PdfFinishTest, ATableThatPointsElsewhereIsRefused) {
  QByteArray pdf = PaintedPdf();
  const qsizetype entry = pdf.indexOf(" 65535 f \n") + 10;
  for (const char* place : {"0000000003", "9999999999", "-000000001", "abcdefghij"})
    EXPECT_FALSE(FinishPdf(QByteArray(pdf).replace(entry, 10, place), Finish())) << place;
}

TEST(PdfFinishTest, AReferenceToNoObjectIsRefused) {
  for (const auto& [from, to] :
       {std::pair("/Root 2", "/Root 9"), std::pair("/Root 2", "/Root 0"), std::pair("/Info 1", "/Info 7"),
        std::pair("0 6\n", "0 9\n"), std::pair("/Pages 3", "/Pages 8")})
    EXPECT_FALSE(FinishPdf(PaintedPdf().replace(from, to), Finish())) << to;
}

}  // namespace
}  // namespace tremlo
