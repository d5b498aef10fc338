#include "window/graphs/ChartPaint.h"
#include "window/graphs/JapaneseFont.h"
#include "window/shell/FlowChartView.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>
#include <set>

namespace tremlo {
namespace {

using testing::Contains;
using testing::Each;

class FlowChartViewTest : public testing::Test {
 protected:
  FlowChartViewTest() { InstallJapaneseFonts(); }

  static BoxLooks All(BoxLook look) {
    BoxLooks looks;
    looks.fill(look);
    return looks;
  }
  /// The chart in device pixels.
  static QImage Picture(QWidget& widget, double scale = 1.0) {
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    return image;
  }
  /// What is left without any colour: ink or paper.
  static QImage InkOf(const QImage& picture) {
    QImage ink(picture.size(), QImage::Format_Mono);
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) ink.setPixel(x, y, qGray(picture.pixel(x, y)) > 140);
    return ink;
  }
};

TEST_F(FlowChartViewTest, LooksDifferInMoreThanColour) {
  FlowChartView chart(FlowChartView::Use::Shows);
  for (const ChartBox box : {ChartBox::PhaseQ1, ChartBox::PhaseQ4, ChartBox::Amplitude2}) {
    std::vector<QImage> inks;
    for (const BoxLook look : {BoxLook::Lit, BoxLook::Normal, BoxLook::Dimmed}) {
      chart.SetLooks(All(look));
      inks.push_back(InkOf(Picture(*chart.Box(box))));
    }
    EXPECT_NE(inks[0], inks[1]);
    EXPECT_NE(inks[0], inks[2]);
    EXPECT_NE(inks[1], inks[2]);
  }
}

TEST_F(FlowChartViewTest, EveryBoxIsAnElementWithItsTextAndState) {
  for (const auto use : {FlowChartView::Use::Shows, FlowChartView::Use::TakesClicks}) {
    FlowChartView chart(use);
    chart.SetLooks(All(BoxLook::Lit));
    std::set<QString> names;
    for (const ChartBox box : kChartBoxes) {
      QAccessibleInterface* const element = QAccessible::queryAccessibleInterface(chart.Box(box));
      ASSERT_NE(element, nullptr);
      names.insert(element->text(QAccessible::Name));
      EXPECT_EQ(element->text(QAccessible::Description), SpokenState(box, BoxLook::Lit));
      const bool clicks =
          use == FlowChartView::Use::TakesClicks && box > ChartBox::PhaseQ1 && box <= ChartBox::Amplitude2;
      EXPECT_EQ(element->role(), clicks ? QAccessible::CheckBox : QAccessible::StaticText);
    }
    EXPECT_EQ(names.size(), kChartBoxes.size());
  }
}

TEST_F(FlowChartViewTest, KeepsItsPaperOnADarkPalette) {
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(40, 40, 40));
  QApplication::setPalette(dark);
  FlowChartView chart(FlowChartView::Use::Shows);
  const QImage onDark = Picture(chart);
  QApplication::setPalette(before);
  FlowChartView light(FlowChartView::Use::Shows);
  EXPECT_EQ(onDark, Picture(light));
  EXPECT_EQ(onDark.pixel(2, 2), 0xFFFFFFFFU);
}

TEST_F(FlowChartViewTest, ArrowsAndLinesHaveTheirWidths) {
  FlowChartView chart(FlowChartView::Use::Shows);
  const QImage picture = Picture(chart);
  const auto inkAcross = [&](QPoint point, QPoint across) {
    int count = 0;
    for (int i = -12; i < 12; ++i) {
      const QPoint at = point + across * i;
      if (qGray(picture.pixel(at)) < 128) ++count;
    }
    return count;
  };
  EXPECT_EQ(inkAcross({421, 200}, {1, 0}), 2) << "a path";
  EXPECT_EQ(inkAcross({200, 142}, {0, 1}), 2) << "a path";
  EXPECT_EQ(inkAcross({772, 540}, {1, 0}), 4) << "the shaft of an arrow";
  EXPECT_NEAR(inkAcross({772, 582}, {1, 0}), kChartArrowWidth, 1) << "its head";
  EXPECT_NEAR(inkAcross({695, 607}, {0, 1}), kChartArrowWidth, 1) << "its head";
}

TEST_F(FlowChartViewTest, IsDrawnAnewAtEveryScale) {
  FlowChartView chart(FlowChartView::Use::Shows);
  const QImage twice = Picture(chart, 2.0);
  EXPECT_EQ(twice.size(), 2 * kChartSize);
  // An enlarged picture would have pairs of equal pixels throughout.
  int differing = 0;
  for (int y = 0; y < twice.height(); y += 2)
    for (int x = 0; x < twice.width(); x += 2) differing += twice.pixel(x, y) != twice.pixel(x + 1, y);
  EXPECT_GT(differing, 2000);
}

TEST_F(FlowChartViewTest, TextsFitIntoTheirBoxesAndPlaces) {
  QFont font = ChartFont();
  font.setBold(true);
  const QFontMetrics metrics(font);
  for (const ChartBox box : kChartBoxes) {
    const CDPoly outline = OutlineOf(box);
    const QStringList lines = TextOf(box).split(u'\n');
    const int rows = static_cast<int>(lines.size()) + (NumberOf(box).isEmpty() ? 0 : 1);
    EXPECT_LE(rows * metrics.lineSpacing(), outline.MaxCorner().y - outline.MinCorner().y - 4.0);
    // Beside the points at both ends.
    for (const QString& line : lines)
      EXPECT_LE(metrics.horizontalAdvance(line), outline.MaxCorner().x - outline.MinCorner().x - 24.0)
          << line.toStdString();
  }
  for (const ChartLabel& label : ChartLabels())
    EXPECT_LE(metrics.horizontalAdvance(QString::fromUtf16(label.text)), label.place.width())
        << QString::fromUtf16(label.text).toStdString();
}

}  // namespace
}  // namespace tremlo
