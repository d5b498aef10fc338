#include "core/graphs/CellNumber.h"
#include "support/CommaLocale.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

std::string Number(double value, int decimals) {
  return NumberToText(value, decimals).toStdString();
}
double Value(const char* text) {
  return NumberOfText(QString::fromUtf8(text));
}
std::string HalfWidth(const char* text) {
  return HalfWidthNumber(QString::fromUtf8(text)).toStdString();
}

TEST(CellNumber, EmptyReadsAsNoNumberAndIsWrittenBackEmpty) {
  EXPECT_EQ(Value(""), -9e32);
  EXPECT_EQ(Number(-9e32, 3), "");
  EXPECT_EQ(NumberToText(-9e32), QString());
  EXPECT_EQ(NumberOfText(QString(), 7.5), 7.5);
}

TEST(CellNumber, OnlyTheExactValueIsEmpty) {
  EXPECT_NE(Number(std::nextafter(-9e32, 0.0), 0), "");
  EXPECT_NE(Number(std::nextafter(-9e32, -1e33), 0), "");
}

TEST(CellNumber, TheTwoNoneValuesAreNotMerged) {
  EXPECT_EQ(NumberToText(-2147483648.0).toStdString(), "-2147483648.000000");
  EXPECT_EQ(IntegerToText(std::numeric_limits<std::int32_t>::min()), QString());
  EXPECT_EQ(IntegerToText(-2147483647).toStdString(), "-2147483647");
  EXPECT_EQ(IntegerToText(0).toStdString(), "0");
}

TEST(CellNumber, PlacesAreThoseAskedFor) {
  EXPECT_EQ(Number(1.5, 3), "1.500");
  EXPECT_EQ(Number(1.5, 0), "2");
  EXPECT_EQ(Number(2.5, 0), "2");
  EXPECT_EQ(Number(-0.125, 2), "-0.12");
  EXPECT_EQ(Number(12000.0, -3), "12000");
  EXPECT_EQ(NumberToText(1.5).toStdString(), "1.500000");
}

TEST(CellNumber, ShortestTextReadsBackToTheSameDouble) {
  EXPECT_EQ(ShortestText(0.01).toStdString(), "0.01");
  for (const double value : {0.1 + 0.2, 1.0 / 3.0, -1e-300, 123456789.123456789})
    EXPECT_EQ(NumberOfText(ShortestText(value)), value);
}

TEST(CellNumber, TextReadsByItsLongestNumericStart) {
  EXPECT_EQ(Value("7.2abc"), 7.2);
  EXPECT_EQ(Value("abc"), 0.0);
  EXPECT_EQ(Value("-"), 0.0);
  EXPECT_EQ(Value("  12"), 12.0);
}

TEST(CellNumber, ALocaleWithACommaChangesNothing) {
  const test::CommaLocale locale;
  EXPECT_EQ(Number(1.5, 3), "1.500");
  EXPECT_EQ(ShortestText(1.5).toStdString(), "1.5");
  EXPECT_EQ(Value("1.5"), 1.5);
}

TEST(CellNumber, CheckTextIsCutAtItsFirstComma) {
  const auto checked = [](const char* text) { return IsCheckedText(QString::fromLatin1(text)); };
  EXPECT_TRUE(checked("1"));
  EXPECT_TRUE(checked("1,0"));
  EXPECT_TRUE(checked("0,1"));
  EXPECT_FALSE(checked("0"));
  EXPECT_FALSE(checked("0,0"));
  EXPECT_FALSE(checked("0,0,1"));
  EXPECT_FALSE(checked(""));
  EXPECT_FALSE(checked("11"));
}

TEST(CellNumber, FullWidthNumbersBecomeHalfWidth) {
  EXPECT_EQ(HalfWidth("－１２．５"), "-12.5");
  EXPECT_EQ(HalfWidth("ー１２。５"), "-12.5");
  EXPECT_EQ(HalfWidth("＋３．０Ｅ−２"), "+3.0E-2");
  EXPECT_EQ(HalfWidth("３ｅ２"), "3e2");
  EXPECT_EQ(HalfWidth("　０１２３４５６７８９ "), "0123456789");
  EXPECT_EQ(HalfWidth("断層"), "断層");
}

TEST(CellNumber, OnlyWellFormedGroupsOfThousandsAreANumber) {
  const auto ungrouped = [](const char* text) {
    return UngroupedNumber(QString::fromUtf8(text)).toStdString();
  };
  EXPECT_EQ(ungrouped("1,234.5"), "1234.5");
  EXPECT_EQ(ungrouped("-12,345,678"), "-12345678");
  EXPECT_EQ(ungrouped("+123,456."), "+123456.");
  for (const char* text : {"", "1", "1234", "1,23", "1,2345", "1234,567", "0,123", ",123", "1,,234", "1,234,",
                           "1,234.5.6", "1,234e3", "a1,234", "1,234 ", "-", "1,234.5,678"})
    EXPECT_EQ(ungrouped(text), "") << text;
}

TEST(CellNumber, ANumberIsReadWholeOrNotAtAll) {
  const auto reading = [](const char* text) { return ReadNumber(QString::fromUtf8(text)); };
  for (const char* text : {"5", "-5", "+5", "5.", ".5", "1.50", "1e3", "1.5E-3", "1e-400"}) {
    EXPECT_EQ(reading(text).text.toStdString(), text);
    EXPECT_EQ(reading(text).fault, NumberFault::None) << text;
  }
  EXPECT_EQ(reading(" １，２３４．５　").text, QStringLiteral("1234.5"));
  for (const char* text : {"", " ", "inf", "INF", "+Infinity"}) {
    EXPECT_EQ(reading(text).text, QString()) << text;
    EXPECT_EQ(reading(text).fault, NumberFault::None) << text;
  }
  for (const char* text : {"abc", "-", ".", "+", "T1", "nan", "-inf", "information", "#N/A"})
    EXPECT_EQ(reading(text).text, QStringLiteral("0")) << text;
  for (const char* text : {"1e", "1e+", "1.2.3", "1,23", "12gal", "5-", "(5)"})
    EXPECT_EQ(reading(text).fault, NumberFault::Unclear) << text;
  for (const char* text : {"1e400", "-1e309"}) EXPECT_EQ(reading(text).fault, NumberFault::TooLarge) << text;
}

TEST(CellNumber, DashesOfPagesAreMinusSigns) {
  for (const char* text : {"−5", "‐5", "‑5", "–5", "—5", "－5", "﹣5"})
    EXPECT_EQ(HalfWidthNumber(QString::fromUtf8(text)), QStringLiteral("-5")) << text;
}

}  // namespace
}  // namespace tremlo
