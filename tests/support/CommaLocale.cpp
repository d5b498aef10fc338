#include "support/CommaLocale.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace tremlo::test {

CommaLocale::CommaLocale() {
  setenv("LOCPATH", TREMLO_LOCALES, 1);
  EXPECT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  char text[8] = {};
  std::snprintf(text, sizeof(text), "%.1f", 1.5);
  EXPECT_STREQ(text, "1,5");
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_ALL, "C");
}

}  // namespace tremlo::test
