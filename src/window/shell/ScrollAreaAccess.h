#pragma once

namespace tremlo {

/// Makes scroll areas answer assistive technology for themselves. Qt's own answer reads past the end of its
/// list, and ends the program, when it is asked for a scroll bar that has gone since the children were
/// counted. To be called before a window is made; calls behind the first have no effect.
void InstallScrollAreaAccess();

}  // namespace tremlo
