#include "core/project/ResponseRoute.h"

#include <cmath>

namespace tremlo {

namespace {

void ClearRespAdjustment(CMorvaneDoc& doc) {
  if (!doc.seedWaves.IsEmpty()) {
    CSeismicWave& wave = doc.seedWaves.At(0);
    wave.adjusted = false;
    wave.adjustedAcc.clear();
    wave.adjustedPeriods.clear();
    wave.adjustedSpec.clear();
  }
  doc.SetModified(true);
}

}  // namespace

void EnsureRespWave(CMorvaneDoc& doc) {
  if (!doc.seedWaves.IsEmpty()) return;
  doc.seedWaves.Add(QStringLiteral("地震波形"));
  doc.seedWaves.At(0).timeStep = 0.01;
  doc.seedWaves.At(0).acc = {0.0};
  doc.SetModified(true);
}

void EnsureRespSpectrum(CMorvaneDoc& doc) {
  if (!doc.respSpectra.IsEmpty()) return;
  doc.respSpectra.AddSpectrum(QStringLiteral("基準スペクトル"), {0.0}, {0.0});
  doc.SetModified(true);
}

bool HasRespWaveData(const CMorvaneDoc& doc) {
  if (doc.seedWaves.IsEmpty()) return false;
  const CSeismicWave& wave = doc.seedWaves.At(0);
  return !wave.acc.empty() && std::isfinite(wave.timeStep) && wave.timeStep > 0.0;
}

bool HasRespTarget(const CMorvaneDoc& doc) {
  if (doc.respSpectra.IsEmpty()) return false;
  const CSeismicWave& target = doc.respSpectra.At(0);
  return !target.name.isEmpty() && !target.periods.empty() && !target.accSpec.empty();
}

AdjustInput RespAdjustInput(const CMorvaneDoc& doc) {
  AdjustInput input;
  if (!doc.seedWaves.IsEmpty()) input.SetWave(doc.seedWaves.At(0));
  if (!doc.respSpectra.IsEmpty()) {
    input.periods = doc.respSpectra.At(0).periods;
    input.target = doc.respSpectra.At(0).accSpec;
    PutLongestFirst(input.periods, input.target);
  }
  input.iterations = doc.adjustMaxIterations;
  input.tolerance = doc.adjustTolerancePercent;
  return input;
}

void StoreRespAdjustment(CMorvaneDoc& doc, const AdjustResult& result) {
  if (!result.converged || doc.seedWaves.IsEmpty()) return;
  StoreAdjustment(doc.seedWaves.At(0), result);
  doc.SetModified(true);
}

void ChangeRespWave(CMorvaneDoc& doc, const std::function<void()>& apply) {
  if (!doc.seedWaves.IsEmpty()) doc.seedWaves.At(0).note.reset();
  apply();
  if (!doc.seedWaves.IsEmpty()) doc.seedWaves.At(0).spectrumValid = false;
  ClearRespAdjustment(doc);
}

void ChangeRespSpectrum(CMorvaneDoc& doc, const std::function<void()>& apply) {
  apply();
  ClearRespAdjustment(doc);
}

}  // namespace tremlo
