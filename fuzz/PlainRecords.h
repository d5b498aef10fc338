#pragma once

#include "core/records/Record.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace tremlo::fuzz {

/// A component as the second, plain reading sees it.
struct PlainComponent {
  std::vector<double> values;  ///< as in the file
  double numerator = 1.0;      ///< gal are values times this ...
  double denominator = 1.0;    ///< ... divided by that
};

/// Reads a record once more, with none of the code of the readers and with the obvious steps alone: lines,
/// regular expressions, Qt's own numbers. Nothing where the file is not laid out as its format plainly says;
/// then there is nothing to compare.
std::optional<std::vector<PlainComponent>> ReadPlainly(const QByteArray& content, RecordFormat format);

}  // namespace tremlo::fuzz
