#pragma once

#include "WaveInput.h"
#include "core/waves/AdjustRun.h"
#include "numeric/waves/WaveFigures.h"

namespace tremlo::cli {

/// What a run of the adjustment came to.
struct Adjustment {
  bool converged = false;
  int passes = 0;  ///< sweeps made
  /// Of the last sweep; NaN as deviation when there was none.
  FitFigures fit{.deviation = std::numeric_limits<double>::quiet_NaN()};
  std::vector<double> acc;  ///< the last wave, converged or not
  // The caller computes these, as far as it needs them.
  std::vector<double> periods, spectrum;  ///< of that wave
  WaveFigures seedFigures, adjustedFigures;
};

/// One adjustment with all that it takes, as the options of `adjust` say it.
struct AdjustJob {
  WaveInput seed;
  std::vector<double> periods, target;  ///< s, longest first; gal
  std::int32_t iterations = 100;
  double tolerance = 0.05;

  /// Reads options and files. Returns the exit status, with what is wrong in `error`.
  int Read(const Arguments& arguments, QString& error, QStringList& warnings);

  Adjustment Run(const AdjustProgress& progress) const;
};

}  // namespace tremlo::cli
