#include "numeric/waves/AmplitudeAdjust.h"

#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>

namespace tremlo {

namespace {

TargetSpectrum MakeTarget(const std::vector<double>& periods, const std::vector<double>& target) {
  TargetSpectrum spectrum;
  const std::size_t count = std::min(periods.size(), target.size());
  spectrum.frequencies.reserve(count);
  for (std::size_t i = 0; i < count; ++i) spectrum.frequencies.push_back(1.0 / periods[i]);
  spectrum.amplitudes.assign(target.begin(), target.begin() + static_cast<std::ptrdiff_t>(count));
  return spectrum;
}

/// Linear interpolation of the target between its points j-1 and j.
double TargetAt(const TargetSpectrum& target, std::size_t j, double frequency) {
  const std::vector<double>& f = target.frequencies;
  const std::vector<double>& a = target.amplitudes;
  return (a[j] - a[j - 1]) / (f[j] - f[j - 1]) * (frequency - f[j - 1]) + a[j - 1];
}

FitFigures FiguresOf(int pass, double deviation, const std::vector<double>& ratios, double df) {
  FitFigures figures;
  figures.pass = pass;
  figures.deviation = deviation;
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    if (!(ratios[i] > 0.0) || !std::isfinite(ratios[i])) continue;
    const double excess = 1.0 / ratios[i] - 1.0;
    const double period = 1.0 / (static_cast<double>(i + 1) * df);
    if (excess > figures.overshoot) {
      figures.overshoot = excess;
      figures.overshootPeriod = period;
    }
    if (-excess > figures.undershoot) {
      figures.undershoot = -excess;
      figures.undershootPeriod = period;
    }
  }
  return figures;
}

/// Scales every Fourier coefficient of `wave` but the mean by its ratio; the mean is removed.
void Correct(std::vector<double>& wave, const std::vector<double>& ratios,
             std::vector<std::complex<double>>& scaled) {
  const std::size_t length = wave.size();
  FourierTransform transform(length);
  transform.Forward(wave);
  std::fill(scaled.begin(), scaled.end(), std::complex<double>());
  for (std::size_t k = 1; k <= length / 2; ++k) {
    scaled[k] = transform.spectrum[k] * ratios[k - 1];
    if (k != length / 2) scaled[length - k] = std::conj(scaled[k]);
  }
  transform.Backward(scaled);
  for (std::size_t i = 0; i < length; ++i) wave[i] = scaled[i].real();
}

}  // namespace

double MatchRatio(const TargetSpectrum& target, std::vector<double>& ratios,
                  const std::vector<double>& response, double df) {
  const std::vector<double>& frequencies = target.frequencies;
  const std::size_t points = frequencies.size();
  ratios.assign(response.size(), 0.0);
  if (points == 0) return std::numeric_limits<double>::quiet_NaN();
  const bool ascending = std::is_sorted(frequencies.begin(), frequencies.end());

  double sum = 0.0;
  std::size_t used = 0;
  std::size_t below = 0;
  for (std::size_t i = 0; i < response.size(); ++i) {
    const double f = static_cast<double>(i + 1) * df;
    if (frequencies[0] > f || f > frequencies[points - 1]) continue;
    // The frequencies of the wave rise, so in an ascending target the place found last is where to look on.
    if (!ascending) below = 0;
    while (below < points && frequencies[below] < f) ++below;
    const double wanted = points == 1 ? target.amplitudes[0]
                                      : TargetAt(target, std::clamp<std::size_t>(below, 1, points - 1), f);
    ratios[i] = wanted / response[i];
    sum += std::pow(1.0 - ratios[i], 2.0);
    ++used;
  }
  return std::sqrt(sum / static_cast<double>(used));
}

bool AdjustAmplitude(int iterations, const std::vector<double>& acc, const std::vector<double>& periods,
                     const std::vector<double>& target, std::vector<double>& result, double tolerance,
                     double timeStep, const AdjustProgress& progress) {
  const TargetSpectrum spectrum = MakeTarget(periods, target);
  std::vector<double> wave = acc;
  wave.resize(PaddedLength(acc.size()), 0.0);
  const double df = FrequencyStep(wave.size(), timeStep);
  std::vector<double> response;
  std::vector<double> ratios;
  std::vector<std::complex<double>> scaled(wave.size());
  bool converged = false;
  for (int pass = 0; pass < iterations; ++pass) {
    ComputeOscillatorMaxima(response, wave, df, df, timeStep);
    const double deviation = MatchRatio(spectrum, ratios, response, df);
    if (progress) progress(FiguresOf(pass, deviation, ratios, df));
    if (tolerance > deviation) {
      converged = true;
      break;
    }
    Correct(wave, ratios, scaled);
  }
  result = std::move(wave);
  return converged;
}

}  // namespace tremlo
