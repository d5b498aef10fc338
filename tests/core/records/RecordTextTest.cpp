#include "core/records/MissingSamples.h"
#include "core/records/RecordText.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

std::vector<std::string> LinesOf(const QByteArray& content) {
  const RecordText text(content, QStringLiteral("x"));
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < text.Size(); ++i) lines.emplace_back(text.Line(i));
  return lines;
}

TEST(RecordText, LinesEndInAnyOfThreeWays) {
  const std::vector<std::string> lines = {"a", "", "b"};
  EXPECT_EQ(LinesOf("a\n\nb\n"), lines);
  EXPECT_EQ(LinesOf("a\r\n\r\nb\r\n"), lines);
  EXPECT_EQ(LinesOf("a\r\rb"), lines);
  EXPECT_EQ(LinesOf(""), std::vector<std::string>());
}

TEST(RecordText, Utf8ComesBeforeCp932AndBadBytesAreReplaced) {
  const auto decoded = [](const QByteArray& content) {
    const RecordText text(content, QStringLiteral("x"));
    return text.Decode(text.Line(0));
  };
  EXPECT_EQ(decoded("\xE8\xA6\x8B\xE6\x9C\xAC"), QStringLiteral("見本"));
  EXPECT_EQ(decoded("\xEF\xBB\xBF\xE8\xA6\x8B\xE6\x9C\xAC"), QStringLiteral("見本"));
  EXPECT_EQ(decoded("\x8C\xA9\x96\x7B"), QStringLiteral("見本"));
  EXPECT_EQ(decoded(QByteArray("\xFF\xFE\x8B\x89\x2C\x67", 6)), QStringLiteral("見本"));
  EXPECT_EQ(decoded(QByteArray("\xFE\xFF\x89\x8B\x67\x2C", 6)), QStringLiteral("見本"));
  EXPECT_EQ(decoded("\x8C\xA9\x93,1"), QStringLiteral("見\uFFFD,1"));
}

TEST(RecordText, FullWidthFormsBecomePlain) {
  const RecordText text(
      "\xEF\xBC\x8D\xEF\xBC\x91\xEF\xBC\x8E\xEF\xBC\x95\xE3\x80\x80\xE2\x88\x92\xEF\xBC\x92",
      QStringLiteral("x"));
  EXPECT_EQ(text.PlainLine(0), "-1.5 -2");
}

TEST(RecordText, FieldsHoldFortranNumbersAndNothingElse) {
  const test::CommaLocale locale;
  const auto number = [](std::string_view field) {
    double value = -777.0;
    return FieldNumber(field, value) ? value : -777.0;
  };
  EXPECT_EQ(number(" -.617E-03 "), -0.617e-3);
  EXPECT_EQ(number(".0"), 0.0);
  EXPECT_EQ(number("5."), 5.0);
  EXPECT_EQ(number("1.0D-03"), 1e-3);
  EXPECT_EQ(number("+12"), 12.0);
  EXPECT_EQ(number("1.5"), 1.5);
  for (const char* bad : {"",     " ",     ".",   "-",   "nan", "NaN", "inf", "-Infinity", "#N/A", "****",
                          "0x10", "1.2.3", "1,5", "12a", "1e",  "1e+", "--1", "+-1",       "1 2",  "1e999"})
    EXPECT_EQ(number(bad), -777.0) << bad;
}

TEST(RecordText, FormatsAreFoundInTheText) {
  const auto format = [](std::string_view text) {
    const auto found = FindFieldFormat(text);
    return found ? std::pair(found->repeat, found->width) : std::pair<std::size_t, std::size_t>(0, 0);
  };
  using Pair = std::pair<std::size_t, std::size_t>;
  EXPECT_EQ(format("units=cm/sec2(04),Format=(8F10.5)"), Pair(8, 10));
  EXPECT_EQ(format("Format = (10I8)"), Pair(10, 8));
  EXPECT_EQ(format("(1E15.6)"), Pair(1, 15));
  EXPECT_EQ(format("in cm/sec2. (8f10.6)"), Pair(8, 10));
  EXPECT_EQ(format("(F0.3)"), Pair(0, 0));
  EXPECT_EQ(format("(gal)/12 (0I8) (9999999999999999999999F8)"), Pair(0, 0));
}

TEST(RecordText, TouchingFieldsAreCutByColumns) {
  const RecordText text("-2378640-2378638\n      12\n", QStringLiteral("x"));
  const FieldBlock block = ReadFields(text, 0, 3, {2, 8}, [](std::string_view) { return false; });
  EXPECT_EQ(block.values, (std::vector<double>{-2378640.0, -2378638.0, 12.0}));
  EXPECT_EQ(block.next, 2U);
}

TEST(RecordText, ABlankFieldBetweenTwoIsNoZero) {
  const RecordText text("       1               3\n", QStringLiteral("x"));
  const FieldBlock block = ReadFields(text, 0, 3, {3, 8}, [](std::string_view) { return false; });
  EXPECT_EQ(block.error, QStringLiteral("x: 1行目：数値でない欄があります（「」）。"));
}

TEST(MissingSamples, LieOnAStraightLine) {
  std::vector<double> acc = {-9.0, 1.0, -9.0, -9.0, 4.0, -9.0};
  FillMissing(acc, [](double a) { return a == -9.0; });
  EXPECT_EQ(acc, (std::vector<double>{1.0, 1.0, 2.0, 3.0, 4.0, 4.0}));
}

}  // namespace
}  // namespace tremlo
