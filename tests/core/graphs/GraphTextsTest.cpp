#include "core/graphs/GraphTexts.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

void ExpectTexts(GraphKind kind, const char* caption, const char* x, const char* y, const char* note) {
  EXPECT_EQ(TextsOf(kind).Caption(), caption);
  EXPECT_EQ(TextsOf(kind).XTitle(), x);
  EXPECT_EQ(TextsOf(kind).YTitle(), y);
  EXPECT_EQ(TextsOf(kind).note, note);
}

TEST(GraphTexts, EveryGraphHasItsTitlesAndItsNote) {
  ExpectTexts(GraphKind::Time, "グラフ (時間－加速度)", "時間 (sec)", "加速度 (gal)", "");
  ExpectTexts(GraphKind::Spectrum, "グラフ (周期－加速度応答スペクトル)", "周期T (sec)",
              "加速度応答スペクトルS (gal)", "減衰定数 h=5%");
  ExpectTexts(GraphKind::Fourier, "グラフ (フーリエスペクトル)", "周期T (sec)",
              "フーリエスペクトル (gal・sec)", "フィルタなし");
}

TEST(GraphTexts, TheAxesAreDescribedWithTheirLimits) {
  WaveGraphSetting block;
  block.autoRange = 0;
  EXPECT_EQ(DescribeAxes(GraphKind::Time, WorkingRange(GraphKind::Time, block, {}, 1.2)),
            "時間 (sec)：0 ～ 30、加速度 (gal)：-500 ～ 500");
  EXPECT_EQ(DescribeAxes(GraphKind::Spectrum, WorkingRange(GraphKind::Spectrum, block, {}, 1.2)),
            "周期T (sec)：0.01 ～ 10 (対数)、加速度応答スペクトルS (gal)：0 ～ 1200");
}

TEST(GraphTexts, TheCurvesAreNamedAndManyAreCounted) {
  const auto curve = [](const QString& name) { return GraphSeries{name, {1.0}, {2.0}, {}}; };
  EXPECT_EQ(DescribeCurves({}), QString());
  EXPECT_EQ(DescribeCurves({curve("")}), QString());
  EXPECT_EQ(DescribeCurves({curve("a"), GraphSeries{"b", {}, {}, {}}, curve(""), curve("c")}), "曲線：a、c");
  std::vector<GraphSeries> many;
  for (int i = 1; i <= 10; ++i) many.push_back(curve(QString::number(i)));
  EXPECT_EQ(DescribeCurves(many), "曲線：1、2、3、4、5、6、7、8、9、10");
  many.resize(600, curve("x"));
  EXPECT_EQ(DescribeCurves(many), "曲線：1、2、3、4、5、6、7、8、9、10、他 590 本");
}

TEST(GraphTexts, APointIsToldWithItsUnitsBehindItsCurve) {
  EXPECT_EQ(DescribePoint(GraphKind::Time, {}, 1.23, -45.678), "時間 1.23 sec、加速度 -45.678 gal");
  EXPECT_EQ(DescribePoint(GraphKind::Fourier, "波%1", 0.5, 12),
            "波%1：周期T 0.5 sec、フーリエスペクトル 12 gal・sec");
}

}  // namespace
}  // namespace tremlo
