#include "core/waves/SeismicWaveSet.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

constexpr double kBlank = kBlankSample;

CSeismicWaveSet SetOf(const std::vector<QString>& names) {
  CSeismicWaveSet set;
  for (const QString& name : names) set.Add(name);
  return set;
}

CSeismicWaveSet WaveOf(const std::vector<double>& acc, double timeStep) {
  CSeismicWaveSet set;
  set.Add(QStringLiteral("w"));
  set.SetAcc(QStringLiteral("w"), acc);
  set.SetTimeStep(QStringLiteral("w"), timeStep);
  return set;
}

void ExpectMax(const std::vector<double>& acc, double timeStep, double value, double time) {
  double gotValue = 0.0;
  double gotTime = 0.0;
  WaveOf(acc, timeStep).MaxAcc(QStringLiteral("w"), gotValue, gotTime);
  EXPECT_EQ(gotValue, value);
  EXPECT_EQ(gotTime, time);
}

void ExpectMin(const std::vector<double>& acc, double timeStep, double value, double time) {
  double gotValue = 0.0;
  double gotTime = 0.0;
  WaveOf(acc, timeStep).MinAcc(QStringLiteral("w"), gotValue, gotTime);
  EXPECT_EQ(gotValue, value);
  EXPECT_EQ(gotTime, time);
}

TEST(SeismicWaveSet, IndexOfUnknownNameIsTheCount) {
  EXPECT_EQ(SetOf({"a", "b", "c"}).IndexOf("x"), 3U);
  EXPECT_EQ(CSeismicWaveSet().IndexOf("x"), 0U);
}

TEST(SeismicWaveSet, NamesAreComparedExactly) {
  EXPECT_EQ(SetOf({"A", "a"}).IndexOf("a"), 1U);
  EXPECT_FALSE(SetOf({"a "}).Contains("a"));
}

TEST(SeismicWaveSet, RemoveTakesEveryMatchAndKeepsTheOrder) {
  CSeismicWaveSet set = SetOf({"a", "b", "a", "c"});
  set.Remove("a");
  EXPECT_EQ(set.Names(), (std::vector<QString>{"b", "c"}));
}

TEST(SeismicWaveSet, RemoveByTheNameOfARecord) {
  CSeismicWaveSet set = SetOf({"a", "b", "a"});
  set.Remove(set.At(0).name);
  EXPECT_EQ(set.Names(), std::vector<QString>{"b"});
}

TEST(SeismicWaveSet, SetterReachesEveryMatchGetterTheFirst) {
  CSeismicWaveSet set = SetOf({"a", "b", "a"});
  set.At(0).baseColor = 1;
  set.At(2).baseColor = 2;
  EXPECT_EQ(set.GetBaseColor("a"), 1);
  set.SetBaseColor("a", 7);
  EXPECT_EQ(set.At(0).baseColor, 7);
  EXPECT_EQ(set.At(1).baseColor, 0);
  EXPECT_EQ(set.At(2).baseColor, 7);
}

TEST(SeismicWaveSet, UnknownNameChangesNothingAndReadsAsDefault) {
  CSeismicWaveSet set = SetOf({"a"});
  const CSeismicWave before = set.At(0);
  set.SetTimeStep("x", 1.0);
  set.SetAccSample("x", 0, 1.0);
  EXPECT_EQ(set.At(0), before);
  EXPECT_EQ(set.GetTimeStep("x"), 0.0);
  EXPECT_TRUE(set.GetAcc("x").empty());
}

TEST(SeismicWaveSet, ElementSettersStayInsideTheVector) {
  CSeismicWaveSet set = WaveOf({1.0, 2.0}, 0.01);
  set.SetAccSample("w", 1, 5.0);
  set.SetAccSample("w", 2, 9.0);
  EXPECT_EQ(set.GetAcc("w"), (std::vector<double>{1.0, 5.0}));
}

TEST(SeismicWaveSet, SelectCurrentMovesTheMark) {
  CSeismicWaveSet set = SetOf({"a", "b"});
  set.SelectCurrent("a");
  EXPECT_EQ(set.CurrentName(), QString("a"));
  set.SelectCurrent("b");
  EXPECT_EQ(set.CurrentName(), QString("b"));
  EXPECT_FALSE(set.GetCurrent("a"));
}

TEST(SeismicWaveSet, LargestSample) {
  ExpectMax({1.0, 5.0, kBlank, 7.0}, 0.01, 7.0, 0.03);
  ExpectMax({9.0, 5.0}, 0.01, 9.0, 0.0);
}

TEST(SeismicWaveSet, OfEqualLargestOrSmallestSamplesTheFirstCounts) {
  ExpectMax({1.0, 9.0, 5.0, 9.0, 9.0}, 0.01, 9.0, 0.01);
  ExpectMin({1.0, -9.0, 5.0, -9.0, -9.0}, 0.01, -9.0, 0.01);
  ExpectMax({9.0, 1.0, 9.0}, 0.01, 9.0, 0.0);
  ExpectMin({9.0, 1.0, 9.0, 1.0}, 0.01, 1.0, 0.01);
}

