#include "core/graphs/GraphAxis.h"
#include "support/CommaLocale.h"

#include <QStringList>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

GraphAxis Linear(double min, double max, double step, int first = 0, int last = 600) {
  return {{min, max, step}, GraphAxis::Scale::Linear, first, last};
}
GraphAxis Logarithmic(double min, double max, int first = 0, int last = 600) {
  return {{min, max, 1.0}, GraphAxis::Scale::Logarithmic, first, last};
}

std::string Labels(const GraphAxis& axis, int decimals = 1) {
  QStringList list;
  for (const AxisLabel& label : axis.Labels(decimals))
    list << QString("%1@%2").arg(label.text).arg(label.pixel);
  return list.join(' ').toStdString();
}
std::string Lines(const GraphAxis& axis) {
  QStringList list;
  for (const AxisLine& line : axis.GridLines())
    list << QString("%1@%2").arg(ShortText(line.value)).arg(line.pixel);
  return list.join(' ').toStdString();
}

TEST(GraphAxis, LabelsEveryStepFromTheLowerLimitUp) {
  EXPECT_EQ(Labels(Linear(0, 30, 5, 44, 644), 0), "0@44 5@144 10@244 15@344 20@444 25@544 30@644");
  EXPECT_EQ(Lines(Linear(0, 30, 5, 44, 644)), "5@144 10@244 15@344 20@444 25@544 30@644");
}

TEST(GraphAxis, ATickRoundedBelowTheLowerLimitHasNeitherLineNorLabel) {
  EXPECT_EQ(Labels(Linear(0.02, 2, 0.5)), "0.5@145 1.0@296 1.5@448 2.0@600");
  EXPECT_EQ(Lines(Linear(0.02, 2, 0.5)), "0.5@145 1@296 1.5@448 2@600");
}

TEST(GraphAxis, ALowerLimitBetweenTwoStepsBeginsAtTheNextOne) {
  EXPECT_EQ(Labels(Linear(0.3, 2, 0.5)), "0.5@70 1.0@247 1.5@423 2.0@600");
  EXPECT_EQ(Labels(Linear(-0.3, 1, 0.5)), "0.0@138 0.5@369 1.0@600");
}

TEST(GraphAxis, TheLineAtZeroIsNotPartOfTheGrid) {
  EXPECT_EQ(Lines(Linear(-500, 500, 100, 600, 0)),
            "-500@600 -400@540 -300@480 -200@420 -100@360 100@240 200@180 300@120 400@60 500@0");
  EXPECT_EQ(Lines(Linear(-0.3, 0.3, 0.1)), "-0.3@0 -0.2@99 -0.1@199 0.1@400 0.2@500 0.3@600");
}

TEST(GraphAxis, AnAxisThatRunsUpwardsCutsTowardsItsLowerLimit) {
  EXPECT_EQ(Labels(Linear(-96, 120, 20, 268, 28), 0),
            "-80@251 -60@228 -40@206 -20@184 0@162 20@140 40@117 60@95 80@73 100@51 120@28");
}

TEST(GraphAxis, AnAxisWithoutZeroKeepsItsLinesWithinItsLimits) {
  EXPECT_EQ(Lines(Linear(100, 300, 100)), "100@0 200@300 300@600");
  EXPECT_EQ(Lines(Linear(-300, -100, 100)), "-300@0 -200@300 -100@600");
}

TEST(GraphAxis, TheLastTickIsNotLostToRounding) {
  EXPECT_EQ(Labels(Linear(0, 0.3, 0.1)), "0.0@0 0.1@200 0.2@400 0.3@600");
  EXPECT_EQ(Labels(Linear(0.5, 0.7, 0.1)), "0.5@0 0.6@300 0.7@600");
}

TEST(GraphAxis, LabelsShowWholeNumbersWithoutAMinusBeforeZero) {
  EXPECT_EQ(Labels(Linear(-0.4, 0.4, 0.2), 0), "0@0 0@150 0@300 0@450 0@600");
}

