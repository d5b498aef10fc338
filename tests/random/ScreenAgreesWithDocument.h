#pragma once

#include "window/shell/MainFrame.h"

#include <string>
#include <vector>

namespace tremlo::test {

/// Whether the screen on display says what it would say had it just read the document: it is made to read it
/// again, which must change neither a word nor a byte. Returns what differs; empty when all is well. No
/// dialog may be up.
std::vector<std::string> ScreenDisagreements(CMainFrame& frame, const CMorvaneDoc& doc,
                                             WorkProcedure& procedure);

/// The same for the pane, the menu and the caption: route, enabled steps, name of the project.
std::vector<std::string> FrameDisagreements(CMainFrame& frame, const CMorvaneDoc& doc,
                                            const WorkProcedure& procedure);

}  // namespace tremlo::test
