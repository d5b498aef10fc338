#include "core/graphs/NumericText.h"
#include "support/CommaLocale.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

EntryRule Rule(EntryKind kind, double low, double high, std::int32_t decimals = 0) {
  EntryRule rule;
  rule.kind = kind;
  rule.minValue = low;
  rule.maxValue = high;
  rule.decimals = decimals;
  return rule;
}
EntryRule Integer(double low = kNoIntegerLimit, double high = kNoIntegerLimit) {
  return Rule(EntryKind::Integer, low, high);
}
EntryRule Decimal(std::int32_t decimals, double low = kNoNumber, double high = kNoNumber) {
  return Rule(EntryKind::Decimal, low, high, decimals);
}
EntryFault Check(const EntryRule& rule, const char* text) {
  return CheckEntry(rule, QString::fromUtf8(text));
}
std::string Message(const EntryRule& rule, const char* text) {
  return EntryFaultText(rule, Check(rule, text)).toStdString();
}
/// What is left in a field into which the text is typed; "|" is the caret, a part in [] is selected.
std::string Typed(const EntryRule& rule, const char* field, const char* typed) {
  EntryState state;
  state.text = QString::fromUtf8(field);
  state.start = std::max(state.text.indexOf(u'|'), state.text.indexOf(u'['));
  const qsizetype end = state.text.indexOf(u']');
  state.length = end < 0 ? 0 : end - state.start - 1;
  for (const QChar mark : {u'|', u'[', u']'}) state.text.remove(mark);
  const QString passed = FilterTyped(rule, state, QString::fromUtf8(typed));
  return state.text.replace(state.start, state.length, passed).toStdString();
}

TEST(NumericText, TextFieldsTakeEverything) {
  EXPECT_EQ(Typed(EntryRule(), "|", "地震波形 -1.5e3"), "地震波形 -1.5e3");
  EXPECT_EQ(Check(EntryRule(), "1-2"), EntryFault::None);
  EXPECT_EQ(Check(Rule(EntryKind::Text, 0.0, 1.0), "99.99"), EntryFault::None);
}

TEST(NumericText, IntegersAreTypedFromDigitsAndOneLeadingMinus) {
  EXPECT_EQ(Typed(Integer(), "|", "-12.5a 3"), "-1253");
  EXPECT_EQ(Typed(Integer(), "12|", "-"), "12");
  EXPECT_EQ(Typed(Integer(), "|12", "-"), "-12");
  EXPECT_EQ(Typed(Integer(), "|-12", "-"), "-12");
}

TEST(NumericText, ASelectedPartIsTakenAsGone) {
  EXPECT_EQ(Typed(Integer(), "[-12]", "-5"), "-5");
  EXPECT_EQ(Typed(Integer(), "[-1]2", "-"), "-2");
  EXPECT_EQ(Typed(Decimal(2), "1[.5]", "."), "1.");
  EXPECT_EQ(Typed(Decimal(2), "1[.]5", "-."), "1.5");
}

TEST(NumericText, DecimalsHaveOnePointAndNoMinusBehindIt) {
  EXPECT_EQ(Typed(Decimal(2), "|", "1.2.3"), "1.23");
  EXPECT_EQ(Typed(Decimal(2), "1.|5", "-"), "1.5");
  EXPECT_EQ(Typed(Decimal(2), "|", ".5"), ".5");
}

TEST(NumericText, FullWidthNumbersAreTypedHalfWidth) {
  EXPECT_EQ(Typed(Decimal(2), "|", "－１．５"), "-1.5");
  EXPECT_EQ(Typed(Integer(), "|", "１２断"), "12");
  EXPECT_EQ(Typed(EntryRule(), "|", "１２"), "１２");
}

TEST(NumericText, TwoBytesHoldOneDoubleByteCharacterOrTwoSingleOnes) {
  EntryRule rule;
  rule.maxBytes = 2;
  EXPECT_EQ(Typed(rule, "|", "断層"), "断");
  EXPECT_EQ(Typed(rule, "|", "abc"), "ab");
  EXPECT_EQ(Typed(rule, "|", "a断"), "a");
  EXPECT_EQ(Typed(rule, "|", "ｱｲｳ"), "ｱｲ");
  EXPECT_EQ(Typed(rule, "断|", "a"), "断");
}

TEST(NumericText, TheSelectionMakesRoom) {
  EntryRule rule;
  rule.maxBytes = 4;
  EXPECT_EQ(Typed(rule, "ab[cd]", "断"), "ab断");
  EXPECT_EQ(Typed(rule, "[断]層", "xyz"), "xy層");
  EXPECT_EQ(RoomForText(rule, {QStringLiteral("断a"), 0, 1}), 3);
  EXPECT_EQ(RoomForText(rule, {QStringLiteral("断層だ"), 0, 0}), 0);
}

