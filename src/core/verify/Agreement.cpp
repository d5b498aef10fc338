#include "core/verify/Agreement.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace tremlo {

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

bool SameBits(std::span<const double> a, std::span<const double> b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size_bytes()) == 0);
}

double DifferenceOf(double stored, double anew, double leastScale) {
  if (std::isnan(stored) && std::isnan(anew)) return 0.0;
  const double gap = std::fabs(stored - anew);
  if (gap == 0.0) return 0.0;
  const double share = gap / std::max({std::fabs(stored), std::fabs(anew), leastScale});
  return std::isnan(share) ? kInfinite : share;
}

QString ValueText(double value) {
  return QString::number(value, 'g', 17);
}

}  // namespace

Agreement Compare(std::span<const double> stored, std::span<const double> anew, double leastScale) {
  Agreement agreement;
  if (SameBits(stored, anew)) return agreement;
  if (stored.size() != anew.size())
    return {VerifyOutcome::Differs, kInfinite, std::min(stored.size(), anew.size()), 0.0, 0.0};
  agreement.index = stored.size();
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (SameBits(stored.subspan(i, 1), anew.subspan(i, 1))) continue;
    const double difference = DifferenceOf(stored[i], anew[i], leastScale);
    if (agreement.index < stored.size() && !(difference > agreement.difference)) continue;
    agreement = {VerifyOutcome::Close, difference, i, stored[i], anew[i]};
  }
  if (agreement.difference > kCloseDifference) agreement.outcome = VerifyOutcome::Differs;
  return agreement;
}

Agreement Compare(double stored, double anew, double leastScale) {
  return Compare({&stored, 1}, {&anew, 1}, leastScale);
}

double LargestSize(std::span<const double> values) {
  double largest = 0.0;
  for (const double value : values)
    if (std::isfinite(value)) largest = std::max(largest, std::fabs(value));
  return largest;
}

QString BothValues(const Agreement& agreement, std::size_t storedCount, std::size_t anewCount) {
  if (storedCount != anewCount)
    return QStringLiteral("数が異なります（保存 %1、再計算 %2）。").arg(storedCount).arg(anewCount);
  return QStringLiteral("保存 %1、再計算 %2。").arg(ValueText(agreement.stored), ValueText(agreement.anew));
}

}  // namespace tremlo
