#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The areas that are kept with the candidates of the base spectrum, from their spectra as they are stored.
/// An area is kept when the list of candidates is built. So what was never in that list has none, and what is
/// in it no more keeps its last one, which is unchecked where its spectrum has changed since.
void VerifyAreas(const CMorvaneDoc& doc, std::vector<VerifyItem>& items);

}  // namespace tremlo
