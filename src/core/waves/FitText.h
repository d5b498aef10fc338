#pragma once

#include "core/waves/AdjustRun.h"

#include <QString>

namespace tremlo {

/// A share in per cent with two decimals ("4.98 %"); "－" when it is no finite number.
QString PercentText(double fraction);

/// How an adjusted wave fits its target, in one line: the deviation, and the largest excess over and
/// shortfall below the target with their periods, each if there is one.
QString FitText(const FitFigures& fit);

/// What each figure of that line is, a line each.
QString FitDefinitions();

/// The line of a run; that of one that failed says so.
QString RunFitText(const AdjustResult& run);

/// What a run that failed came to, and where its settings are.
QString FailedRunText(const AdjustResult& run);

}  // namespace tremlo
