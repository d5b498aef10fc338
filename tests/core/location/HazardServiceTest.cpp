#include "core/location/HazardService.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <QFile>

#include <gmock/gmock.h>

namespace tremlo {

namespace {

using test::LocalService;
using test::RecordedMessages;
using test::Stop;
using test::Warning;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kSearchPath = QStringLiteral(
    "/map/api/"
    "fltsearch?position=136.61409,36.56144&epsg=4612&mode=C&version=Y2019&case=AVR&period=P_T30&format=json"
    "&param=0.6000000&ijma=55");

class HazardServiceTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(local.IsReady()); }

  void Wish(const char* wishes) {
    settings = local.Settings(QStringLiteral("http"), QString::fromLatin1(wishes));
  }

  ServiceOutcome Search() {
    HazardService service(settings, messages);
    return service.SearchMeshFaults(request, faults);
  }

  ServiceOutcome Model(const char* code) {
    HazardService service(settings, messages);
    return service.FetchActivityModel(request, QString::fromLatin1(code), fault, erase);
  }

  QString SearchUrl() const { return settings.hazardAddress + kSearchPath; }

  LocalService local;
  ServiceSettings settings = local.Settings();
  RecordedMessages messages;
  FaultSearchRequest request{ApiParameterSet{}, 36.56144, 136.61409};
  std::vector<FaultInfo> faults;
  FaultInfo fault;
  bool erase = false;
};

TEST_F(HazardServiceTest, SearchAsksOnceAndFillsTheList) {
  EXPECT_EQ(Search(), ServiceOutcome::Done);
  EXPECT_EQ(faults.size(), 11u);
  EXPECT_THAT(messages.shown, IsEmpty());
  EXPECT_THAT(local.Paths(), ElementsAre(kSearchPath));
}

