#include "core/graphs/CurvePick.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

const GraphAxis kXAxis({0, 100, 10}, GraphAxis::Scale::Linear, 0, 100);
const GraphAxis kYAxis({0, 100, 10}, GraphAxis::Scale::Linear, 100, 0);

std::string Picked(const std::vector<GraphSeries>& series, int x, int y) {
  const auto point = PickPoint(series, kXAxis, kYAxis, x, y);
  if (!point) return "none";
  return QString("%1: %2 %3 at %4,%5")
      .arg(point->series)
      .arg(point->x)
      .arg(point->y)
      .arg(point->pixelX)
      .arg(point->pixelY)
      .toStdString();
}

GraphSeries Curve(std::vector<double> x, std::vector<double> y) {
  return {{}, std::move(x), std::move(y), {}};
}

TEST(CurvePick, TakesThePointNearestToTheColumn) {
  const std::vector<GraphSeries> curve = {Curve({10, 20, 40}, {50, 60, 70})};
  EXPECT_EQ(Picked(curve, 12, 0), "0: 10 50 at 10,50");
  EXPECT_EQ(Picked(curve, 29, 0), "0: 20 60 at 20,40");
  EXPECT_EQ(Picked(curve, 31, 0), "0: 40 70 at 40,30");
}

TEST(CurvePick, WithinAColumnTakesThePointNearestToTheRow) {
  const std::vector<GraphSeries> curve = {Curve({10.1, 10.2, 10.3}, {50, 90, 20})};
  EXPECT_EQ(Picked(curve, 10, 0), "0: 10.2 90 at 10,10");
  EXPECT_EQ(Picked(curve, 10, 55), "0: 10.1 50 at 10,50");
  EXPECT_EQ(Picked(curve, 10, 100), "0: 10.3 20 at 10,80");
}

TEST(CurvePick, OfSeveralCurvesTakesTheOneNearestAboveOrBelow) {
  const std::vector<GraphSeries> curves = {Curve({10, 20, 30}, {80, 80, 80}),
                                           Curve({11, 21, 31}, {20, 20, 20})};
  EXPECT_EQ(Picked(curves, 20, 30), "0: 20 80 at 20,20");
  EXPECT_EQ(Picked(curves, 20, 70), "1: 21 20 at 21,80");
}

TEST(CurvePick, ACurveThatEndsFarFromThePointerStandsBack) {
  const std::vector<GraphSeries> curves = {Curve({5, 50, 90}, {80, 80, 80}), Curve({5, 10}, {20, 20})};
  EXPECT_EQ(Picked(curves, 50, 80), "0: 50 80 at 50,20");
}

TEST(CurvePick, AValueBeyondTheLimitsIsToldAsItIs) {
  EXPECT_EQ(Picked({Curve({10, 20}, {500, 1})}, 10, 50), "0: 10 500 at 10,0");
}

TEST(CurvePick, FindsAmongManyPointsWhatASearchOfAllOfThemFinds) {
  std::vector<GraphSeries> curve(1);
  for (int i = 1; i <= 3000; ++i) {
    curve[0].x.push_back(30.0 / i);  // crowded at short periods, with a gap of many pixels at long ones
    curve[0].y.push_back(50.0 + 49.0 * std::sin(0.7 * i));
  }
  const GraphAxis yAxis({0.0, 100.0, 10.0}, GraphAxis::Scale::Linear, 268, 28);
  for (const auto scale : {GraphAxis::Scale::Linear, GraphAxis::Scale::Logarithmic}) {
    const GraphAxis xAxis({0.02, 20.0, 1.0}, scale, 44, 644);
    for (int pixel = 44; pixel <= 644; pixel += 3) {
      std::pair<int, int> nearest(10000, 0);
      for (std::size_t i = 0; i < curve[0].x.size(); ++i)
        if (xAxis.Contains(curve[0].x[i]))
          nearest = std::min(nearest, std::pair(std::abs(*xAxis.Pixel(curve[0].x[i]) - pixel),
                                                std::abs(*yAxis.Pixel(curve[0].y[i]) - 100)));
      const auto picked = PickPoint(curve, xAxis, yAxis, pixel, 100);
      ASSERT_TRUE(picked);
      EXPECT_EQ(std::pair(std::abs(picked->pixelX - pixel), std::abs(picked->pixelY - 100)), nearest)
          << pixel;
    }
  }
}

TEST(CurvePick, PointsOutsideOrWithoutAPixelAreNotThere) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Picked({}, 10, 10), "none");
  EXPECT_EQ(Picked({Curve({}, {})}, 10, 10), "none");
  EXPECT_EQ(Picked({Curve({150, kNan, 10}, {1, 1, kNan})}, 10, 10), "none");
  EXPECT_EQ(Picked({Curve({10, 20}, {50})}, 30, 10), "0: 10 50 at 10,50");
}

}  // namespace
}  // namespace tremlo
