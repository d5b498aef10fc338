#include "core/files/TextScan.h"
#include "core/sources/FaultAcquisition.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <QSet>

#include <gmock/gmock.h>
#include <thread>

namespace tremlo {

namespace {

using test::LocalService;
using test::RecordedMessages;
using test::Stop;
using test::TestFolder;
using test::Warning;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

MainFaultRow Row(const char* code, double lon, double lat) {
  MainFaultRow row;
  row.code = QString::fromLatin1(code);
  row.name = row.code + QStringLiteral("断層");
  row.lon = lon;
  row.lat = lat;
  return row;
}

QByteArray Ranking(const QStringList& codes) {
  QStringList entries;
  for (const QString& code : codes)
    entries << QStringLiteral(R"({"rank":"%1","ltecode":"%2","magnitude":"7.0"})")
                   .arg(entries.size() + 1)
                   .arg(code);
  return QStringLiteral(R"({"status":"Success","Fault":[%1]})").arg(entries.join(u',')).toUtf8();
}

/// A model of so many rectangles that says it has `geomNum`.
QByteArray Model(int geomNum, int features) {
  const QString feature = QStringLiteral(
      R"({"geometry":{"type":"Polygon","coordinates":[]},)"
      R"("properties":{"lon":"136.65","lat":"36.45","dep":"4","len":"26","wid":"20","str":"25","dip":"50"}})");
  return QStringLiteral(
             R"({"status":"Success","seisact_model":{"geom_num":%1,"magu":"-6.7"},"features":[%2]})")
      .arg(geomNum)
      .arg(QStringList(features, feature).join(u','))
      .toUtf8();
}

class FaultAcquisitionTest : public testing::Test {
 protected:
  void Start(const QString& dataFolder = QString()) {
    local = std::make_unique<LocalService>(dataFolder);
    ASSERT_TRUE(local->IsReady());
    settings = local->Settings();
    input.latitude = 36.56144;
    input.longitude = 136.61409;
    input.zone = 7;
  }

  void Wish(const char* wishes) {
    settings = local->Settings(QStringLiteral("http"), QString::fromLatin1(wishes));
  }

  FaultAcquisitionResult Acquire() {
    return AcquireFaults(input, settings, messages, faults,
                         [this](int fault, int count, const QString& name) {
                           progress << QStringLiteral("%1/%2").arg(fault).arg(count);
                           named << name;
                         });
  }

  QString Codes() const {
    QStringList codes;
    for (const FaultInfo& fault : faults) codes << fault.ltecode;
    return codes.join(u' ');
  }

  QString Ranks() const {
    QStringList ranks;
    for (const FaultInfo& fault : faults) ranks << fault.rank;
    return ranks.join(u' ');
  }

  /// The faults asked for, in order.
  QString AskedModels() const {
    QStringList codes;
    for (const QString& path : local->Paths())
      if (path.contains(u"/pshm/")) codes << path.section(QStringLiteral("/pshm/"), 1).section(u'/', 2, 2);
    return codes.join(u' ');
  }

  static QString Names(const std::vector<SourceName>& sources) {
    QStringList names;
    for (const SourceName& source : sources) names << source.code + u' ' + source.name;
    return names.join(u", ");
  }

