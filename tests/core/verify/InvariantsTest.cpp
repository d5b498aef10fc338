#include "core/verify/VerifyInvariants.h"
#include "support/SmallProject.h"
#include "support/SoundProject.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

std::vector<VerifyItem> Items(const CMorvaneDoc& doc) {
  std::vector<VerifyItem> items;
  VerifyInvariants(doc, items);
  return items;
}

const CMorvaneDoc& Sound() {
  static const CMorvaneDoc doc = test::SoundProject();
  return doc;
}

TEST(VerifyInvariants, HoldInSoundProjects) {
  for (const CMorvaneDoc& doc : {Sound(), test::SoundResponseProject(), test::DocWithoutTables()})
    for (const VerifyItem& item : Items(doc))
      EXPECT_EQ(item.outcome, VerifyOutcome::Equal) << item.key.toStdString() << item.reason.toStdString();
}

struct Breach {
  const char* name;
  const char* key;
  const char* at;
  std::function<void(CMorvaneDoc&)> apply;
};

class BrokenRule : public testing::TestWithParam<Breach> {};

TEST_P(BrokenRule, IsTheOneThatDiffers) {
  CMorvaneDoc doc = Sound();
  GetParam().apply(doc);
  for (const VerifyItem& item : Items(doc)) {
    if (item.key != QLatin1String(GetParam().key)) {
      EXPECT_EQ(item.outcome, VerifyOutcome::Equal) << item.key.toStdString() << item.reason.toStdString();
      continue;
    }
    EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
    EXPECT_EQ(item.at, QLatin1String(GetParam().at));
    EXPECT_FALSE(item.reason.isEmpty());
    EXPECT_TRUE(std::isnan(item.difference));
  }
}

const Breach kBreaches[] = {
    {"TwoMarks", "invariants.base", "baseSpectrumName",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(1).baseSelected = true; }},
    {"APlaneMarkedToo", "invariants.base", "baseSpectrumName",
     [](CMorvaneDoc& doc) { doc.faults[1].equivBaseSelected[1] = true; }},
    {"NoMark", "invariants.base", "baseSpectrumName",
     [](CMorvaneDoc& doc) { doc.lowerSpectra.At(0).baseSelected = false; }},
    {"AnotherName", "invariants.base", "baseSpectrumName",
     [](CMorvaneDoc& doc) { doc.baseSpectrumName = "近隣"; }},
    {"AdoptedWithoutAFlag", "invariants.adoption", "seedAdoptedName",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(0).adopted = false; }},
    {"AdoptedUnderAnotherName", "invariants.adoption", "seedAdoptedName",
     [](CMorvaneDoc& doc) { doc.seedAdoptedName = "B"; }},
    {"TwoAdopted", "invariants.adoption", "seedAdoptedName",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(1).adopted = true; }},
    {"ResultsOfNoAdjustment", "invariants.adjusted", "seedWaves[1].adjusted",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(1).adjustedAcc = {1.0}; }},
    {"AnotherNumberOfSamples", "invariants.adjusted", "seedWaves[0].adjusted",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(0).adjustedAcc.pop_back(); }},
    {"NoAdjustedSpectrum", "invariants.adjusted", "seedWaves[0].adjusted",
     [](CMorvaneDoc& doc) {
       doc.seedWaves.At(0).adjustedSpec.clear();
       doc.seedWaves.At(0).adjustedPeriods.clear();
     }},
    {"TickedWithoutAResult", "invariants.adjusted", "seedWaves[1].adjustChecked",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(1).adjustChecked = true; }},
    {"SpectrumOfTwoLengths", "invariants.spectra", "seedWaves[1].accSpec",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(1).accSpec.pop_back(); }},
    {"AdjustedSpectrumOfTwoLengths", "invariants.spectra", "seedWaves[0].adjustedSpec",
     [](CMorvaneDoc& doc) { doc.seedWaves.At(0).adjustedPeriods.pop_back(); }},
    {"LimitOfTwoLengths", "invariants.spectra", "lowerSpectra[2].accSpec",
     [](CMorvaneDoc& doc) { doc.lowerSpectra.At(2).periods.pop_back(); }},
    {"AFlagShort", "invariants.planes", "faults[1].attenUse",
     [](CMorvaneDoc& doc) { doc.faults[1].attenUse.pop_back(); }},
    {"ACornerShort", "invariants.planes", "faults[0].corner3Lat",
     [](CMorvaneDoc& doc) { doc.faults[0].corner3Lat.clear(); }},
    {"ASpectrumTooMany", "invariants.planes", "faults[0].shortestSpectrum",
     [](CMorvaneDoc& doc) { doc.faults[0].shortestSpectrum.emplace_back(); }},
    {"FixedWithoutAPath", "invariants.procedure", "flowFixed",
     [](CMorvaneDoc& doc) { doc.flowQ2Yes = false; }},
    {"NotFixed", "invariants.procedure", "flowFixed", [](CMorvaneDoc& doc) { doc.flowFixed = false; }},
};