TEST(NumericText, ZeroBytesMeansNoLimit) {
  EntryRule rule;
  rule.maxBytes = 0;
  const QString long40000 = QString(40000, u'a');
  EXPECT_EQ(FilterTyped(rule, {long40000, 0, 0}, QStringLiteral("b")), QStringLiteral("b"));
  EXPECT_TRUE(FitsInto(rule, {long40000, 0, 0}, long40000));
}

TEST(NumericText, APasteMustFitWhole) {
  EntryRule rule;
  rule.maxBytes = 4;
  EXPECT_TRUE(FitsInto(rule, {QStringLiteral("ab"), 2, 0}, QStringLiteral("断")));
  EXPECT_FALSE(FitsInto(rule, {QStringLiteral("ab"), 2, 0}, QStringLiteral("断a")));
  EXPECT_TRUE(FitsInto(rule, {QStringLiteral("ab"), 0, 2}, QStringLiteral("断層")));
}

TEST(NumericText, APasteTakesTheFirstLine) {
  EXPECT_EQ(PastedText(EntryRule(), QStringLiteral("１\r\nb")), QStringLiteral("１"));
  EXPECT_EQ(PastedText(Integer(), QStringLiteral(" １２ \n3")), QStringLiteral("12"));
  EXPECT_EQ(PastedText(Integer(), QStringLiteral("1-2")), QStringLiteral("1-2"));
  EXPECT_EQ(PastedText(EntryRule(), QStringLiteral("\nb")), QString());
}

TEST(NumericText, EmptyIsGood) {
  for (const EntryRule& rule : {EntryRule(), Integer(1.0, 2.0), Decimal(2, 1.0, 2.0), Decimal(-3)})
    EXPECT_EQ(Check(rule, ""), EntryFault::None);
}

TEST(NumericText, ANumberBeyondTheDoublesGivesCodeOne) {
  const std::string nines(400, '9');
  EXPECT_EQ(Check(Decimal(2), nines.c_str()), EntryFault::NoNumber);
  EXPECT_EQ(Check(Decimal(2), ("-" + nines).c_str()), EntryFault::NoNumber);
  EXPECT_EQ(Check(Decimal(2, 0.0, 100.0), nines.c_str()), EntryFault::OutOfRange);
  EXPECT_EQ(Check(Decimal(2, 0.0), nines.c_str()), EntryFault::NoNumber);
  EXPECT_EQ(Check(Decimal(2), std::string(300, '9').c_str()), EntryFault::None);
}

TEST(NumericText, WhatIsNoNumberGivesCodeOne) {
  for (const char* text : {"1-2", "--1", "1.5", "+1", "1e3", " 1", "１"})
    EXPECT_EQ(Check(Integer(), text), EntryFault::NoNumber) << text;
  for (const char* text : {"1-2", "1.2.3", "+1", "1e3", "1,5", "-1-", "abc"})
    EXPECT_EQ(Check(Decimal(5), text), EntryFault::NoNumber) << text;
  EXPECT_EQ(Message(Integer(), "1-2"), "値が正しくありません。\n\n（数値を入力してください。）");
}

TEST(NumericText, ALoneMinusIsTypedAndReadsAsZero) {
  for (const EntryRule& rule : {Integer(-1.0, 1.0), Decimal(0, -1.0, 1.0), Decimal(-3)}) {
    EXPECT_EQ(Typed(rule, "|", "-"), "-");
    EXPECT_EQ(Check(rule, "-"), EntryFault::None);
    EXPECT_EQ(EntryNumber(rule, QStringLiteral("-")), 0.0);
  }
  EXPECT_EQ(Check(Integer(1.0, 2.0), "-"), EntryFault::OutOfRange);
}

TEST(NumericText, LimitsOfIntegersAreComparedAsIntegers) {
  const EntryRule rule = Integer(1.0, 10000.0);
  EXPECT_EQ(Check(rule, "1"), EntryFault::None);
  EXPECT_EQ(Check(rule, "10000"), EntryFault::None);
  EXPECT_EQ(Check(rule, "0"), EntryFault::OutOfRange);
  EXPECT_EQ(Check(rule, "10001"), EntryFault::OutOfRange);
  EXPECT_EQ(Check(rule, "99999999999999999999"), EntryFault::OutOfRange);
  EXPECT_EQ(Check(Integer(0.5, 1.5), "0"), EntryFault::None);
  EXPECT_EQ(Message(rule, "0"), "数値が範囲外です。\n\n（1 ～ 10000 までの範囲で入力してください。）");
}