  std::unique_ptr<LocalService> local;
  ServiceSettings settings;
  RecordedMessages messages;
  FaultAcquisitionInput input;
  std::vector<FaultInfo> faults;
  QStringList progress;
  QStringList named;
};

class RankingTest : public FaultAcquisitionTest {
 protected:
  void SetUp() override { Start(); }
};

class RangeTest : public FaultAcquisitionTest {
 protected:
  void SetUp() override {
    Start();
    input.mode = kAcquireRange;
  }
};

const QString kFirstEight = QStringLiteral("F005701 F005501 F005601 F005603 F005801 F004701 F016221 F004502");

TEST_F(RankingTest, SourcesWithoutPlanesLeaveAndRanksHaveNoGaps) {
  const FaultAcquisitionResult result = Acquire();
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(Codes(), kFirstEight);
  EXPECT_EQ(Ranks(), u"1 2 3 4 5 6 7 8");
  EXPECT_THAT(
      messages.shown,
      ElementsAre(Warning(QStringLiteral(
          "指定された現場位置とAPIパラメータの断層データはありません。(地震活動モデル情報, F099999)"))));
}

TEST_F(RankingTest, NothingIsAskedTwice) {
  Acquire();
  const QStringList paths = local->Paths();
  EXPECT_EQ(paths.size(), 11);
  EXPECT_EQ(QSet<QString>(paths.begin(), paths.end()).size(), paths.size());
  EXPECT_TRUE(paths.at(0).startsWith(u"/map/api/fltsearch?"));
  EXPECT_EQ(AskedModels(), u"F005701 F005501 F005601 F005603 F005801 F004701 ANNKI F016221 F099999 F004502");
}

TEST_F(RankingTest, ProgressCountsTheSourcesOfTheRanking) {
  Acquire();
  EXPECT_EQ(progress.join(u' '), u"1/11 2/11 3/11 4/11 5/11 6/11 7/11 8/11 9/11 10/11 11/11");
  ASSERT_EQ(named.size(), 11);
  EXPECT_EQ(named[8], u"試験用の未登録断層") << "one that goes from the list, too";
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(named[static_cast<qsizetype>(i)], faults[i].ltename);
}

TEST_F(RankingTest, AStopBreaksOffARequestThatGetsNoAnswer) {
  Wish("F005501=stall");
  std::stop_source stop;
  const std::jthread stopper([&](const std::stop_token& over) {
    while (!over.stop_requested() && AskedModels() != u"F005701 F005501") std::this_thread::yield();
    stop.request_stop();
  });
  AcquireFaults(input, settings, messages, faults, {}, stop.get_token());
  EXPECT_TRUE(stop.stop_requested()) << "it has not waited for the timeout";
  EXPECT_EQ(AskedModels(), u"F005701 F005501");
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(RankingTest, AfterAStopNothingIsAsked) {
  std::stop_source stop;
  stop.request_stop();
  AcquireFaults(input, settings, messages, faults, {}, stop.get_token());
  EXPECT_THAT(local->Paths(), IsEmpty());
}

TEST_F(RankingTest, MagnitudesAndDistancesOfEveryPlaneAreThoseReckonedApart) {
  Acquire();
  const QByteArray table =
      test::ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/expected_distances.csv")));
  QStringList rows = QString::fromUtf8(table).trimmed().split(u'\n').mid(2);
  for (const FaultInfo& fault : faults) {
    for (std::size_t plane = 0; plane < fault.planeDepth.size(); ++plane) {
      ASSERT_FALSE(rows.isEmpty());
      const QStringList row = rows.takeFirst().split(u',');
      EXPECT_EQ(row[0], fault.ltecode);
      EXPECT_EQ(row[1], QString::number(plane + 1));
      EXPECT_EQ(row[2], fault.magnitude);
      EXPECT_NEAR(fault.planeDepth[plane], TextToDouble(row[3]), 1e-4);
      EXPECT_NEAR(fault.shortestDistance[plane], TextToDouble(row[4]), 1e-4);
      EXPECT_NEAR(fault.equivalentDistance[plane], TextToDouble(row[5]), 1e-4);
    }
  }
  EXPECT_TRUE(rows.isEmpty());
}

TEST_F(RankingTest, NegativeMagnitudeIsConverted) {
  Acquire();
  ASSERT_EQ(faults.size(), 8u);
  EXPECT_EQ(faults[5].ltecode, u"F004701");
  EXPECT_EQ(faults[5].magnitude, u"7.85");
  EXPECT_EQ(faults[7].magnitude, u"6.3");
}

TEST_F(RankingTest, ProbabilitiesBecomePerCent) {
  Acquire();
  ASSERT_FALSE(faults.empty());
  EXPECT_EQ(faults[0].i45_ps, u"99.9");
  EXPECT_EQ(faults[0].i50_ps, u"99.3");
  EXPECT_EQ(faults[0].i55_ps, u"92.1");
  EXPECT_EQ(faults[0].i60_ps, u"48.2");
}

TEST_F(RankingTest, ProbabilityThatIsMissingStaysADash) {
  input.parameters.modeIndex = 1;
  Acquire();
  ASSERT_FALSE(faults.empty());
  for (const FaultInfo& fault : faults)
    for (const QString& text : {fault.i45_ps, fault.i50_ps, fault.i55_ps, fault.i60_ps})
      EXPECT_EQ(text, u"-");
}

TEST_F(RankingTest, EveryPlaneStartsWithTheStateOfTheScreens) {
  Acquire();
  ASSERT_EQ(faults.size(), 8u);
  const FaultInfo& fault = faults[6];
  EXPECT_EQ(fault.geomNum, 6);
  EXPECT_THAT(fault.groundClass, AllOf(SizeIs(6), Each(QStringLiteral("A"))));
  for (const auto* colors : {&fault.attenColor, &fault.shortBaseColor, &fault.equivBaseColor})
    EXPECT_THAT(*colors, AllOf(SizeIs(6), Each(0)));
  for (const auto* shown : {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow,
                            &fault.adjustShow, &fault.adjustShowEquiv})
    EXPECT_THAT(*shown, AllOf(SizeIs(6), Each(true)));
  for (const auto* selected : {&fault.shortBaseSelected, &fault.equivBaseSelected})
    EXPECT_THAT(*selected, AllOf(SizeIs(6), Each(false)));
  for (const auto* areas : {&fault.shortArea, &fault.equivArea})
    EXPECT_THAT(*areas, AllOf(SizeIs(6), Each(0.0)));
  EXPECT_THAT(fault.furtherA, IsEmpty());
  EXPECT_THAT(fault.shortestSpectrum, IsEmpty());
}

TEST_F(RankingTest, FormerFaultsGo) {
  faults.resize(20);
  Acquire();
  EXPECT_EQ(Codes(), kFirstEight);
}

TEST_F(RankingTest, UnknownZoneIsToldAndChangesNothing) {
  for (const int zone : {-1, 0, 20}) {
    messages.shown.clear();
    faults.assign(3, FaultInfo{});
    input.zone = zone;
    const FaultAcquisitionResult result = Acquire();
    EXPECT_FALSE(result.changed);
    EXPECT_EQ(result.outcome, ServiceOutcome::BadParameter);
    EXPECT_THAT(messages.shown,
                ElementsAre(Stop(QStringLiteral(
                    "平面直角座標系番号の指定が間違っています。「現場設定」で指定して下さい。"))));
    EXPECT_EQ(faults.size(), 3u);
  }
  EXPECT_THAT(local->Paths(), IsEmpty());
}

TEST_F(RankingTest, BadParameterEmptiesTheListAndAsksNothing) {
  faults.resize(3);
  input.parameters.versionIndex = 14;
  const FaultAcquisitionResult result = Acquire();
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.outcome, ServiceOutcome::BadParameter);
  EXPECT_TRUE(faults.empty());
  EXPECT_THAT(local->Paths(), IsEmpty());
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(RankingTest, FailedSearchAsksForNoModel) {
  for (const char* wishes :
       {"ranking=stall", "ranking=half", "ranking=cut", "ranking=drop", "ranking=nohttp", "ranking=huge"}) {
    Wish(wishes);
    settings.hazard.silenceTimeoutMs = 200;
    faults.resize(2);
    const FaultAcquisitionResult result = Acquire();
    EXPECT_EQ(result.outcome, ServiceOutcome::NoAnswer) << wishes;
    EXPECT_TRUE(result.url.startsWith(settings.hazardAddress)) << wishes;
    EXPECT_TRUE(faults.empty()) << wishes;
  }
  EXPECT_EQ(AskedModels(), u"");
  EXPECT_THAT(messages.shown, IsEmpty());
  EXPECT_THAT(progress, IsEmpty());
}

TEST_F(RankingTest, StatusErrorAndAnEmptyRankingLeaveAnEmptyList) {
  Wish("ranking=file:fltsearch_error.json");
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::NothingFound);
  Wish("ranking=file:fltsearch_none.json");
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::Done);
  EXPECT_TRUE(faults.empty());
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(RankingTest, FailureOfOneModelDropsItsEntryAndIsTheResult) {
  settings.hazard.silenceTimeoutMs = 2000;
  const HttpOptions options = settings.hazard;
  struct Case {
    const char* wishes;
    ServiceOutcome outcome;
    std::size_t messages;  // that of F099999 counted
  };
  for (const Case& kase : {Case{"F005501=cut", ServiceOutcome::NoAnswer, 1},
                           {"F005501=stall", ServiceOutcome::NoAnswer, 1},
                           {"F005501=status:500", ServiceOutcome::BadAnswer, 2}}) {
    messages.shown.clear();
    Wish(kase.wishes);
    settings.hazard = options;
    const FaultAcquisitionResult result = Acquire();
    EXPECT_EQ(result.outcome, kase.outcome) << kase.wishes;
    EXPECT_TRUE(result.url.contains(u"/F005501/fltinfo.geojson")) << kase.wishes;
    EXPECT_EQ(messages.shown.size(), kase.messages) << kase.wishes;
    EXPECT_EQ(Codes(), u"F005701 F005601 F005603 F005801 F004701 F016221 F004502") << kase.wishes;
    EXPECT_EQ(Ranks(), u"1 2 3 4 5 6 7") << kase.wishes;
  }
}

TEST_F(RankingTest, TypeFaultInAModelEndsTheAskingAndKeepsWhatIsThere) {
  Wish("F005601=file:fltsearch_C.json");
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::TypeFault);
  EXPECT_EQ(AskedModels(), u"F005701 F005501 F005601");
  EXPECT_EQ(Codes(), u"F005701 F005501");
  for (const FaultInfo& fault : faults) {
    EXPECT_THAT(fault.shortestDistance, SizeIs(1));
    EXPECT_THAT(fault.equivalentDistance, SizeIs(1));
    EXPECT_THAT(fault.attenUse, SizeIs(1));
  }
  EXPECT_EQ(faults.at(0).magnitude, u"7.21");
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(RankingTest, TypeFaultInTheRankingLeavesAnEmptyList) {
  const TestFolder data;
  data.Write(QStringLiteral("fltsearch_C.json"), R"({"Fault":[{"ltecode":"F005701"},{"ltecode":1}]})");
  Start(data.Path());
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::TypeFault);
  EXPECT_TRUE(faults.empty());
  EXPECT_EQ(AskedModels(), u"");
}

TEST_F(RankingTest, SourcesThatAreLeftOutAreNamedApart) {
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(Names(result.unread), u"");
  EXPECT_EQ(Names(result.withoutPlanes), u"F099999 試験用の未登録断層");
  EXPECT_EQ(Names(result.leftOut), u"ANNKI 南海トラフの地震, ASG05 相模トラフ沿いのＭ８クラスの地震");
}

TEST_F(RankingTest, SourcesThatCannotBeReadAreNamed) {
  Wish("F005501=cut/F004701=garbage");
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(Names(result.unread), u"F005501 邑知潟断層帯, F004701 跡津川断層帯");
  EXPECT_EQ(Names(result.withoutPlanes), u"F099999 試験用の未登録断層");
  EXPECT_EQ(result.leftOut.size(), 2u);
}

TEST_F(RankingTest, SourcesThatWereNotAskedForAnyMoreAreNamed) {
  Wish("F005601=file:fltsearch_C.json");
  const FaultAcquisitionResult result = Acquire();
  ASSERT_EQ(result.unread.size(), 9u);
  EXPECT_EQ(result.unread.front().code, u"F005601");
  EXPECT_EQ(result.unread.back().code, u"F004502");
  EXPECT_TRUE(result.withoutPlanes.empty());
  EXPECT_TRUE(result.leftOut.empty());
}

TEST_F(RankingTest, ParameterOfTheModelsOutOfItsRangeIsToldOnce) {
  input.parameters.activityVersionIndex = 16;
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::BadParameter);
  EXPECT_EQ(result.url, u"");
  EXPECT_THAT(
      messages.shown,
      ElementsAre(Stop(QStringLiteral("地図バージョン(地震活動モデル)のチェックでエラーとなりました。"))));
  EXPECT_TRUE(faults.empty());
  EXPECT_EQ(result.unread.size(), 10u);
  EXPECT_EQ(result.leftOut.size(), 1u);
  EXPECT_EQ(AskedModels(), u"");
}

