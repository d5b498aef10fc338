#pragma once

namespace tremlo {

/// Makes the pictures of the program known under ":/shell/"; the linker leaves them out of a program that
/// does not ask. May be called again.
void LoadPictures();

}  // namespace tremlo
