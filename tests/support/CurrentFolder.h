#pragma once

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo::test {

/// Makes a folder the current one as long as it lives.
class CurrentFolder {
 public:
  explicit CurrentFolder(const QString& path) : m_before(QDir::currentPath()) {
    EXPECT_TRUE(QDir::setCurrent(path));
  }
  ~CurrentFolder() { QDir::setCurrent(m_before); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  QString m_before;
};

}  // namespace tremlo::test
