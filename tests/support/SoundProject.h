#pragma once

#include "core/project/MorvaneDoc.h"

#include <QString>

namespace tremlo::test {

/// A project of the guideline route as the program leaves it: waves "A" (8,192 samples, adopted and adjusted
/// to the lower limit) and "近隣" (in use near the site), the faults "南" of one plane and "北" of two with
/// distances, spectra and areas. `tables` is the folder of its tables; empty for those of the source tree.
/// That one is reckoned once and copied.
CMorvaneDoc SoundProject(const QString& tables = {});

/// The same of the response route: "A" adjusted to the one target.
CMorvaneDoc SoundResponseProject();

}  // namespace tremlo::test
