#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// Depth and both distances of every plane, from its rectangle and the site in its zone. Nothing for a
/// project without planes.
void VerifyDistances(const CMorvaneDoc& doc, std::vector<VerifyItem>& items);

/// Both spectra of every plane, from magnitude, ground class, depth and distances as they are stored and the
/// document's tables. `tableFailure` is what reading the coefficients met: they count as missing then.
/// Nothing for a form of which no plane has a spectrum: none has been computed yet.
void VerifyPlaneSpectra(const CMorvaneDoc& doc, const std::optional<TableFailure>& tableFailure,
                        std::vector<VerifyItem>& items);

/// "断層 2「...」の面 1"; fault and plane are counted from 0, their numbers from 1.
QString PlanePlaceText(const CMorvaneDoc& doc, std::size_t fault, std::size_t plane);

}  // namespace tremlo
