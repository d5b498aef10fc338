#pragma once

#include "core/records/Record.h"

#include <string>
#include <string_view>
#include <vector>

namespace tremlo {

/// The titles of columns in a line above them: its cells between commas, semicolons or tabs, else its words;
/// a mark of comment before them does not count. Empty when they are not `columns` many.
std::vector<std::string> ColumnTitles(std::string_view line, std::size_t columns);

/// "NS(gal)" is NS.
QString NameOfTitle(std::string_view title);

/// Whether a title names a velocity or a displacement, in words or by its unit.
bool IsOtherQuantity(std::string_view title);

}  // namespace tremlo
