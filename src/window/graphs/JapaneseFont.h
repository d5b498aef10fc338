#pragma once

#include <QFont>

namespace tremlo {

/// The font of screens and graphs, "MS Gothic" 9 pt, and what stands in for its two names on a machine
/// without it. Call InstallJapaneseFonts once, behind the making of the application object.
void InstallJapaneseFonts();
QFont ScreenFont();

}  // namespace tremlo
