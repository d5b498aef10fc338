#pragma once

#include <QString>

namespace tremlo {

/// The number as "%.<decimals>lf" writes it in the C locale; "inf" and "nan" for a number that is not finite.
/// A negative count of places is taken as 0, one above 100 as 100.
QString FixedText(double value, int decimals);

}  // namespace tremlo
