#include "core/files/Cp932Text.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

void ExpectBothWays(const std::string& bytes, const QString& text) {
  EXPECT_EQ(DecodeCp932(bytes), text);
  EXPECT_EQ(EncodeCp932(text), bytes);
}

TEST(Cp932Text, TheWindowsTableIsUsed) {
  ExpectBothWays("\x81\x60", QString(QChar(0xFF5E)));
  ExpectBothWays("\x81\x7C", QString(QChar(0xFF0D)));
  ExpectBothWays("\x81\x61", QString(QChar(0x2225)));
  ExpectBothWays("\x81\x91\x81\x92\x81\xCA", QStringLiteral("\uFFE0\uFFE1\uFFE2"));
  ExpectBothWays("\x87\x40", QStringLiteral("①"));
  ExpectBothWays("\xFB\xFC", QStringLiteral("髙"));
  ExpectBothWays("\x87\x54", QStringLiteral("Ⅰ"));
  ExpectBothWays("\\~", QStringLiteral("\\~"));
  ExpectBothWays("\xB1\xB2", QStringLiteral("ｱｲ"));
  ExpectBothWays("\x93\xFA\x96\x7B", QStringLiteral("日本"));
}

TEST(Cp932Text, SecondBytesMayLookLikeAscii) {
  ExpectBothWays("\x83\x5C\x95\x5C", QStringLiteral("ソ表"));
}

TEST(Cp932Text, BytesWithoutMeaningAreReplacedAndReadingGoesOn) {
  EXPECT_EQ(DecodeCp932("a\x80"
                        "b"),
            QStringLiteral("a\uFFFDb"));
  EXPECT_EQ(DecodeCp932("a\xFF"
                        "b"),
            QStringLiteral("a\uFFFDb"));
  EXPECT_EQ(DecodeCp932("\xA0\xFD"), QStringLiteral("\uFFFD\uFFFD"));
  EXPECT_EQ(DecodeCp932("\x93\xFA\x96"), QStringLiteral("日\uFFFD"));
  EXPECT_EQ(DecodeCp932("\x96\n\x93\xFA"), QStringLiteral("\uFFFD\n日"));
}

TEST(Cp932Text, CharactersWithoutACodeBecomeAQuestionMark) {
  EXPECT_EQ(EncodeCp932(QStringLiteral("aéb")), "a?b");
  EXPECT_EQ(EncodeCp932(QStringLiteral("a😀b")), "a?b");
  EXPECT_EQ(EncodeCp932(QString(QChar(0xD800)) + u'x'), "?x");
  EXPECT_EQ(EncodeCp932(QString(u'x') + QChar(0xDC00)), "x?");
}

TEST(Cp932Text, OfSeveralCodesTheOneThatWindowsWritesIsWritten) {
  const auto expectWritten = [](const char* read, const char* written) {
    EXPECT_EQ(EncodeCp932(DecodeCp932(read)), written);
  };
  expectWritten("\x81\xE6", "\x81\xE6");  // because: JIS X 0208, row 13 and IBM's extension
  expectWritten("\x87\x9A", "\x81\xE6");
  expectWritten("\xFA\x5B", "\x81\xE6");
  expectWritten("\xFA\x4A", "\x87\x54");  // Roman one: row 13 and IBM's extension
  expectWritten("\xEE\xEF", "\xFA\x40");  // small Roman one: IBM's extension and NEC's selection
  expectWritten("\xEE\xF9", "\x81\xCA");  // not: all but row 13
}

TEST(Cp932Text, CharactersOfTheUserKeepTheirPlaces) {
  ExpectBothWays("\xF0\x40", QString(QChar(0xE000)));
  ExpectBothWays("\xF9\xFC", QString(QChar(0xE757)));
}

TEST(Cp932Text, BytesThatMeanNothingTakeNoOtherWithThem) {
  // No pair of the page, though its second byte may stand in one.
  EXPECT_EQ(DecodeCp932("\x85\x40"), QStringLiteral("\uFFFD@"));
  EXPECT_EQ(DecodeCp932("\x81\xAD,"), QStringLiteral("\uFFFDｭ,"));
  EXPECT_EQ(DecodeCp932("\xFF\x93\xFA"), QStringLiteral("\uFFFD日"));
  EXPECT_EQ(DecodeCp932(std::string_view("a\0\x96", 3)), QString(u'a') + QChar(0) + QChar(0xFFFD));
}

TEST(Cp932Text, LongTextIsConvertedWhole) {
  const QString text = QString(QStringLiteral("地震波形")).repeated(5000);
  EXPECT_EQ(DecodeCp932(EncodeCp932(text)), text);
}

TEST(Cp932Text, EmptyTextStaysEmpty) {
  ExpectBothWays("", QString());
}

}  // namespace
}  // namespace tremlo
