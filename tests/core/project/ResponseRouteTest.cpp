#include "core/project/ResponseRoute.h"
#include "support/DocumentState.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

CMorvaneDoc AdjustedRoute() {
  CMorvaneDoc doc{QString()};
  EnsureRespWave(doc);
  EnsureRespSpectrum(doc);
  CSeismicWave& wave = doc.seedWaves.At(0);
  wave.spectrumValid = true;
  wave.adjusted = true;
  wave.adjustedAcc = {1.0, 2.0};
  wave.adjustedPeriods = {0.02};
  wave.adjustedSpec = {3.0};
  doc.SetModified(false);
  return doc;
}

bool IsEmptied(const CSeismicWave& wave) {
  return !wave.adjusted && wave.adjustedAcc.empty() && wave.adjustedPeriods.empty() &&
         wave.adjustedSpec.empty();
}

bool WaveDataWith(double timeStep, const std::vector<double>& acc) {
  CMorvaneDoc doc{QString()};
  EnsureRespWave(doc);
  doc.seedWaves.At(0).timeStep = timeStep;
  doc.seedWaves.At(0).acc = acc;
  return HasRespWaveData(doc);
}

TEST(ResponseRoute, AMissingWaveIsAddedOnce) {
  CMorvaneDoc doc{QString()};
  EnsureRespWave(doc);
  EnsureRespWave(doc);
  ASSERT_EQ(doc.seedWaves.Names(), std::vector<QString>{"地震波形"});
  EXPECT_EQ(doc.seedWaves.At(0).timeStep, 0.01);
  EXPECT_THAT(doc.seedWaves.At(0).acc, ElementsAre(0.0));
  EXPECT_FALSE(doc.seedWaves.At(0).spectrumValid);
  EXPECT_TRUE(doc.IsModified());
}

TEST(ResponseRoute, AMissingTargetIsAddedOnce) {
  CMorvaneDoc doc{QString()};
  EnsureRespSpectrum(doc);
  EnsureRespSpectrum(doc);
  ASSERT_EQ(doc.respSpectra.Names(), std::vector<QString>{"基準スペクトル"});
  EXPECT_THAT(doc.respSpectra.At(0).periods, ElementsAre(0.0));
  EXPECT_THAT(doc.respSpectra.At(0).accSpec, ElementsAre(0.0));
  EXPECT_TRUE(doc.IsModified());
}

TEST(ResponseRoute, RecordsThatAreThereStayUntouched) {
  CMorvaneDoc doc = AdjustedRoute();
  const DocumentState before(doc);
  EnsureRespWave(doc);
  EnsureRespSpectrum(doc);
  EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), IsEmpty());
}

TEST(ResponseRoute, AWaveNeedsSamplesAndARealTimeStep) {
  EXPECT_TRUE(WaveDataWith(0.01, {0.0}));
  EXPECT_FALSE(WaveDataWith(0.01, {}));
  EXPECT_FALSE(WaveDataWith(0.0, {1.0}));
  EXPECT_FALSE(WaveDataWith(-0.01, {1.0}));
  EXPECT_FALSE(WaveDataWith(std::numeric_limits<double>::infinity(), {1.0}));
  EXPECT_FALSE(WaveDataWith(std::numeric_limits<double>::quiet_NaN(), {1.0}));
  EXPECT_FALSE(HasRespWaveData(CMorvaneDoc{QString()}));
}

TEST(ResponseRoute, ATargetNeedsNamePeriodsAndValues) {
  CMorvaneDoc doc{QString()};
  EXPECT_FALSE(HasRespTarget(doc));
  EnsureRespSpectrum(doc);
  CSeismicWave& target = doc.respSpectra.At(0);
  EXPECT_TRUE(HasRespTarget(doc));
  target.name.clear();
  EXPECT_FALSE(HasRespTarget(doc));
  target.name = "T";
  target.periods.clear();
  EXPECT_FALSE(HasRespTarget(doc));
  target.periods = {1.0};
  target.accSpec.clear();
  EXPECT_FALSE(HasRespTarget(doc));
}

TEST(ResponseRoute, AChangedWaveLosesResultAndSpectrum) {
  CMorvaneDoc doc = AdjustedRoute();
  ChangeRespWave(doc, [&] { doc.seedWaves.At(0).timeStep = 0.02; });
  EXPECT_EQ(doc.seedWaves.At(0).timeStep, 0.02);
  EXPECT_TRUE(IsEmptied(doc.seedWaves.At(0)));
  EXPECT_FALSE(doc.seedWaves.At(0).spectrumValid);
  EXPECT_TRUE(doc.IsModified());
}

