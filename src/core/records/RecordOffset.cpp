#include "core/records/RecordOffset.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

OffsetRule UsualOffset(const RecordReading& reading) {
  return {reading.corrected ? OffsetRule::None : OffsetRule::Whole};
}

double OffsetOf(const std::vector<double>& acc, double timeStep, const OffsetRule& rule) {
  if (rule.kind == OffsetRule::None || acc.empty()) return 0.0;
  if (rule.kind == OffsetRule::Whole) return PeakOf(acc).mean;
  const double samples =
      std::clamp(std::round(rule.seconds / timeStep), 1.0, static_cast<double>(acc.size()));
  return PeakOf({acc.begin(), acc.begin() + static_cast<std::ptrdiff_t>(samples)}).mean;
}

}  // namespace tremlo
