#include "numeric/sources/DamAttenuation.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

const DamCoefficients kCoef = {.coefM = 0.5,
                               .coefM2 = -0.02,
                               .coefD = 0.004,
                               .coefX = 0.003,
                               .coefDX = 0.00001,
                               .coefC = 0.3,
                               .coefNear = 0.01};
constexpr double kAmp = 1.5;
constexpr double kDepth = 12.0;

// Expected values reckoned with 40 decimal digits.
void CheckShortest(double magnitude, double expected) {
  EXPECT_NEAR(ShortestDistanceResponse(kCoef, kAmp, magnitude, kDepth, 20.0), expected, 1e-13 * expected)
      << magnitude;
}
void CheckEquivalent(double magnitude, double expected) {
  EXPECT_NEAR(EquivalentDistanceResponse(kCoef, kAmp, magnitude, kDepth, 23.8), expected, 1e-13 * expected)
      << magnitude;
}

TEST(DamAttenuation, ShortestFormTakesTheSquaredTermAboveFive) {
  CheckShortest(5.0, 39.52846916744630431628571753299);
  CheckShortest(5.01, 39.92288867770542628403404534580);
  CheckShortest(5.5, 62.81368584951994232843059830370);
  CheckShortest(6.0, 92.16584397528772757764081760887);
  CheckShortest(7.0, 147.5196587561185487962600166941);
}

TEST(DamAttenuation, EquivalentFormTakesTheSquaredTermAboveSix) {
  CheckEquivalent(5.0, 37.41759445573010905880700941612);
  CheckEquivalent(5.5, 66.53893779381140704766478921641);
  CheckEquivalent(6.0, 118.3248230445955324254903453370);
  CheckEquivalent(6.01, 119.6944087064593917285912375958);
  CheckEquivalent(7.0, 357.3352529197904104167666383739);
}

TEST(DamAttenuation, MagnitudeZeroGivesAValue) {
  CheckShortest(0.0, 0.1446918836307777878865049733834);
  CheckEquivalent(0.0, 0.1183248230445955324254903452571);
}

TEST(DamAttenuation, SquaredTermCountsAtItsThresholdAlone) {
  DamCoefficients other = kCoef;
  other.coefM2 = 99.0;
  const auto shortest = [](const DamCoefficients& coef, double magnitude) {
    return ShortestDistanceResponse(coef, 1.0, magnitude, kDepth, 20.0);
  };
  const auto equivalent = [](const DamCoefficients& coef, double magnitude) {
    return EquivalentDistanceResponse(coef, 1.0, magnitude, kDepth, 20.0);
  };
  EXPECT_EQ(shortest(other, 5.0), shortest(kCoef, 5.0));
  EXPECT_NE(shortest(other, 5.01), shortest(kCoef, 5.01));
  EXPECT_EQ(equivalent(other, 6.0), equivalent(kCoef, 6.0));
  EXPECT_NE(equivalent(other, 6.01), equivalent(kCoef, 6.01));
}

TEST(DamAttenuation, NearSourceTermHoldsAtDistanceZero) {
  EXPECT_TRUE(std::isfinite(ShortestDistanceResponse(kCoef, 1.0, 7.0, kDepth, 0.0)));
  EXPECT_TRUE(std::isfinite(EquivalentDistanceResponse(kCoef, 1.0, 7.0, kDepth, 0.0)));
}

TEST(DamAttenuation, LogarithmIsNotGuarded) {
  DamCoefficients bare = kCoef;
  bare.coefNear = 0.0;
  EXPECT_EQ(ShortestDistanceResponse(bare, 1.0, 7.0, kDepth, 0.0), HUGE_VAL);
  EXPECT_TRUE(std::isnan(ShortestDistanceResponse(bare, 1.0, 7.0, kDepth, -1.0)));
  EXPECT_EQ(EquivalentDistanceResponse(bare, 1.0, 7.0, kDepth, 0.0), HUGE_VAL);
  EXPECT_TRUE(std::isnan(EquivalentDistanceResponse(bare, 1.0, 7.0, kDepth, -1.0)));
}

}  // namespace
}  // namespace tremlo
