#include "core/files/Cp932Text.h"
#include "core/graphs/GraphCsv.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tremlo {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

QString Csv(const std::vector<GraphSeries>& curves, GraphKind kind = GraphKind::Spectrum) {
  return DecodeCp932(CurvesCsv(kind, curves));
}

TEST(GraphCsv, ACurveWithoutANameIsWhatItsAxisSays) {
  EXPECT_EQ(Csv({{{}, {0, 0.01, 0.02}, {1, -2.5, 0}, {}}}, GraphKind::Time),
            QString("時間 (sec),加速度 (gal)\n0,1\n0.01,-2.5\n0.02,0\n"));
  EXPECT_EQ(Csv({{{}, {2, 1}, {3, 4}, {}}}), QString("周期T (sec),加速度応答スペクトルS (gal)\n2,3\n1,4\n"));
  EXPECT_EQ(Csv({{{}, {2, 1}, {3, 4}, {}}}, GraphKind::Fourier),
            QString("周期T (sec),フーリエスペクトル (gal・sec)\n2,3\n1,4\n"));
}

TEST(GraphCsv, CurvesAtTheSameXShareItsColumn) {
  EXPECT_EQ(Csv({{"A", {2, 1}, {3, 4}, {}}, {"B", {2, 1}, {5, 6}, {}}}),
            QString("周期T (sec),A 加速度応答スペクトルS (gal),B 加速度応答スペクトルS (gal)\n"
                    "2,3,5\n1,4,6\n"));
}

TEST(GraphCsv, ACurveThatEndsEarlierSharesTheColumnToo) {
  const QString expected =
      "時間 (sec),長 加速度 (gal),短 加速度 (gal)\n"
      "0,1,4\n0.5,2,5\n1,3,\n";
  EXPECT_EQ(Csv({{"長", {0, 0.5, 1}, {1, 2, 3}, {}}, {"短", {0, 0.5}, {4, 5}, {}}}, GraphKind::Time),
            expected);
  EXPECT_EQ(Csv({{"短", {0, 0.5}, {4, 5}, {}}, {"長", {0, 0.5, 1}, {1, 2, 3}, {}}}, GraphKind::Time),
            "時間 (sec),短 加速度 (gal),長 加速度 (gal)\n0,4,1\n0.5,5,2\n1,,3\n");
}

TEST(GraphCsv, ACurveElsewhereHasAColumnOfItsOwn) {
  EXPECT_EQ(Csv({{"A", {2, 1}, {3, 4}, {}}, {"B", {2, 1.5, 1}, {5, 6, 7}, {}}, {"C", {2, 1}, {8, 9}, {}}},
                GraphKind::Fourier),
            QString("周期T (sec),A フーリエスペクトル (gal・sec),C フーリエスペクトル (gal・sec),"
                    "周期T (sec),B フーリエスペクトル (gal・sec)\n"
                    "2,3,8,2,5\n1,4,9,1.5,6\n,,,1,7\n"));
}

TEST(GraphCsv, WhatACurveHasBeyondItsOtherVectorIsNoPoint) {
  EXPECT_EQ(Csv({{"A", {3, 2, 1}, {3, 4}, {}}, {"B", {3, 2}, {5, 6, 7}, {}}}, GraphKind::Time),
            QString("時間 (sec),A 加速度 (gal),B 加速度 (gal)\n3,3,5\n2,4,6\n"));
}

TEST(GraphCsv, WhatIsNotDrawnIsNotWritten) {
  EXPECT_EQ(CurvesCsv(GraphKind::Time, {}), "");
  EXPECT_EQ(CurvesCsv(GraphKind::Spectrum, {{{}, {1000.0}, {1000.0}, {}}}), "");
  EXPECT_EQ(CurvesCsv(GraphKind::Spectrum, {{"A", {1, 2}, {}, {}}, {"B", {}, {1, 2}, {}}}), "");
  EXPECT_EQ(Csv({{"点", {1000}, {1000}, {}}, {"線", {1, 2}, {3, 4}, {}}}, GraphKind::Time),
            QString("時間 (sec),線 加速度 (gal)\n1,3\n2,4\n"));
}

TEST(GraphCsv, WhatIsNotFiniteIsAnEmptyCell) {
  EXPECT_EQ(Csv({{{}, {1, 2, kNan, 4}, {kInf, 3, 5, -kInf}, {}}}, GraphKind::Time),
            QString("時間 (sec),加速度 (gal)\n1,\n2,3\n,5\n4,\n"));
}

TEST(GraphCsv, NamesThatWouldBreakTheLineAreQuoted) {
  EXPECT_EQ(Csv({{"a,b", {1, 2}, {3, 4}, {}},
                 {"5\" 波", {1, 2}, {3, 4}, {}},
                 {"c\nd", {1, 2}, {3, 4}, {}},
                 {"e f", {1, 2}, {3, 4}, {}}},
                GraphKind::Time),
            QString("時間 (sec),\"a,b 加速度 (gal)\",\"5\"\" 波 加速度 (gal)\",\"c\nd 加速度 (gal)\","
                    "e f 加速度 (gal)\n1,3,3,3,3\n2,4,4,4,4\n"));
}

TEST(GraphCsv, ANameIsWrittenInTheEncodingOfTheProgramsOtherFiles) {
  const std::string csv = CurvesCsv(GraphKind::Time, {{"波€", {1, 2}, {3, 4}, {}}});
  EXPECT_EQ(csv.substr(0, 15), "\x8E\x9E\x8A\xD4 (sec),\x94\x67? ") << "時間 (sec),波?";
}

TEST(GraphCsv, EveryNumberReadsBackAsTheSame) {
  const test::CommaLocale comma;
  std::mt19937_64 engine(20261122);
  GraphSeries curve{"A", {}, {}, {}};
  for (const double special : {0.1, 1e-320, 1.7976931348623157e308, -2.2250738585072014e-308, 1.0 / 3.0, 1e22,
                               123456789.125, -0.0}) {
    curve.x.push_back(special);
    curve.y.push_back(-special);
  }
  while (curve.x.size() < 3000) {
    const std::uint64_t bits = engine();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    curve.x.push_back(value);
    curve.y.push_back(std::nextafter(value, 0.0));
  }
  const std::string csv = CurvesCsv(GraphKind::Time, {curve});
  const char* at = csv.data() + csv.find('\n') + 1;
  const char* const end = csv.data() + csv.size();
  const auto next = [&](char behind) {
    double value = kNan;
    const auto [stop, error] = std::from_chars(at, end, value);
    EXPECT_EQ(error, std::errc());
    EXPECT_EQ(*stop, behind);
    at = stop + 1;
    return value;
  };
  for (std::size_t i = 0; i < curve.x.size(); ++i) {
    ASSERT_EQ(next(','), curve.x[i]) << i;
    ASSERT_EQ(next('\n'), curve.y[i]) << i;
  }
  EXPECT_EQ(at, end);
}

}  // namespace
}  // namespace tremlo
