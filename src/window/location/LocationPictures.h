#pragma once

#include <QString>

namespace tremlo {

class CExpButton;

/// Makes the pictures of this folder known under ":/location/"; the linker leaves them out of a program that
/// does not ask. May be called again.
void LoadLocationPictures();

/// A picture button that is told by its tool tip. `picture` names its two states: "zone" for "zone_up.svg"
/// and "zone_down.svg".
CExpButton* MakePictureButton(const char* objectName, const QString& picture, const QString& toolTip);

}  // namespace tremlo
