#include "core/project/AcquisitionEntries.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

const QString kRangeRefusal = QStringLiteral("時間間隔の入力エラーです。");

TEST(AcquisitionEntries, OnlyTheSmallestWholeNumberIsRefusedAsARange) {
  for (const char* text : {"-2147483648", "-2147483649", "-99999999999999999999"})
    EXPECT_EQ(SearchRangeRefusal(text), kRangeRefusal) << text;
  for (const char* text :
       {"", "0", "-1", "-2147483647", "2147483647", "2147483648", "99999999999999999999", "-"})
    EXPECT_EQ(SearchRangeRefusal(text), QString()) << text;
}

TEST(AcquisitionEntries, TheFieldItselfLetsEveryWholeNumberThrough) {
  for (const char* text : {"0", "-5", "300", "99999999999"})
    EXPECT_EQ(CheckEntry(SearchRangeRule(), text), EntryFault::None) << text;
  EXPECT_EQ(CheckEntry(SearchRangeRule(), "1.5"), EntryFault::NoNumber);
}

TEST(AcquisitionEntries, TheNumberOfTheFieldIsStored) {
  EXPECT_EQ(EnteredNumber("0", 50.0), 0.0);
  EXPECT_EQ(EnteredNumber("-30", 50.0), -30.0);
  EXPECT_EQ(EnteredNumber("99999999999", 50.0), 99999999999.0);
  EXPECT_EQ(EnteredNumber("-", 50.0), 0.0);
}

TEST(AcquisitionEntries, AnEmptiedFieldLeavesTheStoredNumber) {
  EXPECT_EQ(EnteredNumber("", 50.25), 50.25);
}

TEST(AcquisitionEntries, TheWeightHasItsOwnRangeAndWords) {
  const EntryRule rule = CatastropheWeightRule();
  for (const char* text : {"-1", "1", "0.6", "-0.1234567", "1.0000000"})
    EXPECT_EQ(CheckEntry(rule, text), EntryFault::None) << text;
  EXPECT_EQ(CheckEntry(rule, "1.0000001"), EntryFault::OutOfRange);
  EXPECT_EQ(CheckEntry(rule, "-1.1"), EntryFault::OutOfRange);
  EXPECT_EQ(CheckEntry(rule, "0.12345678"), EntryFault::Digits);
  EXPECT_EQ(RoomForText(rule, {}), 10);
  EXPECT_EQ(EntryText(rule, 0.6), QString("0.6000000"));
  EXPECT_EQ(CatastropheWeightRefusal("-2147483648"), QString("入力エラーです。"));
  EXPECT_EQ(CatastropheWeightRefusal("-1"), QString());
  EXPECT_EQ(CatastropheWeightRefusal(""), QString());
}

}  // namespace
}  // namespace tremlo