TEST_F(RankingTest, ServiceThatClosesConnectionsUnannouncedLosesNoSource) {
  for (const char* port : {"http", "https"})
    for (const char* wishes : {"all=close", "all=close:1", "all=close-every:5"}) {
      settings = local->Settings(QString::fromLatin1(port), QString::fromLatin1(wishes));
      const FaultAcquisitionResult result = Acquire();
      EXPECT_EQ(result.outcome, ServiceOutcome::Done) << port << ' ' << wishes;
      EXPECT_EQ(Codes(), kFirstEight) << port << ' ' << wishes;
    }
}

TEST_F(RankingTest, WrongNumberOfPlanesReadsPastNoVector) {
  const TestFolder data;
  data.Write(QStringLiteral("fltsearch_C.json"),
             Ranking({QStringLiteral("MORE"), QStringLiteral("FEWER"), QStringLiteral("NONE"),
                      QStringLiteral("NEGATIVE"), QStringLiteral("EMPTY")}));
  data.Write(QStringLiteral("fltinfo_MORE.geojson"), Model(5, 2));
  data.Write(QStringLiteral("fltinfo_FEWER.geojson"), Model(1, 3));
  data.Write(QStringLiteral("fltinfo_NONE.geojson"), Model(0, 2));
  data.Write(QStringLiteral("fltinfo_NEGATIVE.geojson"), Model(-2147483647, 1));
  data.Write(QStringLiteral("fltinfo_EMPTY.geojson"), Model(1, 0));
  Start(data.Path());
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(Codes(), u"MORE FEWER");
  EXPECT_EQ(Names(result.withoutPlanes), u"NONE No Name, NEGATIVE No Name, EMPTY No Name");
  ASSERT_EQ(faults.size(), 2u);
  EXPECT_EQ(faults[0].geomNum, 5);
  EXPECT_THAT(faults[0].shortestDistance, SizeIs(2));
  EXPECT_THAT(faults[0].attenShow, SizeIs(2));
  EXPECT_EQ(faults[1].geomNum, 1);
  EXPECT_THAT(faults[1].lon, SizeIs(3));
  EXPECT_THAT(faults[1].shortestDistance, SizeIs(1));
  EXPECT_THAT(faults[1].attenShow, SizeIs(1));
}

