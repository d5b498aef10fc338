#include "core/location/FaultSearchRequest.h"

#include "core/files/NumberText.h"
#include "core/location/HazardTables.h"

namespace tremlo {

namespace {

constexpr int kEpsg = 4612;

/// A value that is not a number is outside.
bool IsBetween(double value, double low, double high) {
  return value >= low && value <= high;
}

bool IsBelow(std::int32_t index, std::int32_t count) {
  return index >= 0 && index < count;
}

std::optional<QString> CheckCase(FaultSearchRequest& request) {
  if (!IsBelow(request.caseIndex, kCaseCount))
    return QStringLiteral("確率ケースのチェックでエラーとなりました。");
  request.caseText = CaseKey(request.caseIndex);
  return std::nullopt;
}

}  // namespace

std::optional<QString> CheckPosition(const FaultSearchRequest& request) {
  if (!IsBetween(request.latitude, 20.0, 47.0) || !IsBetween(request.longitude, 122.0, 154.0))
    return QStringLiteral("緯度経度チェックでエラーとなりました。国内の緯度経度を入力してください。");
  return std::nullopt;
}

std::optional<QString> CheckSearchIndices(FaultSearchRequest& request) {
  if (!IsBelow(request.modeIndex, kModeCount))
    return QStringLiteral("想定地震コードのチェックでエラーとなりました。");
  request.modeText = ModeKey(request.modeIndex);
  if (!IsBelow(request.versionIndex, kSearchVersionCount))
    return QStringLiteral("地図バージョン(被害地検索)のチェックでエラーとなりました。");
  request.versionText = VersionKey(request.versionIndex);
  if (auto message = CheckCase(request)) return message;
  if (!IsBelow(request.periodIndex, kPeriodCount))
    return QStringLiteral("発生確率評価期間のチェックでエラーとなりました。");
  request.periodText = PeriodKey(request.periodIndex);
  if (!IsBetween(request.catastropheWeight, -1.0, 1.0))
    return QStringLiteral("評価パラメータのチェックでエラーとなりました。");
  if (!IsBelow(request.intensityIndex, kIntensityCount))
    return QStringLiteral("超過確率しきい震度のチェックでエラーとなりました。");
  request.ijma = IntensityThreshold(request.intensityIndex);
  return std::nullopt;
}

std::optional<QString> CheckSearchParameters(FaultSearchRequest& request) {
  auto message = CheckPosition(request);
  return message ? message : CheckSearchIndices(request);
}

std::optional<QString> CheckActivityParameters(FaultSearchRequest& request) {
  if (!IsBelow(request.activityVersionIndex, kActivityVersionCount))
    return QStringLiteral("地図バージョン(地震活動モデル)のチェックでエラーとなりました。");
  request.activityVersionText = VersionKey(request.activityVersionIndex);
  return CheckCase(request);
}

QString SearchPath(const FaultSearchRequest& request) {
  return QStringLiteral(
             "/map/api/fltsearch?position=%1,%2&epsg=%3&mode=%4&version=%5&case=%6&period=%7"
             "&format=json&param=%8&ijma=%9")
      .arg(FixedText(request.longitude, 5), FixedText(request.latitude, 5), QString::number(kEpsg),
           request.modeText, request.versionText, request.caseText, request.periodText,
           FixedText(request.catastropheWeight, 7), QString::number(request.ijma));
}

QString ActivityPath(const FaultSearchRequest& request, const QString& ltecode) {
  return QStringLiteral("/map/api/pshm/%1/%2/%3/fltinfo.geojson?epsg=%4&jp")
      .arg(request.activityVersionText, request.caseText, ltecode, QString::number(kEpsg));
}

QString ServiceUrl(const QString& address, const QString& path) {
  return (address.endsWith(u'/') ? address.chopped(1) : address) + path;
}

}  // namespace tremlo
