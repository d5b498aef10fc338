#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The response spectrum that a seed wave stores, from its samples and time step. Nothing for a wave that has
/// none.
void VerifyWaveSpectrum(const CMorvaneDoc& doc, std::size_t wave, std::vector<VerifyItem>& items);

/// The spectrum stored with an adjusted wave, from that wave as it is stored. Nothing for a wave that is not
/// adjusted.
void VerifyAdjustedSpectrum(const CMorvaneDoc& doc, std::size_t wave, std::vector<VerifyItem>& items);

/// Tells in `item` how a stored curve agrees with the one computed anew; `periods` are those of the latter.
void TellCurve(VerifyItem& item, const std::vector<double>& stored, const std::vector<double>& anew,
               const std::vector<double>& periods);

}  // namespace tremlo
