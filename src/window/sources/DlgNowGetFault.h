#pragma once

#include "window/graphs/RunDialog.h"

namespace tremlo {

/// Stands before an acquisition of faults.
class CDlgNowGetFault : public RunDialog {
  Q_OBJECT

 public:
  static constexpr int kEndMessage = 0x8005;

  explicit CDlgNowGetFault(QWidget* parent);

  /// For the worker: fault k of n, k from 1, is about to be asked for.
  void SetFault(int fault, int count, const QString& name);
};

}  // namespace tremlo
