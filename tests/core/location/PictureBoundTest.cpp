#include "core/location/PictureBound.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(PictureBound, TilesOfTheServiceAndTwiceTheirSizeMayBeDecoded) {
  EXPECT_TRUE(MayDecode(256, 256, kLargestTileSide));
  EXPECT_TRUE(MayDecode(512, 512, kLargestTileSide));
  EXPECT_TRUE(MayDecode(1, kLargestTileSide, kLargestTileSide));
}

TEST(PictureBound, BeyondTheBoundOnEitherSideAPictureIsNone) {
  EXPECT_FALSE(MayDecode(kLargestTileSide + 1, 1, kLargestTileSide));
  EXPECT_FALSE(MayDecode(1, kLargestTileSide + 1, kLargestTileSide));
  EXPECT_FALSE(MayDecode(2147483647, 2147483647, kLargestTileSide));
}

TEST(PictureBound, APictureWithoutASizeIsNone) {
  EXPECT_FALSE(MayDecode(-1, -1, kLargestTileSide));
  EXPECT_FALSE(MayDecode(0, 256, kLargestTileSide));
  EXPECT_FALSE(MayDecode(256, 0, kLargestTileSide));
}

}  // namespace
}  // namespace tremlo
