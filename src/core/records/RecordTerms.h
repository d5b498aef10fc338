#pragma once

#include "core/records/Record.h"

namespace tremlo {

/// What a work that uses a record of the format has to name as its source; empty where nothing is known of
/// one.
QString CreditOf(RecordFormat format);

/// The terms of use of those who hand records out, with the names to be given, in lines for the user.
QString RecordTerms();

}  // namespace tremlo
