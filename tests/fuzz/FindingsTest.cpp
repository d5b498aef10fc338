#include "core/files/TextScan.h"

#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

void ExpectNumber(std::string_view text, double expected) {
  double value = -1.0;
  EXPECT_TRUE(LineScanner(text).Number(value)) << text;
  EXPECT_EQ(value, expected) << text;
}

TEST(Finding, AnExponentAtTheEndOfItsTypeStillTellsTooLargeFromTooSmall) {
  ExpectNumber("1e9223372036854775807", kInf);
  ExpectNumber("-1e9223372036854775807", -kInf);
  ExpectNumber("10e-9223372036854775807", 0.0);
  ExpectNumber("0x1p9223372036854775807", kInf);
  ExpectNumber("0x.01p-9223372036854775807", 0.0);
}

TEST(Finding, AnExponentBeyondItsTypeDoesSoToo) {
  ExpectNumber("1e99999999999999999999", kInf);
  ExpectNumber("0.001e-99999999999999999999", 0.0);
}

TEST(Finding, ABinaryExponentHasOneSign) {
  ExpectNumber("0x1p+1", 2.0);
  ExpectNumber("0x1p-1", 0.5);
  ExpectNumber("0x1p+-1", 1.0);
  ExpectNumber("0x1p-+1", 1.0);
  LineScanner scan("0x1p+-1");
  double value = 0.0;
  EXPECT_TRUE(scan.Number(value));
  EXPECT_EQ(scan.Rest(), "p+-1");
}

}  // namespace
}  // namespace tremlo
