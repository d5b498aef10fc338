#include "window/sources/FaultRun.h"

#include "core/project/DocumentAcquisition.h"
#include "window/graphs/ExceptionText.h"
#include "window/graphs/RunBehindDialog.h"
#include "window/graphs/WorkerPrompt.h"
#include "window/sources/DlgNowGetFault.h"

namespace tremlo {

namespace {

/// An acquisition takes long enough to be seen.
constexpr std::chrono::milliseconds kNoPause{0};

}  // namespace

bool AcquireBehindDialog(CMorvaneDoc& doc, const ServiceSettings& services, Prompt& prompt, QWidget* parent) {
  const std::uint64_t generation = doc.Generation();
  const FaultAcquisitionInput input = AcquisitionInput(doc);
  FaultAcquisitionResult result;
  std::vector<FaultInfo> faults;
  QString failure;
  CDlgNowGetFault dialog(parent);
  const auto acquire = [&](const std::stop_token& stop) {
    WorkerPrompt boxes(prompt, dialog, stop);
    const auto progress = [&](int fault, int count, const QString& name) {
      dialog.SetFault(fault, count, name);
    };
    try {
      result = AcquireFaults(input, services, boxes, faults, progress, stop);
    } catch (...) {
      failure = CurrentExceptionText();
      return false;
    }
    dialog.SetAllDone();
    return result.changed;
  };
  const bool acquired = RunBehindDialog(dialog, acquire, kNoPause);
  if (!failure.isEmpty()) prompt.Tell(failure);
  if (!acquired || doc.Generation() != generation) return false;
  StoreAcquisition(doc, input, result, std::move(faults));
  return true;
}

}  // namespace tremlo
