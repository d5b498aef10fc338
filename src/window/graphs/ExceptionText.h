#pragma once

#include <QString>

namespace tremlo {

/// What the user is told of the exception that is being handled. To be called within a catch block.
QString CurrentExceptionText();

}  // namespace tremlo
