#pragma once

#include <span>

namespace tremlo {

/// Figures by which a wave is judged and compared. One that cannot be told is NaN, none is infinite.
struct WaveFigures {
  double pga = 0.0;              ///< peak acceleration, gal
  double pgv = 0.0;              ///< peak velocity, cm/s (kine)
  double pgd = 0.0;              ///< peak displacement, cm
  double endVelocity = 0.0;      ///< at the last sample, cm/s, with its sign
  double endDisplacement = 0.0;  ///< at the last sample, cm, with its sign
  double ariasIntensity = 0.0;   ///< cm/s
  double duration = 0.0;         ///< from 5 to 95 % of the Arias intensity, s
};

/// The figures of `acc` (gal) sampled every `timeStep` (s), the first sample at time 0:
/// - peaks are the largest absolute value at a sample;
/// - the velocity is 0 at the first sample, and over a step it gains timeStep times the mean of the two
///   accelerations; the displacement in the same way from the velocity. No base line is corrected;
/// - Arias intensity π/(2g)·∫a²dt over the whole wave (Arias, 1970), g = 980.665 gal, by the trapezoid rule
///   of the squared samples;
/// - duration (Trifunac and Brady, 1975): that running integral lies on straight lines between the samples;
///   from the first time that it is at 5 % of its last value to the first that it is at 95 %.
///
/// From one sample all figures but the peak acceleration are 0; so is the duration of a wave of zeros. NaN:
/// all figures when there is no sample or one that is not finite; all but the peak acceleration when the time
/// step is not a finite number above 0; each figure on the way to which a number leaves the doubles. Blank
/// samples must have been replaced by the caller.
WaveFigures ComputeWaveFigures(std::span<const double> acc, double timeStep);

}  // namespace tremlo
