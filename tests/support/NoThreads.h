#pragma once

#include <cstddef>
#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <pthread.h>

namespace tremlo::test {

/// While it lives no thread can begin: each would take more memory than any machine has.
class NoThreads {
 public:
  NoThreads() {
    EXPECT_EQ(pthread_getattr_default_np(&m_before), 0);
    pthread_attr_t huge;
    EXPECT_EQ(pthread_getattr_default_np(&huge), 0);
    EXPECT_EQ(pthread_attr_setstacksize(&huge, std::size_t{1} << 46), 0);
    EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
    pthread_attr_destroy(&huge);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&m_before);
    pthread_attr_destroy(&m_before);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;

 private:
  pthread_attr_t m_before;
};

}  // namespace tremlo::test

#endif
