#include "core/waves/SeismicWave.h"
#include "numeric/waves/OscillatorSweep.h"
#include "support/Waves.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kTimeStep = 0.01;

std::vector<double> SweepOf(SweepVariant variant, const std::vector<double>& acc,
                            double timeStep = kTimeStep) {
  const double df = (1.0 / static_cast<double>(acc.size())) / timeStep;
  std::vector<double> maxima = {-1.0};
  SweepMaxima(variant, maxima, acc, df, df, timeStep);
  return maxima;
}

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

class EveryVariant : public testing::TestWithParam<SweepVariant> {
 protected:
  void SetUp() override {
    // A test cannot give the processor what it lacks; the closing line of the run counts the skip.
    if (!IsSweepVariantAvailable(GetParam())) GTEST_SKIP() << "this processor or build has not these vectors";
  }
  void ExpectPlainBits(const std::vector<double>& acc, double timeStep = kTimeStep) const {
    EXPECT_TRUE(SameBits(SweepOf(GetParam(), acc, timeStep), SweepOf(SweepVariant::Plain, acc, timeStep)))
        << acc.size() << " samples";
  }
};

INSTANTIATE_TEST_SUITE_P(Sweep, EveryVariant,
                         testing::Values(SweepVariant::Sse2, SweepVariant::Avx2, SweepVariant::Avx512),
                         [](const auto& variant) {
                           switch (variant.param) {
                             case SweepVariant::Sse2:
                               return "Sse2";
                             case SweepVariant::Avx2:
                               return "Avx2";
                             default:
                               return "Avx512";
                           }
                         });

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopAtEveryShortLength) {
  for (std::size_t count = 0; count <= 70; ++count) ExpectPlainBits(test::Noise(count, count));
}

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopAtLongOddLengths) {
  for (const std::size_t count : {1001U, 2047U, 4099U, 6151U})
    ExpectPlainBits(test::RecordLike(count, count), 0.005);
}

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopInAQuietTail) {
  std::vector<double> acc = test::Noise(3001, 7);
  std::fill(acc.begin() + 100, acc.end(), 0.0);
  ExpectPlainBits(acc);
}

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopWithSubnormalSamples) {
  std::vector<double> acc = test::Noise(1501, 9);
  for (std::size_t i = 700; i < acc.size(); ++i) acc[i] *= 1e-312;
  ExpectPlainBits(acc);
  for (double& a : acc) a *= 1e-312;
  ExpectPlainBits(acc);
}

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopWithBlanksAndNotANumber) {
  for (const double odd : {kBlankSample, -kBlankSample, std::numeric_limits<double>::quiet_NaN(), 1e308}) {
    for (const std::size_t place : {0U, 1U, 30U, 66U}) {
      std::vector<double> acc = test::Noise(67, 3);
      acc[place] = odd;
      ExpectPlainBits(acc);
    }
  }
}

TEST_P(EveryVariant, HasTheBitsOfThePlainLoopForAnyTimeStep) {
  for (const double timeStep : {1e-6, 0.02, 1.0, 1e5}) ExpectPlainBits(test::Noise(131, 5), timeStep);
}

TEST(OscillatorSweep, SubnormalNumbersCountAgainAfterTheSweep) {
  SweepOf(BestSweepVariant(), test::Noise(64, 1));
  volatile double small = std::numeric_limits<double>::min();
  EXPECT_GT(small / 4.0, 0.0);
  volatile double subnormal = std::numeric_limits<double>::denorm_min();
  EXPECT_GT(subnormal * 2.0, 0.0);
}

TEST(OscillatorSweep, FlushingSubnormalsChangesNoBitOfAnOrdinaryWave) {
  // OscillatorPeak called here runs with subnormal numbers as they are.
  std::vector<double> acc = test::RecordLike(4001, 11);
  std::fill(acc.begin(), acc.begin() + 50, 0.0);
  std::fill(acc.begin() + 1500, acc.begin() + 3900, 0.0);
  const double df = (1.0 / static_cast<double>(acc.size())) / kTimeStep;
  std::vector<double> direct;
  for (std::size_t i = 0; i < acc.size() / 2; ++i)
    direct.push_back(OscillatorPeak(OscillatorAt(static_cast<double>(i) * df + df, kTimeStep), acc.data(),
                                    acc.size(), kTimeStep));
  EXPECT_TRUE(SameBits(SweepOf(BestSweepVariant(), acc), direct));
}

TEST(OscillatorSweep, TheBestVariantIsTheWidestAvailable) {
  const std::vector<SweepVariant> widestFirst = {SweepVariant::Avx512, SweepVariant::Avx2, SweepVariant::Sse2,
                                                 SweepVariant::Plain};
  const auto widest = std::find_if(widestFirst.begin(), widestFirst.end(), IsSweepVariantAvailable);
  ASSERT_NE(widest, widestFirst.end());
  EXPECT_EQ(BestSweepVariant(), *widest);
}

}  // namespace
}  // namespace tremlo
