#include "core/project/BaseSpectrum.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::FillProject;

CMorvaneDoc Project() {
  CMorvaneDoc doc{QString()};
  FillProject(doc);
  return doc;
}

/// Number of marks in the whole document.
std::size_t Marks(const CMorvaneDoc& doc) {
  std::size_t marks = 0;
  const auto count = [&](const std::vector<bool>& flags) {
    marks += static_cast<std::size_t>(std::count(flags.begin(), flags.end(), true));
  };
  for (const CSeismicWave& wave : doc.seedWaves.Records()) marks += wave.baseSelected ? 1 : 0;
  for (const CSeismicWave& wave : doc.lowerSpectra.Records()) marks += wave.baseSelected ? 1 : 0;
  for (const FaultInfo& fault : doc.faults) {
    count(fault.shortBaseSelected);
    count(fault.equivBaseSelected);
  }
  return marks;
}

TEST(BaseSpectrum, LabelsCarryAPlaneNumberOnlyWhereThereAreSeveral) {
  const CMorvaneDoc doc = Project();
  EXPECT_EQ(ShortestLabel(doc.faults[0], 0), QString("(最短距離)南"));
  EXPECT_EQ(EquivalentLabel(doc.faults[0], 0), QString("(等価震源距離)南"));
  EXPECT_EQ(ShortestLabel(doc.faults[1], 0), QString("(最短距離)(1)北"));
  EXPECT_EQ(EquivalentLabel(doc.faults[1], 1), QString("(等価震源距離)(2)北"));
}

TEST(BaseSpectrum, PlanesAreThoseThatTheRecordReallyHolds) {
  CMorvaneDoc doc = Project();
  doc.faults[0].geomNum = 1000;  // the record holds one
  EXPECT_EQ(ShortestLabel(doc.faults[0], 0), QString("(最短距離)南"));
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)南"), (BaseItem{BaseSource::ShortestPlane, 0, 0}));
  doc.faults[1].geomNum = 1;  // the record holds two
  EXPECT_EQ(ShortestLabel(doc.faults[1], 0), QString("(最短距離)北"));
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)(2)北"), BaseItem{});
}

TEST(BaseSpectrum, ALabelFindsItsWaveOrPlane) {
  const CMorvaneDoc doc = Project();
  EXPECT_EQ(FindBaseItem(doc, "A"), (BaseItem{BaseSource::Wave, 0, 0}));
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)南"), (BaseItem{BaseSource::ShortestPlane, 0, 0}));
  EXPECT_EQ(FindBaseItem(doc, "(等価震源距離)(2)北"), (BaseItem{BaseSource::EquivalentPlane, 1, 1}));
}

TEST(BaseSpectrum, AnyOtherLabelMeansTheLowerLimit) {
  const CMorvaneDoc doc = Project();
  for (const char* label : {"下限1", "no such thing", "", "(最短距離)(1)南", "(2)(最短距離)北"})
    EXPECT_EQ(FindBaseItem(doc, label), BaseItem{}) << label;
}

TEST(BaseSpectrum, WavesAndPlanesThatAreNotInUseAreNotFound) {
  CMorvaneDoc doc = Project();
  EXPECT_EQ(FindBaseItem(doc, "B"), BaseItem{});
  doc.faults[1].attenUse[0] = false;
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)(1)北"), BaseItem{});
}

TEST(BaseSpectrum, TheProcedureDecidesWhichSourcesAreLookedAt) {
  CMorvaneDoc doc = Project();
  doc.flowNeighbourWave = false;
  EXPECT_EQ(FindBaseItem(doc, "A"), BaseItem{});
  doc.flowFaultSource = false;
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)南"), BaseItem{});
}

TEST(BaseSpectrum, OfEqualLabelsTheFirstIsFound) {
  CMorvaneDoc doc = Project();
  doc.faults.push_back(doc.faults[0]);
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)南"), (BaseItem{BaseSource::ShortestPlane, 0, 0}));
  doc.seedWaves.At(1).name = "A";
  doc.seedWaves.At(1).siteUse = true;
  EXPECT_EQ(FindBaseItem(doc, "A"), (BaseItem{BaseSource::Wave, 0, 0}));
}

