#pragma once

#include <complex>
#include <cstddef>
#include <vector>

namespace tremlo {

/// The next power of two at or above `count`; 0 for 0.
std::size_t PaddedLength(std::size_t count);

/// One real transform of a power-of-two length, made for each use; an object serves one forward call.
class FourierTransform {
 public:
  explicit FourierTransform(std::size_t length) : m_length(length) {}

  /// Z[k] = (1/N)·Σ x[n]·exp(-2πi·k·n/N): fills `spectrum` with all N elements. `samples` has N elements.
  void Forward(const std::vector<double>& samples);

  /// x[n] = Σ Z[k]·exp(+2πi·k·n/N) in place. `values` has N elements, of which only the first half (k =
  /// 0..N/2) is read, the other being its mirror image; only the real parts of the result have a meaning.
  void Backward(std::vector<std::complex<double>>& values) const;

  std::vector<std::complex<double>> spectrum;

 private:
  std::size_t m_length;
};

/// Fourier amplitude spectrum of `acc` (gal) sampled every `timeStep` (s), zero-padded to a power of two N.
/// Both outputs are replaced by N/2 values, longest period first: `periods` in s, `amplitudes` |Σ
/// x·exp|·timeStep in gal·s. The mean (k = 0) is left out; no taper, filter or smoothing. No samples, or a
/// time step that is not a finite number above 0: empty vectors.
void ComputeFourierSpectrum(const std::vector<double>& acc, std::vector<double>& periods,
                            std::vector<double>& amplitudes, double timeStep);

}  // namespace tremlo
