#pragma once

#include <functional>
#include <vector>

namespace tremlo {

/// Working copy of a target spectrum: frequencies (Hz) = 1/period in the order given, amplitudes in gal. The
/// target must be given longest period first, so that the frequencies ascend.
struct TargetSpectrum {
  std::vector<double> frequencies;
  std::vector<double> amplitudes;
};

/// How the response fits the target inside the target's band.
struct FitFigures {
  int pass = 0;                  ///< 0 for the first sweep
  double deviation = 0.0;        ///< RMS of 1 - target/response; NaN when the band holds no frequency
  double overshoot = 0.0;        ///< largest response/target - 1, 0 or above
  double overshootPeriod = 0.0;  ///< its period, s; 0 when the response is nowhere above the target
  double undershoot = 0.0;       ///< largest 1 - response/target, 0 or above
  double undershootPeriod = 0.0;
};

/// Called after the measurement of each pass.
using AdjustProgress = std::function<void(const FitFigures&)>;

/// Ratio target/response at each frequency (i+1)·df (Hz) of `response` (gal), the target interpolated
/// linearly in frequency; 0 outside the target's band, whose limits belong to it. Returns the root mean
/// square of 1 - ratio over the band, NaN when the band holds none of the frequencies or the target is empty.
double MatchRatio(const TargetSpectrum& target, std::vector<double>& ratios,
                  const std::vector<double>& response, double df);

/// Adjusts the Fourier amplitudes of `acc` (gal, every `timeStep` s) until its response spectrum fits the
/// target
/// (`periods` in s, longest first, `target` in gal), phases kept. `result` is replaced by the working wave,
/// of the next power of two in length, whatever comes of it. At most `iterations` passes; true when the
/// deviation of a pass fell below `tolerance` (a fraction, 0.05 = 5 %). The correction of the last pass is
/// not measured.
bool AdjustAmplitude(int iterations, const std::vector<double>& acc, const std::vector<double>& periods,
                     const std::vector<double>& target, std::vector<double>& result, double tolerance,
                     double timeStep, const AdjustProgress& progress = {});

}  // namespace tremlo
