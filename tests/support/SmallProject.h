#pragma once

#include "core/project/MorvaneDoc.h"

#include <string>

namespace tremlo::test {

/// A new project whose tables hold nothing, so that `lowerSpectra` is empty.
CMorvaneDoc DocWithoutTables();

/// Gives every stored field of the document a value of its own: those of tests/data/small-project.hex.
void FillSmallProject(CMorvaneDoc& doc);

/// The bytes of tests/data/small-project.hex.
std::string SmallProjectBytes();

}  // namespace tremlo::test
