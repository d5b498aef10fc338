#pragma once

#include "core/waves/SeismicWaveSet.h"

#include <functional>

namespace tremlo {

/// Wave k of n, of those that lack a spectrum, is about to be computed; k from 1.
using SpectrumProgress = std::function<void(int wave, int count, const QString& name)>;

/// Computes the response spectra of all waves whose spectrum is not valid. It works on copies, so that the
/// records can be read, and painted, while Compute runs on a worker.
class SpectrumBatch {
 public:
  /// Copies time step and samples (blanks as 0) of the waves that lack a spectrum.
  explicit SpectrumBatch(const CSeismicWaveSet& waves);

  std::size_t Count() const { return m_items.size(); }

  /// A time step that is not a finite number above 0, or fewer than two samples, give an empty spectrum.
  void Compute(const SpectrumProgress& progress = {});

  /// Puts the spectra into the records that they were copied from and marks them as valid. `waves` is the set
  /// that the batch was made of, unchanged since.
  void Store(CSeismicWaveSet& waves);

 private:
  struct Item {
    std::size_t index = 0;
    QString name;
    double timeStep = 0.0;
    std::vector<double> acc;
    std::vector<double> periods;
    std::vector<double> accSpec;
  };

  std::vector<Item> m_items;
};

}  // namespace tremlo
