#pragma once

namespace tremlo {

/// Takes what stands in the entry field or cell editor that has the focus. To be called before a command that
/// comes without taking the focus away: a menu entry, a close request, OK by a program for disabled users.
/// False if the entry was refused: the command must not go on.
bool FinishPendingEntry();

}  // namespace tremlo
