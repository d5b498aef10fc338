#include "core/project/CandidateFigures.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr BaseItem kWave{BaseSource::Wave, 0, 0};
constexpr BaseItem kPlane{BaseSource::ShortestPlane, 0, 0};
constexpr BaseItem kLower{BaseSource::LowerLimit, 0, 0};

/// A lower limit of 100 gal from 0.02 to 5 s.
CMorvaneDoc Project() {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  doc.lowerSpectra.At(0).periods = {5.0, 0.02};
  doc.lowerSpectra.At(0).accSpec = {100.0, 100.0};
  return doc;
}

QString Below(const std::vector<double>& periods, const std::vector<double>& values) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(0).periods = periods;
  doc.seedWaves.At(0).accSpec = values;
  return BelowLimitText(doc, kWave);
}

TEST(CandidateFigures, ThePeriodOfTheDamHasItsRange) {
  const EntryRule rule = DamPeriodRule();
  for (const char* text : {"", "0.02", "5", "0.255"})
    EXPECT_EQ(CheckEntry(rule, text), EntryFault::None) << text;
  for (const char* text : {"0.019", "5.001", "0", "-1"})
    EXPECT_EQ(CheckEntry(rule, text), EntryFault::OutOfRange) << text;
}

TEST(CandidateFigures, TheResponseLiesOnTheLineBetweenTwoPoints) {
  const CMorvaneDoc doc = Project();
  EXPECT_EQ(ResponseAtText(doc, kPlane, 0.75), QString("150.00 gal"));
  EXPECT_EQ(ResponseAtText(doc, kPlane, 0.5), QString("200.00 gal"));
  EXPECT_EQ(ResponseAtText(doc, kLower, 3.0), QString("100.00 gal"));
}

TEST(CandidateFigures, WithoutAPeriodOrOutsideTheSpectrumThereIsNoResponse) {
  const CMorvaneDoc doc = Project();
  EXPECT_EQ(ResponseAtText(doc, kPlane, std::nullopt), QString("-"));
  EXPECT_EQ(ResponseAtText(doc, kPlane, 0.49), QString("-"));
  EXPECT_EQ(ResponseAtText(doc, kPlane, 1.01), QString("-"));
  EXPECT_EQ(ResponseAtText(doc, {BaseSource::Wave, 99, 0}, 0.5), QString("-"));
}

TEST(CandidateFigures, StretchesBelowTheLowerLimitAreNamed) {
  EXPECT_EQ(Below({0.2, 0.12, 0.08, 0.05, 0.03}, {200.0, 50.0, 50.0, 99.9, 100.0}), QString("0.05～0.12 s"));
  EXPECT_EQ(Below({1.0, 0.5, 0.25}, {200.0, 99.0, 200.0}), QString("0.5 s"));
  EXPECT_EQ(Below({1.0, 0.5}, {200.0, 200.0}), QString("なし"));
}

TEST(CandidateFigures, AfterThreeStretchesTheOthersAreCounted) {
  const std::vector<double> periods{1.0, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2};
  EXPECT_EQ(Below(periods, {1.0, 999.0, 1.0, 1.0, 999.0, 999.0, 1.0, 999.0, 999.0}),
            QString("0.4 s、0.7～0.8 s、1 s"));
  EXPECT_EQ(Below(periods, {1.0, 999.0, 1.0, 999.0, 1.0, 999.0, 1.0, 999.0, 1.0}),
            QString("0.2 s、0.4 s、0.6 s、他 2"));
}

TEST(CandidateFigures, WhatCannotBeComparedIsADash) {
  EXPECT_EQ(Below({10.0, 6.0}, {1.0, 1.0}), QString("-"));
  EXPECT_EQ(Below({}, {}), QString("-"));
  EXPECT_EQ(Below({0.5}, {std::numeric_limits<double>::quiet_NaN()}), QString("-"));
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(0).lowerSelected = false;
  EXPECT_EQ(BelowLimitText(doc, kPlane), QString("-"));
}

TEST(CandidateFigures, TheLowerLimitIsNotBelowItself) {
  EXPECT_EQ(BelowLimitText(Project(), kLower), QString("なし"));
}

TEST(CandidateFigures, TheTextTellsBothWhateverTheNameHolds) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(0).name = "%1 & %2";
  EXPECT_EQ(CandidateText(doc, kWave, 0.03),
            QString("%1 & %2　ダムの固有周期での応答：15.00 gal\n下限スペクトルを下回る周期：0.02～0.04 s"));
}

TEST(CandidateFigures, OfALongNameTheTextTellsBothEnds) {
  CMorvaneDoc doc = Project();
  const QString rest = "　ダムの固有周期での応答：-\n下限スペクトルを下回る周期：0.02～0.04 s";
  doc.seedWaves.At(0).name = QString(39, u'あ') + u'い';
  EXPECT_EQ(CandidateText(doc, kWave, std::nullopt), doc.seedWaves.At(0).name + rest);
  doc.seedWaves.At(0).name = QString(30, u'あ') + QString(30, u'い');
  EXPECT_EQ(CandidateText(doc, kWave, std::nullopt), QString(20, u'あ') + u'…' + QString(19, u'い') + rest);
}

TEST(CandidateFigures, ACutNameHoldsNoHalfOfACharacter) {
  CMorvaneDoc doc = Project();
  const QString pair = QString::fromUcs4(U"𠮷", 1);
  doc.seedWaves.At(0).name = u'あ' + pair.repeated(30);
  const QString line = CandidateText(doc, kWave, std::nullopt);
  EXPECT_TRUE(line.startsWith(u'あ' + pair.repeated(9) + u'…' + pair.repeated(9) + u'　'))
      << line.toStdString();
}

}  // namespace
}  // namespace tremlo
