#include "numeric/waves/WaveFigures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace tremlo {

namespace {

constexpr double kGravity = 980.665;  // gal
constexpr double kDurationFrom = 0.05;
constexpr double kDurationTo = 0.95;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

double FiniteOrNone(double value) {
  return std::isfinite(value) ? value : kNone;
}

/// The area of one step below a line.
double Trapezoid(double a, double b, double timeStep) {
  return (a + b) * timeStep * 0.5;
}

/// ∫a²dt of one step.
double Energy(std::span<const double> acc, std::size_t step, double timeStep) {
  return Trapezoid(acc[step] * acc[step], acc[step + 1] * acc[step + 1], timeStep);
}

/// The first time at which ∫a²dt, added up as for the whole wave, is at `level`.
double TimeAt(double level, std::span<const double> acc, double timeStep) {
  double before = 0.0;
  for (std::size_t i = 0; i + 1 < acc.size(); ++i) {
    const double behind = before + Energy(acc, i, timeStep);
    if (behind >= level) {
      const double share = behind > before ? (level - before) / (behind - before) : 0.0;
      return (static_cast<double>(i) + share) * timeStep;
    }
    before = behind;
  }
  return 0.0;  // of one sample
}

}  // namespace

WaveFigures ComputeWaveFigures(std::span<const double> acc, double timeStep) {
  WaveFigures figures{kNone, kNone, kNone, kNone, kNone, kNone, kNone};
  const bool finite = std::all_of(acc.begin(), acc.end(), [](double a) { return std::isfinite(a); });
  if (acc.empty() || !finite) return figures;

  figures.pga = 0.0;
  for (const double a : acc) figures.pga = std::max(figures.pga, std::fabs(a));
  if (!std::isfinite(timeStep) || timeStep <= 0.0) return figures;

  double velocity = 0.0, displacement = 0.0, energy = 0.0;
  double fastest = 0.0, farthest = 0.0;
  for (std::size_t i = 0; i + 1 < acc.size(); ++i) {
    const double before = velocity;
    velocity += Trapezoid(acc[i], acc[i + 1], timeStep);
    displacement += Trapezoid(before, velocity, timeStep);
    energy += Energy(acc, i, timeStep);
    fastest = std::max(fastest, std::fabs(velocity));
    farthest = std::max(farthest, std::fabs(displacement));
  }
  // A sum that has left the doubles does not come back, so its last value tells of its peak too.
  figures.endVelocity = FiniteOrNone(velocity);
  figures.pgv = std::isfinite(velocity) ? fastest : kNone;
  figures.endDisplacement = FiniteOrNone(displacement);
  figures.pgd = std::isfinite(displacement) ? farthest : kNone;
  figures.ariasIntensity = FiniteOrNone(std::numbers::pi / (2.0 * kGravity) * energy);
  if (std::isfinite(energy))
    figures.duration = FiniteOrNone(TimeAt(kDurationTo * energy, acc, timeStep) -
                                    TimeAt(kDurationFrom * energy, acc, timeStep));
  return figures;
}

}  // namespace tremlo
