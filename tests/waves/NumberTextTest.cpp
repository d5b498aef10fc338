#include "waves/NumberText.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

TEST(FixedText, LargeAndOddValuesAreWrittenAsAFormattedPrintDoes) {
  for (const double value : {std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(), 1e23,
                             9e32, 5e-324, -0.0, std::numeric_limits<double>::infinity()}) {
    char expected[400];
    std::snprintf(expected, sizeof expected, "%.6f", value);
    EXPECT_EQ(FixedText(value, 6).toStdString(), expected);
  }
}

TEST(FixedText, MoreThanAHundredPlacesAreNotWritten) {
  EXPECT_EQ(FixedText(-std::numeric_limits<double>::max(), 1000).size(), 1 + 309 + 1 + 100);
}

TEST(FixedText, NegativeCountOfPlacesMeansNone) {
  EXPECT_EQ(FixedText(12.75, -1), QStringLiteral("13"));
}

}  // namespace
}  // namespace tremlo
