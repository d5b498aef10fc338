#pragma once

#include "core/records/Record.h"

#include <functional>

namespace tremlo {

/// Puts samples marked as missing on a straight line between their neighbours; at an end the nearest one
/// stands for them. Without any sample that is there, all become 0.
void FillMissing(std::vector<double>& acc, const std::function<bool(double)>& isMissing);

/// Asks about samples marked as missing, or fills and tells them when the answer says so. `lineOf` gives the
/// line of a sample, both from 0.
void TreatMissing(std::vector<double>& acc, const std::function<bool(double)>& isMissing,
                  const std::function<std::size_t(std::size_t)>& lineOf, const RecordAnswers& answers,
                  RecordReading& reading);

}  // namespace tremlo