TEST_F(RankingTest, WorkerThreadCanRunIt) {
  std::thread worker([this] { Acquire(); });
  worker.join();
  EXPECT_EQ(Codes(), kFirstEight);
}

TEST_F(RankingTest, HttpsWithTheAuthoritysCertificate) {
  settings = local->Settings(QStringLiteral("https"));
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::Done);
  EXPECT_EQ(Codes(), kFirstEight);
}

TEST_F(RangeTest, FaultsOfTheTableAreAskedForNearestFirst) {
  input.mainFaultRows = {Row("F004701", 136.9, 36.9), Row("F005701", 136.7, 36.6),
                         Row("F005501", 136.8, 36.8), Row("F000601", 142.0, 43.0)};
  const FaultAcquisitionResult result = Acquire();
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(Codes(), u"F005701 F005501 F004701");
  EXPECT_EQ(Ranks(), u"1 2 3");
  EXPECT_EQ(AskedModels(), u"F005701 F005501 F004701");
  EXPECT_EQ(local->Paths().size(), 3);
  EXPECT_EQ(progress.join(u' '), u"1/3 2/3 3/3");
}

TEST_F(RangeTest, RecordTakesNameFromTheTableAndMagnitudeFromTheModel) {
  input.mainFaultRows = {Row("F004701", 136.7, 36.6)};
  Acquire();
  ASSERT_EQ(faults.size(), 1u);
  const FaultInfo& fault = faults[0];
  EXPECT_EQ(fault.ltename, u"F004701断層");
  EXPECT_EQ(fault.magu, u"-7.2");
  EXPECT_EQ(fault.magnitude, u"7.85");
  for (const QString& text : {fault.ijma, fault.i45_ps, fault.i50_ps, fault.i55_ps, fault.i60_ps})
    EXPECT_EQ(text, u"-");
  EXPECT_THAT(fault.shortestDistance, SizeIs(1));
  EXPECT_NEAR(fault.shortestDistance[0], 43.4665, 1e-4);
}

