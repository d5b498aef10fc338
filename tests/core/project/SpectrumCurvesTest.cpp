#include "core/project/BaseSpectrum.h"
#include "core/project/SpectrumCurves.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CMorvaneDoc Project(const char16_t* baseLabel = nullptr) {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  if (baseLabel) test::ChooseBase(doc, baseLabel);
  return doc;
}

QStringList Names(const std::vector<GraphSeries>& curves) {
  QStringList names;
  for (const GraphSeries& curve : curves) names << curve.name;
  return names;
}

TEST(SpectrumCurves, APlaneHasASolidAndADottedCurveInItsColour) {
  CMorvaneDoc doc = Project();
  doc.faults[1].attenShow[0] = false;
  doc.faults[1].attenColor[1] = 0xABCDEF;
  const std::vector<GraphSeries> curves = AttenuationCurves(doc);
  EXPECT_THAT(Names(curves),
              ElementsAre("(最短距離)南", "(等価震源距離)南", "(2)(最短距離)北", "(2)(等価震源距離)北"));
  EXPECT_EQ(curves[2].pen.line, CurveLine::Solid);
  EXPECT_EQ(curves[3].pen.line, CurveLine::Dotted);
  EXPECT_EQ(curves[2].pen.color, 0xABCDEF);
  EXPECT_EQ(curves[3].pen.color, 0xABCDEF);
  EXPECT_THAT(curves[2].x, ElementsAre(1.0, 0.5));
  EXPECT_THAT(curves[2].y, ElementsAre(100.0, 200.0));
  EXPECT_THAT(curves[3].x, ElementsAre(2.0, 0.25));
  EXPECT_THAT(curves[3].y, ElementsAre(80.0, 160.0));
}

TEST(SpectrumCurves, APlaneOutOfUseIsStillDrawnAmongThePlanes) {
  CMorvaneDoc doc = Project();
  doc.faults[0].attenUse[0] = false;
  EXPECT_EQ(AttenuationCurves(doc).size(), 6U);
  EXPECT_EQ(CandidateCurves(doc).size(), 6U);  // a wave, two planes, the lower limit
}

TEST(SpectrumCurves, ASpectrumWithoutAPointIsNoCurve) {
  CMorvaneDoc doc = Project();
  doc.faults[0].shortestSpectrum[0].clear();
  doc.faults[1].equivalentPeriods.clear();
  doc.faults[1].attenColor.clear();
  EXPECT_THAT(Names(AttenuationCurves(doc)),
              ElementsAre("(等価震源距離)南", "(1)(最短距離)北", "(2)(最短距離)北"));
}

TEST(SpectrumCurves, CandidatesBearTheNamesOfTheLegend) {
  CMorvaneDoc doc = Project();
  doc.faults[1].equivBaseShow[1] = false;
  doc.lowerSpectra.At(0).baseColor = 0x00FF00;
  const std::vector<GraphSeries> curves = CandidateCurves(doc);
  EXPECT_THAT(Names(curves), ElementsAre("A", "(最短距離)南", "(等価震源距離)南", "(1)(最短距離)北",
                                         "(1)(等価震源距離)北", "(2)(最短距離)北", "下限1"));
  EXPECT_EQ(curves[1].pen.color, 0x102030);
  EXPECT_EQ(curves[2].pen.color, 0x405060);
  EXPECT_EQ(curves[6].pen.color, 0x00FF00);
  EXPECT_EQ(curves[2].pen.line, CurveLine::Solid);
}

TEST(SpectrumCurves, NeighboursAreTheWavesThatAreShownInUseOrNot) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(1).siteShow = false;
  doc.seedWaves.At(2).siteColor = 7;
  const std::vector<GraphSeries> curves = NeighbourCurves(doc);
  EXPECT_THAT(Names(curves), ElementsAre("A", "C"));
  EXPECT_EQ(curves[1].pen.color, 7);
  EXPECT_THAT(curves[1].y, ElementsAre(10.0, 20.0));
}

TEST(SpectrumCurves, TheSelectedLowerLimitIsDrawnInTheColourOfItsSettings) {
  CMorvaneDoc doc = Project();
  doc.lowerSpectra.At(0).lowerGraph.specColor = 0x0000AA;
  const std::vector<GraphSeries> curves = LowerLimitCurve(doc);
  EXPECT_THAT(Names(curves), ElementsAre("下限1"));
  EXPECT_EQ(curves[0].pen.color, 0x0000AA);
  EXPECT_THAT(curves[0].x, ElementsAre(2.0, 1.0));
  doc.lowerSpectra.At(0).lowerSelected = false;
  EXPECT_THAT(LowerLimitCurve(doc), IsEmpty());
}

TEST(SpectrumCurves, AWaveIsDrawnWithTheSpectrumThatItsRowMeasures) {
  CMorvaneDoc doc = Project();
  doc.seedWaves.At(1).adjustChecked = false;
  doc.seedWaves.At(2).adjustShow = false;
  const std::vector<GraphSeries> curves = AdjustCurves(doc);
  EXPECT_THAT(Names(curves), ElementsAre("A", "B"));
  EXPECT_THAT(curves[0].y, ElementsAre(11.0, 21.0));
  EXPECT_THAT(curves[1].y, ElementsAre(10.0, 20.0));
}

TEST(SpectrumCurves, TheBaseIsDrawnWithTheWavesWhileItIsShown) {
  CMorvaneDoc doc = Project(test::kPlaneLabel);
  EXPECT_EQ(AdjustCurves(doc).size(), 3U);  // the project hides it
  doc.faults[1].adjustShow[1] = true;
  const std::vector<GraphSeries> curves = AdjustCurves(doc);
  EXPECT_EQ(curves.back().name, QString("(2)(最短距離)北"));
  EXPECT_EQ(curves.back().pen.color, 0x102030);
}

TEST(SpectrumCurves, TheTargetIsTheMarkedBaseOrTheFirstOfTheResponseRoute) {
  CMorvaneDoc doc = Project();
  EXPECT_EQ(TargetCurve(doc), std::nullopt);
  test::ChooseBase(doc, test::kLowerLabel);
  auto target = TargetCurve(doc);
  ASSERT_TRUE(target);
  EXPECT_EQ(target->name, QString("目標スペクトル"));
  EXPECT_EQ(target->pen.color, 0x008000);
  EXPECT_EQ(target->pen.line, CurveLine::Dashed);
  EXPECT_THAT(target->y, ElementsAre(30.0, 40.0));
  doc.guidelineRoute = false;
  EXPECT_EQ(TargetCurve(doc), std::nullopt);
  doc.respSpectra.AddSpectrum("T", {0.1, 0.2}, {5.0, 6.0});
  EXPECT_THAT(TargetCurve(doc)->x, ElementsAre(0.1, 0.2));
}

}  // namespace
}  // namespace tremlo
