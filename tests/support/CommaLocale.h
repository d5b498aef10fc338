#pragma once

namespace tremlo::test {

/// While it lives the C and C++ locales write one and a half as "1,5". Fails the test where it cannot.
class CommaLocale {
 public:
  CommaLocale();
  ~CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
};

}  // namespace tremlo::test
