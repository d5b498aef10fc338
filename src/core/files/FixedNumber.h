#pragma once

#include <string>

namespace tremlo {

/// The number as "%.<decimals>lf" writes it, always with a point; "inf", "-inf" and "nan" for a number that
/// is not finite. A negative count of decimals is taken as 0, one above 100 as 100.
std::string FixedNumber(double value, int decimals);

}  // namespace tremlo
