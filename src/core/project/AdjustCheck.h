#pragma once

#include "core/ask/Prompt.h"
#include "core/project/MorvaneDoc.h"
#include "core/waves/AdjustRun.h"

#include <functional>
#include <optional>

namespace tremlo {

/// Runs the adjustment, on a worker behind its progress dialog. Stores nothing.
using AdjustRunner = std::function<AdjustResult(const AdjustInput& input)>;

/// What a run takes to fit a seed wave to the base spectrum: copies, the target longest period first.
AdjustInput AdjustInputOf(const CMorvaneDoc& doc, const CSeismicWave& wave);

/// The box of the adjustment of a seed wave was clicked. Unchecked, the wave shows its own spectrum again and
/// keeps the adjusted one; checked, it shows the adjusted one, which is run for only when it is missing. What
/// is wrong with the input, and a run that fails, is told, and then the document is as it was. Returns how
/// the run went if there was one in the project that the document still holds.
std::optional<AdjustResult> CheckAdjustment(CMorvaneDoc& doc, Prompt& prompt, std::size_t wave, bool checked,
                                            const AdjustRunner& run);

}  // namespace tremlo
