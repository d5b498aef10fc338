#include "core/graphs/GridText.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::vector<std::string>> Plain(const GridText& lines) {
  std::vector<std::vector<std::string>> plain;
  for (const QStringList& fields : lines) {
    plain.emplace_back();
    for (const QString& field : fields) plain.back().push_back(field.toStdString());
  }
  return plain;
}
auto Parse(const char* text, FieldSeparator separator = FieldSeparator::Tab) {
  return Plain(ParseGridText(QString::fromUtf8(text), separator));
}
auto ParseNumbers(const char* text) {
  return Parse(text, FieldSeparator::TabOrComma);
}
std::string Format(const GridText& lines) {
  return FormatGridText(lines).toStdString();
}

TEST(GridText, LinesEndAtAnyOfTheThreeLineEnds) {
  const auto expected = ElementsAre(ElementsAre("1", "2"), ElementsAre("3", "4"));
  EXPECT_THAT(Parse("1\t2\n3\t4\n"), expected);
  EXPECT_THAT(Parse("1\t2\r\n3\t4\r\n"), expected);
  EXPECT_THAT(Parse("1\t2\r3\t4"), expected);
}

TEST(GridText, EmptyTextHasNoLine) {
  EXPECT_THAT(Parse(""), IsEmpty());
}

TEST(GridText, EmptyLinesAndFieldsAreEmptyCells) {
  EXPECT_THAT(Parse("1\n\n3\n"), ElementsAre(ElementsAre("1"), ElementsAre(""), ElementsAre("3")));
  EXPECT_THAT(Parse("\t2\t"), ElementsAre(ElementsAre("", "2", "")));
  EXPECT_THAT(Parse("\n"), ElementsAre(ElementsAre("")));
}

TEST(GridText, CommasSeparateOnlyWhereAskedForAndWithoutATab) {
  EXPECT_THAT(ParseNumbers("0.01,5.5\n0.02,6.5"),
              ElementsAre(ElementsAre("0.01", "5.5"), ElementsAre("0.02", "6.5")));
  EXPECT_THAT(ParseNumbers("1,5\t2"), ElementsAre(ElementsAre("1,5", "2")));
  EXPECT_THAT(Parse("松本市，大手,3"), ElementsAre(ElementsAre("松本市，大手,3")));
}

TEST(GridText, QuotedFieldsHoldLineEndsAndSeparators) {
  EXPECT_THAT(Parse("\"a\tb\"\t\"c\nd\"\n\"say \"\"x\"\"\""),
              ElementsAre(ElementsAre("a\tb", "c\nd"), ElementsAre("say \"x\"")));
  EXPECT_THAT(ParseNumbers("\"1,2\",3"), ElementsAre(ElementsAre("1,2", "3")));
}

TEST(GridText, AnOpenQuotationMarkIsACharacter) {
  EXPECT_THAT(Parse("\"abc\tx\ny"), ElementsAre(ElementsAre("\"abc", "x"), ElementsAre("y")));
  EXPECT_THAT(Parse("\"a\"b\tc"), ElementsAre(ElementsAre("\"a\"b", "c")));
  EXPECT_THAT(Parse("\""), ElementsAre(ElementsAre("\"")));
  EXPECT_THAT(Parse("5\" pipe"), ElementsAre(ElementsAre("5\" pipe")));
}

TEST(GridText, BlocksAreWrittenWithTabsAndClosedLines) {
  EXPECT_EQ(Format({{QStringLiteral("1"), QStringLiteral("2")}, {QStringLiteral("3"), QString()}}),
            "1\t2\n3\t\n");
}

TEST(GridText, ASingleFieldHasNoLineEndUnlessItIsEmpty) {
  EXPECT_EQ(Format({{QStringLiteral("1.5")}}), "1.5");
  EXPECT_EQ(Format({{QString()}}), "\n");
  EXPECT_EQ(Format({}), "");
}

TEST(GridText, WhatIsWrittenReadsBack) {
  const GridText lines = {{QStringLiteral("a\tb"), QStringLiteral("\"q\""), QString()},
                          {QStringLiteral("c\r\nd"), QStringLiteral("plain"), QStringLiteral("\"")},
                          {QString(), QString(), QString()}};
  EXPECT_EQ(ParseGridText(FormatGridText(lines), FieldSeparator::Tab), lines);
  const GridText blank = {{QString()}, {QString()}};
  EXPECT_EQ(ParseGridText(FormatGridText(blank), FieldSeparator::Tab), blank);
}

}  // namespace
}  // namespace tremlo
