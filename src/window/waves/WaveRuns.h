#pragma once

#include "core/waves/AdjustRun.h"
#include "window/graphs/RunBehindDialog.h"

class QWidget;

namespace tremlo {

/// Computes the response spectra of all waves that lack one, behind CDlgNowCalcAccSpec, and stores them.
/// False when the calculation failed: no record has changed then. No dialog comes up when none is missing.
bool ComputeMissingSpectra(CSeismicWaveSet& waves, QWidget* parent,
                           std::chrono::milliseconds pause = kRunPause);

/// Adjusts behind CDlgNowCalc. Stores nothing: that is the caller's, who knows the record.
AdjustResult AdjustBehindDialog(const AdjustInput& input, QWidget* parent,
                                std::chrono::milliseconds pause = kRunPause);

}  // namespace tremlo
