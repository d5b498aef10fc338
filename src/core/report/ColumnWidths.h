#pragma once

#include <span>
#include <vector>

namespace tremlo {

/// What the texts of a table's column need.
struct ColumnNeed {
  double least = 0.0;    ///< so that no word is parted
  double natural = 0.0;  ///< so that every text has one line; not below `least`
};

/// The widths of columns that fill `room`. Where there is room for the natural widths all columns share alike
/// in the rest; else each has its least width, but not more than an even share, and what is left goes to
/// those that need more.
std::vector<double> ColumnWidths(std::span<const ColumnNeed> needs, double room);

}  // namespace tremlo
