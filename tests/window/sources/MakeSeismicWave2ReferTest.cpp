#include "support/PaletteChange.h"
#include "support/ScreenDriver.h"
#include "support/TestFolder.h"
#include "window/sources/FrmMakeSeismicWave2Refer.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace tremlo::test {
namespace {

class ReferTest : public testing::Test {
 protected:
  ReferTest() {
    InstallJapaneseFonts();
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    Settle();
  }
  QWidget& Picture() { return *dialog.findChild<QWidget*>(QStringLiteral("picture")); }
  void KeepPicture(const char* name) {
    const QString folder = qEnvironmentVariable("TREMLO_PICTURES");
    if (!folder.isEmpty())
      dialog.grab().toImage().save(folder + u'/' + QLatin1String(name) + QStringLiteral(".png"));
  }
  QImage PictureAt(double ratio) {
    QImage image((QSizeF(Picture().size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    Picture().render(&image);
    image.setDevicePixelRatio(1.0);
    return image;
  }
  /// How far what is drawn stands out from its ground, 0 to 255, at the most.
  int Contrast(const QRect& part) {
    const QImage image = Picture().grab(part).toImage().convertToFormat(QImage::Format_Grayscale8);
    int darkest = 255, lightest = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        darkest = std::min(darkest, qGray(image.pixel(x, y)));
        lightest = std::max(lightest, qGray(image.pixel(x, y)));
      }
    return lightest - darkest;
  }

  CFrmMakeSeismicWave2Refer dialog{nullptr};
};

TEST_F(ReferTest, HasItsTitleAPictureAndOneButton) {
  EXPECT_EQ(dialog.windowTitle(), "距離減衰式について");
  const QList<QAbstractButton*> buttons = dialog.findChildren<QAbstractButton*>();
  ASSERT_EQ(buttons.size(), 1);
  EXPECT_EQ(buttons[0]->text(), "閉じる");
  KeepPicture("refer");
}

TEST_F(ReferTest, ItsWholeTextIsHeard) {
  const QString text = Picture().accessibleDescription();
  for (const char* const part :
       {"最短距離", "等価震源距離", "5.0", "6.0", "マグニチュード", "地盤種別", "深さ (km)", "gal", "2 km",
        "H20_MinDis_H.csv", "H20_Ehd_H.csv", "H20_MinDis_V.csv", "H20_Ehd_V.csv"})
    EXPECT_TRUE(text.contains(QString::fromUtf8(part))) << part;
  EXPECT_FALSE(Picture().accessibleName().isEmpty());
}

/// On a monitor of usual size; a smaller one shows it in parts.
TEST_F(ReferTest, AllOfThePictureIsInSightOrScrollsByTheKeys) {
  auto& body = *dialog.findChild<QScrollArea*>(QStringLiteral("body"));
  const QSize room = dialog.screen()->availableSize();
  EXPECT_LE(dialog.width(), room.width());
  EXPECT_LE(dialog.height(), room.height());
  if (room.width() >= 1024 && room.height() >= 700) {
    EXPECT_GE(body.viewport()->width(), Picture().width());
    EXPECT_GE(body.viewport()->height(), Picture().height());
  }
  QScrollBar& bar = *body.verticalScrollBar();
  if (bar.maximum() == 0) return;
  body.setFocus();
  QTest::keyClick(&body, Qt::Key_Down);
  EXPECT_GT(bar.value(), 0);
}

/// Along its edges the picture is bare: nothing runs out of it.
TEST_F(ReferTest, NothingIsCutAtTheEdges) {
  const QImage image = PictureAt(1.0);
  const QRgb ground = image.pixel(3, 3);
  for (int x = 3; x < image.width() - 3; ++x)
    for (const int y : {3, image.height() - 4}) ASSERT_EQ(image.pixel(x, y), ground) << x << ' ' << y;
  for (int y = 3; y < image.height() - 3; ++y)
    for (const int x : {3, image.width() - 4}) ASSERT_EQ(image.pixel(x, y), ground) << x << ' ' << y;
}

TEST_F(ReferTest, OnADarkPaletteItIsAsReadable) {
  const QRect sketch(0, 0, Picture().width() / 3, Picture().height() / 3);
  const QRect words(0, Picture().height() * 2 / 3, Picture().width(), Picture().height() / 3);
  for (const QRect& part : {sketch, words}) EXPECT_GT(Contrast(part), 180);
  PaletteChange palette;
  palette.ToDark();
  EXPECT_LT(qGray(Picture().grab().toImage().pixel(0, 0)), 128);
  for (const QRect& part : {sketch, words}) EXPECT_GT(Contrast(part), 180);
  KeepPicture("refer-dark");
}

TEST_F(ReferTest, AtTwiceTheScaleItIsDrawnSharperNotLarger) {
  const QImage twice = PictureAt(2.0);
  const QImage once = PictureAt(1.0);
  EXPECT_EQ(twice.size(), once.size() * 2);
  EXPECT_NE(twice, once.scaled(twice.size()));
}

TEST_F(ReferTest, TheButtonAndEscapeCloseIt) {
  EXPECT_TRUE(dialog.findChild<QWidget*>(QStringLiteral("close"))->hasFocus());
  QTest::keyClick(&dialog, Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  dialog.show();
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace tremlo::test
