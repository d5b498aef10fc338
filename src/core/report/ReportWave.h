#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/waves/AdjustRun.h"

namespace tremlo {

/// The seed wave on display under "可視化": the adopted one, or the one of the response route. Null when
/// there is none.
const CSeismicWave* ReportWave(const CMorvaneDoc& doc);

/// Whether there is a design wave to report on: the wave is there and adjusted.
bool OffersReport(const CMorvaneDoc& doc);

/// What a run takes that would adjust the wave now.
AdjustInput ReportInput(const CMorvaneDoc& doc, const CSeismicWave& wave);

/// What the spectrum is called that the wave is fitted to now; empty when there is none.
QString TargetName(const CMorvaneDoc& doc);

}  // namespace tremlo
