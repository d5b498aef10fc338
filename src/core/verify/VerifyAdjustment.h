#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The wave that a seed wave stores as adjusted, from the seed, the target (on the guideline route the item
/// that carries the mark of the base spectrum now, else the first of `respSpectra`) and the document's
/// iterations and tolerance. When it is another wave, the reason tells whether the same run with another
/// tolerance or more passes would have given it, and with which. Nothing for a wave that is not adjusted.
void VerifyAdjustedWave(const CMorvaneDoc& doc, std::size_t wave, std::vector<VerifyItem>& items);

}  // namespace tremlo
