#include "core/shell/ChartLayout.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

QRect PlaceOf(ChartBox box) {
  const CDPoly outline = OutlineOf(box);
  return {QPoint(static_cast<int>(outline.MinCorner().x), static_cast<int>(outline.MinCorner().y)),
          QPoint(static_cast<int>(outline.MaxCorner().x) - 1, static_cast<int>(outline.MaxCorner().y) - 1)};
}

/// The box on whose edge a point lies.
std::optional<ChartBox> BoxTouchedAt(QPoint point) {
  for (const ChartBox box : kChartBoxes) {
    const std::vector<CDPoint> corners = OutlineOf(box).Points();
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const CDPoint a = corners[i];
      const CDPoint b = corners[(i + 1) % corners.size()];
      const double whole = std::hypot(b.x - a.x, b.y - a.y);
      const double parts =
          std::hypot(point.x() - a.x, point.y() - a.y) + std::hypot(b.x - point.x(), b.y - point.y());
      if (parts - whole < 1e-9) return box;
    }
  }
  return std::nullopt;
}

double DistanceTo(const ChartLine& line, QPoint point) {
  double least = 1e9;
  for (std::size_t i = 0; i + 1 < line.points.size(); ++i) {
    const QRect part = QRect(line.points[i], line.points[i + 1]).normalized();
    const int dx = std::max({part.left() - point.x(), 0, point.x() - part.right()});
    const int dy = std::max({part.top() - point.y(), 0, point.y() - part.bottom()});
    least = std::min(least, std::hypot(dx, dy));
  }
  return least;
}

TEST(ChartLayout, EverythingLiesOnTheChart) {
  const QRect chart(QPoint(0, 0), kChartSize);
  for (const ChartBox box : kChartBoxes) EXPECT_TRUE(chart.contains(PlaceOf(box)));
  for (const ChartLabel& label : ChartLabels()) EXPECT_TRUE(chart.contains(label.place));
  for (const ChartLine& line : ChartLines())
    for (const QPoint point : line.points) EXPECT_TRUE(chart.contains(point));
}

TEST(ChartLayout, NothingCoversAnotherThing) {
  std::vector<QRect> places;
  for (const ChartBox box : kChartBoxes) places.push_back(PlaceOf(box));
  for (const ChartLabel& label : ChartLabels()) places.push_back(label.place);
  for (std::size_t i = 0; i < places.size(); ++i)
    for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(places[i].intersects(places[k])) << k << ' ' << i;
  for (const ChartLabel& label : ChartLabels()) {
    if (label.kind == LabelKind::Start) continue;
    for (const ChartLine& line : ChartLines())
      for (std::size_t i = 0; i + 1 < line.points.size(); ++i)
        EXPECT_FALSE(label.place.intersects(QRect(line.points[i], line.points[i + 1]).normalized()))
            << QString::fromUtf16(label.text).toStdString();
  }
}

TEST(ChartLayout, AClickHitsTheBoxUnderIt) {
  for (const ChartBox box : kChartBoxes) {
    const QRect place = PlaceOf(box);
    EXPECT_EQ(BoxAt(place.center()), box);
    EXPECT_EQ(BoxAt({place.center().x(), place.top() + 2}), box);
    EXPECT_EQ(BoxAt({place.center().x(), place.top() - 2}), std::nullopt);
    EXPECT_EQ(BoxAt({place.center().x(), place.bottom() + 3}), std::nullopt);
    EXPECT_EQ(BoxAt({place.left() - 2, place.center().y()}), std::nullopt);
    EXPECT_EQ(BoxAt({place.right() + 3, place.center().y()}), std::nullopt);
  }
  EXPECT_EQ(BoxAt({5, 5}), std::nullopt);
  EXPECT_EQ(BoxAt({-100, 142}), std::nullopt);
}

TEST(ChartLayout, AQuestionIsPointedAtBothEndsAndItsCornersAreNotHit) {
  for (const ChartBox box : {ChartBox::PhaseQ1, ChartBox::PhaseQ2, ChartBox::PhaseQ3, ChartBox::Amplitude1,
                             ChartBox::Amplitude2}) {
    const QRect place = PlaceOf(box);
    for (const QPoint corner : {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight()})
      EXPECT_EQ(BoxAt((corner * 39 + place.center()) / 40), std::nullopt);
    EXPECT_EQ(BoxAt({place.left() + 3, place.center().y()}), box);
    EXPECT_EQ(BoxAt({place.right() - 3, place.center().y()}), box);
  }
  EXPECT_EQ(BoxAt(PlaceOf(ChartBox::PhaseQ4).topLeft() + QPoint(2, 2)), ChartBox::PhaseQ4);
}

