#include "numeric/waves/SpectrumFigures.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Values = std::vector<double>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// A spectrum without any regularity, by a rule of the test's own.
void Irregular(Values& periods, Values& values) {
  double period = 0.02;
  for (int i = 0; i < 60; ++i) {
    period += 0.003 * (1 + (i * 7) % 5);
    periods.push_back(period);
    values.push_back(200.0 + 150.0 * std::sin(1.7 * i) + 3.0 * ((i * 11) % 7));
  }
}

TEST(SpectrumFigures, TheAreaIsTheSumOfTheTrapezoids) {
  EXPECT_DOUBLE_EQ(SpectrumArea(Values{3.0, 1.0, 0.5}, Values{10.0, 30.0, 20.0}), 2.0 * 20.0 + 0.5 * 25.0);
  Values periods, values;
  Irregular(periods, values);
  long double area = 0.0L;  // rectangle and triangle apart
  for (std::size_t i = 1; i < periods.size(); ++i) {
    const long double width = static_cast<long double>(periods[i]) - periods[i - 1];
    const long double low = std::min(values[i], values[i - 1]);
    const long double high = std::max(values[i], values[i - 1]);
    area += width * low + width * (high - low) / 2.0L;
  }
  EXPECT_NEAR(SpectrumArea(periods, values), static_cast<double>(area), 1e-10);
}

TEST(SpectrumFigures, TheAreaIsTheSameInBothDirections) {
  Values periods, values;
  Irregular(periods, values);
  const double area = SpectrumArea(periods, values);
  std::reverse(periods.begin(), periods.end());
  std::reverse(values.begin(), values.end());
  EXPECT_NEAR(SpectrumArea(periods, values), area, 1e-10);
  EXPECT_GT(area, 0.0);
}

TEST(SpectrumFigures, FewerThanTwoPointsHaveNoArea) {
  EXPECT_EQ(SpectrumArea({}, {}), 0.0);
  EXPECT_EQ(SpectrumArea(Values{1.0}, Values{500.0}), 0.0);
  EXPECT_EQ(SpectrumArea(Values{1.0, 2.0, 3.0}, Values{500.0}), 0.0);
  EXPECT_EQ(SpectrumArea(Values{1.0, 2.0}, Values{5.0, 7.0, 900.0}), 6.0);
}

TEST(SpectrumFigures, TheLargestValue) {
  EXPECT_EQ(LargestValue({}), 0.0);
  EXPECT_EQ(LargestValue(Values{1.0, 7.5, 3.0}), 7.5);
  EXPECT_EQ(LargestValue(Values{-3.0, -1.0}), -1.0);
}

TEST(SpectrumFigures, BetweenTwoPointsTheValueLiesOnAStraightLine) {
  const Values rising{0.1, 0.2, 0.4}, values{100.0, 300.0, 200.0};
  EXPECT_DOUBLE_EQ(*ValueAtPeriod(rising, values, 0.15), 200.0);
  EXPECT_DOUBLE_EQ(*ValueAtPeriod(rising, values, 0.25), 275.0);
  EXPECT_DOUBLE_EQ(*ValueAtPeriod(Values{0.4, 0.2, 0.1}, Values{200.0, 300.0, 100.0}, 0.25), 275.0);
}

TEST(SpectrumFigures, AtAPointTheValueIsThePointsOwn) {
  Values periods, values;
  Irregular(periods, values);
  for (std::size_t i = 0; i < periods.size(); ++i)
    EXPECT_EQ(ValueAtPeriod(periods, values, periods[i]), values[i]) << i;
}

TEST(SpectrumFigures, OutsideItsPeriodsASpectrumHasNoValue) {
  const Values periods{0.1, 0.2}, values{1.0, 2.0};
  EXPECT_EQ(ValueAtPeriod(periods, values, std::nextafter(0.1, 0.0)), std::nullopt);
  EXPECT_EQ(ValueAtPeriod(periods, values, std::nextafter(0.2, 1.0)), std::nullopt);
  EXPECT_EQ(ValueAtPeriod(periods, values, kNan), std::nullopt);
  EXPECT_EQ(ValueAtPeriod({}, {}, 0.1), std::nullopt);
  EXPECT_EQ(ValueAtPeriod(periods, Values{1.0}, 0.15), std::nullopt);
}

