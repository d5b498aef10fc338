#include "core/waves/AdjustRun.h"

#include "numeric/waves/ResponseSpectrum.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

void AdjustInput::SetWave(const CSeismicWave& wave) {
  timeStep = wave.timeStep;
  acc = WithoutBlanks(wave.acc);
}

bool AdjustInput::HasWave() const {
  return !acc.empty() && std::isfinite(timeStep) && timeStep > 0.0;
}

void PutLongestFirst(std::vector<double>& periods, std::vector<double>& target) {
  const std::size_t count = std::min(periods.size(), target.size());
  periods.resize(count);
  target.resize(count);
  if (count == 0 || !(periods.back() > periods.front())) return;
  std::reverse(periods.begin(), periods.end());
  std::reverse(target.begin(), target.end());
}

AdjustResult RunAdjustment(const AdjustInput& input, const AdjustProgress& progress) {
  AdjustResult result;
  if (!input.HasWave() || !input.HasTarget()) return result;
  result.converged = AdjustAmplitude(input.iterations, input.acc, input.periods, input.target, result.acc,
                                     input.tolerance, input.timeStep, [&](const FitFigures& fit) {
                                       result.fit = fit;
                                       result.passes = fit.pass + 1;
                                       if (progress) progress(fit);
                                     });
  if (result.converged) {
    ComputeResponseSpectrum(result.acc, result.periods, result.spectrum, input.timeStep);
  } else {
    result.acc.clear();
  }
  return result;
}

void StoreAdjustment(CSeismicWave& wave, const AdjustResult& result) {
  if (!result.converged) return;
  wave.adjustedAcc = result.acc;
  wave.adjustedPeriods = result.periods;
  wave.adjustedSpec = result.spectrum;
  wave.adjusted = true;
}

void StoreAdjustment(CSeismicWaveSet& waves, const QString& name, const AdjustResult& result) {
  for (std::size_t i = 0; i < waves.Count(); ++i)
    if (waves.At(i).name == name) StoreAdjustment(waves.At(i), result);
}

}  // namespace tremlo
