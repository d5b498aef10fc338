#include "support/CommaLocale.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace tremlo::test {

CommaLocale::CommaLocale() {
#ifdef _WIN32
  const char* const name = "German";
#else
  const char* const name = "de_DE.UTF-8";
  setenv("LOCPATH", TREMLO_LOCALES, 1);
#endif
  EXPECT_NE(std::setlocale(LC_ALL, name), nullptr);
  char text[8] = {};
  std::snprintf(text, sizeof(text), "%.1f", 1.5);
  EXPECT_STREQ(text, "1,5");
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_ALL, "C");
}

}  // namespace tremlo::test
