#include "core/project/BaseItemFields.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr BaseItem kWave{BaseSource::Wave, 1, 0};
constexpr BaseItem kShortest{BaseSource::ShortestPlane, 1, 1};
constexpr BaseItem kEquivalent{BaseSource::EquivalentPlane, 1, 1};
constexpr BaseItem kLower{BaseSource::LowerLimit, 0, 0};
constexpr BaseItem kAll[] = {kWave, kShortest, kEquivalent, kLower};

CMorvaneDoc Project() {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  doc.faults[1].shortestPeriods[1] = {3.0, 0.3};
  doc.faults[1].shortestSpectrum[1] = {31.0, 32.0};
  doc.faults[1].equivalentPeriods[1] = {4.0, 0.4};
  doc.faults[1].equivalentSpectrum[1] = {41.0, 42.0};
  return doc;
}

TEST(BaseItemFields, EachSourceHasItsSpectrum) {
  const CMorvaneDoc doc = Project();
  EXPECT_THAT(SpectrumOf(doc, kWave).periods, ElementsAre(0.04, 0.02));
  EXPECT_THAT(SpectrumOf(doc, kWave).values, ElementsAre(10.0, 20.0));
  EXPECT_THAT(SpectrumOf(doc, kShortest).periods, ElementsAre(3.0, 0.3));
  EXPECT_THAT(SpectrumOf(doc, kShortest).values, ElementsAre(31.0, 32.0));
  EXPECT_THAT(SpectrumOf(doc, kEquivalent).periods, ElementsAre(4.0, 0.4));
  EXPECT_THAT(SpectrumOf(doc, kEquivalent).values, ElementsAre(41.0, 42.0));
  EXPECT_THAT(SpectrumOf(doc, kLower).periods, ElementsAre(2.0, 1.0));
  EXPECT_THAT(SpectrumOf(doc, kLower).values, ElementsAre(30.0, 40.0));
}

TEST(BaseItemFields, LabelsAndLegends) {
  const CMorvaneDoc doc = Project();
  EXPECT_EQ(LabelOf(doc, kWave), QString("B"));
  EXPECT_EQ(LabelOf(doc, kShortest), QString("(最短距離)(2)北"));
  EXPECT_EQ(LabelOf(doc, kEquivalent), QString("(等価震源距離)(2)北"));
  EXPECT_EQ(LabelOf(doc, kLower), QString("下限1"));
  EXPECT_EQ(LegendOf(doc, kWave), QString("B"));
  EXPECT_EQ(LegendOf(doc, kShortest), QString("(2)(最短距離)北"));
  EXPECT_EQ(LegendOf(doc, kEquivalent), QString("(2)(等価震源距離)北"));
  EXPECT_EQ(LegendOf(doc, kLower), QString("下限1"));
}

TEST(BaseItemFields, WhatIsWrittenToOneSourceIsReadFromItAlone) {
  for (const BaseItem& written : kAll) {
    CMorvaneDoc doc = Project();
    SetBaseColor(doc, written, 0x123456);
    EXPECT_TRUE(doc.IsModified());
    SetBaseShown(doc, written, false);
    StoreArea(doc, written, 7.25);
    SetTargetShown(doc, written, true);  // the project starts with false
    for (const BaseItem& read : kAll) {
      const bool same = read == written;
      EXPECT_EQ(BaseColorOf(doc, read) == 0x123456, same);
      EXPECT_EQ(IsBaseShown(doc, read), !same);
      EXPECT_EQ(StoredArea(doc, read), same ? 7.25 : 0.0);
      EXPECT_EQ(IsTargetShown(doc, read), same);
    }
  }
}

TEST(BaseItemFields, TheRightMembersAreWritten) {
  CMorvaneDoc doc = Project();
  SetTargetShown(doc, kWave, true);
  SetTargetShown(doc, kShortest, true);
  SetTargetShown(doc, kEquivalent, true);
  SetTargetShown(doc, kLower, true);
  EXPECT_TRUE(doc.seedWaves.At(1).baseAdjustShow);
  EXPECT_EQ(doc.faults[1].adjustShow, (std::vector<bool>{false, true}));
  EXPECT_EQ(doc.faults[1].adjustShowEquiv, (std::vector<bool>{false, true}));
  EXPECT_TRUE(doc.lowerSpectra.SelectedBaseAdjustShow());
}

TEST(BaseItemFields, TheMarkIsReadWhereItWasSet) {
  for (const BaseItem& base : kAll) {
    CMorvaneDoc doc = Project();
    doc.seedWaves.At(1).siteUse = true;
    SetBase(doc, LabelOf(doc, base));
    for (const BaseItem& item : kAll) EXPECT_EQ(IsBaseSelected(doc, item), item == base);
  }
}

TEST(BaseItemFields, OfTwoSelectedLowerLimitsTheFirstIsReadAndBothAreWritten) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(2).lowerSelected = true;
  doc.lowerSpectra.At(2).baseColor = 5;
  EXPECT_EQ(BaseColorOf(doc, kLower), 0);
  SetBaseColor(doc, kLower, 9);
  EXPECT_EQ(doc.lowerSpectra.At(0).baseColor, 9);
  EXPECT_EQ(doc.lowerSpectra.At(1).baseColor, 0);
  EXPECT_EQ(doc.lowerSpectra.At(2).baseColor, 9);
}

TEST(BaseItemFields, ARecordThatIsNotThereIsEmptyAndTakesNothing) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(0).lowerSelected = false;
  doc.faults[0].shortBaseColor.clear();
  doc.faults[0].adjustShow.clear();
  doc.faults[0].shortestPeriods.clear();
  const BaseItem gone[] = {{BaseSource::Wave, 3, 0},
                           {BaseSource::ShortestPlane, 2, 0},
                           {BaseSource::EquivalentPlane, 1, 2},
                           {BaseSource::LowerLimit, 0, 0},
                           {BaseSource::ShortestPlane, 0, 0}};
  doc.SetModified(true);
  const DocumentState before(doc);
  for (const BaseItem& item : gone) {
    SetBaseColor(doc, item, 1);
    SetTargetShown(doc, item, true);
    EXPECT_EQ(BaseColorOf(doc, item), 0);
    EXPECT_FALSE(IsTargetShown(doc, item));
    EXPECT_THAT(SpectrumOf(doc, item).periods, IsEmpty());
  }
  EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), IsEmpty());
  EXPECT_EQ(LabelOf(doc, gone[0]), QString());
}

}  // namespace
}  // namespace tremlo
