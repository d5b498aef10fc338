#include "support/OfferedAction.h"
#include "support/PaletteChange.h"
#include "window/graphs/ExpButton.h"

#include <QAccessible>
#include <QDialog>
#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

QIcon Plain(Qt::GlobalColor color) {
  QPixmap pixmap(8, 8);
  pixmap.fill(color);
  return QIcon(pixmap);
}

class ExpButtonTest : public testing::Test {
 protected:
  ExpButtonTest() {
    button.resize(100, 40);
    other.setGeometry(150, 0, 50, 40);
    dialog.resize(220, 60);
    QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
  }
  void Show() {
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  }
  void Click() { QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(50, 20)); }
  QColor PixelAt(int x, int y) { return button.grab().toImage().pixelColor(x, y); }

  QDialog dialog;
  CExpButton button{&dialog};
  QPushButton other{&dialog};
  int clicks = 0;
};

TEST_F(ExpButtonTest, OnlyStylesZeroAndSevenFlip) {
  Show();
  button.SetToggles(true);
  for (int style = 0; style < 8; ++style) {
    button.SetStyle(style);
    button.SetPressed(false);
    clicks = 0;
    Click();
    EXPECT_EQ(button.IsPressed(), style == 0 || style == 7) << style;
    EXPECT_EQ(clicks, 1) << style;
    Click();
    EXPECT_FALSE(button.IsPressed()) << style;
  }
}

TEST_F(ExpButtonTest, AButtonThatDoesNotToggleStaysAsItIs) {
  Show();
  Click();
  EXPECT_FALSE(button.IsPressed());
  button.SetPressed(true);
  Click();
  EXPECT_TRUE(button.IsPressed());
}

TEST_F(ExpButtonTest, AClickReleasedOutsideDoesNotFlip) {
  Show();
  button.SetToggles(true);
  QTest::mousePress(&button, Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
  EXPECT_TRUE(button.isDown());
  QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(500, 20));
  EXPECT_FALSE(button.IsPressed());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ExpButtonTest, OtherMouseButtonsDoNothing) {
  Show();
  button.SetToggles(true);
  QTest::mouseClick(&button, Qt::RightButton);
  EXPECT_FALSE(button.IsPressed());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ExpButtonTest, TheFlipIsDoneWhenTheCommandComes) {
  Show();
  button.SetToggles(true);
  bool pressedAtClick = false;
  QObject::connect(&button, &QPushButton::clicked, [&] { pressedAtClick = button.IsPressed(); });
  Click();
  EXPECT_TRUE(pressedAtClick);
}

