// Each rule is broken by hand in a sound project, and must be told.

#include "core/project/BaseSpectrum.h"
#include "random/DocumentInvariants.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <functional>
#include <gmock/gmock.h>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A project far on in the work: a base spectrum, an adopted wave, two adjusted ones.
CMorvaneDoc Project(const char16_t* base = kLowerLabel) {
  CMorvaneDoc doc{QString()};
  FillProject(doc);
  ChooseBase(doc, base);
  return doc;
}

TEST(DocumentInvariants, ASoundProjectBreaksNoneWhateverItsBaseIs) {
  for (const char16_t* base : {kWaveLabel, kPlaneLabel, kEquivalentLabel, kLowerLabel})
    EXPECT_THAT(BrokenInvariants(Project(base)), IsEmpty());
}

struct Breach {
  const char* told;
  std::function<void(CMorvaneDoc&)> commit;
};

class BrokenProject : public testing::TestWithParam<Breach> {};

TEST_P(BrokenProject, IsTold) {
  CMorvaneDoc doc = Project();
  GetParam().commit(doc);
  EXPECT_THAT(BrokenInvariants(doc), ElementsAre(HasSubstr(GetParam().told)));
}

const Breach kBreaches[] = {
    {"more than one base spectrum", [](CMorvaneDoc& doc) { doc.seedWaves.At(1).baseSelected = true; }},
    {"more than one base spectrum", [](CMorvaneDoc& doc) { doc.faults[1].shortBaseSelected[1] = true; }},
    {"more than one base spectrum", [](CMorvaneDoc& doc) { doc.faults[0].equivBaseSelected[0] = true; }},
    {"more than one base spectrum", [](CMorvaneDoc& doc) { doc.lowerSpectra.At(1).baseSelected = true; }},
    {"named, but none is marked", [](CMorvaneDoc& doc) { doc.ClearSpectrumSelection(); }},
    {"but marked is", [](CMorvaneDoc& doc) { doc.baseSpectrumName = QStringLiteral("B"); }},
    {"is no wave with its flag set", [](CMorvaneDoc& doc) { doc.seedWaves.At(0).adopted = false; }},
    {"is no wave with its flag set", [](CMorvaneDoc& doc) { doc.seedAdoptedName = QStringLiteral("B"); }},
    {"more than one wave is adopted", [](CMorvaneDoc& doc) { doc.seedWaves.At(2).adopted = true; }},
    {"results are left", [](CMorvaneDoc& doc) { doc.seedWaves.At(2).adjustedAcc = {1.0}; }},
    {"another number of samples", [](CMorvaneDoc& doc) { doc.seedWaves.At(0).acc.push_back(1.0); }},
    {"an adjusted wave has no spectrum",
     [](CMorvaneDoc& doc) {
       doc.seedWaves.At(0).adjustedPeriods.clear();
       doc.seedWaves.At(0).adjustedSpec.clear();
     }},
    {"of an adjusted spectrum", [](CMorvaneDoc& doc) { doc.seedWaves.At(0).adjustedPeriods.pop_back(); }},
    {"of a spectrum are not as many", [](CMorvaneDoc& doc) { doc.seedWaves.At(2).periods.pop_back(); }},
    {"of a target",
     [](CMorvaneDoc& doc) {
       doc.respSpectra.AddSpectrum(QStringLiteral("T"), {1.0}, {1.0, 2.0});
     }},
    {"ticked as adjusted", [](CMorvaneDoc& doc) { doc.seedWaves.At(2).adjustChecked = true; }},
    {"planes are not of one length", [](CMorvaneDoc& doc) { doc.faults[1].attenUse.pop_back(); }},
    {"without a way to the phases", [](CMorvaneDoc& doc) { doc.flowQ2Yes = doc.flowCollect = false; }},
};
INSTANTIATE_TEST_SUITE_P(EveryRule, BrokenProject, testing::ValuesIn(kBreaches));

TEST(DocumentInvariants, AMarkWithoutANameIsToldAndWhatItsFitsRestOn) {
  CMorvaneDoc doc = Project();
  doc.baseSpectrumName.clear();
  EXPECT_THAT(BrokenInvariants(doc),
              UnorderedElementsAre(HasSubstr("marked, but none is named"), HasSubstr("no base spectrum: A"),
                                   HasSubstr("no base spectrum: B")));
}

TEST(DocumentInvariants, WhatIsLeftOfAnAdoptionIsTold) {
  CMorvaneDoc doc = Project();
  doc.seedAdopted = false;
  EXPECT_THAT(BrokenInvariants(doc),
              UnorderedElementsAre(HasSubstr("the flag of the adopted one"), HasSubstr("but one is named: A"),
                                   HasSubstr("none is adopted: A"), HasSubstr("none is adopted: B")));
}

TEST(DocumentInvariants, WhatRestsOnAProcedureGoesWithIt) {
  CMorvaneDoc doc = Project();
  doc.flowFixed = false;
  EXPECT_THAT(BrokenInvariants(doc),
              UnorderedElementsAre(HasSubstr("faults are left"), HasSubstr("base spectrum is left"),
                                   HasSubstr("in use near the site")));
}

TEST(DocumentInvariants, ALowerLimitIsAlwaysMarked) {
  CMorvaneDoc doc = Project(kWaveLabel);
  doc.lowerSpectra.At(0).lowerSelected = false;
  EXPECT_THAT(BrokenInvariants(doc), ElementsAre(HasSubstr("no lower limit is marked")));
}

TEST(DocumentInvariants, WavesOfOneNameAndTwoMarkedLimitsCountAsOneBase) {
  CMorvaneDoc waves = Project(kWaveLabel);
  waves.seedWaves.At(1).name = QStringLiteral("A");
  waves.seedWaves.At(1).baseSelected = true;
  EXPECT_THAT(BrokenInvariants(waves), IsEmpty());
  CMorvaneDoc limits = Project();
  limits.lowerSpectra.At(1).lowerSelected = limits.lowerSpectra.At(1).baseSelected = true;
  EXPECT_THAT(BrokenInvariants(limits), IsEmpty());
}

TEST(DocumentInvariants, TheRulesOfTheAdoptedWaveAreThoseOfTheGuidelineRoute) {
  CMorvaneDoc doc{QString()};
  FillProject(doc);
  doc.guidelineRoute = false;
  doc.ClearAdjustment();
  doc.seedWaves.At(0).adjusted = true;
  doc.seedWaves.At(0).adjustedAcc = doc.seedWaves.At(0).acc;
  doc.seedWaves.At(0).adjustedPeriods = doc.seedWaves.At(0).adjustedSpec = {1.0};
  EXPECT_THAT(BrokenInvariants(doc), IsEmpty());
}

TEST(DocumentInvariants, AProjectComesBackFromItsBytes) {
  const TestFolder folder;
  CopyTables(folder);
  CMorvaneDoc doc(folder.Path());
  FillProject(doc);
  EXPECT_EQ(RoundTripFailure(doc), "");
}

}  // namespace
}  // namespace tremlo::test
