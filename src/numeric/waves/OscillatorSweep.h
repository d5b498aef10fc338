#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace tremlo {

/// The step-by-step solution of one damped oscillator (5 % damping) under an acceleration that is linear
/// between samples: x' = a11·x + a12·v + b12·a1 + b11·a0, v' = a22·v + a21·x + b22·a1 + b21·a0, absolute
/// acceleration |twoC·v' - w·x'|. x in gal·s², v in gal·s, samples in gal.
struct OscillatorCoefficients {
  double a11, a12, a21, a22;
  double b11, b12, b21, b22;
  double twoC;  ///< -2·h·ω, 1/s
  double w;     ///< ω², 1/s²
};

/// Coefficients for the natural frequency (Hz) and time step (s). Piecewise-exact recursion after Nigam and
/// Jennings (1969), except that the integral of s·exp(-c·s)·cos(ω_d·s) carries +ω_d·P where the exact one has
/// -ω_d·P: the spectra of this method are defined with that sign.
OscillatorCoefficients OscillatorAt(double frequency, double timeStep);

/// Peak absolute acceleration (gal) of one oscillator under `count` samples: the plain loop that defines the
/// results. The oscillator starts at rest in displacement with velocity -acc[0]·timeStep; the instant of the
/// first sample takes no part in the peak.
double OscillatorPeak(const OscillatorCoefficients& oscillator, const double* acc, std::size_t count,
                      double timeStep);

/// The ways to run the sweep. All give the same bits; they differ in the number of oscillators per vector.
enum class SweepVariant { Plain, Sse2, Avx2, Avx512 };

/// Whether this processor and this build can run the variant.
bool IsSweepVariantAvailable(SweepVariant variant);

/// The widest variant available.
SweepVariant BestSweepVariant();

/// So many oscillators of all are done. Subnormal numbers count as 0 during the call, as for the sweep.
using SweepProgress = std::function<void(std::size_t done, std::size_t count)>;

/// `maxima` becomes floor(N/2) peaks, element i of the oscillator with frequency
/// i·frequencyStep + firstFrequency (Hz). Runs on the calling thread. For its length subnormal numbers count
/// as 0: the decay into a quiet stretch would otherwise run through them at a fraction of the speed, and a
/// state that small vanishes in the next sample's share of any wave of ordinary size. `progress` is called
/// after each block of oscillators.
void SweepMaxima(SweepVariant variant, std::vector<double>& maxima, const std::vector<double>& acc,
                 double firstFrequency, double frequencyStep, double timeStep,
                 const SweepProgress& progress = {});

}  // namespace tremlo
