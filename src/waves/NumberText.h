#pragma once

#include <QString>

namespace tremlo {

/// The number as "%.<decimals>lf" writes it, always with a point; "inf" and "nan" for a number that is not
/// finite.
QString FixedText(double value, int decimals);

}  // namespace tremlo