TEST(GraphAxis, NothingIsDrawnWhereTicksOutnumberPixels) {
  EXPECT_EQ(Lines(Linear(0, 600, 1)), "");
  EXPECT_EQ(Labels(Linear(0, 600, 1)), "");
  EXPECT_EQ(Linear(0, 599, 1).Labels(0).size(), 600u);
  EXPECT_EQ(Labels(Linear(-9e32, 10, 5)), "");
  EXPECT_EQ(Labels(Linear(0, 1e300, 1e-300)), "");
  EXPECT_EQ(Labels(Linear(0, 10, 5, 0, 0)), "");
}

TEST(GraphAxis, AStepTooSmallToMoveALargeLimitEnds) {
  EXPECT_EQ(Linear(1e17, 1e17 + 160.0, 1).Labels(0).size(), 161u);
  EXPECT_EQ(Labels(Linear(1e300, 2e300, 1e-10)), "");
}

TEST(GraphAxis, LimitsThatAreNotFiniteGiveNothing) {
  for (const double bad : {kInf, -kInf, kNan}) {
    for (const GraphAxis& axis :
         {Linear(bad, 10, 1), Linear(0, bad, 1), Logarithmic(bad, 10), Logarithmic(1, bad)}) {
      EXPECT_FALSE(axis.IsUsable()) << bad;
      EXPECT_EQ(Labels(axis) + Lines(axis), "") << bad;
      EXPECT_FALSE(axis.Pixel(5.0)) << bad;
    }
  }
  EXPECT_FALSE(Linear(-1e308, 1e308, 1e307).IsUsable());
}

TEST(GraphAxis, LimitsThatDoNotAscendGiveNothing) {
  for (const GraphAxis& axis : {Linear(5, 5, 1), Linear(5, 1, 1), Logarithmic(10, 1)}) {
    EXPECT_EQ(Labels(axis) + Lines(axis), "");
    EXPECT_FALSE(axis.Pixel(5.0));
  }
}

TEST(GraphAxis, ValuesBeyondTheLimitsHaveTheLimitsPixel) {
  const GraphAxis axis = Linear(0, 100, 10, 600, 0);
  EXPECT_EQ(axis.Pixel(100.5), 0);
  EXPECT_EQ(axis.Pixel(kInf), 0);
  EXPECT_EQ(axis.Pixel(-0.5), 600);
  EXPECT_EQ(axis.Pixel(-kInf), 600);
  EXPECT_EQ(axis.Pixel(1e300), 0);
  EXPECT_FALSE(axis.Pixel(kNan));
}

TEST(GraphAxis, PixelsAreCutNotRounded) {
  EXPECT_EQ(Linear(0, 20, 5, 44, 644).Pixel(0.033), 44);
  EXPECT_EQ(Linear(0, 20, 5, 44, 644).Pixel(0.034), 45);
  EXPECT_EQ(Linear(0, 20, 5, 268, 28).Pixel(0.083), 268);
  EXPECT_EQ(Linear(0, 20, 5, 268, 28).Pixel(0.084), 267);
}

TEST(GraphAxis, ALogarithmicAxisHasALabelAtEachDecade) {
  EXPECT_EQ(Labels(Logarithmic(0.01, 10, 44, 644)), "0.01@44 0.1@244 1@444 10@644");
  EXPECT_EQ(Labels(Logarithmic(0.1, 10, 44, 644)), "0.1@44 1@344 10@644");
}

TEST(GraphAxis, ALogarithmicAxisHasNineLinesADecadeButNoneAtItsFirst) {
  EXPECT_EQ(Lines(Logarithmic(0.1, 10)),
            "0.2@90 0.3@143 0.4@181 0.5@210 0.6@233 0.7@254 0.8@271 0.9@286 1@300 "
            "2@390 3@443 4@481 5@510 6@533 7@554 8@571 9@586 10@600");
}

TEST(GraphAxis, DecadesCountFromTheLowerLimitItself) {
  EXPECT_EQ(Labels(Logarithmic(0.02, 10)), "0.02@0 0.2@222 2@445");
  EXPECT_EQ(Lines(Logarithmic(0.02, 10)),
            "0.04@67 0.06@106 0.08@134 0.1@155 0.12@173 0.14@188 0.16@201 0.18@212 0.2@222 "
            "0.4@289 0.6@328 0.8@356 1@378 1.2@395 1.4@410 1.6@423 1.8@434 2@445 4@512 6@551 8@578");
}

