#include "core/graphs/CurveTrace.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tremlo {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A frame of 100 by 100 pixels over 0 to 100 on both axes: x is its own pixel, y is 100 less its pixel.
std::vector<TracePiece> Trace(const std::vector<double>& x, const std::vector<double>& y) {
  return CurveTracer({{0, 100, 10}, GraphAxis::Scale::Linear, 0, 100},
                     {{0, 100, 10}, GraphAxis::Scale::Linear, 100, 0})
      .Trace(x, y);
}

std::string Listed(const std::vector<TracePiece>& pieces) {
  QStringList list;
  for (const TracePiece& p : pieces) list << QString("%1,%2-%3,%4").arg(p.x1).arg(p.y1).arg(p.x2).arg(p.y2);
  return list.join(' ').toStdString();
}

TEST(CurveTrace, PointsInDifferentColumnsAreJoinedByLines) {
  EXPECT_EQ(Listed(Trace({10, 20, 40}, {50, 60, 0})), "10,50-20,40 20,40-40,100");
}

TEST(CurveTrace, PeriodsMayRunDownwards) {
  EXPECT_EQ(Listed(Trace({40, 20, 10}, {0, 60, 50})), "40,100-20,40 20,40-10,50");
}

TEST(CurveTrace, NoPointAndOnePointDrawNothing) {
  EXPECT_EQ(Listed(Trace({}, {})), "");
  EXPECT_EQ(Listed(Trace({10}, {50})), "");
  EXPECT_EQ(Listed(Trace({1000}, {1000})), "");
}

TEST(CurveTrace, TheShorterVectorEndsTheCurve) {
  EXPECT_EQ(Listed(Trace({10, 20, 40}, {50, 60})), "10,50-20,40");
  EXPECT_EQ(Listed(Trace({10, 20}, {50, 60, 70})), "10,50-20,40");
}

TEST(CurveTrace, PointsInOneColumnBecomeOnePieceFromHighestToLowest) {
  EXPECT_EQ(Listed(Trace({10.1, 10.2, 10.3, 10.4}, {50, 90, 20, 60})), "10,10-10,80");
  EXPECT_EQ(Listed(Trace({10.1, 10.2}, {50, 50})), "10,50-10,50");
}

TEST(CurveTrace, ALineLeavesACrowdedColumnFromItsLastPoint) {
  EXPECT_EQ(Listed(Trace({10.1, 10.2, 10.3, 20}, {50, 90, 70, 20})), "10,10-10,50 10,30-20,80");
}

TEST(CurveTrace, CrowdedNeighboursMeetHalfWay) {
  EXPECT_EQ(Listed(Trace({10.1, 10.2, 11.1, 11.2}, {50, 60, 20, 10})), "10,40-10,60 11,60-11,90");
}

TEST(CurveTrace, ValuesBeyondTheLimitsRunAlongTheEdges) {
  EXPECT_EQ(Listed(Trace({10, 20, 30, 40}, {150, kInf, -1, -kInf})), "10,0-20,0 20,0-30,100 30,100-40,100");
}

TEST(CurveTrace, ACurveEntersTheFrameOnTheLineFromThePointBefore) {
  EXPECT_EQ(Listed(Trace({-10, 10, 20}, {20, 60, 60})), "0,60-10,40 10,40-20,40");
  EXPECT_EQ(Listed(Trace({-30, -10, 10}, {99, 20, 60})), "0,60-10,40");
  EXPECT_EQ(Listed(Trace({110, 90}, {20, 60})), "100,60-90,40");
}

TEST(CurveTrace, ACurveLeavesTheFrameOnTheLineToThePointBehind) {
  EXPECT_EQ(Listed(Trace({80, 90, 110, 130}, {60, 60, 20, 5})), "80,40-90,40 90,40-100,60");
  EXPECT_EQ(Listed(Trace({10, -10}, {60, 20})), "10,40-0,60");
}

TEST(CurveTrace, APointOnALimitIsInside) {
  EXPECT_EQ(Listed(Trace({0, 100}, {0, 100})), "0,100-100,0");
}

TEST(CurveTrace, ALineAcrossTheWholeFrameIsDrawnThoughNoPointLiesInside) {
  EXPECT_EQ(Listed(Trace({-100, 200}, {40, 70})), "0,50-100,40");
  EXPECT_EQ(Listed(Trace({200, -100}, {70, 40})), "100,40-0,50");
  EXPECT_EQ(Listed(Trace({-100, -50}, {40, 70})), "");
  EXPECT_EQ(Listed(Trace({150, 200}, {40, 70})), "");
}

TEST(CurveTrace, ACurveThatReachesOverBothEdgesIsDrawnFromEdgeToEdge) {
  EXPECT_EQ(Listed(Trace({-20, -10, 10, 90, 110, 120}, {0, 20, 60, 60, 20, 0})),
            "0,60-10,40 10,40-90,40 90,40-100,60");
}

TEST(CurveTrace, ACurveThatLeavesAndReturnsIsNotClosedInBetween) {
  EXPECT_EQ(Listed(Trace({90, 110, 120, 80}, {50, 50, 20, 20})), "90,50-100,50 100,80-80,80");
}

TEST(CurveTrace, APointThatIsNotANumberIsPassedOver) {
  EXPECT_EQ(Listed(Trace({10, 15, 20}, {50, kNan, 60})), "10,50-20,40");
  EXPECT_EQ(Listed(Trace({10, kNan, 20}, {50, 55, 60})), "10,50-20,40");
  EXPECT_EQ(Listed(Trace({kNan, kNan}, {kNan, 1})), "");
}

