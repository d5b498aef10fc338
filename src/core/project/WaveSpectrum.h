#pragma once

#include "core/project/MorvaneDoc.h"

namespace tremlo {

/// Computes the response spectrum of a seed wave when that is missing, stores it with the wave and marks the
/// document as modified. Blank samples count as 0. A wave without samples, or without a time step above 0,
/// gets an empty spectrum. Runs on the calling thread: up to a second for 65,536 samples.
void EnsureWaveSpectrum(CMorvaneDoc& doc, CSeismicWave& wave);

}  // namespace tremlo