INSTANTIATE_TEST_SUITE_P(Rules, BrokenRule, testing::ValuesIn(kBreaches),
                         [](const auto& breach) { return std::string(breach.param.name); });

TEST(VerifyInvariants, NothingAdoptedLeavesNoFlagAndNoName) {
  CMorvaneDoc doc = test::DocWithoutTables();
  doc.seedAdoptedName = "left";
  EXPECT_EQ(Items(doc)[1].outcome, VerifyOutcome::Differs);
  doc.seedAdoptedName.clear();
  doc.seedWaves.Add("w");
  doc.seedWaves.At(0).adopted = true;
  EXPECT_EQ(Items(doc)[1].outcome, VerifyOutcome::Differs);
}

TEST(VerifyInvariants, AnAdjustmentNeedsItsBaseAndItsAdoptionOnTheGuidelineRouteAlone) {
  CMorvaneDoc doc = Sound();
  doc.ClearSpectrumSelection();
  doc.baseSpectrumName.clear();
  EXPECT_EQ(Items(doc)[2].outcome, VerifyOutcome::Differs);
  EXPECT_EQ(Items(test::SoundResponseProject())[2].outcome, VerifyOutcome::Equal);
}

TEST(VerifyInvariants, WavesOfOneNameAndTwoMarkedLimitsCountAsOneBase) {
  CMorvaneDoc waves = Sound();
  waves.ClearSpectrumSelection();
  waves.seedWaves.At(0).name = waves.seedAdoptedName = "近隣";
  waves.seedWaves.At(0).baseSelected = waves.seedWaves.At(1).baseSelected = true;
  waves.baseSpectrumName = "近隣";
  EXPECT_EQ(Items(waves)[0].outcome, VerifyOutcome::Equal);
  CMorvaneDoc limits = Sound();
  limits.lowerSpectra.At(1).lowerSelected = limits.lowerSpectra.At(1).baseSelected = true;
  EXPECT_EQ(Items(limits)[0].outcome, VerifyOutcome::Equal);
}

TEST(VerifyInvariants, FurtherBreachesAreCounted) {
  CMorvaneDoc doc = Sound();
  doc.faults[1].attenUse.pop_back();
  doc.faults[1].shortArea.pop_back();
  doc.faults[1].adjustShow.pop_back();
  EXPECT_TRUE(Items(doc)[4].reason.endsWith(QStringLiteral("ほか 2 か所。")))
      << Items(doc)[4].reason.toStdString();
}

TEST(VerifyInvariants, ANegativeCountOfPlanesIsNone) {
  CMorvaneDoc doc = test::DocWithoutTables();
  doc.faults.emplace_back().geomNum = -1;
  EXPECT_EQ(Items(doc)[4].outcome, VerifyOutcome::Equal);
}

}  // namespace
}  // namespace tremlo
