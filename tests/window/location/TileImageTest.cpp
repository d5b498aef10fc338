#include "TileServer.h"
#include "support/TestFolder.h"
#include "window/location/TileImage.h"

#include <QtEndian>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;

QByteArray Bytes(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  EXPECT_TRUE(image.save(&buffer, format));
  return bytes;
}

QImage Plain(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(QColor(10, 200, 30));
  return image;
}

/// A sound head of a PNG that claims a size, with no pixels behind it.
QByteArray PngThatClaims(quint32 width, quint32 height) {
  QByteArray bytes = Bytes(Plain(1, 1), "PNG");
  qToBigEndian(width, bytes.data() + 16);
  qToBigEndian(height, bytes.data() + 20);
  quint32 crc = 0xFFFFFFFFU;
  for (int i = 12; i < 29; ++i) {
    crc ^= static_cast<quint8>(bytes[i]);
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1U) != 0 ? 0xEDB88320U ^ (crc >> 1U) : crc >> 1U;
  }
  qToBigEndian(crc ^ 0xFFFFFFFFU, bytes.data() + 29);
  return bytes;
}

TEST(TileImage, APngAndABmpAreRead) {
  const TestFolder folder;
  for (const char* format : {"PNG", "BMP"}) {
    const auto image = LoadTileImage(folder.Write("tile.png", Bytes(Plain(256, 256), format)));
    ASSERT_TRUE(image) << format;
    EXPECT_EQ(image->size(), QSize(256, 256));
    EXPECT_EQ(image->pixelColor(128, 128), QColor(10, 200, 30));
  }
}

TEST(TileImage, AtTheBoundAPictureIsReadAndBeyondItNot) {
  const TestFolder folder;
  EXPECT_TRUE(LoadTileImage(folder.Write("a.png", Bytes(Plain(1024, 4), "PNG"))));
  EXPECT_FALSE(LoadTileImage(folder.Write("b.png", Bytes(Plain(1025, 4), "PNG"))));
  EXPECT_FALSE(LoadTileImage(folder.Write("c.png", Bytes(Plain(4, 1025), "PNG"))));
  EXPECT_TRUE(LoadPicture(folder.Path("c.png"), 4096));
}

TEST(TileImage, APictureBombIsNoPicture) {
  const TestFolder folder;
  EXPECT_FALSE(LoadTileImage(folder.Write("bomb.png", PngThatClaims(60000, 60000))));
  EXPECT_FALSE(LoadTileImage(folder.Write("bomb.png", PngThatClaims(0x7FFFFFFF, 0x7FFFFFFF))));
  // Its head alone is sound, so the size is what refuses it above.
  EXPECT_FALSE(LoadTileImage(folder.Write("small.png", PngThatClaims(256, 256).left(60))));
  QByteArray bmp = Bytes(Plain(2, 2), "BMP");
  qToLittleEndian<qint32>(60000, bmp.data() + 18);
  qToLittleEndian<qint32>(60000, bmp.data() + 22);
  EXPECT_FALSE(LoadTileImage(folder.Write("bomb.bmp", bmp)));
}

TEST(TileImage, WhatIsNoPictureIsNone) {
  const TestFolder folder;
  EXPECT_FALSE(LoadTileImage(folder.Write("page.png", "<html><body>404</body></html>")));
  EXPECT_FALSE(LoadTileImage(folder.Write("empty.png", "")));
  EXPECT_FALSE(LoadTileImage(folder.Path()));
  EXPECT_FALSE(LoadTileImage(folder.Path("missing.png")));
  // Other formats are not tried on what a service has sent.
  EXPECT_FALSE(LoadTileImage(
      folder.Write("drawing.png", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>")));
  EXPECT_FALSE(LoadTileImage(folder.Write("photo.png", Bytes(Plain(9, 9), "JPG"))));
}

}  // namespace
}  // namespace tremlo
