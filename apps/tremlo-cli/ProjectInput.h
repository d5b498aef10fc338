#pragma once

#include "core/project/MorvaneDoc.h"

namespace tremlo::cli {

/// Fills the document from a project file; the exit status. A fault of the tables does not matter here: what
/// a project holds comes from the file.
int OpenInput(CMorvaneDoc& doc, const QString& path);

}  // namespace tremlo::cli
