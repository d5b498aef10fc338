#include "core/verify/Agreement.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
const double kNan = std::numeric_limits<double>::quiet_NaN();

VerifyOutcome OutcomeOfPair(double stored, double anew, double leastScale = 0.0) {
  return Compare(stored, anew, leastScale).outcome;
}

TEST(Agreement, TheSameBitsAreEqual) {
  for (const double value : {0.0, -0.0, 1.5, kInfinite, -kInfinite, kNan})
    EXPECT_EQ(OutcomeOfPair(value, value), VerifyOutcome::Equal) << value;
  EXPECT_EQ(Compare(std::vector<double>{}, std::vector<double>{}).outcome, VerifyOutcome::Equal);
}

TEST(Agreement, TheLastBitIsClose) {
  EXPECT_EQ(OutcomeOfPair(1.0, std::nextafter(1.0, 2.0)), VerifyOutcome::Close);
  EXPECT_EQ(OutcomeOfPair(1e300, std::nextafter(1e300, 2e300)), VerifyOutcome::Close);
  EXPECT_EQ(OutcomeOfPair(0.0, -0.0), VerifyOutcome::Close);
  EXPECT_EQ(OutcomeOfPair(kNan, std::copysign(kNan, -1.0)), VerifyOutcome::Close);
}

TEST(Agreement, TheLimitIsRelativeToTheLargerOfTheTwo) {
  EXPECT_EQ(OutcomeOfPair(1000.0, 1000.0 + 0.9e-6), VerifyOutcome::Close);
  EXPECT_EQ(OutcomeOfPair(1000.0, 1000.0 + 1.1e-6), VerifyOutcome::Differs);
  EXPECT_EQ(OutcomeOfPair(1e-12, 2e-12), VerifyOutcome::Differs);
  EXPECT_EQ(OutcomeOfPair(1e-12, 2e-12, 1.0), VerifyOutcome::Close);
  EXPECT_EQ(OutcomeOfPair(-1.0, 1.0), VerifyOutcome::Differs);
  EXPECT_EQ(Compare(-1.0, 1.0).difference, 2.0);
}

TEST(Agreement, NoNumberAgainstANumberDiffersWithoutBound) {
  for (const double other : {kNan, kInfinite}) {
    EXPECT_EQ(OutcomeOfPair(1.0, other), VerifyOutcome::Differs) << other;
    EXPECT_EQ(Compare(1.0, other).difference, kInfinite) << other;
    EXPECT_EQ(Compare(other, 1.0).difference, kInfinite) << other;
  }
  EXPECT_EQ(Compare(kInfinite, -kInfinite).difference, kInfinite);
  EXPECT_EQ(Compare(kInfinite, kNan).difference, kInfinite);
}

TEST(Agreement, TheLargestDifferenceIsTold) {
  const std::vector<double> stored = {1.0, 2.0, 3.0, 4.0};
  const std::vector<double> anew = {1.0, 2.0 + 1e-12, 3.3, 4.1};
  const Agreement agreement = Compare(stored, anew);
  EXPECT_EQ(agreement.outcome, VerifyOutcome::Differs);
  EXPECT_EQ(agreement.index, 2U);
  EXPECT_EQ(agreement.stored, 3.0);
  EXPECT_EQ(agreement.anew, 3.3);
  EXPECT_NEAR(agreement.difference, 0.3 / 3.3, 1e-12);
}

TEST(Agreement, AZeroOfTheOtherSignDoesNotHideALargerDifference) {
  const Agreement agreement = Compare(std::vector<double>{0.0, 5.0}, std::vector<double>{-0.0, 6.0});
  EXPECT_EQ(agreement.outcome, VerifyOutcome::Differs);
  EXPECT_EQ(agreement.index, 1U);
}

TEST(Agreement, ListsOfTwoLengthsDifferAtTheEndOfTheShorter) {
  const Agreement agreement = Compare(std::vector<double>{1.0, 2.0}, std::vector<double>{1.0});
  EXPECT_EQ(agreement.outcome, VerifyOutcome::Differs);
  EXPECT_EQ(agreement.index, 1U);
  EXPECT_EQ(agreement.difference, kInfinite);
  EXPECT_EQ(BothValues(agreement, 2, 1), QStringLiteral("数が異なります（保存 2、再計算 1）。"));
}

TEST(Agreement, TheLargestSizeLeavesOutWhatIsNotFinite) {
  EXPECT_EQ(LargestSize(std::vector<double>{1.0, -3.0, kNan, -kInfinite}), 3.0);
  EXPECT_EQ(LargestSize({}), 0.0);
}

}  // namespace
}  // namespace tremlo
