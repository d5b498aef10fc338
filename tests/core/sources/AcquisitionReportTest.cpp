#include "core/sources/AcquisitionReport.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

FaultAcquisitionResult Ended(bool changed, ServiceOutcome outcome = ServiceOutcome::Done) {
  FaultAcquisitionResult result;
  result.changed = changed;
  result.outcome = outcome;
  return result;
}

/// What one acquisition of the local service came to.
struct Asked {
  explicit Asked(std::int32_t mode, const char* wishes = "") {
    LocalService local;
    EXPECT_TRUE(local.IsReady());
    const ServiceSettings settings = local.Settings(QStringLiteral("http"), QString::fromLatin1(wishes));
    FaultAcquisitionInput input;
    input.mode = mode;
    input.latitude = 36.56144;
    input.longitude = 136.61409;
    input.zone = 7;
    input.parameters.versionIndex = 12;
    for (const char* code : {"F005701", "F099999"}) {
      MainFaultRow row;
      row.code = QString::fromLatin1(code);
      row.name = row.code + QStringLiteral("断層");
      row.lon = 136.6;
      row.lat = 36.5;
      input.mainFaultRows.push_back(row);
    }
    test::RecordedMessages messages;
    const FaultAcquisitionResult result = AcquireFaults(input, settings, messages, faults);
    report = ReportOf(input, result);
  }

  using LocalService = test::LocalService;
  std::vector<FaultInfo> faults;
  AcquisitionReport report;
};

TEST(AcquisitionReport, ARankingAsksBothInterfaces) {
  const Asked asked(kAcquireRanking);
  EXPECT_EQ(asked.report.searchVersion, 12);
  EXPECT_EQ(asked.report.activityVersion, 15);
  EXPECT_EQ(AcquisitionLine(asked.report, 3),
            QString("出典：防災科学技術研究所 J-SHIS 地震ハザードステーション（地図バージョン：被害地検索 "
                    "2018年版、地震活動モデル 2021年版）　断層面を取得できなかった断層：試験用の未登録断層"));
}

TEST(AcquisitionReport, ARangeAsksTheActivityModelAlone) {
  const Asked asked(kAcquireRange);
  EXPECT_EQ(asked.report.searchVersion, std::nullopt);
  EXPECT_EQ(asked.report.activityVersion, 15);
  EXPECT_THAT(asked.report.unread, ElementsAre("F099999断層"));
  EXPECT_EQ(
      AcquisitionLine(asked.report, 3),
      QString("出典：防災科学技術研究所 J-SHIS 地震ハザードステーション（地図バージョン：地震活動モデル "
              "2021年版）　断層面を取得できなかった断層：F099999断層"));
}

TEST(AcquisitionReport, ASearchThatFailsIsAllThatWasAsked) {
  const Asked asked(kAcquireRanking, "ranking=garbage");
  EXPECT_THAT(asked.faults, IsEmpty());
  EXPECT_EQ(asked.report.searchVersion, 12);
  EXPECT_EQ(asked.report.activityVersion, std::nullopt);
}

TEST(AcquisitionReport, ASearchThatGotNoAnswerIsToldOf) {
  for (const char* wishes : {"ranking=drop", "ranking=garbage"}) {
    const Asked asked(kAcquireRanking, wishes);
    EXPECT_TRUE(AcquisitionLine(asked.report, 3)
                    .endsWith("（地図バージョン：被害地検索 2018年版）　断層の順位を取得できませんでした。"))
        << wishes << AcquisitionLine(asked.report, 3).toStdString();
  }
  const Asked none(kAcquireRanking, "ranking=file:fltsearch_error.json");
  EXPECT_TRUE(AcquisitionLine(none.report, 3).endsWith("2018年版）")) << "the service has answered";
  const Asked models(kAcquireRanking, "model=drop");
  EXPECT_FALSE(AcquisitionLine(models.report, 3).contains("順位"));
}

TEST(AcquisitionReport, AModelThatFailsWasAsked) {
  const Asked asked(kAcquireRanking, "model=garbage");
  EXPECT_EQ(asked.report.searchVersion, 12);
  EXPECT_EQ(asked.report.activityVersion, 15);
  EXPECT_THAT(asked.report.unread, Not(IsEmpty()))
      << "they have left the ranking, and are named all the same";
}

TEST(AcquisitionReport, WithoutARequestThereIsNothingToTell) {
  FaultAcquisitionInput input;
  const FaultAcquisitionResult unknownZone = Ended(false, ServiceOutcome::BadParameter);
  EXPECT_EQ(AcquisitionLine(ReportOf(input, unknownZone), 3), QString());
  input.mode = kAcquireRange;
  const FaultAcquisitionResult nobodyNear = Ended(true, ServiceOutcome::NothingFound);
  EXPECT_EQ(AcquisitionLine(ReportOf(input, nobodyNear), 3), QString());
}

TEST(AcquisitionReport, OfManySourcesTheFirstAreNamed) {
  const FaultAcquisitionInput input;
  FaultAcquisitionResult ended = Ended(true);
  ended.unread = {{"1", "甲"}, {"3", "丙"}};
  ended.withoutPlanes = {{"4", "丁"}};
  ended.leftOut = {{"2", "乙"}};
  const AcquisitionReport report = ReportOf(input, ended);
  EXPECT_THAT(report.unread, ElementsAre("甲", "丙", "丁"));
  EXPECT_TRUE(AcquisitionLine(report, 3).endsWith("：甲、丙、丁"));
  EXPECT_TRUE(AcquisitionLine(report, 2).endsWith("：甲、丙、他 1"));
  EXPECT_TRUE(AcquisitionLine(report, 0).endsWith("：他 3"));
}

TEST(AcquisitionReport, ANameAsLongAsAPageIsCutOff) {
  AcquisitionReport report;
  report.activityVersion = 15;
  report.unread = {QString(40, u'甲'), QString(10000, u'乙')};
  const QString whole(40, u'甲');
  EXPECT_TRUE(AcquisitionLine(report, 3).endsWith("：" + whole + "、" + QString(40, u'乙') + "…"));
}

}  // namespace
}  // namespace tremlo