TEST_F(HazardServiceTest, AnswerStaysBehindInItsFile) {
  Search();
  EXPECT_EQ(test::ReadAll(local.AnswerFolder() + QStringLiteral("/j-shis.json")),
            test::ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/fltsearch_C.json"))));
}

TEST_F(HazardServiceTest, ModeSReadsNoProbabilities) {
  request.modeIndex = 1;
  Wish("ranking=file:fltsearch_C.json");
  EXPECT_EQ(Search(), ServiceOutcome::Done);
  ASSERT_FALSE(faults.empty());
  EXPECT_EQ(faults[0].i45_ps, u"-");
  EXPECT_TRUE(local.Paths().at(0).contains(u"&mode=S&"));
}

TEST_F(HazardServiceTest, BadParameterShowsItsMessageAndAsksNothing) {
  request.latitude = 19.0;
  EXPECT_EQ(Search(), ServiceOutcome::BadParameter);
  request.latitude = 36.0;
  request.versionIndex = 14;
  EXPECT_EQ(Search(), ServiceOutcome::BadParameter);
  request.activityVersionIndex = 16;
  EXPECT_EQ(Model("F005701"), ServiceOutcome::BadParameter);
  EXPECT_THAT(
      messages.shown,
      ElementsAre(
          Stop(QStringLiteral("緯度経度チェックでエラーとなりました。国内の緯度経度を入力してください。")),
          Stop(QStringLiteral("地図バージョン(被害地検索)のチェックでエラーとなりました。")),
          Stop(QStringLiteral("地図バージョン(地震活動モデル)のチェックでエラーとなりました。"))));
  EXPECT_THAT(local.Paths(), IsEmpty());
  EXPECT_TRUE(faults.empty());
}

TEST_F(HazardServiceTest, StatusErrorOfTheSearchIsAWarning) {
  Wish("ranking=file:fltsearch_error.json");
  EXPECT_EQ(Search(), ServiceOutcome::NothingFound);
  EXPECT_THAT(messages.shown,
              ElementsAre(Warning(QStringLiteral(
                  "指定された現場位置とAPIパラメータの断層データはありません。(メッシュ別被害地震)"))));
  EXPECT_TRUE(faults.empty());
}

TEST_F(HazardServiceTest, AnswersThatAreNoJsonAreAGrammarError) {
  for (const char* wishes : {"ranking=file:fltsearch_broken.json", "ranking=status:404", "ranking=status:500",
                             "ranking=status:403", "ranking=garbage", "ranking=empty"}) {
    messages.shown.clear();
    Wish(wishes);
    EXPECT_EQ(Search(), ServiceOutcome::BadAnswer) << wishes;
    EXPECT_THAT(messages.shown,
                ElementsAre(Stop(QStringLiteral("Jsonファイルの文法エラーです。(メッシュ別被害地震)"))))
        << wishes;
  }
  EXPECT_TRUE(faults.empty());
}

TEST_F(HazardServiceTest, StatusCodeOfASoundAnswerIsNotLookedAt) {
  Wish("ranking=stamp:503");
  EXPECT_EQ(Search(), ServiceOutcome::Done);
  EXPECT_EQ(faults.size(), 11u);
}

TEST_F(HazardServiceTest, TypeFaultShowsTheParsersText) {
  Wish("ranking=file:fltinfo_F005701.geojson");
  EXPECT_EQ(Search(), ServiceOutcome::TypeFault);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_TRUE(messages.shown[0].text.contains(u"type mismatch! call is<type>() before get<type>()"));
  EXPECT_EQ(messages.shown[0].icon, PromptIcon::Stop);
}

TEST_F(HazardServiceTest, NetworkFailuresAreSilentAndAskOnce) {
  int asked = 0;
  for (const char* wishes :
       {"ranking=drop", "ranking=cut", "ranking=nohttp", "ranking=huge", "ranking=stall", "ranking=half"}) {
    Wish(wishes);
    settings.hazard.silenceTimeoutMs = 1000;
    EXPECT_EQ(Search(), ServiceOutcome::NoAnswer) << wishes;
    EXPECT_EQ(local.Paths().size(), ++asked) << wishes;
  }
  for (const char* port : {"refused", "https-expired", "https-foreign", "https-host"}) {
    settings = local.Settings(QString::fromLatin1(port));
    EXPECT_EQ(Search(), ServiceOutcome::NoAnswer) << port;
  }
  EXPECT_THAT(messages.shown, IsEmpty());
  EXPECT_TRUE(faults.empty());
}

TEST_F(HazardServiceTest, AddressWithoutASessionIsReported) {
  settings.hazardAddress = QStringLiteral("nonsense");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  EXPECT_THAT(messages.shown,
              ElementsAre(Stop(
                  QStringLiteral("J-SHISにアクセスするためのセッションが確立できませんでした。(nonsense") +
                  kSearchPath + u')')));
}

TEST_F(HazardServiceTest, AnswerFileThatCannotBeWrittenIsReported) {
  test::TestFolder folder;
  settings.answerFolder = folder.Write(QStringLiteral("file"), "x");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  EXPECT_THAT(
      messages.shown,
      ElementsAre(Stop(QStringLiteral("J-SHISからの断層データを書き込むファイルを開けませんでした。(") +
                       SearchUrl() + u')')));
}

TEST_F(HazardServiceTest, AnswerFileThatCannotBeReadIsReported) {
  HazardService service(settings, messages);
  QByteArray text;
  EXPECT_FALSE(service.ReadFetchedFile(QStringLiteral("http://host/x"), text));
  EXPECT_THAT(messages.shown,
              ElementsAre(Stop(QStringLiteral("Jsonファイルを開くことができませんでした。(http://host/x)"))));
}

TEST_F(HazardServiceTest, ModelIsAskedOnceByItsCode) {
  EXPECT_EQ(Model("F005701"), ServiceOutcome::Done);
  EXPECT_FALSE(erase);
  EXPECT_EQ(fault.geomNum, 1);
  EXPECT_THAT(local.Paths(),
              ElementsAre(QStringLiteral("/map/api/pshm/Y2021/AVR/F005701/fltinfo.geojson?epsg=4612&jp")));
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(HazardServiceTest, SagamiTroughIsNotAskedForAndLeavesTheList) {
  EXPECT_EQ(Model("ASG05"), ServiceOutcome::Done);
  EXPECT_TRUE(erase);
  EXPECT_THAT(local.Paths(), IsEmpty());
}

TEST_F(HazardServiceTest, SourceWithoutRectanglesLeavesTheList) {
  EXPECT_EQ(Model("ANNKI"), ServiceOutcome::Done);
  EXPECT_TRUE(erase);
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(HazardServiceTest, FailuresOfTheModelNameTheCode) {
  EXPECT_EQ(Model("F099999"), ServiceOutcome::NothingFound);
  Wish("model=status:500");
  EXPECT_EQ(Model("F005701"), ServiceOutcome::BadAnswer);
  EXPECT_THAT(
      messages.shown,
      ElementsAre(
          Warning(QStringLiteral(
              "指定された現場位置とAPIパラメータの断層データはありません。(地震活動モデル情報, F099999)")),
          Stop(QStringLiteral("Jsonファイルの文法エラーです。(地震活動モデル情報, F005701)"))));
  EXPECT_FALSE(erase);
  EXPECT_EQ(fault, FaultInfo{});
}

TEST_F(HazardServiceTest, HostileCodeReachesNoOtherHost) {
  EXPECT_EQ(Model("a b\r\nHost: elsewhere"), ServiceOutcome::NoAnswer);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_TRUE(
      messages.shown[0].text.startsWith(u"J-SHISにアクセスするためのセッションが確立できませんでした。("));
  EXPECT_EQ(Model("../../../@elsewhere/?x=#"), ServiceOutcome::BadAnswer);
  for (const test::ServiceRequest& asked : local.Requests())
    EXPECT_TRUE(asked.headers.at(QStringLiteral("Host")).startsWith(u"127.0.0.1:"));
}

}  // namespace

}  // namespace tremlo
