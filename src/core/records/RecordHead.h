#pragma once

#include "core/records/Record.h"

#include <QByteArray>

namespace tremlo {

/// One of the first lines of a file.
struct HeadLine {
  QString text;
  bool data = false;  ///< samples come from it

  bool operator==(const HeadLine&) const = default;
};

/// The first 40 lines, and more where the data begin further down. A long line is cut, and what would not
/// show is replaced.
std::vector<HeadLine> HeadOf(const QByteArray& content, const std::vector<LineRange>& data);

}  // namespace tremlo
