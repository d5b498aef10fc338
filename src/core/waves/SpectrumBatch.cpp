#include "core/waves/SpectrumBatch.h"

#include "numeric/waves/ResponseSpectrum.h"

#include <utility>

namespace tremlo {

SpectrumBatch::SpectrumBatch(const CSeismicWaveSet& waves) {
  for (std::size_t i = 0; i < waves.Count(); ++i) {
    const CSeismicWave& wave = waves.At(i);
    if (wave.spectrumValid) continue;
    m_items.push_back({.index = i,
                       .name = wave.name,
                       .timeStep = wave.timeStep,
                       .acc = WithoutBlanks(wave.acc),
                       .periods = {},
                       .accSpec = {}});
  }
}

void SpectrumBatch::Compute(const SpectrumProgress& progress) {
  const int count = static_cast<int>(m_items.size());
  int wave = 0;
  for (Item& item : m_items) {
    if (progress) progress(++wave, count, item.name);
    ComputeResponseSpectrum(item.acc, item.periods, item.accSpec, item.timeStep);
  }
}

void SpectrumBatch::Store(CSeismicWaveSet& waves) {
  for (Item& item : m_items) {
    CSeismicWave& wave = waves.At(item.index);
    wave.periods = std::move(item.periods);
    wave.accSpec = std::move(item.accSpec);
    wave.spectrumValid = true;
  }
  m_items.clear();
}

}  // namespace tremlo
