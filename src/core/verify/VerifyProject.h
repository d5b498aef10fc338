#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

#include <functional>

namespace tremlo {

/// Step `done` of `count` is about to be taken, from 1; `name` is what it looks at.
using VerifyProgress = std::function<void(int done, int count, const QString& name)>;

/// Computes anew all that a project stores as a result and checks the rules of the document. Each result
/// comes from what it directly rests on, as that is stored: the spectra of a plane from its stored distances,
/// an adjusted wave from the stored spectrum of its target. So tables that have changed since make the
/// spectra of the planes differ, and not a wave that was adjusted to one of them. The items come in the order
/// of the document, the rules first; what the project does not hold has none. `tableFailure` is what reading
/// the coefficients of the relation met. Changes nothing. It takes the sweeps of the spectra and of the
/// adjustments, on the calling thread, and little else.
VerifyReport VerifyProject(const CMorvaneDoc& doc, const std::optional<TableFailure>& tableFailure = {},
                           const VerifyProgress& progress = {});

}  // namespace tremlo
