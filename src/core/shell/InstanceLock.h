#pragma once

#include <QLockFile>

#include <memory>

namespace tremlo {

/// Marks the one running instance of a login. A mark left behind by a program that died is taken over.
class InstanceLock {
 public:
  /// False when another instance runs.
  bool Take();
  void Release() { m_lock.reset(); }

 private:
  std::unique_ptr<QLockFile> m_lock;
};

}  // namespace tremlo
