#pragma once

#include "core/verify/VerifyReport.h"

#include <cstddef>
#include <span>

namespace tremlo {

/// How two lists of numbers agree; its outcome is never Unchecked.
struct Agreement {
  VerifyOutcome outcome = VerifyOutcome::Equal;
  double difference = 0.0;  ///< the largest, as VerifyReport.h defines it
  std::size_t index = 0;    ///< its place; for lists of two lengths the end of the shorter
  double stored = 0.0;      ///< the two numbers there; of no meaning for lists of two lengths
  double anew = 0.0;
};

/// Compares element by element. `leastScale` is what a difference is divided by at least. Two NaNs agree, bit
/// for bit or else closely.
Agreement Compare(std::span<const double> stored, std::span<const double> anew, double leastScale = 0.0);
Agreement Compare(double stored, double anew, double leastScale = 0.0);

/// The largest absolute value of all that are finite; 0 for none.
double LargestSize(std::span<const double> values);

/// The two numbers for people, or the two lengths where these are not the same.
QString BothValues(const Agreement& agreement, std::size_t storedCount, std::size_t anewCount);

}  // namespace tremlo
