#pragma once

#include <vector>

namespace tremlo::test {

/// Which integral of s·exp(-c·s)·cos(ω_d·s) over a step enters the velocity load.
enum class LoadIntegral {
  Exact,
  MethodsOwn,  ///< with the sign of its term ω_d·P turned, as the program's method has it
};

/// Peak absolute acceleration (gal) of a 5 % damped oscillator of `frequency` (Hz), in long double and by
/// another road than the program: the transition by the Taylor series of the matrix exponential, the four
/// load integrals by Gauss-Legendre quadrature.
double IndependentPeak(const std::vector<double>& acc, double frequency, double timeStep,
                       LoadIntegral integral);

}  // namespace tremlo::test
