#pragma once

#include "numeric/waves/AmplitudeAdjust.h"
#include "window/graphs/RunDialog.h"

namespace tremlo {

/// Stands before the adjustment of a wave.
class CDlgNowCalc : public RunDialog {
  Q_OBJECT

 public:
  static constexpr int kEndMessage = 0x8004;

  /// At most `iterations` passes until the deviation falls below `tolerance` (a fraction).
  CDlgNowCalc(int iterations, double tolerance, QWidget* parent);

  /// For the worker: what its last sweep measured.
  void SetFit(const FitFigures& fit);

 private:
  void SetPasses(int passes, double deviation);

  const int m_iterations;
  const double m_tolerance;
};

}  // namespace tremlo
