#include "core/waves/FiguresText.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

TEST(FiguresText, ANumberHasFourDigitsThatCountAndAtMostFourDecimals) {
  const std::pair<double, const char*> cases[] = {
      {341.70123, "341.7"},  {33.456, "33.46"},        {-1.23456, "-1.235"}, {0.123456, "0.1235"},
      {-0.00126, "-0.0013"}, {1234.5678, "1235"},      {-45678.9, "-45679"}, {999999.0, "999999"},
      {1e6, "1.00e+06"},     {-1.2345e7, "-1.23e+07"}, {1e300, "1.00e+300"}, {0.0, "0.0000"},
      {-0.0, "0.0000"},      {-1e-9, "0.0000"},        {1.0, "1.000"},       {10.0, "10.00"},
      {100.0, "100.0"},      {1000.0, "1000"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(FigureNumber(value), QLatin1String(text)) << value;
}

TEST(FiguresText, ANumberThatIsNoneIsADash) {
  EXPECT_EQ(FigureNumber(std::nan("")), QStringLiteral("－"));
  EXPECT_EQ(FigureNumber(HUGE_VAL), QStringLiteral("－"));
}

TEST(FiguresText, TheLineTellsAllFiguresWithTheirUnits) {
  const FiguresLine line = MakeFiguresLine(QStringLiteral("原種波形"), {.pga = 341.7,
                                                                        .pgv = 33.45,
                                                                        .pgd = 21.36,
                                                                        .endVelocity = -1.2345,
                                                                        .endDisplacement = -12.345,
                                                                        .ariasIntensity = 181.2,
                                                                        .duration = 24.43});
  EXPECT_EQ(line.Text(),
            QStringLiteral("原種波形　最大加速度 341.7 gal　最大速度 33.45 cm/s　最大変位 21.36 cm　"
                           "終端速度 -1.234 cm/s　終端変位 -12.35 cm　アリアス強度 181.2 cm/s　"
                           "継続時間(5–95%) 24.43 秒"));
}

TEST(FiguresText, EveryFigureSaysWhatItIs) {
  const FiguresLine line = MakeFiguresLine({}, {});
  ASSERT_EQ(line.figures.size(), 7U);
  for (const FigureText& figure : line.figures) EXPECT_TRUE(figure.definition.endsWith(u'。'));
  for (std::size_t i = 1; i < 5; ++i)
    EXPECT_TRUE(line.figures[i].definition.contains(QStringLiteral("基線補正なし"))) << i;
  EXPECT_TRUE(line.figures[5].definition.contains(QStringLiteral("g = 980.665 gal")));
}

TEST(FiguresText, OfAWaveThereIsALineOfTheSeedAndOneOfTheResult) {
  CSeismicWave wave;
  wave.timeStep = 0.01;
  wave.acc = test::RecordLike(300, 1);
  wave.acc[10] = kBlankSample;
  wave.adjustedAcc = test::RecordLike(512, 2);
  ASSERT_EQ(FiguresOf(wave).size(), 1U) << "what is not valid is not told";
  wave.adjusted = true;
  const std::vector<FiguresLine> lines = FiguresOf(wave);
  ASSERT_EQ(lines.size(), 2U);
  std::vector<double> seed = wave.acc;
  seed[10] = 0.0;
  EXPECT_EQ(lines[0].Text(),
            MakeFiguresLine(QStringLiteral("原種波形"), ComputeWaveFigures(seed, 0.01)).Text());
  EXPECT_EQ(lines[1].Text(),
            MakeFiguresLine(QStringLiteral("調整後波形"), ComputeWaveFigures(wave.adjustedAcc, 0.01)).Text());
}

TEST(FiguresText, AWaveWithoutSamplesOrStepShowsDashes) {
  CSeismicWave wave;
  EXPECT_EQ(FiguresOf(wave)[0].Text().count(u'－'), 7);
  wave.acc = {1.0, 2.0};
  EXPECT_EQ(FiguresOf(wave)[0].Text().count(u'－'), 6);
  EXPECT_EQ(FiguresOf(wave)[0].figures[0].value, QStringLiteral("2.000 gal"));
}

}  // namespace
}  // namespace tremlo
