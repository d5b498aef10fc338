#include "core/records/EvenTimes.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kShareOfGood = 0.9;

/// Of a whole number of units the double that is nearest to the decimal text.
double AsPrinted(double steps, double unit) {
  const double perOne = std::round(1.0 / unit);
  return unit < 1.0 && std::fabs(perOne * unit - 1.0) < 1e-9 ? steps / perOne : steps * unit;
}

}  // namespace

EvenTimes FindEvenTimes(const std::vector<double>& times, double unit) {
  EvenTimes result;
  const std::size_t n = times.size();
  if (n < 3) return result;
  std::vector<double> steps(n - 1);
  for (std::size_t i = 0; i + 1 < n; ++i) steps[i] = times[i + 1] - times[i];
  std::vector<double> sorted = steps;
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
  std::nth_element(sorted.begin(), middle, sorted.end());
  const double usual = *middle;
  const double mean = (times.back() - times.front()) / static_cast<double>(n - 1);
  const bool rises = std::all_of(steps.begin(), steps.end(), [](double d) { return d >= 0.0; }) && mean > 0.0;
  const double noise = 1e-6 * unit + 1e-12 * std::max(std::fabs(times.front()), std::fabs(times.back()));
  const auto share = [&](double tolerance) {
    const auto good = std::count_if(steps.begin(), steps.end(),
                                    [&](double d) { return std::fabs(d - usual) <= tolerance; });
    return static_cast<double>(good) / static_cast<double>(steps.size());
  };
  const auto firstBad = [&](double expected, double tolerance) {
    const auto bad = std::find_if(steps.begin(), steps.end(),
                                  [&](double d) { return std::fabs(d - expected) > tolerance; });
    return static_cast<std::size_t>(bad - steps.begin()) + 1;
  };

  // Printed in full, or nearly all of it: every step is the same.
  const double whole = std::round(usual / unit);
  if (usual > 0.0 && whole >= 1.0 && std::fabs(whole * unit - usual) <= noise &&
      share(noise) >= kShareOfGood) {
    result.timeStep = AsPrinted(whole, unit);
    result.badRow = firstBad(usual, 0.01 * usual + noise);
    result.kind = result.badRow == n ? EvenTimes::Even : EvenTimes::Uneven;
    if (result.kind == EvenTimes::Even && firstBad(usual, noise) != n) {
      // The odd ones make up for what print cut off all the others.
      result.timeStep = mean;
      result.doubt = 2.0 * unit / static_cast<double>(n - 1);
    }
    return result;
  }
  if (!rises) {
    if (usual <= 0.0 || share(1.01 * unit + 0.01 * usual) < kShareOfGood) return result;
    result.kind = EvenTimes::Uneven;
    result.timeStep = usual;
    result.badRow = firstBad(usual, 1.01 * unit + 0.01 * usual);
    return result;
  }
  // Rounded in print: each stands where an even time would be printed.
  result.timeStep = mean;
  result.doubt = 2.0 * unit / static_cast<double>(n - 1);
  for (std::size_t i = 0; i < n; ++i) {
    if (std::fabs(times[i] - times.front() - static_cast<double>(i) * mean) <= 1.01 * unit + 0.01 * mean)
      continue;
    result.kind = EvenTimes::Uneven;
    // The gap itself, not the place to which it has carried the times.
    result.badRow = firstBad(usual, 1.01 * unit + 0.01 * usual);
    if (result.badRow == n) result.badRow = i;
    result.timeStep = usual > 0.0 ? usual : mean;
    return result;
  }
  const bool distinct = std::all_of(steps.begin(), steps.end(), [](double d) { return d > 0.0; });
  result.kind = distinct ? EvenTimes::Even : EvenTimes::Rounded;
  // A rate in whole hertz, if but one comes into question.
  const double rate = std::round(1.0 / mean);
  if (distinct && rate >= 1.0 && std::fabs(1.0 / rate - mean) <= result.doubt / 2.0 &&
      std::fabs(1.0 / (rate + 1.0) - mean) > result.doubt) {
    result.timeStep = 1.0 / rate;
    result.doubt = 0.0;
  }
  return result;
}

}  // namespace tremlo
