#include "core/records/RecordOffset.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(RecordOffset, MeansOverTheRuledLength) {
  const std::vector<double> acc = {1.0, 3.0, 8.0, 8.0};
  EXPECT_EQ(OffsetOf(acc, 0.01, {OffsetRule::None, 0.0}), 0.0);
  EXPECT_EQ(OffsetOf(acc, 0.01, {OffsetRule::Whole, 0.0}), 5.0);
  EXPECT_EQ(OffsetOf(acc, 0.01, {OffsetRule::First, 0.02}), 2.0);
  EXPECT_EQ(OffsetOf(acc, 0.01, {OffsetRule::First, 1e-9}), 1.0);
  EXPECT_EQ(OffsetOf(acc, 0.01, {OffsetRule::First, 1e9}), 5.0);
  EXPECT_EQ(OffsetOf({}, 0.01, {OffsetRule::Whole, 0.0}), 0.0);
}

TEST(RecordOffset, AMeanThatStaysIsToldAboveHalfAPercent) {
  const std::vector<double> acc = {101.0, -99.0, 101.0, -99.0};
  EXPECT_EQ(DoubtOfOffset(acc, 0.0),
            QStringLiteral("オフセット：平均値 1 gal（最大加速度 100 gal の 1 %）が残ります。"));
  EXPECT_EQ(DoubtOfOffset(acc, 1.0), QString());
  EXPECT_EQ(DoubtOfOffset(acc, 0.5), QString());
  EXPECT_NE(DoubtOfOffset(acc, 0.49), QString());
  EXPECT_EQ(DoubtOfOffset({7.0, 7.0}, 0.0), QString());
  EXPECT_EQ(DoubtOfOffset({}, 0.0), QString());
}

TEST(RecordOffset, WhatIsCorrectedStaysAsItIs) {
  RecordReading reading;
  EXPECT_EQ(UsualOffset(reading).kind, OffsetRule::Whole);
  reading.corrected = true;
  EXPECT_EQ(UsualOffset(reading).kind, OffsetRule::None);
}

}  // namespace
}  // namespace tremlo