TEST(ResponseRoute, AChangedWaveLosesWhatIsKnownOfItsFileUnlessTheChangeBringsIt) {
  CMorvaneDoc doc = AdjustedRoute();
  CSeismicWave& wave = doc.seedWaves.At(0);
  ChangeRespWave(doc, [&] { wave.note.emplace(); });
  EXPECT_TRUE(wave.note);
  ChangeRespSpectrum(doc, [] {});
  EXPECT_TRUE(wave.note);
  ChangeRespWave(doc, [&] { wave.timeStep = 0.02; });
  EXPECT_FALSE(wave.note);
}

TEST(ResponseRoute, AChangedTargetDropsTheResultAlone) {
  CMorvaneDoc doc = AdjustedRoute();
  ChangeRespSpectrum(doc, [&] { doc.respSpectra.At(0).accSpec = {5.0}; });
  EXPECT_THAT(doc.respSpectra.At(0).accSpec, ElementsAre(5.0));
  EXPECT_TRUE(IsEmptied(doc.seedWaves.At(0)));
  EXPECT_TRUE(doc.seedWaves.At(0).spectrumValid);
  EXPECT_TRUE(doc.IsModified());
}

TEST(ResponseRoute, AChangedTargetNeedsNoWave) {
  CMorvaneDoc doc{QString()};
  EnsureRespSpectrum(doc);
  ChangeRespSpectrum(doc, [&] { doc.respSpectra.At(0).periods = {2.0}; });
  EXPECT_THAT(doc.respSpectra.At(0).periods, ElementsAre(2.0));
}

TEST(ResponseRoute, ARunTakesCopiesAndTheSettings) {
  CMorvaneDoc doc = AdjustedRoute();
  doc.seedWaves.At(0).acc = {1.0, kBlankSample, 3.0};
  doc.respSpectra.At(0).periods = {0.1, 2.0};
  doc.respSpectra.At(0).accSpec = {10.0, 20.0};
  doc.adjustMaxIterations = 7;
  doc.adjustTolerancePercent = 0.02;
  const DocumentState before(doc);
  const AdjustInput input = RespAdjustInput(doc);
  EXPECT_EQ(input.timeStep, 0.01);
  EXPECT_THAT(input.acc, ElementsAre(1.0, 0.0, 3.0));
  EXPECT_THAT(input.periods, ElementsAre(2.0, 0.1));
  EXPECT_THAT(input.target, ElementsAre(20.0, 10.0));
  EXPECT_EQ(input.iterations, 7);
  EXPECT_EQ(input.tolerance, 0.02);
  EXPECT_EQ(DocumentState(doc), before);
}

TEST(ResponseRoute, ARunWithoutRecordsHasNoInput) {
  const AdjustInput input = RespAdjustInput(CMorvaneDoc{QString()});
  EXPECT_FALSE(input.HasWave());
  EXPECT_FALSE(input.HasTarget());
}

TEST(ResponseRoute, AResultIsStoredOnTheFirstWaveAndMarksTheDocument) {
  CMorvaneDoc doc = AdjustedRoute();
  doc.seedWaves.At(0).adjusted = false;
  doc.seedWaves.Add("地震波形");
  StoreRespAdjustment(doc, {.converged = true, .acc = {5.0}, .periods = {6.0}, .spectrum = {7.0}});
  const CSeismicWave& wave = doc.seedWaves.At(0);
  EXPECT_TRUE(wave.adjusted);
  EXPECT_THAT(wave.adjustedAcc, ElementsAre(5.0));
  EXPECT_THAT(wave.adjustedPeriods, ElementsAre(6.0));
  EXPECT_THAT(wave.adjustedSpec, ElementsAre(7.0));
  EXPECT_FALSE(doc.seedWaves.At(1).adjusted);
  EXPECT_TRUE(doc.IsModified());
}

TEST(ResponseRoute, ARunThatFailedIsNotStored) {
  CMorvaneDoc doc = AdjustedRoute();
  const DocumentState before(doc);
  StoreRespAdjustment(doc, {.converged = false, .acc = {5.0}, .periods = {}, .spectrum = {}});
  EXPECT_EQ(DocumentState(doc), before);
  EXPECT_FALSE(doc.IsModified());

  CMorvaneDoc empty{QString()};
  StoreRespAdjustment(empty, {.converged = true, .acc = {5.0}, .periods = {}, .spectrum = {}});
  EXPECT_FALSE(empty.IsModified());
}

}  // namespace
}  // namespace tremlo
