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

QString DoubtOfOffset(const std::vector<double>& acc, double offset) {
  constexpr double kLargestShare = 0.005;  // of the PGA
  const RecordPeak peak = PeakOf(acc);
  const double left = peak.mean - offset;
  if (!(peak.pga > 0.0) || std::fabs(left) <= kLargestShare * peak.pga) return {};
  return QStringLiteral("オフセット：平均値 %1 gal（最大加速度 %2 gal の %3 %）が残ります。")
      .arg(QString::number(left, 'g', 4), QString::number(peak.pga, 'g', 4),
           QString::number(100.0 * std::fabs(left) / peak.pga, 'g', 3));
}

}  // namespace tremlo
