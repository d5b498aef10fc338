#include "core/graphs/GraphLegend.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

GraphSeries Curve(const QString& name, bool hasPoints = true) {
  GraphSeries series;
  series.name = name;
  if (hasPoints) series.x = series.y = {1.0, 2.0};
  return series;
}

TEST(GraphLegend, NamesTheCurvesThatAreSeenAndHaveAName) {
  EXPECT_THAT(CurvesToName({Curve("a"), Curve("b", false), Curve(""), Curve("c")}), ElementsAre(0u, 3u));
}

TEST(GraphLegend, OneCurveAloneIsNotNamed) {
  EXPECT_THAT(CurvesToName({}), IsEmpty());
  EXPECT_THAT(CurvesToName({Curve("a")}), IsEmpty());
  EXPECT_THAT(CurvesToName({Curve("a"), Curve("b", false)}), IsEmpty());
  EXPECT_THAT(CurvesToName({Curve("a"), Curve("")}), ElementsAre(0u));
}

constexpr LegendMetrics kMetrics{.rowHeight = 12, .sampleWidth = 24, .gap = 4};

TEST(GraphLegend, AllRowsThatFitInAThirdOfTheHeight) {
  const int tenRows = 3 * (10 * 12 + 3 * 4);
  EXPECT_EQ(FitLegendRows(10, tenRows, kMetrics), (LegendRows{10, 0}));
  EXPECT_EQ(FitLegendRows(2, tenRows, kMetrics), (LegendRows{2, 0}));
}

TEST(GraphLegend, TheLastRowThatFitsCountsTheCurvesWithoutOne) {
  const int tenRows = 3 * (10 * 12 + 3 * 4);
  EXPECT_EQ(FitLegendRows(11, tenRows, kMetrics), (LegendRows{9, 2}));
  EXPECT_EQ(FitLegendRows(10, tenRows - 1, kMetrics), (LegendRows{8, 2}));
  EXPECT_EQ(FitLegendRows(600, tenRows, kMetrics), (LegendRows{9, 591}));
  EXPECT_EQ(FitLegendRows(600, tenRows, kMetrics).Count(), 10);
}

TEST(GraphLegend, WhereThereIsNoRoomThereIsNoLegend) {
  EXPECT_EQ(FitLegendRows(2, 3 * (12 + 3 * 4), kMetrics), LegendRows());
  EXPECT_EQ(FitLegendRows(1, 3 * (12 + 3 * 4), kMetrics), (LegendRows{1, 0}));
  EXPECT_EQ(FitLegendRows(1, 20, kMetrics), LegendRows());
  EXPECT_EQ(FitLegendRows(600, 0, kMetrics), LegendRows());
  EXPECT_EQ(FitLegendRows(600, -50, kMetrics), LegendRows());
  EXPECT_EQ(FitLegendRows(0, 600, kMetrics), LegendRows());
}

constexpr QRect kFrame(100, 50, 400, 300);

TEST(GraphLegend, TheBoxStandsAtTheTopRightInsideTheFrame) {
  const LegendPlace place = PlaceLegend({3, 0}, kFrame, 180, 70, kMetrics);
  EXPECT_EQ(place.textWidth, 70);
  EXPECT_EQ(place.box.right(), kFrame.right() - 4);
  EXPECT_EQ(place.box.top(), kFrame.top() + 4);
  EXPECT_EQ(place.box.width(), 4 + 24 + 4 + 70 + 4);
  EXPECT_EQ(place.box.height(), 4 + 3 * 12 + 4);
}

TEST(GraphLegend, TheCountOfTheOthersTakesARow) {
  EXPECT_EQ(PlaceLegend({3, 9}, kFrame, 180, 70, kMetrics).box.height(), 4 + 4 * 12 + 4);
}

TEST(GraphLegend, TheBoxStaysInTheRightHalfOfTheFrame) {
  const LegendPlace place = PlaceLegend({3, 0}, kFrame, 180, 1000, kMetrics);
  EXPECT_EQ(place.box.left(), kFrame.left() + 200);
  EXPECT_EQ(place.box.right(), kFrame.right() - 4);
  EXPECT_EQ(place.textWidth, place.box.width() - 24 - 3 * 4);
}

TEST(GraphLegend, TheBoxKeepsOffTheNote) {
  const LegendPlace place = PlaceLegend({3, 0}, kFrame, 350, 1000, kMetrics);
  EXPECT_EQ(place.box.left(), 350 + 4 + 1);
  EXPECT_EQ(place.box.right(), kFrame.right() - 4);
}

TEST(GraphLegend, NamesAreNotCutToNextToNothing) {
  EXPECT_TRUE(PlaceLegend({3, 0}, kFrame, 430, 1000, kMetrics).box.isEmpty());
  EXPECT_FALSE(PlaceLegend({3, 0}, kFrame, 410, 30, kMetrics).box.isEmpty());
  EXPECT_TRUE(PlaceLegend({3, 0}, kFrame, 490, 30, kMetrics).box.isEmpty());
  EXPECT_TRUE(PlaceLegend({}, kFrame, 180, 70, kMetrics).box.isEmpty());
}

TEST(GraphLegend, TheOthersAreCounted) {
  EXPECT_EQ(OtherCurvesText(591), "他 591 本");
}

}  // namespace
}  // namespace tremlo
