#pragma once

#include "pictures/Photographer.h"

namespace tremlo::pictures {

/// What stands for a moment only, or before the window does: splash, top screen, the dialogs of the runs.
void TakeLoneDialogs(Photographer& camera);

}  // namespace tremlo::pictures
