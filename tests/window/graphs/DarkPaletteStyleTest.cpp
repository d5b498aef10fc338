#include "window/graphs/DarkPaletteStyle.h"

#include <QCheckBox>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

/// Contrast of two colours after the Web Content Accessibility Guidelines: 1 for the same, 21 at the most.
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}
double Contrast(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

class DarkPaletteStyleTest : public testing::TestWithParam<QRgb> {
 protected:
  const QPalette palette{QColor(GetParam())};
  DarkPaletteStyle style;
};

void Dress(QWidget& widget, QStyle& style, const QPalette& palette) {
  widget.setStyle(&style);
  widget.setPalette(palette);
  widget.resize(widget.sizeHint());
}

QImage PictureOf(QWidget& widget) {
  return widget.grab().toImage();
}

/// Where a button shows its face: between edge and text.
QColor FaceOf(QPushButton& button) {
  const QImage picture = PictureOf(button);
  return picture.pixelColor(picture.width() / 2, picture.height() - 4);
}

TEST_P(DarkPaletteStyleTest, ButtonThatIsDownIsToldFromOneThatIsNot) {
  QPushButton up;
  QPushButton down;
  for (QPushButton* button : {&up, &down}) Dress(*button, style, palette);
  down.setCheckable(true);
  down.setChecked(true);
  EXPECT_GT(Contrast(FaceOf(up), FaceOf(down)), 2.0);
}

TEST_P(DarkPaletteStyleTest, TextOfAButtonThatIsDownIsReadable) {
  QPushButton down(QStringLiteral("■■■"));
  Dress(down, style, palette);
  down.setCheckable(true);
  down.setChecked(true);
  const QImage picture = PictureOf(down);
  const QColor face = FaceOf(down);
  double most = 1.0;
  for (int x = picture.width() / 4; x < picture.width() * 3 / 4; ++x)
    most = std::max(most, Contrast(face, picture.pixelColor(x, picture.height() / 2)));
  EXPECT_GT(most, 3.0);
}

TEST_P(DarkPaletteStyleTest, BoxThatIsNotCheckedHasAnEdge) {
  QCheckBox check;
  Dress(check, style, palette);
  QStyleOptionButton option;
  option.initFrom(&check);
  const QRect box = style.subElementRect(QStyle::SE_CheckBoxIndicator, &option, &check);
  const QImage picture = PictureOf(check);
  const QColor around = palette.color(QPalette::Window);
  for (const QPoint& place : {QPoint(box.left(), box.center().y()), QPoint(box.right(), box.center().y()),
                              QPoint(box.center().x(), box.top()), QPoint(box.center().x(), box.bottom())})
    EXPECT_GT(Contrast(around, picture.pixelColor(place)), 3.0) << place.x() << ", " << place.y();
}

INSTANTIATE_TEST_SUITE_P(Grey, DarkPaletteStyleTest, testing::Values(0xFF353535, 0xFF1E1E1E, 0xFF101820),
                         [](const auto& test) { return std::to_string(test.param & 0xFFFFFF); });

TEST(LightPaletteStyleTest, NothingIsDrawnOtherwise) {
  DarkPaletteStyle style;
  QProxyStyle plain;
  const auto picture = [](QStyle& dress, QAbstractButton&& button) {
    Dress(button, dress, QPalette(QColor(0xFFEFEFEF)));
    button.setCheckable(true);
    button.setChecked(true);
    return PictureOf(button);
  };
  EXPECT_EQ(picture(style, QPushButton()), picture(plain, QPushButton()));
  EXPECT_EQ(picture(style, QCheckBox()), picture(plain, QCheckBox()));
}

}  // namespace
}  // namespace tremlo
