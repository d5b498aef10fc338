#pragma once

#include "window/graphs/RunDialog.h"

namespace tremlo {

/// Stands before the computation of the response spectra that are missing.
class CDlgNowCalcAccSpec : public RunDialog {
  Q_OBJECT

 public:
  static constexpr int kEndMessage = 0x8006;

  explicit CDlgNowCalcAccSpec(QWidget* parent);

  /// For the worker: wave k of n, k from 1, is about to be computed.
  void SetWave(int wave, int count, const QString& name);
};

}  // namespace tremlo
