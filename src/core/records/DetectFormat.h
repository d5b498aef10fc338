#pragma once

#include "core/records/Record.h"
#include "core/records/RecordText.h"

namespace tremlo {

/// The format by its content, never by the name of the file: the sign of a named format first, then the
/// program's own first line, else free text. `sign` becomes what it was recognised by.
RecordFormat DetectFormat(const RecordText& text, QString& sign);

}  // namespace tremlo
