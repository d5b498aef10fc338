#pragma once

#include <optional>
#include <span>
#include <vector>

namespace tremlo {

/// Figures of a response spectrum: `values` (gal) over `periods` (s), which may run in either direction. A
/// value without a period, and a period without a value, do not exist.

/// The area under the curve in gal·s by the trapezoid rule; 0 with fewer than two points.
double SpectrumArea(std::span<const double> periods, std::span<const double> values);

/// The largest value; 0 for no values.
double LargestValue(std::span<const double> values);

/// The value at a period, on the straight line of value over period between the two points around it. None
/// outside the periods of the spectrum, and where a point that it takes is not finite.
std::optional<double> ValueAtPeriod(std::span<const double> periods, std::span<const double> values,
                                    double period);

/// Periods from the shortest to the longest of neighbouring points.
struct PeriodStretch {
  double shortest = 0.0;
  double longest = 0.0;

  bool operator==(const PeriodStretch&) const = default;
};

/// Where a spectrum lies below a limit, shortest periods first: it is compared at its own periods with the
/// limit as ValueAtPeriod reads it, and neighbouring points below the limit make one stretch. None when it
/// has no point that can be compared.
std::optional<std::vector<PeriodStretch>> StretchesBelow(std::span<const double> periods,
                                                         std::span<const double> values,
                                                         std::span<const double> limitPeriods,
                                                         std::span<const double> limitValues);

}  // namespace tremlo
