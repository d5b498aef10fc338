#include "core/location/FaultSearchRequest.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <limits>

namespace tremlo {

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

FaultSearchRequest AtKanazawa(const ApiParameterSet& parameters = {}) {
  return {parameters, 36.56144, 136.61409};
}

QString PositionMessage() {
  return QStringLiteral("緯度経度チェックでエラーとなりました。国内の緯度経度を入力してください。");
}

/// The message of the first check that fails; empty when none does.
QString CheckPosition(double latitude, double longitude) {
  FaultSearchRequest request({}, latitude, longitude);
  return CheckSearchParameters(request).value_or(QString());
}

QString CheckSet(const ApiParameterSet& parameters) {
  FaultSearchRequest request = AtKanazawa(parameters);
  return CheckSearchParameters(request).value_or(QString());
}

TEST(FaultSearchRequestTest, LimitsOfThePositionPass) {
  EXPECT_EQ(CheckPosition(20.0, 122.0), QString());
  EXPECT_EQ(CheckPosition(47.0, 154.0), QString());
  EXPECT_EQ(CheckPosition(20.0, 154.0), QString());
}

TEST(FaultSearchRequestTest, PositionOutsideJapanIsRefused) {
  EXPECT_EQ(CheckPosition(19.999999, 140.0), PositionMessage());
  EXPECT_EQ(CheckPosition(47.000001, 140.0), PositionMessage());
  EXPECT_EQ(CheckPosition(35.0, 121.999999), PositionMessage());
  EXPECT_EQ(CheckPosition(35.0, 154.000001), PositionMessage());
  EXPECT_EQ(CheckPosition(kNan, 140.0), PositionMessage());
  EXPECT_EQ(CheckPosition(35.0, kNan), PositionMessage());
}

TEST(FaultSearchRequestTest, EachParameterHasItsMessage) {
  const QString mode = QStringLiteral("想定地震コードのチェックでエラーとなりました。");
  const QString version = QStringLiteral("地図バージョン(被害地検索)のチェックでエラーとなりました。");
  const QString kase = QStringLiteral("確率ケースのチェックでエラーとなりました。");
  const QString period = QStringLiteral("発生確率評価期間のチェックでエラーとなりました。");
  const QString weight = QStringLiteral("評価パラメータのチェックでエラーとなりました。");
  const QString intensity = QStringLiteral("超過確率しきい震度のチェックでエラーとなりました。");
  for (const std::int32_t index : {-1, 2}) {
    EXPECT_EQ(CheckSet({.modeIndex = index}), mode);
    EXPECT_EQ(CheckSet({.caseIndex = index}), kase);
    EXPECT_EQ(CheckSet({.periodIndex = index}), period);
  }
  EXPECT_EQ(CheckSet({.versionIndex = -1}), version);
  EXPECT_EQ(CheckSet({.versionIndex = 14}), version);
  EXPECT_EQ(CheckSet({.catastropheWeight = -1.0000001}), weight);
  EXPECT_EQ(CheckSet({.catastropheWeight = 1.0000001}), weight);
  EXPECT_EQ(CheckSet({.catastropheWeight = kNan}), weight);
  EXPECT_EQ(CheckSet({.intensityIndex = -1}), intensity);
  EXPECT_EQ(CheckSet({.intensityIndex = 4}), intensity);
}

TEST(FaultSearchRequestTest, WeightPassesAtBothLimits) {
  EXPECT_EQ(CheckSet({.catastropheWeight = -1.0}), QString());
  EXPECT_EQ(CheckSet({.catastropheWeight = 1.0}), QString());
}

TEST(FaultSearchRequestTest, FirstFaultInTheFixedOrderIsTheOneReported) {
  FaultSearchRequest request({.intensityIndex = 9,
                              .catastropheWeight = 9.0,
                              .modeIndex = 9,
                              .versionIndex = 99,
                              .caseIndex = 9,
                              .periodIndex = 9},
                             0.0, 0.0);
  const auto next = [&](auto mend) {
    const QString message = CheckSearchParameters(request).value_or(QString());
    mend();
    return message;
  };
  EXPECT_TRUE(next([&] { request.latitude = 35.0, request.longitude = 135.0; }).startsWith(u"緯度経度"));
  EXPECT_EQ(request.modeText, QString());
  EXPECT_TRUE(next([&] { request.modeIndex = 1; }).startsWith(u"想定地震コード"));
  EXPECT_TRUE(next([&] { request.versionIndex = 0; }).startsWith(u"地図バージョン(被害地検索)"));
  EXPECT_TRUE(next([&] { request.caseIndex = 1; }).startsWith(u"確率ケース"));
  EXPECT_TRUE(next([&] { request.periodIndex = 1; }).startsWith(u"発生確率評価期間"));
  EXPECT_TRUE(next([&] { request.catastropheWeight = 0.0; }).startsWith(u"評価パラメータ"));
  EXPECT_EQ(request.ijma, 0);
  EXPECT_TRUE(next([&] { request.intensityIndex = 3; }).startsWith(u"超過確率しきい震度"));
  EXPECT_EQ(next([] {}), QString());
  EXPECT_EQ(request.modeText, u"S");
  EXPECT_EQ(request.versionText, u"Y2014");
  EXPECT_EQ(request.caseText, u"MAX");
  EXPECT_EQ(request.periodText, u"P_T50");
  EXPECT_EQ(request.ijma, 60);
}

TEST(FaultSearchRequestTest, Version14IsForTheActivityModelAlone) {
  FaultSearchRequest request = AtKanazawa({.versionIndex = 14, .activityVersionIndex = 14});
  EXPECT_TRUE(CheckSearchParameters(request).has_value());
  EXPECT_FALSE(CheckActivityParameters(request).has_value());
  EXPECT_EQ(request.activityVersionText, u"Y2020");
}

TEST(FaultSearchRequestTest, ActivityModelChecksItsVersionAndThenTheCase) {
  const QString version = QStringLiteral("地図バージョン(地震活動モデル)のチェックでエラーとなりました。");
  for (const std::int32_t index : {-1, 16}) {
    FaultSearchRequest request = AtKanazawa({.activityVersionIndex = index, .caseIndex = 2});
    EXPECT_EQ(CheckActivityParameters(request).value_or(QString()), version);
  }
  FaultSearchRequest request = AtKanazawa({.caseIndex = 2});
  EXPECT_EQ(CheckActivityParameters(request).value_or(QString()),
            QStringLiteral("確率ケースのチェックでエラーとなりました。"));
}

TEST(FaultSearchRequestTest, SearchPathHoldsPositionAndParameters) {
  FaultSearchRequest request = AtKanazawa();
  ASSERT_FALSE(CheckSearchParameters(request).has_value());
  EXPECT_EQ(
      SearchPath(request),
      u"/map/api/fltsearch?position=136.61409,36.56144&epsg=4612&mode=C&version=Y2019&case=AVR&period=P_T30"
      u"&format=json&param=0.6000000&ijma=55");
}

TEST(FaultSearchRequestTest, NumbersAreRoundedToTheDecimalsOfTheQuery) {
  FaultSearchRequest request({.catastropheWeight = -0.123456789}, 20.0, 153.999999);
  ASSERT_FALSE(CheckSearchParameters(request).has_value());
  EXPECT_TRUE(SearchPath(request).contains(u"position=154.00000,20.00000&"));
  EXPECT_TRUE(SearchPath(request).contains(u"param=-0.1234568&"));
}

TEST(FaultSearchRequestTest, NumbersHaveAPointInALocaleWithAComma) {
  const test::CommaLocale locale;
  FaultSearchRequest request({.catastropheWeight = -0.5}, 35.25, 138.125);
  ASSERT_FALSE(CheckSearchParameters(request).has_value());
  EXPECT_TRUE(SearchPath(request).contains(u"position=138.12500,35.25000&"));
  EXPECT_TRUE(SearchPath(request).contains(u"param=-0.5000000&"));
}

TEST(FaultSearchRequestTest, ActivityPathHoldsVersionCaseAndCode) {
  FaultSearchRequest request = AtKanazawa();
  ASSERT_FALSE(CheckActivityParameters(request).has_value());
  EXPECT_EQ(ActivityPath(request, QStringLiteral("F005701")),
            u"/map/api/pshm/Y2021/AVR/F005701/fltinfo.geojson?epsg=4612&jp");
  EXPECT_EQ(ActivityPath(request, QStringLiteral("%1%4")),
            u"/map/api/pshm/Y2021/AVR/%1%4/fltinfo.geojson?epsg=4612&jp");
}

TEST(FaultSearchRequestTest, AddressMayEndInASlash) {
  EXPECT_EQ(ServiceUrl(QStringLiteral("https://host"), QStringLiteral("/map")), u"https://host/map");
  EXPECT_EQ(ServiceUrl(QStringLiteral("https://host/"), QStringLiteral("/map")), u"https://host/map");
}

}  // namespace

}  // namespace tremlo
