#pragma once

#include "core/project/MorvaneDoc.h"

namespace tremlo {

/// What the screens of the faults say of the last acquisition since the project was made or opened: the
/// service, the map versions that were asked, what could not be read. One line; empty when there was none, or
/// when it asked nothing.
QString LastAcquisitionLine(const CMorvaneDoc& doc);
/// The same with many more of the sources that could not be read, for a tool tip.
QString LongLastAcquisitionLine(const CMorvaneDoc& doc);

}  // namespace tremlo
