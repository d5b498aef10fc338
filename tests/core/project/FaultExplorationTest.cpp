#include "core/project/FaultExploration.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Dialog {
  Dialog() { test::FillProject(doc); }
  CMorvaneDoc doc{QString()};
};

TEST(FaultExploration, VersionsStandNewestFirst) {
  EXPECT_THAT(FaultExploration::SearchVersionTexts(),
              ElementsAre("2019年版", "2018年版", "2017年版", "2016年版", "2014年版", "2013年版(モデル1)",
                          "2013年版(モデル2)", "2013年版(モデル3)", "2012年版(モデル1)", "2012年版(モデル2)",
                          "2011年版", "2010年版", "2009年版", "2008年版"));
  QStringList activity = FaultExploration::ActivityVersionTexts();
  EXPECT_EQ(activity.mid(0, 2), QStringList({"2021年版", "2020年版"}));
  EXPECT_EQ(activity.mid(2), FaultExploration::SearchVersionTexts());
}

TEST(FaultExploration, RowsStandForStoredIndices) {
  Dialog parts;
  FaultExploration dialog(parts.doc);
  const std::int32_t search[] = {13, 12, 11, 10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  for (int row = 0; row < 14; ++row) {
    dialog.ChooseSearchVersion(row);
    EXPECT_EQ(dialog.values.versionIndex, search[row]);
    EXPECT_EQ(dialog.SearchVersionRow(), row);
  }
  const std::int32_t activity[] = {15, 14, 13, 12, 11, 10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  for (int row = 0; row < 16; ++row) {
    dialog.ChooseActivityVersion(row);
    EXPECT_EQ(dialog.values.activityVersionIndex, activity[row]);
    EXPECT_EQ(dialog.ActivityVersionRow(), row);
  }
}

TEST(FaultExploration, AValueThatNoListHasStaysUntilARowIsChosen) {
  Dialog parts;
  parts.doc.apiParameters.versionIndex = 14;  // the activity model alone knows it
  parts.doc.apiParameters.activityVersionIndex = -3;
  FaultExploration dialog(parts.doc);
  EXPECT_EQ(dialog.SearchVersionRow(), -1);
  EXPECT_EQ(dialog.ActivityVersionRow(), -1);
  dialog.ChooseSearchVersion(-1);
  dialog.ChooseActivityVersion(16);
  dialog.Accept();
  EXPECT_EQ(parts.doc.apiParameters.versionIndex, 14);
  EXPECT_EQ(parts.doc.apiParameters.activityVersionIndex, -3);
}

TEST(FaultExploration, TheRadioButtonsHaveTheirTexts) {
  EXPECT_THAT(FaultExploration::IntensityTexts(), ElementsAre("震度5弱", "震度5強", "震度6弱", "震度6強"));
  EXPECT_THAT(FaultExploration::ModeTexts(),
              ElementsAre("条件付超過確率", "震源断層を特定した地震動予測地図"));
  EXPECT_THAT(FaultExploration::CaseTexts(), ElementsAre("平均ケース", "最大ケース"));
  EXPECT_THAT(FaultExploration::PeriodTexts(), ElementsAre("30年", "50年"));
  EXPECT_EQ(QString::fromUtf16(kFaultExplorationTitles[3]), QString("地図バージョン (被害地検索)"));
}

TEST(FaultExploration, NothingIsStoredBeforeItIsAccepted) {
  Dialog parts;
  const test::DocumentState before(parts.doc);
  FaultExploration dialog(parts.doc);
  dialog.values.intensityIndex = 3;
  dialog.values.catastropheWeight = -1.0;
  dialog.ChooseSearchVersion(0);
  EXPECT_THAT(before.DifferencesTo(test::DocumentState(parts.doc)), IsEmpty());
  dialog.Accept();
  EXPECT_EQ(parts.doc.apiParameters, dialog.values);
  EXPECT_EQ(parts.doc.apiParameters.versionIndex, 13);
  EXPECT_TRUE(parts.doc.IsModified());
}

TEST(FaultExploration, TheDefaultsReachTheDocumentAtOnce) {
  Dialog parts;
  FaultExploration dialog(parts.doc);
  dialog.Reset();
  const ApiParameterSet& stored = parts.doc.apiParameters;
  EXPECT_EQ(stored.intensityIndex, 2);
  EXPECT_EQ(stored.catastropheWeight, 0.6);
  EXPECT_EQ(stored.modeIndex, 0);
  EXPECT_EQ(stored.versionIndex, 13);
  EXPECT_EQ(stored.activityVersionIndex, 15);
  EXPECT_EQ(stored.caseIndex, 0);
  EXPECT_EQ(stored.periodIndex, 0);
  EXPECT_EQ(dialog.values, stored);
  EXPECT_TRUE(parts.doc.IsModified());
}

}  // namespace
}  // namespace tremlo
