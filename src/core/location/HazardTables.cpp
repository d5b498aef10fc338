#include "core/location/HazardTables.h"

#include "core/files/NumberText.h"

#include <span>

namespace tremlo {

namespace {

struct Entry {
  const char16_t* key;
  const char16_t* label;
};

constexpr std::array<std::int32_t, kIntensityCount> kThresholds = {45, 50, 55, 60};
constexpr std::array<const char16_t*, kIntensityCount> kIntensities = {u"震度5弱", u"震度5強", u"震度6弱",
                                                                       u"震度6強"};
constexpr std::array<Entry, kModeCount> kModes = {
    {{u"C", u"条件付超過確率"}, {u"S", u"震源断層を特定した地震予測地図"}}};
constexpr std::array<Entry, kCaseCount> kCases = {{{u"AVR", u"平均ケース"}, {u"MAX", u"最大ケース"}}};
constexpr std::array<Entry, kPeriodCount> kPeriods = {{{u"P_T30", u"30年"}, {u"P_T50", u"50年"}}};
// The order grew with the service and is not that of time.
constexpr std::array<Entry, kActivityVersionCount> kVersions = {{
    {u"Y2014", u"2014年版"},
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
    {u"Y2021", u"2021年版"},
}};

bool IsInside(std::int32_t index, std::size_t count) {
  return index >= 0 && static_cast<std::size_t>(index) < count;
}

QString KeyOf(std::span<const Entry> table, std::int32_t index) {
  return IsInside(index, table.size()) ? QString::fromUtf16(table[static_cast<std::size_t>(index)].key)
                                       : QString();
}

QString LabelOf(std::span<const Entry> table, std::int32_t index) {
  return IsInside(index, table.size()) ? QString::fromUtf16(table[static_cast<std::size_t>(index)].label)
                                       : QString();
}

}  // namespace

std::int32_t IntensityThreshold(std::int32_t index) {
  return IsInside(index, kThresholds.size()) ? kThresholds[static_cast<std::size_t>(index)] : 0;
}

QString ModeKey(std::int32_t index) {
  return KeyOf(kModes, index);
}
QString VersionKey(std::int32_t index) {
  return KeyOf(kVersions, index);
}
QString CaseKey(std::int32_t index) {
  return KeyOf(kCases, index);
}
QString PeriodKey(std::int32_t index) {
  return KeyOf(kPeriods, index);
}

QString IntensityLabel(std::int32_t index) {
  return IsInside(index, kIntensities.size())
             ? QString::fromUtf16(kIntensities[static_cast<std::size_t>(index)])
             : QString();
}

QString CatastropheWeightLabel(double weight) {
  return FixedText(weight, 6);
}
QString ModeLabel(std::int32_t index) {
  return LabelOf(kModes, index);
}

QString SearchVersionLabel(std::int32_t index) {
  return LabelOf(std::span(kVersions).first(kSearchVersionCount), index);
}

QString ActivityVersionLabel(std::int32_t index) {
  return LabelOf(kVersions, index);
}
QString CaseLabel(std::int32_t index) {
  return LabelOf(kCases, index);
}
QString PeriodLabel(std::int32_t index) {
  return LabelOf(kPeriods, index);
}

QString CurrentParametersText(const ApiParameterSet& parameters) {
  return QStringLiteral("\n\n現在以下のパラメータが設定されています。") +
         QStringLiteral("\n超過確率しきい値：") + IntensityLabel(parameters.intensityIndex) +
         QStringLiteral("\n評価パラメータ(カタストロフ重視度)：") +
         CatastropheWeightLabel(parameters.catastropheWeight) + QStringLiteral("\n想定地震コード：") +
         ModeLabel(parameters.modeIndex) + QStringLiteral("\n地図バージョン(被害地検索)：") +
         SearchVersionLabel(parameters.versionIndex) + QStringLiteral("\n地図バージョン(地震活動モデル)：") +
         ActivityVersionLabel(parameters.activityVersionIndex) + QStringLiteral("\n確率ケース：") +
         CaseLabel(parameters.caseIndex) + QStringLiteral("\n発生確率評価期間：") +
         PeriodLabel(parameters.periodIndex);
}

}  // namespace tremlo
