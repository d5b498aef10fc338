#pragma once

#include "core/graphs/NumericText.h"
#include "core/project/BaseItemFields.h"

namespace tremlo {

/// What helps to choose among the candidates of the base spectrum and decides nothing.

/// The field of the dam's period: 0.02 to 5 s, or empty.
EntryRule DamPeriodRule();

/// The candidate's response at a period in s, with its unit; "-" without a period and outside the candidate's
/// own.
QString ResponseAtText(const CMorvaneDoc& doc, const BaseItem& item, std::optional<double> period);

/// The periods at which the candidate lies below the selected lower limit: at most three stretches and the
/// number of the others; "なし" for none, "-" when the two have no period to compare.
QString BelowLimitText(const CMorvaneDoc& doc, const BaseItem& item);

/// Both in two lines, for the candidate that is active in the list. A label of more than 40 characters is cut
/// in its middle, so that no line has more than some 60 full-width characters.
QString CandidateText(const CMorvaneDoc& doc, const BaseItem& item, std::optional<double> damPeriod);

}  // namespace tremlo