TEST_F(ExpButtonTest, SpaceAndEnterPressIt) {
  Show();
  button.SetToggles(true);
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_TRUE(button.IsPressed());
  QTest::keyClick(&button, Qt::Key_Return);
  EXPECT_FALSE(button.IsPressed());
  QTest::keyClick(&button, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_TRUE(button.IsPressed());
  EXPECT_EQ(clicks, 3);
}

TEST_F(ExpButtonTest, ADisabledButtonDoesNothing) {
  Show();
  button.SetToggles(true);
  button.setEnabled(false);
  Click();
  button.click();
  EXPECT_FALSE(button.IsPressed());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ExpButtonTest, StylesThatAreNoneAreNotTaken) {
  button.SetStyle(CExpButton::kFlowStyle);
  button.SetStyle(8);
  button.SetStyle(-1);
  EXPECT_EQ(button.Style(), CExpButton::kFlowStyle);
}

TEST_F(ExpButtonTest, AnUpEdgeLeavesARowAndAColumnFree) {
  Show();
  button.SetColors({{}, {}, {}, {}, Qt::white, Qt::black, {}, {}});
  EXPECT_EQ(PixelAt(0, 10), QColor(Qt::white));
  EXPECT_EQ(PixelAt(98, 10), QColor(Qt::black));
  EXPECT_NE(PixelAt(99, 10), QColor(Qt::black));
  button.SetPressed(true);
  EXPECT_EQ(PixelAt(0, 10), QColor(Qt::black));
  EXPECT_EQ(PixelAt(99, 10), QColor(Qt::white));
  EXPECT_EQ(PixelAt(50, 39), QColor(Qt::white));
}

TEST_F(ExpButtonTest, ABoxSwapsItsColoursAndMovesWhileItIsDown) {
  Show();
  button.SetStyle(2);
  button.SetColors({Qt::green, {}, Qt::yellow, {}, Qt::white, Qt::black, Qt::red, {}});
  EXPECT_EQ(PixelAt(0, 10), QColor(Qt::red));
  EXPECT_EQ(PixelAt(1, 10), QColor(Qt::white));
  EXPECT_EQ(PixelAt(30, 10), QColor(Qt::yellow));
  button.setDown(true);
  EXPECT_EQ(PixelAt(1, 10), QColor(Qt::red));
  EXPECT_EQ(PixelAt(2, 10), QColor(Qt::black));
  EXPECT_EQ(PixelAt(30, 10), QColor(Qt::green));
}

TEST_F(ExpButtonTest, ThePictureIsStretchedAndFollowsTheState) {
  Show();
  button.SetStyle(CExpButton::kPictureStyle);
  button.SetPictures(Plain(Qt::blue), Plain(Qt::red));
  EXPECT_EQ(PixelAt(1, 1), QColor(Qt::blue));
  EXPECT_EQ(PixelAt(98, 38), QColor(Qt::blue));
  button.setDown(true);
  EXPECT_EQ(PixelAt(50, 20), QColor(Qt::red));
  button.setDown(false);
  button.SetPressed(true);
  EXPECT_EQ(PixelAt(50, 20), QColor(Qt::red));
}

TEST_F(ExpButtonTest, AFlashIsClearedByThePaintThatShowsItPressed) {
  Show();
  button.SetStyle(CExpButton::kFlowStyle);
  button.SetColors({Qt::green, Qt::magenta, Qt::yellow, {}, {}, {}, {}, {}});
  button.SetFlash(true);
  EXPECT_EQ(PixelAt(30, 20), QColor(Qt::magenta));
  EXPECT_TRUE(button.IsFlashing());
  button.setDown(true);
  EXPECT_EQ(PixelAt(30, 20), QColor(Qt::magenta));
  EXPECT_FALSE(button.IsFlashing());
  EXPECT_EQ(PixelAt(30, 20), QColor(Qt::green));
}

TEST_F(ExpButtonTest, TheFocusIsSeenInEveryStyle) {
  Show();
  button.SetPictures(Plain(Qt::blue), Plain(Qt::red));
  for (int style = 0; style < 8; ++style) {
    button.SetStyle(style);
    other.setFocus();
    const QImage without = button.grab().toImage();
    button.setFocus();
    EXPECT_NE(button.grab().toImage(), without) << style;
  }
}

TEST_F(ExpButtonTest, TheTextKeepsToItsSide) {
  Show();
  button.setText(QStringLiteral("現場設定"));
  const auto darkColumns = [&](int from, int to) {
    const QImage image = button.grab().toImage();
    int count = 0;
    for (int x = from; x < to; ++x)
      for (int y = 4; y < 36; ++y) count += image.pixelColor(x, y).lightness() < 100;
    return count;
  };
  button.SetStyle(6);
  button.SetColors({{}, {}, Qt::white, {}, Qt::white, Qt::white, {}, Qt::black});
  button.SetTextAlign(Qt::AlignLeft | Qt::AlignVCenter);
  EXPECT_GT(darkColumns(4, 40), 0);
  EXPECT_EQ(darkColumns(70, 96), 0);
  button.SetTextAlign(Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(darkColumns(4, 30), 0);
  EXPECT_GT(darkColumns(60, 96), 0);
}

TEST_F(ExpButtonTest, TheActionOfferedToScreenReadersIsAClick) {
  Show();
  button.SetToggles(true);
  const QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&button);
  std::vector<bool> pressedAtClick;
  QObject::connect(&button, &QPushButton::clicked, [&] { pressedAtClick.push_back(button.IsPressed()); });
  for (const bool pressed : {true, false, true}) {
    test::DoOfferedAction(button);
    EXPECT_EQ(button.IsPressed(), pressed);
    EXPECT_EQ(heard->state().checked, pressed);
  }
  EXPECT_EQ(pressedAtClick, (std::vector<bool>{true, false, true}));
}

TEST_F(ExpButtonTest, TheActionOfferedOnAButtonWithoutStateIsAClick) {
  Show();
  test::DoOfferedAction(button);
  EXPECT_TRUE(QTest::qWaitFor([this] { return clicks == 1; }));
  EXPECT_FALSE(button.IsPressed());
}

TEST_F(ExpButtonTest, SettingTheStateIsNoClick) {
  button.SetToggles(true);
  button.SetPressed(true);
  button.SetPressed(false);
  button.SetStyle(2);
  button.SetStyle(0);
  EXPECT_EQ(clicks, 0);
}

TEST_F(ExpButtonTest, EveryStyleFollowsThePalette) {
  Show();
  button.setText(QStringLiteral("現場設定"));
  for (int style = 0; style < 7; ++style) {
    test::PaletteChange palette;
    button.SetStyle(style);
    const QImage light = button.grab().toImage();
    palette.ToDark();
    const QImage dark = button.grab().toImage();
    EXPECT_NE(dark, light) << style;
    palette.Back();
    EXPECT_EQ(button.grab().toImage(), light) << style;
  }
}

TEST_F(ExpButtonTest, ScreenReadersHearTheStateOfAButtonThatToggles) {
  button.SetToggles(true);
  button.SetPressed(true);
  const QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&button);
  ASSERT_TRUE(heard);
  EXPECT_TRUE(heard->state().checkable);
  EXPECT_TRUE(heard->state().checked);
  button.SetStyle(2);
  EXPECT_FALSE(heard->state().checkable);
}

}  // namespace
}  // namespace tremlo
