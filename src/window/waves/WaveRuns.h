#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/waves/AdjustRun.h"
#include "window/graphs/RunBehindDialog.h"

class QWidget;

namespace tremlo {

/// Computes the response spectra of all seed waves that lack one, behind CDlgNowCalcAccSpec, stores them and
/// marks the document as modified. False when the calculation failed, or its project is gone: nothing has
/// changed then. No dialog comes up when none is missing.
bool ComputeMissingSpectra(CMorvaneDoc& doc, QWidget* parent, std::chrono::milliseconds pause = kRunPause);

/// Adjusts the wave of the response route to its target, behind CDlgNowCalc, and stores a result that has
/// converged. The result is that of no convergence, and nothing has changed, when the project of the run is
/// gone.
AdjustResult RunRespAdjustment(CMorvaneDoc& doc, QWidget* parent,
                               std::chrono::milliseconds pause = kRunPause);

/// Adjusts behind CDlgNowCalc. Stores nothing: that is the caller's, who knows the record.
AdjustResult AdjustBehindDialog(const AdjustInput& input, QWidget* parent,
                                std::chrono::milliseconds pause = kRunPause);

}  // namespace tremlo
