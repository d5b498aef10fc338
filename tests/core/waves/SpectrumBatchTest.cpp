#include "core/waves/SpectrumBatch.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void AddWave(CSeismicWaveSet& waves, const QString& name, std::vector<double> acc, double timeStep = 0.01) {
  waves.Add(name);
  CSeismicWave& wave = waves.At(waves.Count() - 1);
  wave.acc = std::move(acc);
  wave.timeStep = timeStep;
}

void ComputeAll(CSeismicWaveSet& waves) {
  SpectrumBatch batch(waves);
  batch.Compute();
  batch.Store(waves);
}

void ExpectSpectrumOf(const CSeismicWave& wave, const std::vector<double>& acc) {
  std::vector<double> periods;
  std::vector<double> accSpec;
  ComputeResponseSpectrum(acc, periods, accSpec, wave.timeStep);
  EXPECT_EQ(wave.periods, periods);
  EXPECT_EQ(wave.accSpec, accSpec);
  EXPECT_TRUE(wave.spectrumValid);
}

TEST(SpectrumBatch, EachWaveWithoutASpectrumGetsItsOwn) {
  CSeismicWaveSet waves;
  AddWave(waves, "a", test::Noise(32, 1));
  AddWave(waves, "b", test::Noise(64, 2), 0.02);
  ComputeAll(waves);
  ExpectSpectrumOf(waves.At(0), test::Noise(32, 1));
  ExpectSpectrumOf(waves.At(1), test::Noise(64, 2));
  EXPECT_EQ(waves.At(1).periods.size(), 32U);
}

TEST(SpectrumBatch, AValidSpectrumIsLeftAlone) {
  CSeismicWaveSet waves;
  AddWave(waves, "valid", test::Noise(32, 1));
  waves.At(0).spectrumValid = true;
  waves.At(0).periods = {7.0};
  waves.At(0).accSpec = {8.0};
  EXPECT_EQ(SpectrumBatch(waves).Count(), 0U);
  ComputeAll(waves);
  EXPECT_THAT(waves.At(0).periods, ElementsAre(7.0));
  EXPECT_THAT(waves.At(0).accSpec, ElementsAre(8.0));
}

TEST(SpectrumBatch, NothingElseInARecordChanges) {
  CSeismicWaveSet waves;
  AddWave(waves, "a", test::Noise(32, 1));
  waves.At(0).adopted = true;
  CSeismicWave expected = waves.At(0);
  ComputeAll(waves);
  expected.periods = waves.At(0).periods;
  expected.accSpec = waves.At(0).accSpec;
  expected.spectrumValid = true;
  EXPECT_TRUE(waves.At(0) == expected);
}

TEST(SpectrumBatch, ATimeStepThatIsNoneEmptiesTheSpectrumAndCountsAsComputed) {
  for (const double timeStep :
       {0.0, -0.01, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    CSeismicWaveSet waves;
    AddWave(waves, "a", test::Noise(32, 1), timeStep);
    waves.At(0).periods = waves.At(0).accSpec = {1.0};
    ComputeAll(waves);
    EXPECT_THAT(waves.At(0).periods, IsEmpty()) << timeStep;
    EXPECT_THAT(waves.At(0).accSpec, IsEmpty()) << timeStep;
    EXPECT_TRUE(waves.At(0).spectrumValid) << timeStep;
  }
}

TEST(SpectrumBatch, AWaveOfNoOrOneSampleHasAnEmptySpectrum) {
  CSeismicWaveSet waves;
  AddWave(waves, "none", {});
  AddWave(waves, "one", {1.0});
  ComputeAll(waves);
  for (const CSeismicWave& wave : waves.Records()) {
    EXPECT_THAT(wave.periods, IsEmpty());
    EXPECT_TRUE(wave.spectrumValid);
  }
}

TEST(SpectrumBatch, BlanksCountAsZeroAndStayInTheWave) {
  CSeismicWaveSet waves;
  std::vector<double> acc = test::Noise(32, 1);
  acc[3] = acc[31] = kBlankSample;
  AddWave(waves, "a", acc);
  ComputeAll(waves);
  EXPECT_EQ(waves.At(0).acc, acc);
  acc[3] = acc[31] = 0.0;
  ExpectSpectrumOf(waves.At(0), acc);
}

TEST(SpectrumBatch, WavesOfOneNameKeepTheirOwnSpectra) {
  CSeismicWaveSet waves;
  AddWave(waves, "a", test::Noise(32, 1));
  AddWave(waves, "a", test::Noise(16, 2));
  ComputeAll(waves);
  ExpectSpectrumOf(waves.At(0), test::Noise(32, 1));
  ExpectSpectrumOf(waves.At(1), test::Noise(16, 2));
}

TEST(SpectrumBatch, ProgressTellsEachMissingWaveByNumberAndName) {
  CSeismicWaveSet waves;
  for (const char* name : {"a", "b", "c"}) AddWave(waves, QString::fromLatin1(name), test::Noise(8, 1));
  waves.At(1).spectrumValid = true;
  std::vector<QString> told;
  SpectrumBatch(waves).Compute([&](int wave, int count, const QString& name) {
    told.push_back(QStringLiteral("%1/%2 ").arg(wave).arg(count) + name);
  });
  EXPECT_THAT(told, ElementsAre(QStringLiteral("1/2 a"), QStringLiteral("2/2 c")));
}

TEST(SpectrumBatch, RecordsStayAsTheyAreUntilTheResultsAreStored) {
  CSeismicWaveSet waves;
  AddWave(waves, "a", test::Noise(32, 1));
  SpectrumBatch batch(waves);
  batch.Compute();
  EXPECT_FALSE(waves.At(0).spectrumValid);
  EXPECT_THAT(waves.At(0).periods, IsEmpty());
}

TEST(SpectrumBatch, AnEmptySetHasNothingToDo) {
  CSeismicWaveSet waves;
  ComputeAll(waves);
  EXPECT_TRUE(waves.IsEmpty());
}

}  // namespace
}  // namespace tremlo
