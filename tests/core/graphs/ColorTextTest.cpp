#include "core/graphs/ColorText.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(ColorText, RedIsTheLowByteOfTheNumberAndTheFirstOfTheText) {
  EXPECT_EQ(ColorToText(0xFF3232).toStdString(), "#3232FF");
  EXPECT_EQ(ColorToText(0x0000FF).toStdString(), "#FF0000");
  EXPECT_EQ(ColorToText(0).toStdString(), "#000000");
}

TEST(ColorText, TextReadsBack) {
  for (const std::int32_t color : {0, 0xFF3232, 0x0000FF, 0xC8D0D4, 0xFFFFFF})
    EXPECT_EQ(TextToColor(ColorToText(color)), color);
  EXPECT_EQ(TextToColor(QStringLiteral("#3232ff")), 0xFF3232);
}

TEST(ColorText, OtherTextsAreNoColours) {
  for (const char* text : {"", "#", "3232FF", "#3232F", "#3232FF0", "#32-2FF", "red"})
    EXPECT_FALSE(TextToColor(QString::fromLatin1(text))) << text;
}

TEST(ColorText, AScreenReaderHearsTheThreeParts) {
  EXPECT_EQ(SpokenColor(0xFF3210), QStringLiteral("色 赤16 緑50 青255"));
}

}  // namespace
}  // namespace tremlo
