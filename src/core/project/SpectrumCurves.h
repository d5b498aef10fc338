#pragma once

#include "core/graphs/GraphSeries.h"
#include "core/project/MorvaneDoc.h"

#include <optional>

namespace tremlo {

/// The curves of the graphs of response spectra, with the names that their legends show: periods in s against
/// values in gal, in the order in which they are drawn. A spectrum without a point is no curve.

/// Of each plane that is drawn the shortest distance solid and the equivalent distance dotted, in the plane's
/// colour.
std::vector<GraphSeries> AttenuationCurves(const CMorvaneDoc& doc);

/// The candidates of the base spectrum that are drawn.
std::vector<GraphSeries> CandidateCurves(const CMorvaneDoc& doc);

/// The waves near the site that are drawn.
std::vector<GraphSeries> NeighbourCurves(const CMorvaneDoc& doc);

/// The selected lower limit, in the colour of its graph settings.
std::vector<GraphSeries> LowerLimitCurve(const CMorvaneDoc& doc);

/// The waves that are drawn where they are adjusted, each with the spectrum that its row measures, then the
/// base spectrum, if it is drawn, in its colour among the candidates.
std::vector<GraphSeries> AdjustCurves(const CMorvaneDoc& doc);

inline constexpr std::int32_t kTargetColor = 0x008000;  ///< of a target's curve, 0x00BBGGRR

/// The spectrum that a wave is fitted to now: the base spectrum, or on the response route the first target in
/// the order in which it is stored. Dashed, in a colour of its own. None: there is no target.
std::optional<GraphSeries> TargetCurve(const CMorvaneDoc& doc);

}  // namespace tremlo
