#pragma once

#include "core/project/MorvaneDoc.h"

#include <string>
#include <vector>

namespace tremlo::test {

/// What must hold in a project between two commands, whatever the user has done: one base spectrum at most,
/// its label and its mark together, the adopted pair, no result left of what was cleared. Returns a sentence
/// for each rule that is broken; empty for a sound document.
///
/// A project file is taken as stored, so what a file breaks is no fault of the program: compare with what was
/// broken when it was opened.
std::vector<std::string> BrokenInvariants(const CMorvaneDoc& doc);

/// Why the bytes of the document, read into another one, do not give the same bytes; empty when they do.
std::string RoundTripFailure(const CMorvaneDoc& doc);

}  // namespace tremlo::test