TEST(SeismicWaveSet, LeadingLargestSampleBehindABlankHasTimeZero) {
  ExpectMax({kBlank, 9.0, 5.0}, 0.01, 9.0, 0.0);
}

TEST(SeismicWaveSet, LeadingSmallestSampleBehindABlankHasItsOwnTime) {
  ExpectMin({kBlank, 5.0, 9.0}, 0.01, 5.0, 0.01);
}

TEST(SeismicWaveSet, NoSampleGivesNotANumberAtZero) {
  for (const std::vector<double>& acc : {std::vector<double>{}, std::vector<double>{kBlank, kBlank}}) {
    double value = 0.0;
    double time = 1.0;
    WaveOf(acc, 0.01).MaxAcc("w", value, time);
    EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ(time, 0.0);
    time = 1.0;
    WaveOf(acc, 0.01).MinAcc("w", value, time);
    EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ(time, 0.0);
  }
}

TEST(SeismicWaveSet, LargestOfAnEmptySpectrumIsZero) {
  EXPECT_EQ(SetOf({"a"}).MaxAccSpec("a"), 0.0);
  EXPECT_EQ(SetOf({"a"}).MaxAdjustedSpec("a"), 0.0);
}

TEST(SeismicWaveSet, NewRecordHasTheFourShowFlags) {
  const CSeismicWaveSet set = SetOf({"a"});
  EXPECT_TRUE(set.GetSiteShow("a") && set.GetBaseShow("a") && set.GetBaseAdjustShow("a") &&
              set.GetAdjustShow("a"));
  EXPECT_FALSE(set.GetSpectrumValid("a") || set.GetCurrent("a") || set.GetSiteUse("a") ||
               set.GetLowerSelected("a") || set.GetBaseSelected("a") || set.GetAdopted("a") ||
               set.GetAdjustChecked("a") || set.GetAdjusted("a"));
}

TEST(SeismicWaveSet, GraphBlocksDifferInTheLinearPeriodAxis) {
  const CSeismicWave wave;
  EXPECT_EQ(wave.origGraph.specXMax, 50.0);
  EXPECT_EQ(wave.origGraph.specXStep, 5.0);
  EXPECT_EQ(wave.lowerGraph.specXMax, 5.0);
  EXPECT_EQ(wave.lowerGraph.specXStep, 1.0);
  EXPECT_EQ(wave.origGraph.timeColor, 16724530);
}

TEST(SeismicWaveSet, ResetOrigColorsLeavesTheRanges) {
  CSeismicWaveSet set = SetOf({"a"});
  WaveGraphSetting block;
  block.timeColor = block.specColor = block.fourierColor = 0;
  block.timeXMax = 99.0;
  set.SetOrigGraph("a", block);
  set.ResetOrigColors("a");
  EXPECT_EQ(set.GetOrigGraph("a").specColor, 0xFF3232);
  EXPECT_EQ(set.GetOrigGraph("a").timeXMax, 99.0);
  set.ResetOrigGraph("a");
  EXPECT_EQ(set.GetOrigGraph("a"), WaveGraphSetting());
}

TEST(SeismicWaveSet, SelectionReadsTheFirstAndWritesToAll) {
  CSeismicWaveSet set = SetOf({"a", "b", "c"});
  set.At(1).lowerSelected = set.At(2).lowerSelected = true;
  set.At(2).accSpec = {1.0};
  EXPECT_EQ(set.SelectedName(), QString("b"));
  EXPECT_TRUE(set.SelectedAccSpec().empty());
  set.SetSelectedBaseSelected();
  set.SetSelectedSpectrumArea(2.5);
  EXPECT_FALSE(set.At(0).baseSelected);
  EXPECT_TRUE(set.At(1).baseSelected && set.At(2).baseSelected);
  EXPECT_EQ(set.At(2).spectrumArea, 2.5);
  set.ClearBaseSelected();
  EXPECT_FALSE(set.At(1).baseSelected || set.At(2).baseSelected);
}

TEST(SeismicWaveSet, NothingSelectedReadsAsDefault) {
  CSeismicWaveSet set = SetOf({"a"});
  EXPECT_EQ(set.SelectedName(), QString());
  EXPECT_EQ(set.MaxSelectedAccSpec(), 0.0);
  set.SetSelectedBaseShow(false);
  EXPECT_TRUE(set.At(0).baseShow);
}

TEST(SeismicWaveSet, FreeNameCountsUp) {
  EXPECT_EQ(SetOf({"A", "A_1"}).FreeName("A"), QString("A_2"));
  EXPECT_EQ(SetOf({"A", "A_1"}).FreeName("B"), QString("B"));
}

TEST(SeismicWave, WithoutBlanksReplacesOnlyPositiveInfinity) {
  EXPECT_EQ(WithoutBlanks({1.0, kBlank, -kBlank}), (std::vector<double>{1.0, 0.0, -kBlank}));
}

}  // namespace
}  // namespace tremlo
