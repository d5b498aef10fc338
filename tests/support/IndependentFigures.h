#pragma once

#include "numeric/waves/WaveFigures.h"

#include <vector>

namespace tremlo::test {

/// The figures of a wave in long double and by another road than the program: velocity and displacement at
/// each sample as one weighted sum of all samples before it, the times of the duration by bisection on the
/// curve of the energy. Sound samples only.
WaveFigures IndependentFigures(const std::vector<double>& acc, double timeStep);

}  // namespace tremlo::test
