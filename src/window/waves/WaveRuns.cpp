#include "window/waves/WaveRuns.h"

#include "core/waves/SpectrumBatch.h"
#include "window/waves/DlgNowCalc.h"
#include "window/waves/DlgNowCalcAccSpec.h"

namespace tremlo {

bool ComputeMissingSpectra(CSeismicWaveSet& waves, QWidget* parent, std::chrono::milliseconds pause) {
  SpectrumBatch batch(waves);
  if (batch.Count() == 0) return true;
  CDlgNowCalcAccSpec dialog(parent);
  const auto compute = [&] {
    batch.Compute([&](int wave, int count, const QString& name) { dialog.SetWave(wave, count, name); });
    dialog.SetAllDone();
    return true;
  };
  if (!RunBehindDialog(dialog, compute, pause)) return false;
  batch.Store(waves);
  return true;
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
