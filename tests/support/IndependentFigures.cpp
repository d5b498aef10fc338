#include "support/IndependentFigures.h"

#include <algorithm>
#include <cmath>

namespace tremlo::test {

namespace {

using Real = long double;

/// ∫a²dt up to each sample, every sample weighted by the width of its share of the time.
std::vector<Real> Energies(const std::vector<double>& acc, Real dt) {
  std::vector<Real> energies;
  Real whole = 0.0L;  // squares of all samples up to this one
  for (const Real a : acc) {
    whole += a * a;
    energies.push_back(dt * (whole - (a * a + static_cast<Real>(acc[0]) * acc[0]) / 2.0L));
  }
  return energies;
}

Real EnergyAt(const std::vector<Real>& energies, Real samples) {
  const auto below = std::min(static_cast<std::size_t>(samples), energies.size() - 1);
  if (below + 1 == energies.size()) return energies[below];
  const Real share = samples - static_cast<Real>(below);
  return (1.0L - share) * energies[below] + share * energies[below + 1];
}

/// The first time, counted in samples, at which the energy is at `level`.
Real FirstAt(Real level, const std::vector<Real>& energies) {
  Real before = 0.0L;
  Real at = static_cast<Real>(energies.size() - 1);
  for (int i = 0; i < 120; ++i) {
    const Real middle = (before + at) / 2.0L;
    (EnergyAt(energies, middle) >= level ? at : before) = middle;
  }
  return at;
}

}  // namespace

WaveFigures IndependentFigures(const std::vector<double>& acc, double timeStep) {
  const Real dt = timeStep;
  const Real first = acc[0];
  Real sum = 0.0L;      // of the samples behind the first and before this one
  Real moments = 0.0L;  // of the same, each times its number
  Real pga = 0.0L, pgv = 0.0L, pgd = 0.0L, velocity = 0.0L, displacement = 0.0L;
  for (std::size_t k = 0; k < acc.size(); ++k) {
    const Real n = static_cast<Real>(k);
    const Real a = acc[k];
    if (k > 0) {
      velocity = dt * (first / 2.0L + sum + a / 2.0L);
      displacement = dt * dt * ((n - 0.5L) / 2.0L * first + (n * sum - moments) + a / 4.0L);
      sum += a;
      moments += n * a;
    }
    pga = std::max(pga, std::fabs(a));
    pgv = std::max(pgv, std::fabs(velocity));
    pgd = std::max(pgd, std::fabs(displacement));
  }
  const std::vector<Real> energies = Energies(acc, dt);
  const Real total = energies.back();
  const Real arias = std::acos(-1.0L) / (2.0L * 980.665L) * total;
  const Real duration = dt * (FirstAt(0.95L * total, energies) - FirstAt(0.05L * total, energies));
  const auto narrow = [](Real value) { return static_cast<double>(value); };
  return {narrow(pga),          narrow(pgv),   narrow(pgd),     narrow(velocity),
          narrow(displacement), narrow(arias), narrow(duration)};
}

}  // namespace tremlo::test
