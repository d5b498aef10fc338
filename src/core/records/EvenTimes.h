#pragma once

#include <cstddef>
#include <vector>

namespace tremlo {

/// What a column of numbers is when it is taken for times (s).
struct EvenTimes {
  enum Kind {
    None,     ///< no times
    Even,     ///< rise evenly, `timeStep` apart
    Rounded,  ///< rise evenly, but are printed with too few decimals to differ; `timeStep` is their mean
    Uneven,   ///< times with a gap or a jump at `badRow`; `timeStep` is the usual one
  };
  Kind kind = None;
  double timeStep = 0.0;
  double doubt = 0.0;  ///< by how much the true step may differ from `timeStep`; 0 when it is exact
  std::size_t badRow = 0;
};

/// `unit` is what one step of the last printed decimal is worth. A step differs when it is off by more than
/// 1 % beyond that rounding.
EvenTimes FindEvenTimes(const std::vector<double>& times, double unit);

}  // namespace tremlo
