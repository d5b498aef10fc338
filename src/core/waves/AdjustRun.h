#pragma once

#include "core/waves/SeismicWaveSet.h"
#include "numeric/waves/AmplitudeAdjust.h"

#include <limits>
#include <vector>

namespace tremlo {

/// Copies of all that one run of the adjustment takes, so that a worker touches no record.
struct AdjustInput {
  double timeStep = 0.0;        ///< s
  std::vector<double> acc;      ///< gal, without blanks
  std::vector<double> periods;  ///< of the target, s, longest first
  std::vector<double> target;   ///< gal
  int iterations = 0;
  double tolerance = 0.0;  ///< a fraction

  /// Takes time step and samples of a wave, blanks as 0.
  void SetWave(const CSeismicWave& wave);
  /// There are samples, and a time step that is a finite number above 0.
  bool HasWave() const;
  bool HasTarget() const { return !periods.empty() && !target.empty(); }
};

struct AdjustResult {
  bool converged = false;  ///< the vectors below are there; without it they are empty
  int passes = 0;          ///< sweeps made
  /// Of the last sweep; NaN as deviation when there was none.
  FitFigures fit{.deviation = std::numeric_limits<double>::quiet_NaN()};
  std::vector<double> acc;  ///< adjusted wave on the time step of the seed; its length is a power of two
  std::vector<double> periods;
  std::vector<double> spectrum;  ///< its response spectrum
};

/// Puts a target longest period first, as the adjustment takes it: when its last period is greater than its
/// first, both vectors are reversed. Values without a partner are dropped first.
void PutLongestFirst(std::vector<double>& periods, std::vector<double>& target);

/// Adjusts and, if that converges, computes the spectrum of the new wave. An input without wave or target
/// does not converge. `progress` is called behind each sweep.
AdjustResult RunAdjustment(const AdjustInput& input, const AdjustProgress& progress = {});

/// Stores the result of a run that converged; one that did not changes nothing.
void StoreAdjustment(CSeismicWave& wave, const AdjustResult& result);
/// The same for every record of that name.
void StoreAdjustment(CSeismicWaveSet& waves, const QString& name, const AdjustResult& result);

}  // namespace tremlo
