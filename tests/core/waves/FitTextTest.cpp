#include "core/waves/FitText.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(FitText, ASharePerCentHasTwoDecimals) {
  EXPECT_EQ(PercentText(0.05), QStringLiteral("5.00 %"));
  EXPECT_EQ(PercentText(0.123456), QStringLiteral("12.35 %"));
  EXPECT_EQ(PercentText(0.0), QStringLiteral("0.00 %"));
}

TEST(FitText, AShareThatIsNoNumberIsADash) {
  EXPECT_EQ(PercentText(std::nan("")), QStringLiteral("－"));
  EXPECT_EQ(PercentText(HUGE_VAL), QStringLiteral("－"));
}

TEST(FitText, FiguresStandWithTheirPeriods) {
  EXPECT_EQ(FitText({.pass = 3,
                     .deviation = 0.0498,
                     .overshoot = 0.12,
                     .overshootPeriod = 0.35128,
                     .undershoot = 0.071,
                     .undershootPeriod = 2.0}),
            QStringLiteral("偏差（RMS） 4.98 %　目標を上回る最大 12.00 %（周期 0.3513 秒）　"
                           "目標を下回る最大 7.10 %（周期 2 秒）"));
}

TEST(FitText, WhatThereIsNotIsNotTold) {
  EXPECT_EQ(FitText({.deviation = 0.01, .undershoot = 0.02, .undershootPeriod = 0.5}),
            QStringLiteral("偏差（RMS） 1.00 %　目標を下回る最大 2.00 %（周期 0.5 秒）"));
  EXPECT_EQ(FitText({.deviation = std::nan("")}), QStringLiteral("偏差（RMS） －"));
}

TEST(FitText, ARunThatFailedIsMarked) {
  AdjustResult run;
  run.fit = {.pass = 4, .deviation = 0.08};
  run.passes = 5;
  EXPECT_EQ(RunFitText(run), QStringLiteral("収束しなかった計算：偏差（RMS） 8.00 %"));
  EXPECT_EQ(FailedRunText(run), QStringLiteral("繰り返し 5 回で収束しませんでした（最後の偏差 8.00 %）。\n"
                                               "繰り返し回数と収束判定は「波形調整設定」で設定します。"));
  EXPECT_EQ(FailedRunText(AdjustResult{}),
            QStringLiteral("繰り返し計算は 1 回も終わりませんでした。\n"
                           "繰り返し回数と収束判定は「波形調整設定」で設定します。"));
  run.converged = true;
  EXPECT_EQ(RunFitText(run), QStringLiteral("偏差（RMS） 8.00 %"));
}

TEST(FitText, EveryFigureOfTheLineIsDefined) {
  FitFigures fit;
  fit.deviation = 0.04;
  fit.overshoot = fit.undershoot = 0.1;
  fit.overshootPeriod = fit.undershootPeriod = 0.5;
  const QString definitions = FitDefinitions();
  for (const QString& part : FitText(fit).split(u'　'))
    EXPECT_TRUE(definitions.contains(part.section(u' ', 0, 0) + u'：')) << part.toStdString();
}

}  // namespace
}  // namespace tremlo