TEST(CurveTrace, ANeighbourInfinitelyFarAwayGivesNoEntry) {
  EXPECT_EQ(Listed(Trace({kInf, 90, 80}, {10, 50, 60})), "90,50-80,40");
  EXPECT_EQ(Listed(Trace({80, 90, kInf}, {60, 50, 10})), "80,40-90,50");
  EXPECT_EQ(Listed(Trace({-1e308, 10, 20}, {0, 50, 60})), "10,50-20,40");
  EXPECT_EQ(Listed(Trace({-1e300, 10, 20}, {0, 50, 60})), "0,50-10,50 10,50-20,40");
}

TEST(CurveTrace, AxesWithoutLimitsGiveNothing) {
  const GraphAxis good({0, 100, 10}, GraphAxis::Scale::Linear, 0, 100);
  const GraphAxis bad({0, kNan, 10}, GraphAxis::Scale::Linear, 0, 100);
  EXPECT_TRUE(CurveTracer(good, bad).Trace({1, 2}, {1, 2}).empty());
  EXPECT_TRUE(CurveTracer(bad, good).Trace({1, 2}, {1, 2}).empty());
}

class LogarithmicTrace : public testing::Test {
 protected:
  static std::vector<TracePiece> Trace(const std::vector<double>& x, const std::vector<double>& y) {
    return CurveTracer({{0.01, 10, 1}, GraphAxis::Scale::Logarithmic, 0, 300},
                       {{0, 100, 10}, GraphAxis::Scale::Linear, 100, 0})
        .Trace(x, y);
  }
};

TEST_F(LogarithmicTrace, PixelsComeFromTheLogarithm) {
  EXPECT_EQ(Listed(Trace({10, 1, 0.1, 0.01}, {10, 20, 30, 40})), "300,90-200,80 200,80-100,70 100,70-0,60");
}

TEST_F(LogarithmicTrace, EntryAndExitLieOnTheLineBetweenPixels) {
  EXPECT_EQ(Listed(Trace({100, 1, 0.001}, {20, 60, 0})), "300,60-200,40 200,40-0,80");
}

TEST_F(LogarithmicTrace, APeriodOfZeroOrBelowHasNoPlace) {
  EXPECT_EQ(Listed(Trace({1, 0.1, 0}, {20, 60, 0})), "200,80-100,40");
  EXPECT_EQ(Listed(Trace({-5, 0.1, 1}, {20, 60, 20})), "100,40-200,80");
}

TEST_F(LogarithmicTrace, BehindOtherCurvesACurveIsTracedAsAlone) {
  const std::vector<double> periods{20, 3, 1, 0.11, 0.1, 0.02, 0.001};
  std::vector<double> others = periods, broken = periods, fewer = periods;
  others[3] = 0.5;
  broken[2] = kNan;
  fewer.pop_back();
  const GraphAxis xAxis({0.01, 10, 1}, GraphAxis::Scale::Logarithmic, 0, 300);
  const GraphAxis yAxis({0, 100, 10}, GraphAxis::Scale::Linear, 100, 0);
  CurveTracer tracer(xAxis, yAxis);
  double value = 5.0;
  for (const std::vector<double>& x :
       {periods, periods, others, periods, broken, broken, fewer, periods, {}, others}) {
    std::vector<double> y;
    for (std::size_t i = 0; i < x.size() + 1; ++i) y.push_back(value += 7.0 - static_cast<double>(i));
    EXPECT_EQ(Listed(tracer.Trace(x, y)), Listed(CurveTracer(xAxis, yAxis).Trace(x, y)));
    y.resize(y.size() / 2);
    EXPECT_EQ(Listed(tracer.Trace(x, y)), Listed(CurveTracer(xAxis, yAxis).Trace(x, y)));
  }
}

TEST(CurveTrace, SixtyFiveThousandPointsKeepEveryPeakInTwoPiecesAColumnAtMost) {
  constexpr int kPoints = 65536;
  constexpr int kColumns = 1000;
  std::mt19937 engine(20261121);
  std::uniform_real_distribution<double> noise(-30.0, 30.0);
  std::vector<double> x, y;
  for (int i = 0; i < kPoints; ++i) {
    x.push_back(i * double{kColumns} / kPoints);
    y.push_back(noise(engine));
  }
  y[31234] = 480.0;
  const GraphAxis xAxis({0, kColumns, 100}, GraphAxis::Scale::Linear, 0, kColumns);
  const GraphAxis yAxis({-500, 500, 100}, GraphAxis::Scale::Linear, 600, 0);
  const std::vector<TracePiece> pieces = CurveTracer(xAxis, yAxis).Trace(x, y);
  EXPECT_LE(pieces.size(), 2u * (kColumns + 1));

  std::vector<int> top(kColumns + 1, 600), bottom(kColumns + 1, 0);
  for (const TracePiece& piece : pieces) {
    ASSERT_EQ(piece.x1, piece.x2);
    auto& t = top[static_cast<std::size_t>(piece.x1)];
    auto& b = bottom[static_cast<std::size_t>(piece.x1)];
    t = std::min(t, piece.y1);
    b = std::max(b, piece.y2);
  }
  for (std::size_t i = 0; i < x.size(); ++i) {
    const auto column = static_cast<std::size_t>(*xAxis.Pixel(x[i]));
    EXPECT_LE(top[column], *yAxis.Pixel(y[i])) << i;
    EXPECT_GE(bottom[column], *yAxis.Pixel(y[i])) << i;
  }
  EXPECT_EQ(top[static_cast<std::size_t>(*xAxis.Pixel(x[31234]))], *yAxis.Pixel(480.0));
}

}  // namespace
}  // namespace tremlo
