#pragma once

#include "core/project/MorvaneDoc.h"

#include <optional>

namespace tremlo::cli {

/// Brings the document to the state of a new project, its tables read. Returns the line for standard error
/// when a table is missing or not what it should be.
std::optional<QString> LoadTables(CMorvaneDoc& doc);

}  // namespace tremlo::cli
