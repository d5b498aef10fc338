#pragma once

#include <memory>

namespace tremlo {

/// Marks the one running instance of a login. A mark left behind by a program that died is taken over.
class InstanceLock {
 public:
  /// False when another instance runs.
  bool Take();
  void Release() { m_mark.reset(); }

 private:
  std::shared_ptr<void> m_mark;  ///< what the system keeps the mark by; gone with it
};

}  // namespace tremlo
