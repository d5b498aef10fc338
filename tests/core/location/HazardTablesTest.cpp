#include "core/location/HazardTables.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {

namespace {

TEST(HazardTablesTest, IntensitiesHaveThresholdsAndLabels) {
  EXPECT_EQ(IntensityThreshold(0), 45);
  EXPECT_EQ(IntensityThreshold(1), 50);
  EXPECT_EQ(IntensityThreshold(2), 55);
  EXPECT_EQ(IntensityThreshold(3), 60);
  EXPECT_EQ(IntensityLabel(0), u"震度5弱");
  EXPECT_EQ(IntensityLabel(1), u"震度5強");
  EXPECT_EQ(IntensityLabel(2), u"震度6弱");
  EXPECT_EQ(IntensityLabel(3), u"震度6強");
}

TEST(HazardTablesTest, ModesCasesAndPeriodsHaveKeysAndLabels) {
  EXPECT_EQ(ModeKey(0), u"C");
  EXPECT_EQ(ModeLabel(0), u"条件付超過確率");
  EXPECT_EQ(ModeKey(1), u"S");
  EXPECT_EQ(ModeLabel(1), u"震源断層を特定した地震予測地図");
  EXPECT_EQ(CaseKey(0), u"AVR");
  EXPECT_EQ(CaseLabel(0), u"平均ケース");
  EXPECT_EQ(CaseKey(1), u"MAX");
  EXPECT_EQ(CaseLabel(1), u"最大ケース");
  EXPECT_EQ(PeriodKey(0), u"P_T30");
  EXPECT_EQ(PeriodLabel(0), u"30年");
  EXPECT_EQ(PeriodKey(1), u"P_T50");
  EXPECT_EQ(PeriodLabel(1), u"50年");
}

TEST(HazardTablesTest, VersionsStandInTheOrderOfTheService) {
  const char16_t* const expected[][2] = {{u"Y2014", u"2014年版"},
                                         {u"Y2013", u"2013年版(モデル1)"},
                                         {u"Y2013_M2", u"2013年版(モデル2)"},
                                         {u"Y2013_M3", u"2013年版(モデル3)"},
                                         {u"Y2012", u"2012年版(モデル1)"},
                                         {u"Y2012_M2", u"2012年版(モデル2)"},
                                         {u"Y2011", u"2011年版"},
                                         {u"Y2010", u"2010年版"},
                                         {u"Y2009", u"2009年版"},
                                         {u"Y2008", u"2008年版"},
                                         {u"Y2016", u"2016年版"},
                                         {u"Y2017", u"2017年版"},
                                         {u"Y2018", u"2018年版"},
                                         {u"Y2019", u"2019年版"},
                                         {u"Y2020", u"2020年版"},
                                         {u"Y2021", u"2021年版"}};
  for (std::int32_t i = 0; i < kActivityVersionCount; ++i) {
    EXPECT_EQ(VersionKey(i), QString::fromUtf16(expected[i][0]));
    EXPECT_EQ(ActivityVersionLabel(i), QString::fromUtf16(expected[i][1]));
    EXPECT_EQ(SearchVersionLabel(i), i < 14 ? QString::fromUtf16(expected[i][1]) : QString());
  }
}

TEST(HazardTablesTest, ValuesOutsideATableGiveEmptyTexts) {
  for (const std::int32_t index : {-1, 16, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(IntensityThreshold(index), 0);
    for (const QString& text : {IntensityLabel(index), ModeKey(index), ModeLabel(index), VersionKey(index),
                                SearchVersionLabel(index), ActivityVersionLabel(index), CaseKey(index),
                                CaseLabel(index), PeriodKey(index), PeriodLabel(index)})
      EXPECT_EQ(text, QString()) << index;
  }
  EXPECT_EQ(IntensityLabel(4), QString());
  EXPECT_EQ(ModeLabel(2), QString());
  EXPECT_EQ(CaseLabel(2), QString());
  EXPECT_EQ(PeriodLabel(2), QString());
}

TEST(HazardTablesTest, WeightIsShownWithSixDecimals) {
  EXPECT_EQ(CatastropheWeightLabel(0.6), u"0.600000");
  EXPECT_EQ(CatastropheWeightLabel(-1.0), u"-1.000000");
  EXPECT_EQ(CatastropheWeightLabel(1e300).size(), 308);
  EXPECT_EQ(CatastropheWeightLabel(std::nan("")), u"nan");
}

TEST(HazardTablesTest, VersionsAreOfferedNewestFirst) {
  QStringList labels;
  for (const std::int32_t index : kActivityVersionOrder) labels << ActivityVersionLabel(index);
  EXPECT_EQ(labels.size(), 16);
  EXPECT_EQ(labels.mid(0, 8).join(u' '),
            u"2021年版 2020年版 2019年版 2018年版 2017年版 2016年版 2014年版 2013年版(モデル1)");
  EXPECT_EQ(labels.last(), u"2008年版");
  EXPECT_TRUE(
      std::equal(kSearchVersionOrder.begin(), kSearchVersionOrder.end(), kActivityVersionOrder.begin() + 2));
}

TEST(HazardTablesTest, CurrentParametersAreListedUnderTheirHeading) {
  EXPECT_EQ(CurrentParametersText(ApiParameterSet{}),
            u"\n\n現在以下のパラメータが設定されています。"
            u"\n超過確率しきい値：震度6弱"
            u"\n評価パラメータ(カタストロフ重視度)：0.600000"
            u"\n想定地震コード：条件付超過確率"
            u"\n地図バージョン(被害地検索)：2019年版"
            u"\n地図バージョン(地震活動モデル)：2021年版"
            u"\n確率ケース：平均ケース"
            u"\n発生確率評価期間：30年");
  const ApiParameterSet damaged{
      .intensityIndex = 9, .catastropheWeight = -0.25, .modeIndex = 1, .versionIndex = 14};
  EXPECT_EQ(CurrentParametersText(damaged),
            u"\n\n現在以下のパラメータが設定されています。"
            u"\n超過確率しきい値："
            u"\n評価パラメータ(カタストロフ重視度)：-0.250000"
            u"\n想定地震コード：震源断層を特定した地震予測地図"
            u"\n地図バージョン(被害地検索)："
            u"\n地図バージョン(地震活動モデル)：2021年版"
            u"\n確率ケース：平均ケース"
            u"\n発生確率評価期間：30年");
}

}  // namespace

}  // namespace tremlo
