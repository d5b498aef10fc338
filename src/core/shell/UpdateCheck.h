#pragma once

namespace tremlo {

/// Starts the separate program "UpdateChecker.exe" of the working directory, when it is there, and does not
/// wait for it. 0 when it was started, 1 when not; tells nothing in either case.
int StartUpdateCheck(bool fromUser);

}  // namespace tremlo