TEST_F(RangeTest, RowsOfACodeThatAreApartMakeTwoRequests) {
  input.mainFaultRows = {Row("F005701", 136.62, 36.56), Row("F005501", 136.7, 36.6),
                         Row("F005701", 136.8, 36.6)};
  Acquire();
  EXPECT_EQ(Codes(), u"F005701 F005501 F005701");
  EXPECT_EQ(local->Paths().size(), 3);
}

TEST_F(RangeTest, SourceThatTheModelDoesNotKnowStaysWithoutPlanes) {
  input.mainFaultRows = {Row("F099999", 136.62, 36.56), Row("F005701", 136.7, 36.6)};
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(Names(result.withoutPlanes), u"F099999 F099999断層");
  EXPECT_EQ(Codes(), u"F099999 F005701");
  ASSERT_EQ(faults.size(), 2u);
  EXPECT_EQ(faults[0].geomNum, 0);
  EXPECT_EQ(faults[0].magnitude, u"-");
  EXPECT_EQ(faults[0].t30p, u"-");
  EXPECT_THAT(faults[0].shortestDistance, IsEmpty());
  EXPECT_THAT(faults[0].attenShow, IsEmpty());
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(RangeTest, SourceThatFallsSilentStaysWithoutPlanes) {
  input.mainFaultRows = {Row("F005501", 136.62, 36.56), Row("F005701", 136.7, 36.6)};
  Wish("F005501=cut");
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::NoAnswer);
  EXPECT_EQ(Names(result.unread), u"F005501 F005501断層");
  EXPECT_EQ(Codes(), u"F005501 F005701");
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(RangeTest, SourcesOfAnotherGeometryLeaveAndRanksHaveNoGaps) {
  input.mainFaultRows = {Row("F0MIXED", 136.62, 36.56), Row("F005701", 136.7, 36.6),
                         Row("ASG05", 136.75, 36.6), Row("F005501", 136.8, 36.6)};
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(Names(result.leftOut), u"F0MIXED F0MIXED断層, ASG05 ASG05断層");
  EXPECT_TRUE(result.unread.empty());
  EXPECT_EQ(Codes(), u"F005701 F005501");
  EXPECT_EQ(Ranks(), u"1 2");
  EXPECT_EQ(AskedModels(), u"F0MIXED F005701 F005501");
}

TEST_F(RangeTest, TypeFaultEndsTheAskingAndKeepsTheRecord) {
  input.mainFaultRows = {Row("F005701", 136.62, 36.56), Row("F005501", 136.7, 36.6),
                         Row("F004701", 136.8, 36.6)};
  Wish("F005501=file:fltsearch_C.json");
  const FaultAcquisitionResult result = Acquire();
  EXPECT_EQ(result.outcome, ServiceOutcome::TypeFault);
  EXPECT_EQ(Names(result.unread), u"F005501 F005501断層, F004701 F004701断層");
  EXPECT_EQ(Codes(), u"F005701 F005501");
  ASSERT_EQ(faults.size(), 2u);
  EXPECT_THAT(faults[0].shortestDistance, SizeIs(1));
  EXPECT_THAT(faults[1].shortestDistance, IsEmpty());
  EXPECT_EQ(AskedModels(), u"F005701 F005501");
}

TEST_F(RangeTest, ParameterOutOfItsRangeIsToldOnceAndTheRecordsStay) {
  input.mainFaultRows = {Row("F005701", 136.62, 36.56), Row("F005501", 136.7, 36.6),
                         Row("F004701", 136.8, 36.6)};
  input.parameters.caseIndex = 2;
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::BadParameter);
  EXPECT_THAT(messages.shown,
              ElementsAre(Stop(QStringLiteral("確率ケースのチェックでエラーとなりました。"))));
  EXPECT_EQ(Codes(), u"F005701 F005501 F004701");
  EXPECT_THAT(local->Paths(), IsEmpty());
}

TEST_F(RangeTest, NoFaultWithinTheRangeIsToldAndLeavesAnEmptyList) {
  faults.resize(3);
  input.searchRangeKm = 0.0;
  input.mainFaultRows = {Row("F005701", 136.62, 36.56)};
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::NothingFound);
  EXPECT_TRUE(faults.empty());
  EXPECT_THAT(messages.shown,
              ElementsAre(Stop(QStringLiteral("指定された現場位置の主要断層データはありません。"))));
  EXPECT_THAT(local->Paths(), IsEmpty());
}

TEST_F(RangeTest, PositionOutsideJapanIsNoObstacle) {
  input.latitude = 19.0;
  input.longitude = 136.61409;
  input.mainFaultRows = {Row("F005701", 136.62, 19.0)};
  EXPECT_EQ(Acquire().outcome, ServiceOutcome::Done);
  EXPECT_EQ(Codes(), u"F005701");
}

}  // namespace

}  // namespace tremlo
