#include "numeric/waves/FourierSpectrum.h"

#include "numeric/waves/ResponseSpectrum.h"

#include <bit>
#include <cmath>
#include <unsupported/Eigen/FFT>

namespace tremlo {

std::size_t PaddedLength(std::size_t count) {
  return count == 0 ? 0 : std::bit_ceil(count);
}

void FourierTransform::Forward(const std::vector<double>& samples) {
  spectrum.resize(m_length);
  if (m_length == 0) return;
  if (m_length == 1) {
    // The library's real transform takes pairs of samples; one sample is its own transform.
    spectrum[0] = samples[0];
    return;
  }
  Eigen::FFT<double> plan;
  plan.SetFlag(Eigen::FFT<double>::HalfSpectrum);
  plan.fwd(spectrum.data(), samples.data(), static_cast<Eigen::Index>(m_length));
  const double scale = 1.0 / static_cast<double>(m_length);
  const std::size_t half = m_length / 2;
  for (std::size_t k = 0; k <= half; ++k) spectrum[k] *= scale;
  for (std::size_t k = 1; k < half; ++k) spectrum[m_length - k] = std::conj(spectrum[k]);
}

void FourierTransform::Backward(std::vector<std::complex<double>>& values) const {
  if (m_length < 2) return;
  Eigen::FFT<double> plan;
  plan.SetFlag(Eigen::FFT<double>::HalfSpectrum);
  plan.SetFlag(Eigen::FFT<double>::Unscaled);
  std::vector<double> samples(m_length);
  plan.inv(samples.data(), values.data(), static_cast<Eigen::Index>(m_length));
  for (std::size_t i = 0; i < m_length; ++i) values[i] = samples[i];
}

void ComputeFourierSpectrum(const std::vector<double>& acc, std::vector<double>& periods,
                            std::vector<double>& amplitudes, double timeStep) {
  periods.clear();
  amplitudes.clear();
  if (acc.empty() || !std::isfinite(timeStep) || timeStep <= 0.0) return;
  std::vector<double> padded = acc;
  padded.resize(PaddedLength(acc.size()), 0.0);
  const std::size_t length = padded.size();
  FourierTransform transform(length);
  transform.Forward(padded);

  const double df = FrequencyStep(length, timeStep);
  const double toAmplitude = static_cast<double>(length) * timeStep * 0.5;
  periods.reserve(length / 2);
  amplitudes.reserve(length / 2);
  for (std::size_t k = 1; k <= length / 2; ++k) {
    const double re = transform.spectrum[k].real();
    const double im = transform.spectrum[k].imag();
    amplitudes.push_back(std::sqrt(4.0 * re * re + 4.0 * im * im) * toAmplitude);
    periods.push_back(1.0 / (static_cast<double>(k) * df));
  }
}

}  // namespace tremlo
