#include "core/project/FaultExploration.h"

#include "core/location/HazardTables.h"

#include <algorithm>
#include <span>

namespace tremlo {

namespace {

using Order = std::span<const std::int32_t>;

QStringList TextsOf(Order order, QString (*label)(std::int32_t)) {
  QStringList texts;
  for (const std::int32_t version : order) texts << label(version);
  return texts;
}

QStringList TextsOf(std::int32_t count, QString (*label)(std::int32_t)) {
  QStringList texts;
  for (std::int32_t i = 0; i < count; ++i) texts << label(i);
  return texts;
}

int RowOf(Order order, std::int32_t version) {
  const auto found = std::find(order.begin(), order.end(), version);
  return found == order.end() ? -1 : static_cast<int>(found - order.begin());
}

void Choose(Order order, int row, std::int32_t& version) {
  if (row >= 0 && static_cast<std::size_t>(row) < order.size())
    version = order[static_cast<std::size_t>(row)];
}

}  // namespace

QStringList FaultExploration::SearchVersionTexts() {
  return TextsOf(kSearchVersionOrder, SearchVersionLabel);
}

QStringList FaultExploration::ActivityVersionTexts() {
  return TextsOf(kActivityVersionOrder, ActivityVersionLabel);
}

int FaultExploration::SearchVersionRow() const {
  return RowOf(kSearchVersionOrder, values.versionIndex);
}

int FaultExploration::ActivityVersionRow() const {
  return RowOf(kActivityVersionOrder, values.activityVersionIndex);
}

void FaultExploration::ChooseSearchVersion(int row) {
  Choose(kSearchVersionOrder, row, values.versionIndex);
}

void FaultExploration::ChooseActivityVersion(int row) {
  Choose(kActivityVersionOrder, row, values.activityVersionIndex);
}

QStringList FaultExploration::IntensityTexts() {
  return TextsOf(kIntensityCount, IntensityLabel);
}

QStringList FaultExploration::ModeTexts() {
  // The second is called otherwise here than in the questions.
  return {ModeLabel(0), QStringLiteral("震源断層を特定した地震動予測地図")};
}

QStringList FaultExploration::CaseTexts() {
  return TextsOf(kCaseCount, CaseLabel);
}

QStringList FaultExploration::PeriodTexts() {
  return TextsOf(kPeriodCount, PeriodLabel);
}

void FaultExploration::Reset() {
  values = ApiParameterSet{};
  Accept();
}

void FaultExploration::Accept() {
  m_doc.apiParameters = values;
  m_doc.SetModified(true);
}

}  // namespace tremlo
