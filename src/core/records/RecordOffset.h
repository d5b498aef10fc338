#pragma once

#include "core/records/Record.h"

namespace tremlo {

/// What is taken off a component as its offset.
struct OffsetRule {
  enum Kind { None, Whole, First };
  Kind kind = None;
  double seconds = 0.0;  ///< of First: the length from the start over which the mean is taken

  bool operator==(const OffsetRule&) const = default;
};

/// The mean of the whole record; nothing where the file says that it has been corrected.
OffsetRule UsualOffset(const RecordReading& reading);

/// The offset (gal) by the rule: a mean over at least one sample, 0 for none.
double OffsetOf(const std::vector<double>& acc, double timeStep, const OffsetRule& rule);

/// What is to be said when the offset leaves a mean of more than 0.5 % of the PGA in the record: the response
/// at long periods then is that of the mean. Empty when there is nothing to say.
QString DoubtOfOffset(const std::vector<double>& acc, double offset);

}  // namespace tremlo
