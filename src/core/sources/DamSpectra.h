#pragma once

#include "core/location/FaultInfo.h"
#include "core/sources/SystemTables.h"

#include <optional>
#include <vector>

namespace tremlo {

/// The tables of one relation among all that were read: `form0` on the shortest, `form1` on the equivalent
/// distance. Of several of a kind the last counts; a kind without a table leaves its argument as it was. A
/// table of the relation whose kind is neither ends the program.
std::optional<TableFailure> FetchDamCoefficients(const std::vector<DamCoefSet>& sets, const QString& method,
                                                 DamCoefSet& form0, DamCoefSet& form1);

/// Computes both spectra of every plane of every fault anew: periods of the table in s, longest first, values
/// in gal. Depth and distances of the planes must be there. A relation without tables, and a ground class
/// other than "A" to "D", give empty spectra. After a failure the faults are as they were. The caller marks
/// the document as modified.
std::optional<TableFailure> CalculateDamSpectra(const std::vector<DamCoefSet>& sets, const QString& method,
                                                std::vector<FaultInfo>& faults);

}  // namespace tremlo
