#pragma once

#include "core/project/MorvaneDoc.h"

namespace tremlo::test {

/// Appends a fault with so many planes as an acquisition leaves it: distances and depths that differ from
/// plane to plane, ground class "A", all marks set, no spectrum yet.
void AddFault(CMorvaneDoc& doc, const QString& name, std::size_t planes, const QString& magnitude);

/// Gives the planes of all faults the colours of an acquisition.
void ColorAsAcquired(CMorvaneDoc& doc);

}  // namespace tremlo::test
