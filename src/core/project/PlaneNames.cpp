#include "core/project/PlaneNames.h"

#include "core/project/BaseSpectrum.h"

namespace tremlo {

namespace {

QString NumberOf(const FaultInfo& fault, std::size_t plane) {
  return PlaneCount(fault) < 2 ? QString() : u'(' + QString::number(plane + 1) + u')';
}

}  // namespace

QString PlaneName(const FaultInfo& fault, std::size_t plane) {
  return NumberOf(fault, plane) + fault.ltename;
}

QString ShortestLegend(const FaultInfo& fault, std::size_t plane) {
  return NumberOf(fault, plane) + QStringLiteral("(最短距離)") + fault.ltename;
}

QString EquivalentLegend(const FaultInfo& fault, std::size_t plane) {
  return NumberOf(fault, plane) + QStringLiteral("(等価震源距離)") + fault.ltename;
}

int PlaneRowCount(const std::vector<FaultInfo>& faults) {
  std::size_t count = 0;
  for (const FaultInfo& fault : faults) count += PlaneCount(fault);
  return static_cast<int>(count);
}

std::optional<PlanePlace> PlaneOfRow(const std::vector<FaultInfo>& faults, int row) {
  if (row < 1) return std::nullopt;
  std::size_t plane = static_cast<std::size_t>(row) - 1;
  for (std::size_t fault = 0; fault < faults.size(); ++fault) {
    const std::size_t count = PlaneCount(faults[fault]);
    if (plane < count) return PlanePlace{fault, plane};
    plane -= count;
  }
  return std::nullopt;
}

}  // namespace tremlo