TEST(SpectrumFigures, AValueThatIsNoNumberIsNotRead) {
  const Values periods{0.1, 0.2, 0.3}, values{1.0, kNan, 3.0};
  EXPECT_EQ(ValueAtPeriod(periods, values, 0.1), 1.0);
  EXPECT_EQ(ValueAtPeriod(periods, values, 0.15), std::nullopt);
  EXPECT_EQ(ValueAtPeriod(periods, values, 0.2), std::nullopt);
  EXPECT_EQ(ValueAtPeriod(Values{0.1, kNan, 0.3}, values, 0.2), 2.0);  // a point without a place
}

TEST(SpectrumFigures, NeighbouringPointsBelowTheLimitMakeOneStretch) {
  const Values limitPeriods{0.0, 10.0}, limit{100.0, 100.0};
  const Values periods{5.0, 4.0, 3.0, 2.0, 1.0, 0.5};
  EXPECT_THAT(*StretchesBelow(periods, Values{99.0, 100.0, 50.0, 60.0, 101.0, 1.0}, limitPeriods, limit),
              ElementsAre(PeriodStretch{0.5, 0.5}, PeriodStretch{2.0, 3.0}, PeriodStretch{5.0, 5.0}));
  EXPECT_THAT(*StretchesBelow(periods, Values(6, 100.0), limitPeriods, limit), IsEmpty());
  EXPECT_THAT(*StretchesBelow(periods, Values(6, 99.0), limitPeriods, limit),
              ElementsAre(PeriodStretch{0.5, 5.0}));
}

TEST(SpectrumFigures, TheLimitIsReadOnItsLineAtThePeriodsOfTheSpectrum) {
  // At 1 s the limit is 150.
  const Values limitPeriods{2.0, 0.0}, limit{200.0, 100.0};
  EXPECT_THAT(*StretchesBelow(Values{1.0}, Values{149.0}, limitPeriods, limit),
              ElementsAre(PeriodStretch{1.0, 1.0}));
  EXPECT_THAT(*StretchesBelow(Values{1.0}, Values{151.0}, limitPeriods, limit), IsEmpty());
  // A dip of the limit between two points of the spectrum is not looked at.
  EXPECT_THAT(*StretchesBelow(Values{0.0, 2.0}, Values{150.0, 150.0}, Values{0.0, 1.0, 2.0},
                              Values{100.0, 900.0, 100.0}),
              IsEmpty());
}

TEST(SpectrumFigures, PointsOutsideTheLimitAreNotCompared) {
  const Values limitPeriods{1.0, 2.0}, limit{100.0, 100.0};
  EXPECT_THAT(*StretchesBelow(Values{0.5, 1.0, 1.5, 2.5}, Values{1.0, 1.0, 1.0, 1.0}, limitPeriods, limit),
              ElementsAre(PeriodStretch{1.0, 1.5}));
  EXPECT_EQ(StretchesBelow(Values{0.5, 2.5}, Values{1.0, 1.0}, limitPeriods, limit), std::nullopt);
  EXPECT_EQ(StretchesBelow({}, {}, limitPeriods, limit), std::nullopt);
  EXPECT_EQ(StretchesBelow(Values{1.5}, Values{1.0}, {}, {}), std::nullopt);
  EXPECT_EQ(StretchesBelow(Values{1.5}, Values{kNan}, limitPeriods, limit), std::nullopt);
}

TEST(SpectrumFigures, APointThatCannotBeComparedPartsAStretch) {
  const Values limitPeriods{0.0, 10.0}, limit{100.0, 100.0};
  EXPECT_THAT(*StretchesBelow(Values{1.0, 2.0, 3.0}, Values{1.0, kNan, 1.0}, limitPeriods, limit),
              ElementsAre(PeriodStretch{1.0, 1.0}, PeriodStretch{3.0, 3.0}));
}

}  // namespace
}  // namespace tremlo
