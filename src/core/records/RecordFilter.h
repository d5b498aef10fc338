#pragma once

#include "core/records/Record.h"
#include "core/records/RecordText.h"

namespace tremlo {

/// Under what kind of files the user has chosen a record, in the order in which the dialog lists them.
enum class RecordFilter { OwnWave, All, FreeText };

/// As what a chosen file is to be read. The sign of a named format decides under every filter; without one
/// the file is the program's own under the first, whatever is in it, what its first line shows under the
/// second, and numbers in columns under the third.
RecordFormat FormatToRead(const RecordText& text, RecordFilter filter);

}  // namespace tremlo
