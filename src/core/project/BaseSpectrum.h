#pragma once

#include "core/project/MorvaneDoc.h"

namespace tremlo {

/// Where a base spectrum comes from.
enum class BaseSource { Wave, ShortestPlane, EquivalentPlane, LowerLimit };

struct BaseItem {
  BaseSource source = BaseSource::LowerLimit;
  std::size_t index = 0;  ///< the wave in `seedWaves`, or the fault in `faults`; 0 for the lower limit
  std::size_t plane = 0;  ///< of the fault, counted from 0

  bool operator==(const BaseItem&) const = default;
};

/// Labels of a plane's two candidates, by which the document remembers the chosen one. The plane's number
/// stands in them only when the fault has several.
QString ShortestLabel(const FaultInfo& fault, std::size_t plane);
QString EquivalentLabel(const FaultInfo& fault, std::size_t plane);

/// The candidate that a label names: the first wave in use near the site (if the procedure allows those),
/// else the first plane in use (if it allows faults), else, for any other text, the lower limit.
BaseItem FindBaseItem(const CMorvaneDoc& doc, const QString& label);

/// The item that carries the mark of the base spectrum, the target of the adjustment: looked for among the
/// waves, the planes by shortest distance, the planes by equivalent distance, and at the selected lower
/// limit. Nothing: no base spectrum is chosen.
std::optional<BaseItem> MarkedBase(const CMorvaneDoc& doc);

/// Whether either candidate of the plane carries the mark.
bool IsBasePlane(const FaultInfo& fault, std::size_t plane);
bool AnyPlaneIsBase(const CMorvaneDoc& doc);

/// Whether a wave of this name carries the mark or its name is that of the base spectrum.
bool IsBaseWave(const CMorvaneDoc& doc, const QString& name);

/// Takes every mark away, marks the candidate that `label` names, remembers the label and marks the document
/// as modified.
void SetBase(CMorvaneDoc& doc, const QString& label);

}  // namespace tremlo
