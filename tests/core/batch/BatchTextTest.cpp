#include "core/batch/BatchText.h"
#include "core/files/Cp932Text.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(BatchText, TheEncodingIsSeenInTheBytes) {
  const QString text = QStringLiteral("波形,目標\n");
  EXPECT_EQ(EncodingOf(text.toUtf8()), BatchEncoding::Utf8);
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF" + text.toUtf8()), BatchEncoding::Utf8WithMark);
  EXPECT_EQ(EncodingOf(QByteArray::fromStdString(EncodeCp932(text))), BatchEncoding::Cp932);
  EXPECT_EQ(EncodingOf("seed,target\n"), BatchEncoding::Utf8);
}

TEST(BatchText, LinesAreTheSameInEveryEncodingAndWithEitherEnd) {
  const QStringList lines = {QStringLiteral("波形 1,目標～"), QString(), QStringLiteral("b")};
  for (const QString& end : {QStringLiteral("\n"), QStringLiteral("\r\n")}) {
    const QString text = lines.join(end) + end;
    EXPECT_EQ(LinesOf(text.toUtf8()), lines);
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF" + text.toUtf8()), lines);
    EXPECT_EQ(LinesOf(QByteArray::fromStdString(EncodeCp932(text))), lines);
  }
}

TEST(BatchText, WhatIsEncodedReadsBack) {
  for (const BatchEncoding encoding :
       {BatchEncoding::Utf8, BatchEncoding::Utf8WithMark, BatchEncoding::Cp932}) {
    const QString text = QStringLiteral("現場①の波形");
    const QByteArray content = QByteArray::fromStdString(MarkOf(encoding) + Encoded(text, encoding));
    EXPECT_EQ(EncodingOf(content), encoding);
    EXPECT_EQ(LinesOf(content), QStringList{text});
  }
}

void ExpectCells(const QString& line, const QStringList& cells) {
  const auto found = CellsOf(line);
  ASSERT_TRUE(found) << line.toStdString();
  EXPECT_EQ(*found, cells) << line.toStdString();
}

TEST(BatchText, CellsStandBetweenCommas) {
  ExpectCells("", {""});
  ExpectCells("a", {"a"});
  ExpectCells("a,b,", {"a", "b", ""});
  ExpectCells(" a b ,\t c", {"a b", "c"});
  ExpectCells(",,", {"", "", ""});
  ExpectCells("a\"b,c", {"a\"b", "c"});
}

TEST(BatchText, ACellInQuotesIsTakenAsItStands) {
  ExpectCells("\"a,b\",c", {"a,b", "c"});
  ExpectCells(" \" a \" ,\"\"", {" a ", ""});
  ExpectCells("\"say \"\"yes\"\"\"", {"say \"yes\""});
}

TEST(BatchText, ABrokenQuoteIsRefused) {
  for (const char* line : {"\"a", "a,\"b,c", "\"a\"b", "\"a\" b,c"}) EXPECT_FALSE(CellsOf(line)) << line;
}

TEST(BatchText, ALineOfCellsReadsBack) {
  const QStringList cells = {"plain", "a,b", "a\"b", " blanks ", "", "c:\\x", "日本"};
  ExpectCells(LineOf(cells), cells);
  EXPECT_EQ(LineOf({"a", "b c", ""}), QString("a,b c,"));
  ExpectCells(LineOf({"two\r\nlines"}), {"two  lines"});
}

}  // namespace
}  // namespace tremlo
