#include "core/project/WaveSpectrum.h"

#include "numeric/waves/ResponseSpectrum.h"

namespace tremlo {

void EnsureWaveSpectrum(CMorvaneDoc& doc, CSeismicWave& wave) {
  if (wave.spectrumValid) return;
  ComputeResponseSpectrum(WithoutBlanks(wave.acc), wave.periods, wave.accSpec, wave.timeStep);
  wave.spectrumValid = true;
  doc.SetModified(true);
}

}  // namespace tremlo
