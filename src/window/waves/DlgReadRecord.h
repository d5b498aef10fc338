#pragma once

#include "core/records/RecordList.h"
#include "window/graphs/RunDialog.h"

#include <atomic>

namespace tremlo {

/// Stands before the reading of records that takes its time. Unlike other runs this one can be given up: by
/// its button, Escape or the close box.
class CDlgReadRecord : public RunDialog {
  Q_OBJECT

 public:
  static constexpr int kEndMessage = 0x8006;

  explicit CDlgReadRecord(QWidget* parent);

  /// For the worker: how far it has come; false once it is to stop.
  bool GoesOn(int done, double share);
  bool IsCancelled() const { return m_cancelled; }

  /// Asks the worker to stop; its end closes the dialog.
  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  std::atomic<bool> m_cancelled{false};
};

/// Carries out `work`, which touches nothing that the window may read meanwhile, on a worker thread. The
/// dialog comes up only once that takes longer than a user takes for at once. False when it was given up;
/// what `work` throws, this throws.
bool ReadBehindDialog(QWidget* parent, const std::function<void(const GoOn& goOn)>& work);

}  // namespace tremlo
