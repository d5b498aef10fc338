#pragma once

#include "JsonWriter.h"
#include "numeric/waves/WaveFigures.h"

namespace tremlo::cli {

/// The figures of a wave as an object, its keys being the member names.
void WriteFigures(JsonWriter& json, std::string_view key, const WaveFigures& figures);

}  // namespace tremlo::cli
