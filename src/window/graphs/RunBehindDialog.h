#pragma once

#include "window/graphs/RunDialog.h"

#include <chrono>
#include <functional>
#include <stop_token>

namespace tremlo {

/// How long a finished calculation keeps its dialog, so that a short one can be read.
inline constexpr std::chrono::milliseconds kRunPause{1000};

/// Runs `work` on a worker thread while `dialog` is up. The worker starts before the dialog is shown, works,
/// pauses, and posts the dialog's end message with 1; the dialog closes, the worker is joined, and its result
/// is returned: what `work` returned, or false when it threw or no thread could be had. `work` must not touch
/// what the window may read or paint meanwhile: it takes copies along and leaves results for the caller.
bool RunBehindDialog(RunDialog& dialog, const std::function<bool()>& work,
                     std::chrono::milliseconds pause = kRunPause);

/// The same for work that may take long to no purpose: when the program ends its event loops meanwhile, the
/// work is asked to stop, and false is returned once it has.
bool RunBehindDialog(RunDialog& dialog, const std::function<bool(const std::stop_token& stop)>& work,
                     std::chrono::milliseconds pause = kRunPause);

}  // namespace tremlo
