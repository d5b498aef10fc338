#pragma once

#include <atomic>

namespace tremlo::cli {

/// While it lives, Ctrl+C and a request to end do not end the program but raise a flag, so that what is under
/// way can be brought to a sound stop. A second one ends it at once.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  const std::atomic<bool>& Flag() const;
  /// Ends the program as the signal would have, if one has come.
  void EndIfRaised() const;
};

}  // namespace tremlo::cli
