#include "window/graphs/BgrColor.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(BgrColor, HoldsRedInTheLowestByte) {
  EXPECT_EQ(ColorFromBgr(0xFF3232), QColor(0x32, 0x32, 0xFF));
  EXPECT_EQ(BgrFromColor(QColor(0x32, 0x32, 0xFF)), 0xFF3232);
  EXPECT_EQ(ColorFromBgr(-1), QColor(0xFF, 0xFF, 0xFF));
}

}  // namespace
}  // namespace tremlo
