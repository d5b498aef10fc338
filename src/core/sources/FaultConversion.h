#pragma once

#include "core/location/FaultInfo.h"

namespace tremlo {

/// The number of planes whose rectangle stands in the fault's record.
std::size_t RectangleCount(const FaultInfo& fault);

/// Stores the magnitude of a fault from the service's text. A negative number is a moment magnitude Mw with
/// its sign turned: stored is M = (Mw - 1.08) / 0.78 with two decimals. Any other text is stored as it is.
void ConvertMagnitude(FaultInfo& fault, const QString& text);

/// Converts the texts of the fault's planes to numbers (a text without one counts as 0), projects the corners
/// into `zone` and stores depth, shortest and equivalent distance of each plane from a site (km in that
/// zone). The caller marks the document as modified.
void ComputeFaultDistances(FaultInfo& fault, int zone, double eastSiteKm, double northSiteKm);

}  // namespace tremlo
