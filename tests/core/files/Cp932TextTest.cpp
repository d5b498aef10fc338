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

TEST(Cp932Text, LongTextIsConvertedWhole) {
  const QString text = QString(QStringLiteral("地震波形")).repeated(5000);
  EXPECT_EQ(DecodeCp932(EncodeCp932(text)), text);
}

TEST(Cp932Text, EmptyTextStaysEmpty) {
  ExpectBothWays("", QString());
}

}  // namespace
}  // namespace tremlo
