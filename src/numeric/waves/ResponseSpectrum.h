#pragma once

#include "numeric/waves/OscillatorSweep.h"

#include <cstddef>
#include <vector>

namespace tremlo {

/// Acceleration response spectrum, 5 % damping, of `acc` (gal) sampled every `timeStep` (s): the peak
/// absolute acceleration of a damped oscillator at each discrete Fourier frequency of the wave. With N
/// samples both outputs are replaced by M = floor(N/2) values: `periods` holds 1/(j·df) s for j = 1..M, df =
/// (1/N)/timeStep, so the longest period N·timeStep comes first; `accSpec` holds the peaks in gal. Fewer than
/// two samples, or a time step that is not a finite number above 0, give empty vectors. Blank samples must
/// have been replaced by the caller. Runs on the calling thread with the widest vectors of the processor; the
/// bits do not depend on which.
void ComputeResponseSpectrum(const std::vector<double>& acc, std::vector<double>& periods,
                             std::vector<double>& accSpec, double timeStep,
                             const SweepProgress& progress = {});

/// The sweep alone: `maxima` becomes floor(N/2) peaks (gal), element i at the frequency
/// firstFrequency + i·frequencyStep (Hz).
void ComputeOscillatorMaxima(std::vector<double>& maxima, const std::vector<double>& acc,
                             double firstFrequency, double frequencyStep, double timeStep,
                             const SweepProgress& progress = {});

/// df of a wave of `count` samples, Hz.
double FrequencyStep(std::size_t count, double timeStep);

}  // namespace tremlo
