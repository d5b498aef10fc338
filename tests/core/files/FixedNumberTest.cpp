#include "core/files/FixedNumber.h"
#include "support/CommaLocale.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(FixedNumber, LargeAndOddValuesAreWrittenAsAFormattedPrintDoes) {
  for (const double value :
       {kLargest, -kLargest, 1e23, 9e32, 5e-324, -0.0, 2.5, std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    for (const int decimals : {0, 1, 6}) {
      char expected[400];
      std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
      EXPECT_EQ(FixedNumber(value, decimals), expected);
    }
  }
}

TEST(FixedNumber, WhatIsNoNumberHasNoSign) {
  // The sign of the outcome of 0 / 0 is a matter of processor and compiler.
  const double none = std::numeric_limits<double>::quiet_NaN();
  for (const double value : {std::copysign(none, 1.0), std::copysign(none, -1.0)})
    EXPECT_EQ(FixedNumber(value, 4), "nan");
}

TEST(FixedNumber, ThereAreFromNoneToAHundredDecimals) {
  EXPECT_EQ(FixedNumber(12000.0, -3), "12000");
  EXPECT_EQ(FixedNumber(-kLargest, 1000).size(), 1U + 309U + 1U + 100U);
}

TEST(FixedNumber, ALocaleWithACommaChangesNothing) {
  const test::CommaLocale locale;
  EXPECT_EQ(FixedNumber(1.25, 2), "1.25");
}

}  // namespace
}  // namespace tremlo
