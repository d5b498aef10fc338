#include "window/waves/WaveRuns.h"

#include "core/project/ResponseRoute.h"
#include "core/waves/SpectrumBatch.h"
#include "window/waves/DlgNowCalc.h"
#include "window/waves/DlgNowCalcAccSpec.h"

namespace tremlo {

bool ComputeMissingSpectra(CMorvaneDoc& doc, QWidget* parent, std::chrono::milliseconds pause) {
  SpectrumBatch batch(doc.seedWaves);
  if (batch.Count() == 0) return true;
  const std::uint64_t generation = doc.Generation();
  CDlgNowCalcAccSpec dialog(parent);
  const auto compute = [&] {
    batch.Compute([&](int wave, int count, const QString& name) { dialog.SetWave(wave, count, name); });
    dialog.SetAllDone();
    return true;
  };
  if (!RunBehindDialog(dialog, compute, pause) || doc.Generation() != generation) return false;
  batch.Store(doc.seedWaves);
  doc.SetModified(true);
  return true;
}

AdjustResult RunRespAdjustment(CMorvaneDoc& doc, QWidget* parent, std::chrono::milliseconds pause) {
  const std::uint64_t generation = doc.Generation();
  AdjustResult result = AdjustBehindDialog(RespAdjustInput(doc), parent, pause);
  if (doc.Generation() != generation) return {};
  StoreRespAdjustment(doc, result);
  return result;
}

AdjustResult AdjustBehindDialog(const AdjustInput& input, QWidget* parent, std::chrono::milliseconds pause) {
  AdjustResult result;
  CDlgNowCalc dialog(input.iterations, input.tolerance, parent);
  const auto adjust = [&] {
    result = RunAdjustment(input, [&](const FitFigures& fit) { dialog.SetFit(fit); });
    return result.converged;
  };
  RunBehindDialog(dialog, adjust, pause);
  return result;
}

}  // namespace tremlo
