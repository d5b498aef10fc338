#pragma once

#include "core/files/FixedNumber.h"

#include <QString>

namespace tremlo {

/// FixedNumber as the text of a window or a message.
inline QString FixedText(double value, int decimals) {
  return QString::fromStdString(FixedNumber(value, decimals));
}

}  // namespace tremlo
