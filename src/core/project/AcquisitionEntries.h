#pragma once

#include "core/graphs/NumericText.h"

namespace tremlo {

/// The two numbers that a user types for an acquisition of faults. Each field has its own check; beyond that
/// only a text is refused whose whole number is the smallest that 32 bits hold, or lies below it. An emptied
/// field leaves the stored number as it is.

EntryRule SearchRangeRule();                      ///< a whole number of km, of any sign
QString SearchRangeRefusal(const QString& text);  ///< why it is refused; empty if it is not
EntryRule CatastropheWeightRule();                ///< -1 to 1, seven decimals
QString CatastropheWeightRefusal(const QString& text);

/// The number of an entry that was not refused.
double EnteredNumber(const QString& text, double stored);

}  // namespace tremlo