TEST(ChartLayout, TheTwoArrowsJoinTheCharacteristicsForTheAdjustment) {
  ASSERT_EQ(kChartArrows[0].from, QPoint(772, 480));
  ASSERT_EQ(kChartArrows[0].to, QPoint(772, 592));
  ASSERT_EQ(kChartArrows[1].from, QPoint(488, 607));
  ASSERT_EQ(kChartArrows[1].to, QPoint(705, 607));
  EXPECT_EQ(kChartArrowWidth, 10);
  EXPECT_EQ(BoxTouchedAt(kChartArrows[0].from), ChartBox::BaseSpectrum);
  EXPECT_EQ(BoxTouchedAt(kChartArrows[1].from), ChartBox::SeedWave);
  EXPECT_EQ(BoxTouchedAt(kChartArrows[0].to), ChartBox::Adjustment);
  EXPECT_EQ(BoxTouchedAt(kChartArrows[1].to), ChartBox::Adjustment);
}

TEST(ChartLayout, PathsRunFromBoxToBox) {
  struct Path {
    std::optional<ChartBox> from, to;
    bool operator==(const Path&) const = default;
  };
  std::vector<Path> paths;
  for (const ChartLine& line : ChartLines())
    if (line.head) paths.push_back({BoxTouchedAt(line.points.front()), BoxTouchedAt(line.points.back())});
  using enum ChartBox;
  const std::vector<Path> expected = {{{}, PhaseQ1},
                                      {{}, Amplitude1},
                                      {PhaseQ1, PhaseQ2},
                                      {PhaseQ2, PhaseQ3},
                                      {PhaseQ3, SeedWave},
                                      {PhaseQ1, PhaseQ4},
                                      {PhaseQ4, SeedWave},
                                      {Amplitude1, Amplitude2},
                                      {Amplitude1, Amplitude2},
                                      {Amplitude2, BaseSpectrum},
                                      {Amplitude2, BaseSpectrum}};
  EXPECT_EQ(paths.size(), expected.size());
  EXPECT_TRUE(paths == expected);
  // The others leave a box and join a path.
  for (const ChartLine& line : ChartLines()) {
    if (line.head) continue;
    EXPECT_NE(BoxTouchedAt(line.points.front()), std::nullopt);
    const auto joins = [&](const ChartLine& other) {
      return &other != &line && DistanceTo(other, line.points.back()) == 0.0;
    };
    EXPECT_TRUE(std::any_of(ChartLines().begin(), ChartLines().end(), joins));
  }
}

TEST(ChartLayout, CaptionsStandAsTheyAreCalled) {
  std::vector<QString> texts;
  int yes = 0, no = 0;
  for (const ChartLabel& label : ChartLabels()) {
    const QString text = QString::fromUtf16(label.text);
    if (label.kind != LabelKind::YesOrNo) {
      texts.push_back(text);
      continue;
    }
    (text == u"YES" ? yes : no) += 1;
    // Beside a path: its edge is not farther than a letter from one.
    double nearest = 1e9;
    for (const ChartLine& line : ChartLines())
      for (const QPoint corner : {label.place.topLeft(), label.place.topRight(), label.place.bottomLeft(),
                                  label.place.bottomRight()})
        nearest = std::min(nearest, DistanceTo(line, corner));
    EXPECT_LE(nearest, 10.0) << label.place.x();
  }
  EXPECT_THAT(texts, testing::ElementsAre("スタート", "位相特性", "振幅特性",
                                          "参考：国営造成農業用ダム耐震性能マニュアル（平成24年3月）　P.17"));
  EXPECT_EQ(yes, 6);
  EXPECT_EQ(no, 5);
}

TEST(ChartLayout, EachCharacteristicHasItsArea) {
  using enum ChartBox;
  for (const ChartBox box : {PhaseQ1, PhaseQ2, PhaseQ3, PhaseQ4, SeedWave})
    EXPECT_TRUE(kChartAreas[0].contains(PlaceOf(box)));
  for (const ChartBox box : {Amplitude1, Amplitude2, BaseSpectrum})
    EXPECT_TRUE(kChartAreas[1].contains(PlaceOf(box)));
  for (const QRect& area : kChartAreas) EXPECT_FALSE(area.intersects(PlaceOf(Adjustment)));
}

}  // namespace
}  // namespace tremlo
