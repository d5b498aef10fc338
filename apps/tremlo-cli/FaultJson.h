#pragma once

#include "JsonWriter.h"
#include "sources/FaultInfo.h"

namespace tremlo::cli {

/// A fault with all its fields, as one object, in the order of the record.
void WriteFault(JsonWriter& json, const FaultInfo& fault);

}  // namespace tremlo::cli