TEST(GraphAxis, LinesBetweenDecadesStopBelowTheUpperLimit) {
  EXPECT_EQ(Lines(Logarithmic(1, 4)), "2@300 3@475");
  EXPECT_EQ(Labels(Logarithmic(1, 4)), "1@0");
}

TEST(GraphAxis, ALogarithmicAxisWithEqualLimitsIsAllAtItsFirstPixel) {
  EXPECT_EQ(Labels(Logarithmic(2, 2, 44, 644)), "2@44");
  EXPECT_EQ(Logarithmic(2, 2, 44, 644).Pixel(2.0), 44);
}

TEST(GraphAxis, TheLastDecadeIsNotLostToRounding) {
  // The logarithms lie a little less than 1 apart.
  EXPECT_EQ(Labels(Logarithmic(0.003, 0.03)), "0.003@0 0.03@600");
  EXPECT_EQ(Labels(Logarithmic(0.006, 0.6)), "0.006@0 0.06@300 0.6@600");
}

TEST(GraphAxis, TooManyDecadesForThePixelsGiveNothing) {
  EXPECT_EQ(Labels(Logarithmic(1e-300, 1e300)), "");
  EXPECT_EQ(Lines(Logarithmic(1e-300, 1e300)), "");
  EXPECT_EQ(Labels(Logarithmic(0.01, 10, 0, 20)), "");
}

TEST(GraphAxis, ALogarithmicPixelOutsideIsPulledBackToTheFrame) {
  const GraphAxis axis = Logarithmic(0.1, 10);
  EXPECT_EQ(axis.Pixel(0.05), 0);
  EXPECT_EQ(axis.Pixel(0.0), 0);
  EXPECT_EQ(axis.Pixel(-3.0), 0);
  EXPECT_EQ(axis.Pixel(20.0), 600);
  EXPECT_EQ(axis.Pixel(1.0), 300);
}

TEST(GraphAxis, PixelsMapBackToTheirValues) {
  for (const GraphAxis& axis : {Linear(-500, 500, 100, 668, 28), Logarithmic(0.01, 10, 44, 644)}) {
    for (int pixel = std::min(axis.FirstPixel(), axis.LastPixel()); pixel <= 644; pixel += 37) {
      const double value = axis.Value(pixel);
      EXPECT_NEAR(axis.Position(value), pixel, 1e-9);
    }
    EXPECT_DOUBLE_EQ(axis.Value(axis.FirstPixel()), axis.Min());
    EXPECT_DOUBLE_EQ(axis.Value(axis.LastPixel()), axis.Max());
  }
}

TEST(GraphAxis, BothLimitsBelongToTheAxis) {
  const GraphAxis axis = Linear(1, 5, 1);
  EXPECT_TRUE(axis.Contains(1.0));
  EXPECT_TRUE(axis.Contains(5.0));
  EXPECT_FALSE(axis.Contains(std::nextafter(1.0, 0.0)));
  EXPECT_FALSE(axis.Contains(std::nextafter(5.0, 9.0)));
  EXPECT_FALSE(axis.Contains(kNan));
}

TEST(AxisText, IsTheSameInEveryLocale) {
  const test::CommaLocale comma;
  EXPECT_EQ(Labels(Linear(0, 2000, 1000), 1), "0.0@0 1000.0@300 2000.0@600");
  EXPECT_EQ(ShortText(0.02), "0.02");
}

TEST(AxisText, HasAsFewPlacesAsItNeeds) {
  EXPECT_EQ(ShortText(std::pow(10.0, std::log10(0.02))), "0.02");
  EXPECT_EQ(ShortText(10.0), "10");
  EXPECT_EQ(ShortText(0.1 + 0.2), "0.3");
  EXPECT_EQ(ShortText(-123.4567), "-123.457");
  EXPECT_EQ(ShortText(100.0), "100");
  EXPECT_EQ(ShortText(1234567.8), "1234568");
  EXPECT_EQ(ShortText(1e9), "1e+09");
  EXPECT_EQ(ShortText(1e-7), "1e-07");
  EXPECT_EQ(ShortText(0.0), "0");
  EXPECT_EQ(ShortText(-0.0), "0");
}

}  // namespace
}  // namespace tremlo