TEST(BaseSpectrum, AWaveGoesBeforeAPlaneOfTheSameLabel) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(0).name = "(最短距離)南";
  EXPECT_EQ(FindBaseItem(doc, "(最短距離)南"), (BaseItem{BaseSource::Wave, 0, 0}));
}

TEST(BaseSpectrum, ChoosingLeavesOneMarkAndTheLabel) {
  CMorvaneDoc doc = Project();
  const std::pair<const char16_t*, BaseItem> cases[] = {
      {test::kWaveLabel, {BaseSource::Wave, 0, 0}},
      {test::kPlaneLabel, {BaseSource::ShortestPlane, 1, 1}},
      {test::kEquivalentLabel, {BaseSource::EquivalentPlane, 0, 0}},
      {test::kLowerLabel, {BaseSource::LowerLimit, 0, 0}},
  };
  for (const auto& [label, item] : cases) {
    doc.SetModified(false);
    SetBase(doc, QString::fromUtf16(label));
    EXPECT_EQ(doc.baseSpectrumName, QString::fromUtf16(label));
    EXPECT_EQ(MarkedBase(doc), item);
    EXPECT_EQ(Marks(doc), 1U);
    EXPECT_TRUE(doc.IsModified());
  }
}

TEST(BaseSpectrum, NothingIsMarkedInAFreshDocument) {
  EXPECT_EQ(MarkedBase(Project()), std::nullopt);
  EXPECT_EQ(MarkedBase(CMorvaneDoc{QString()}), std::nullopt);
}

TEST(BaseSpectrum, TheMarkedLowerLimitCountsOnlyWhileItIsTheSelectedOne) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(2).baseSelected = true;
  EXPECT_EQ(MarkedBase(doc), std::nullopt);
}

TEST(BaseSpectrum, WithoutASelectedLowerLimitItsLabelMarksNothing) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(0).lowerSelected = false;
  SetBase(doc, "下限1");
  EXPECT_EQ(MarkedBase(doc), std::nullopt);
}

TEST(BaseSpectrum, MarksAreLookedForAmongWavesThenPlanesThenLowerLimit) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(0).baseSelected = true;
  EXPECT_EQ(MarkedBase(doc), BaseItem{});
  doc.faults[0].equivBaseSelected[0] = true;
  EXPECT_EQ(MarkedBase(doc), (BaseItem{BaseSource::EquivalentPlane, 0, 0}));
  doc.faults[1].shortBaseSelected[1] = true;
  EXPECT_EQ(MarkedBase(doc), (BaseItem{BaseSource::ShortestPlane, 1, 1}));
  doc.seedWaves.At(2).baseSelected = true;
  EXPECT_EQ(MarkedBase(doc), (BaseItem{BaseSource::Wave, 2, 0}));
}

TEST(BaseSpectrum, APlaneIsTheBaseByEitherOfItsMarks) {
  CMorvaneDoc doc = Project();
  EXPECT_FALSE(AnyPlaneIsBase(doc));
  doc.faults[1].equivBaseSelected[1] = true;
  EXPECT_TRUE(AnyPlaneIsBase(doc));
  EXPECT_TRUE(IsBasePlane(doc.faults[1], 1));
  EXPECT_FALSE(IsBasePlane(doc.faults[1], 0));
  EXPECT_FALSE(IsBasePlane(doc.faults[1], 9));
}

TEST(BaseSpectrum, AWaveIsTheBaseByItsMarkOrItsName) {
  CMorvaneDoc doc = Project();
  EXPECT_FALSE(IsBaseWave(doc, "A"));
  doc.baseSpectrumName = "A";
  EXPECT_TRUE(IsBaseWave(doc, "A"));
  EXPECT_FALSE(IsBaseWave(doc, "B"));
  doc.baseSpectrumName = "X";
  EXPECT_FALSE(IsBaseWave(doc, "X"));  // no wave of that name
  doc.seedWaves.At(1).baseSelected = true;
  EXPECT_TRUE(IsBaseWave(doc, "B"));
}

TEST(BaseSpectrum, AnUnnamedWaveIsNotTheBaseWhenNoneIsChosen) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(2).name.clear();
  EXPECT_FALSE(IsBaseWave(doc, ""));
}

}  // namespace
}  // namespace tremlo
