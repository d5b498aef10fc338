#pragma once

#include "JsonWriter.h"
#include "project/MorvaneDoc.h"

namespace tremlo::cli {

/// The stored fields as members of one object, each under its own name and in the order of the project file.
void WriteFault(JsonWriter& json, const FaultInfo& fault);

/// A loose record is an object of its fields, a set an array of records with the name first.
void WriteProject(JsonWriter& json, const CMorvaneDoc& doc);

}  // namespace tremlo::cli
