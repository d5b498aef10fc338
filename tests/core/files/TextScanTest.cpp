#include "core/files/TextScan.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace tremlo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectNumber(const std::string& text, double expected, const std::string& rest) {
  double value = -777.0;
  LineScanner scan(text);
  EXPECT_TRUE(scan.Number(value)) << text;
  EXPECT_EQ(value, expected) << text;
  EXPECT_EQ(scan.Rest(), rest) << text;
}

void ExpectNoNumber(const std::string& text) {
  double value = -777.0;
  EXPECT_FALSE(LineScanner(text).Number(value)) << text;
  EXPECT_EQ(value, -777.0) << text;
}

TEST(TextScan, NumbersWithWhatFollowsThem) {
  ExpectNumber("1.5,2", 1.5, ",2");
  ExpectNumber(" \t-2", -2.0, "");
  ExpectNumber("+.5", 0.5, "");
  ExpectNumber("5.", 5.0, "");
  ExpectNumber("1e3x", 1000.0, "x");
  ExpectNumber("1,5", 1.0, ",5");
  ExpectNumber("7.2abc", 7.2, "abc");
  ExpectNumber("0x1.8p1 ", 3.0, " ");
  ExpectNumber("-0X10", -16.0, "");
  ExpectNumber("0xg", 0.0, "xg");
}

TEST(TextScan, NumbersThatNoDoubleHolds) {
  ExpectNumber("1e999", kInfinity, "");
  ExpectNumber("-1e999", -kInfinity, "");
  ExpectNumber("1e-999", 0.0, "");
  ExpectNumber("1e99999999999999999999", kInfinity, "");
  ExpectNumber("1e-99999999999999999999", 0.0, "");
  ExpectNumber(std::string(400, '9'), kInfinity, "");
  ExpectNumber("0." + std::string(400, '0') + "1", 0.0, "");
  ExpectNumber(std::string(400, '9') + "e-399", 10.0, "");
  ExpectNumber("0x1p99999", kInfinity, "");
  ExpectNumber("0x1p-99999", 0.0, "");
}

TEST(TextScan, InfinityAndNotANumber) {
  ExpectNumber("inf", kInfinity, "");
  ExpectNumber("-INFINITY,", -kInfinity, ",");
  double value = 0.0;
  EXPECT_TRUE(LineScanner("nan").Number(value));
  EXPECT_TRUE(std::isnan(value));
}

TEST(TextScan, TextThatIsNoNumber) {
  for (const char* text : {"", " ", "-", "+", "--1", "+-1", "abc", ",1", ".", "e5", "\xEF\xBC\x91"})
    ExpectNoNumber(text);
}

TEST(TextScan, WholeNumbersSaturate) {
  const auto whole = [](const char* text) {
    std::int32_t value = -777;
    LineScanner(text).Whole(value);
    return value;
  };
  EXPECT_EQ(whole("1x"), 1);
  EXPECT_EQ(whole(" +12"), 12);
  EXPECT_EQ(whole("99999999999"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(whole("-99999999999"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(whole("x"), -777);
  EXPECT_EQ(whole("+-1"), -777);
}

TEST(TextScan, TextToDoubleTakesTheLongestPrefix) {
  EXPECT_EQ(TextToDouble("-"), 0.0);
  EXPECT_EQ(TextToDouble(""), 0.0);
  EXPECT_EQ(TextToDouble("7.2abc"), 7.2);
  EXPECT_EQ(TextToDouble(" -7.2"), -7.2);
}

TEST(TextScan, ThePointIsTheDecimalMarkInALocaleWithACommaToo) {
  const test::CommaLocale locale;
  ExpectNumber("1.5,2", 1.5, ",2");
  EXPECT_EQ(TextToDouble("1.5"), 1.5);
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  LineReader reader(text);
  for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
  return lines;
}

TEST(TextScan, LinesEndAtTheLineFeed) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(LinesOf("a\r\nb\nc"), (Lines{"a", "b", "c"}));
  EXPECT_EQ(LinesOf("a\n"), Lines{"a"});
  EXPECT_EQ(LinesOf("a\n\n"), (Lines{"a", ""}));
  EXPECT_EQ(LinesOf("a\r\r\n"), Lines{"a\r"});
  EXPECT_EQ(LinesOf("a\r\nb\r"), (Lines{"a", "b\r"}));  // no line feed follows: it belongs to the text
  EXPECT_EQ(LinesOf("a\n\r"), (Lines{"a", "\r"}));
  EXPECT_EQ(LinesOf(""), Lines{});
}

}  // namespace
}  // namespace tremlo