TEST(NumericText, TheTwoNoneLimitsAreNotMerged) {
  EXPECT_EQ(Check(Integer(), "99999999999"), EntryFault::None);
  EXPECT_EQ(Check(Integer(), "-99999999999"), EntryFault::None);
  EXPECT_EQ(Check(Rule(EntryKind::Integer, kNoNumber, kNoNumber), "0"), EntryFault::OutOfRange);
  EXPECT_EQ(Check(Decimal(0), "99999999999"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(0, kNoIntegerLimit, kNoNumber), "0"), EntryFault::OutOfRange);
}

TEST(NumericText, OneLimitAloneIsKept) {
  EXPECT_EQ(Check(Integer(0.0, kNoIntegerLimit), "-1"), EntryFault::OutOfRange);
  EXPECT_EQ(Check(Decimal(1, kNoNumber, 5.0), "-1e"), EntryFault::NoNumber);
  EXPECT_EQ(Check(Decimal(1, kNoNumber, 5.0), "5.1"), EntryFault::OutOfRange);
}

TEST(NumericText, TheRangeMessageHasTheFieldsDecimals) {
  const EntryRule rule = Decimal(1, 0.0, 100.0);
  EXPECT_EQ(Check(rule, "101"), EntryFault::OutOfRange);
  EXPECT_EQ(Message(rule, "101"), "数値が範囲外です。\n\n（0.0 ～ 100.0 までの範囲で入力してください。）");
  EXPECT_EQ(Message(Decimal(-3, 0.0, 100.0), "1000"),
            "数値が範囲外です。\n\n（0 ～ 100 までの範囲で入力してください。）");
}

TEST(NumericText, PlacesBeyondTheDecimalsMustBeZero) {
  EXPECT_EQ(Check(Decimal(2), "3.14159"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(2), "3.14"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(1), "1.500"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(1), "1.51"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(0), "1."), EntryFault::None);
  EXPECT_EQ(Check(Decimal(0), "0.01"), EntryFault::Digits);
  EXPECT_EQ(Message(Decimal(2), "3.14159"),
            "少数桁がオーバーしています。\n\n（少数 2桁 以内で入力してください。）");
}

TEST(NumericText, LowDigitsMustBeZeroForNegativeDecimals) {
  EXPECT_EQ(Check(Decimal(-3), "12000"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(-3), "12345"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(-3), "-12000"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(-3), "12000.00"), EntryFault::None);
  EXPECT_EQ(Check(Decimal(-3), "12000.01"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(-3), "12100.0"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(-3), "12"), EntryFault::Digits);
  EXPECT_EQ(Check(Decimal(-3), "0"), EntryFault::None);
  EXPECT_EQ(Message(Decimal(-3), "12345"), "整数部下 3桁 はゼロで入力してください。");
  EntryRule whole = Integer();
  whole.decimals = -2;
  EXPECT_EQ(Check(whole, "150"), EntryFault::Digits);
}

TEST(NumericText, TheRangeIsCheckedBeforeTheDigits) {
  EXPECT_EQ(Check(Decimal(1, 0.0, 100.0), "101.55"), EntryFault::OutOfRange);
}

TEST(NumericText, ValuesAreShownWithTheirDecimals) {
  EXPECT_EQ(EntryText(Decimal(2), 5.0), QStringLiteral("5.00"));
  EXPECT_EQ(EntryText(Decimal(-3), 12000.0), QStringLiteral("12000"));
  EXPECT_EQ(EntryText(Integer(), -7.0), QStringLiteral("-7"));
}

TEST(NumericText, TheEmptyValueIsShownAsEmptyAndReadBack) {
  EXPECT_EQ(EntryText(Decimal(2), -9e32), QString());
  EXPECT_EQ(EntryNumber(Decimal(2), QString()), -9e32);
  EntryRule rule = Integer();
  rule.emptyValue = 0.0;
  EXPECT_EQ(EntryText(rule, 0.0), QString());
  EXPECT_EQ(EntryNumber(rule, QString()), 0.0);
}

TEST(NumericText, WholeNumbersSaturateAt32Bits) {
  const auto whole = [](const char* text) { return WholeNumberOfText(QString::fromUtf8(text)); };
  EXPECT_EQ(whole("50"), 50);
  EXPECT_EQ(whole("99999999999"), 2147483647);
  EXPECT_EQ(whole("-99999999999"), -2147483647 - 1);
  EXPECT_EQ(whole("12.9"), 12);
  EXPECT_EQ(whole(""), 0);
}

TEST(NumericText, ALocaleWithACommaChangesNothing) {
  const test::CommaLocale locale;
  EXPECT_EQ(Check(Decimal(1, 0.0, 2.0), "1.5"), EntryFault::None);
  EXPECT_EQ(EntryText(Decimal(1), 1.5), QStringLiteral("1.5"));
  EXPECT_EQ(EntryNumber(Decimal(1), QStringLiteral("1.5")), 1.5);
}

}  // namespace
}  // namespace tremlo
