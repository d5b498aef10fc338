#pragma once

#include <QTemporaryDir>

namespace tremlo::test {

/// A home of one process's own, with its XDG folders: no test sees the user's folders, nor those of another
/// test that runs beside it. Make it before the application object.
class TestHome {
 public:
  TestHome();
  bool IsValid() const { return m_dir.isValid(); }

 private:
  QTemporaryDir m_dir;
};

}  // namespace tremlo::test
