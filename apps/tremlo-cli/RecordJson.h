#pragma once

#include "JsonWriter.h"
#include "core/project/MorvaneDoc.h"

namespace tremlo::cli {

/// Which fields of a fault: those of the project file, or all of the record.
enum class FaultFields { Stored, All };

/// The fields as members of one object, each under its own name and in the order of the record.
void WriteFault(JsonWriter& json, const FaultInfo& fault, FaultFields fields);

/// A loose record is an object of its fields, a set an array of records with the name first.
void WriteProject(JsonWriter& json, const CMorvaneDoc& doc);

}  // namespace tremlo::cli
