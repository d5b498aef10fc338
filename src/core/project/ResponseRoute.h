#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/waves/AdjustRun.h"

#include <functional>

namespace tremlo {

/// Rules of the response route, which works with one seed wave and one target spectrum: the first record of
/// `seedWaves` and of `respSpectra`. No question is asked on this route.

/// Adds the wave "地震波形" (one sample of 0 at 0.01 s) when there is none.
void EnsureRespWave(CMorvaneDoc& doc);

/// Adds the target "基準スペクトル" (period 0, value 0) when there is none.
void EnsureRespSpectrum(CMorvaneDoc& doc);

bool HasRespWaveData(const CMorvaneDoc& doc);  ///< the wave has samples and a time step to go with them
bool HasRespTarget(const CMorvaneDoc& doc);    ///< the target has a name, periods and values

/// What a run of the adjustment takes: copies of wave and target, the target longest period first, and the
/// document's settings. The record of the target stays as it is.
AdjustInput RespAdjustInput(const CMorvaneDoc& doc);

/// Stores a run that converged and marks the document as modified; one that did not changes nothing.
void StoreRespAdjustment(CMorvaneDoc& doc, const AdjustResult& result);

/// For every change of the wave's time step or samples, a file that is read included: applies it, drops the
/// result of the adjustment and the response spectrum, and marks the document as modified.
void ChangeRespWave(CMorvaneDoc& doc, const std::function<void()>& apply);

/// The same for every change of the target's periods or values; the wave's spectrum stays valid.
void ChangeRespSpectrum(CMorvaneDoc& doc, const std::function<void()>& apply);

}  // namespace tremlo
