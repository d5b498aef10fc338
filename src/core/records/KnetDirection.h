#pragma once

#include <QString>

namespace tremlo {

/// Whether the direction is one of the six numbers of KiK-net: 1 to 3 in the borehole, 4 to 6 at the surface.
bool IsKikNetDirection(const QString& direction);

/// The component of a direction as K-NET and KiK-net write it: "N-S" is NS, "1" is NS1, "6" is UD2.
QString ComponentOfDirection(const QString& direction);

}  // namespace tremlo
