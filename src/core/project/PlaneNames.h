#pragma once

#include "core/location/FaultInfo.h"

#include <cstddef>
#include <optional>

namespace tremlo {

/// Names of a plane, counted from 0, where it is not the key of a base spectrum: that is ShortestLabel and
/// EquivalentLabel. The plane's number stands in them only when the fault has several.

QString PlaneName(const FaultInfo& fault, std::size_t plane);  ///< in a list of planes: "(2)断層"

/// In the legend of a graph: "(2)(最短距離)断層".
QString ShortestLegend(const FaultInfo& fault, std::size_t plane);
QString EquivalentLegend(const FaultInfo& fault, std::size_t plane);

/// A plane of a list of faults, both counted from 0.
struct PlanePlace {
  std::size_t fault = 0;
  std::size_t plane = 0;

  bool operator==(const PlanePlace&) const = default;
};

/// A grid with a row for each plane of all faults, in their order: how many rows it has, and the plane of a
/// row, counted from 1. None for a row that does not exist.
int PlaneRowCount(const std::vector<FaultInfo>& faults);
std::optional<PlanePlace> PlaneOfRow(const std::vector<FaultInfo>& faults, int row);

}  // namespace tremlo
