#include "numeric/waves/ResponseSpectrum.h"

#include <cmath>

namespace tremlo {

void ComputeResponseSpectrum(const std::vector<double>& acc, std::vector<double>& periods,
                             std::vector<double>& accSpec, double timeStep, const SweepProgress& progress) {
  periods.clear();
  accSpec.clear();
  if (acc.size() < 2 || !std::isfinite(timeStep) || timeStep <= 0.0) return;
  const double df = FrequencyStep(acc.size(), timeStep);
  ComputeOscillatorMaxima(accSpec, acc, df, df, timeStep, progress);
  periods.reserve(accSpec.size());
  for (std::size_t k = 1; k <= accSpec.size(); ++k) periods.push_back(1.0 / (static_cast<double>(k) * df));
}

void ComputeOscillatorMaxima(std::vector<double>& maxima, const std::vector<double>& acc,
                             double firstFrequency, double frequencyStep, double timeStep,
                             const SweepProgress& progress) {
  SweepMaxima(BestSweepVariant(), maxima, acc, firstFrequency, frequencyStep, timeStep, progress);
}

double FrequencyStep(std::size_t count, double timeStep) {
  return (1.0 / static_cast<double>(count)) / timeStep;
}

}  // namespace tremlo
