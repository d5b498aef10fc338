#include "core/waves/SeismicWave.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/DrawFourier.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/JapaneseFont.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <cmath>
#include <gmock/gmock.h>
#include <set>

namespace tremlo {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kRed = 0x0000FF;
constexpr QSize kSize(660, 300);  // a frame of 600 by 240 pixels

WaveGraphSetting FixedBlock() {
  WaveGraphSetting block;
  block.autoRange = block.specLog = 0;
  return block;
}

QImage Drawn(CDrawGraph& graph, double ratio = 1.0) {
  QImage image(kSize * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::green);
  QPainter painter(&image);
  graph.Draw(painter, QRectF(QPointF(0, 0), kSize));
  painter.end();
  image.setDevicePixelRatio(1.0);
  return image;
}

bool IsRed(const QImage& image, int x, int y) {
  return image.pixelColor(x, y) == ColorFromBgr(kRed);
}

int CountRed(const QImage& image, const QRect& area) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x) count += IsRed(image, x, y);
  return count;
}

QRect RedExtent(const QImage& image) {
  QRect extent;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (IsRed(image, x, y)) extent |= QRect(x, y, 1, 1);
  return extent;
}

QRect FrameRect(const QImage& image, double ratio) {
  const PlotFrame frame = FrameIn(image.rect(), ratio);
  return QRect(QPoint(frame.plotLeft, frame.plotTop), QPoint(frame.plotRight, frame.plotBottom));
}

class DrawGraphTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  static QImage DrawnWave(const std::vector<double>& samples, double step, const CurvePen& pen,
                          double ratio = 1.0) {
    CDrawTimeAccGal graph(FixedBlock());
    graph.AddWave(samples, step, pen);
    return Drawn(graph, ratio);
  }
};

TEST_F(DrawGraphTest, TheFrameLeavesItsMargins) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const PlotFrame frame = FrameIn(QRect(10, 20, qRound(660 * scale), qRound(300 * scale)), scale);
    EXPECT_EQ(frame.plotLeft, 10 + 44 * scale);
    EXPECT_EQ(frame.plotTop, 20 + 28 * scale);
    EXPECT_EQ(frame.plotRight, 10 + 660 * scale - 16 * scale);
    EXPECT_EQ(frame.plotBottom, 20 + 300 * scale - 32 * scale);
  }
}

TEST_F(DrawGraphTest, TheBoxIsBlackOnWhite) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    CDrawTimeAccGal graph(FixedBlock());
    const QImage image = Drawn(graph, ratio);
    const QRect frame = FrameRect(image, ratio);
    for (const QPoint& corner : {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
      EXPECT_EQ(image.pixelColor(corner), QColor(Qt::black)) << ratio;
    for (const QPoint& corner : {image.rect().topLeft(), image.rect().bottomRight()})
      EXPECT_EQ(image.pixelColor(corner), QColor(Qt::white)) << ratio;
  }
}

TEST_F(DrawGraphTest, LinesAreSharpAtEveryScale) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    CDrawTimeAccGal graph(FixedBlock());
    const QImage image = Drawn(graph, ratio);
    const QRect frame = FrameRect(image, ratio);
    int grey = 0;
    for (int y = frame.top(); y <= frame.bottom(); ++y) {
      for (int x = frame.left(); x <= frame.right(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        grey += pixel == QColor(0xA0, 0xA0, 0xA0);
        ASSERT_TRUE(pixel == QColor(Qt::white) || pixel == QColor(Qt::black) ||
                    pixel == QColor(0xA0, 0xA0, 0xA0))
            << ratio << ": " << pixel.name().toStdString();
      }
    }
    EXPECT_GT(grey, 0) << ratio;
  }
}

TEST_F(DrawGraphTest, TheGridIsOfDashesAndDots) {
  CDrawTimeAccGal graph(FixedBlock());
  const QImage image = Drawn(graph);
  const QRect frame = FrameRect(image, 1.0);
  std::set<int> lengths;
  int length = 0;
  for (int x = frame.left() + 1; x < frame.right() - 100; ++x) {
    if (image.pixelColor(x, frame.bottom() - 144) == QColor(0xA0, 0xA0, 0xA0)) {
      ++length;
    } else if (length > 0) {
      lengths.insert(length);
      length = 0;
    }
  }
  // Where lines cross a dash can be longer or shorter, but single pixels are dots.
  EXPECT_THAT(lengths, testing::AllOf(testing::Contains(1), testing::Contains(4))) << lengths.size();
}

TEST_F(DrawGraphTest, TheLineAtZeroIsBlackAndTheGridIsDashed) {
  CDrawTimeAccGal graph(FixedBlock());
  const QImage image = Drawn(graph);
  const QRect frame = FrameRect(image, 1.0);
  int black = 0, grey = 0, white = 0;
  for (int x = frame.left() + 1; x < frame.right(); ++x) {
    black += image.pixelColor(x, frame.bottom() - 120) == QColor(Qt::black);
    grey += image.pixelColor(x, frame.bottom() - 144) == QColor(0xA0, 0xA0, 0xA0);
    white += image.pixelColor(x, frame.bottom() - 144) == QColor(Qt::white);
  }
  EXPECT_EQ(black, frame.width() - 2);
  EXPECT_GT(grey, 200);
  EXPECT_GT(white, 100);
}

TEST_F(DrawGraphTest, APeakOfOneSampleAmongManyIsDrawn) {
  for (const int width : {1, 2, 3, 5}) {
    std::vector<double> samples(65536, 0.0);
    samples[40000] = 400.0;
    const QImage image = DrawnWave(samples, 30.0 / 65536, {kRed, width});
    const int column = 44 + 40000 * 600 / 65536;
    const int row = 268 - 240 * 900 / 1000;
    EXPECT_TRUE(IsRed(image, column, row)) << width;
    EXPECT_TRUE(IsRed(image, column, 148)) << width;
    EXPECT_FALSE(IsRed(image, column, row - 4)) << width;
    EXPECT_EQ(CountRed(image, QRect(0, 0, 660, 140)), width * (140 - row + (width - 1) / 2)) << width;
  }
}

TEST_F(DrawGraphTest, AWidePenStaysInsideTheFrame) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const QImage image = DrawnWave({0, 900, 900, -900, -900, 0}, 6.0, {kRed, 7}, ratio);
    EXPECT_TRUE(FrameRect(image, ratio).contains(RedExtent(image))) << ratio;
    EXPECT_GT(CountRed(image, image.rect()), 1000) << ratio;
  }
}

TEST_F(DrawGraphTest, AValueAboveTheRangeRunsAlongTheUpperEdge) {
  const QImage image = DrawnWave({900, 900, 900, 900}, 10.0, {kRed, 3});
  for (int x = 100; x < 600; ++x) EXPECT_TRUE(IsRed(image, x, 29)) << x;
}

// How many pixels' worth of red a row of white holds.
double InkInRow(const QImage& image, int row) {
  double ink = 0.0;
  for (int x = 45; x < 644; ++x) ink += (255 - image.pixelColor(x, row).green()) / 255.0;
  return ink;
}

TEST_F(DrawGraphTest, ASolidCurveHasNoGapAndADottedOneIsHalfGaps) {
  for (const std::size_t points : {2u, 401u, 601u, 60001u}) {  // 401: points 1.5 pixels apart
    const std::vector<double> samples(points, 50.0);
    const double step = 30.0 / static_cast<double>(points - 1);
    EXPECT_EQ(InkInRow(DrawnWave(samples, step, {kRed, 1}), 136), 599.0) << points;
    EXPECT_NEAR(InkInRow(DrawnWave(samples, step, {kRed, 1, CurveLine::Dotted}), 136), 300.0, 45.0) << points;
  }
}

TEST_F(DrawGraphTest, ADashedCurveIsOneThirdGapsAndItsDashesAreLongerThanDots) {
  const auto longest = [](const QImage& image) {
    int most = 0;
    for (int x = 45, run = 0; x < 644; ++x) {
      run = IsRed(image, x, 136) ? run + 1 : 0;
      most = std::max(most, run);
    }
    return most;
  };
  for (const std::size_t points : {2u, 401u, 60001u}) {
    const std::vector<double> samples(points, 50.0);
    const double step = 30.0 / static_cast<double>(points - 1);
    const QImage dashed = DrawnWave(samples, step, {kRed, 1, CurveLine::Dashed});
    const QImage dotted = DrawnWave(samples, step, {kRed, 1, CurveLine::Dotted});
    EXPECT_NEAR(InkInRow(dashed, 136), 400.0, 30.0) << points;
    EXPECT_LE(longest(dotted), 3) << points;
    EXPECT_GE(longest(dashed), 6) << points;
    EXPECT_LE(longest(dashed), 9) << points;
  }
}

TEST_F(DrawGraphTest, DotsAreAsLongAtEveryScale) {
  const std::vector<double> samples(2, 50.0);
  const QImage twice = DrawnWave(samples, 30.0, {kRed, 1, CurveLine::Dotted}, 2.0);
  std::set<int> runs;
  int first = 100;
  while (IsRed(twice, first, 272)) ++first;
  for (int x = first, run = 0; x < 1200; ++x) {
    if (IsRed(twice, x, 272)) {
      ++run;
    } else {
      if (run > 0) runs.insert(run);
      run = 0;
    }
  }
  EXPECT_THAT(runs, testing::ElementsAre(4));
}

TEST_F(DrawGraphTest, ADottedSlopeIsHalfGapsToo) {
  const QImage solid = DrawnWave({-500, 500}, 30.0, {kRed, 2});
  const QImage dotted = DrawnWave({-500, 500}, 30.0, {kRed, 2, CurveLine::Dotted});
  const QRect frame = FrameRect(solid, 1.0).adjusted(1, 1, -1, -1);
  EXPECT_NEAR(CountRed(dotted, frame), 600, 120);
  EXPECT_GT(CountRed(solid, frame), 0);
}

TEST_F(DrawGraphTest, ABlankSampleIsDrawnAtZeroAndTakesNoPartInTheRange) {
  WaveGraphSetting block = FixedBlock();
  block.autoRange = 1;
  CDrawTimeAccGal graph(block);
  graph.AddWave({kBlankSample, -150, 250, kBlankSample}, 10.0, {kRed, 1});
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMin, -180.0);
  EXPECT_EQ(graph.Range().yMax, 300.0);
  EXPECT_EQ(graph.Range().xMax, 40.0);
  EXPECT_EQ(graph.Series().front().y, (std::vector<double>{0, -150, 250, 0}));
}

TEST_F(DrawGraphTest, NothingButBlanksHasNoRangeAndNoCurve) {
  WaveGraphSetting block;
  CDrawTimeAccGal graph(block);
  graph.AddWave(std::vector<double>(100, kBlankSample), 0.01, {kRed, 3});
  const QImage image = Drawn(graph);
  EXPECT_TRUE(std::isnan(graph.Range().yMin));
  EXPECT_EQ(CountRed(image, image.rect()), 0);
  EXPECT_EQ(image.pixelColor(44, 28), QColor(Qt::black));
}

TEST_F(DrawGraphTest, ASampleThatIsNotANumberIsLeftOut) {
  const QImage image = DrawnWave({0, kNan, 0, 0}, 10.0, {kRed, 1});
  EXPECT_EQ(CountRed(image, QRect(44, 148, 601, 1)), 599);
  CDrawTimeAccGal graph({});
  graph.AddWave({kNan, 500, -kBlankSample}, 1.0, {});
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMin, 0.0);
  EXPECT_EQ(graph.Range().yMax, 600.0);
}

TEST_F(DrawGraphTest, ATimeGraphTakesTheRangeOfAllItsWaves) {
  CDrawTimeAccGal graph({});
  graph.AddWave({10, 400}, 0.01, {});
  graph.AddWave(std::vector<double>(4096, -200.0), 0.01, {});
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMin, -240.0);
  EXPECT_EQ(graph.Range().yMax, 480.0);
  EXPECT_EQ(graph.Range().xMax, 40.96);
}

TEST_F(DrawGraphTest, TheSmallestSampleAboveZeroBecomesZero) {
  CDrawTimeAccGal graph({});
  graph.AddWave({30, 400}, 0.01, {});
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMin, 0.0);
}

TEST_F(DrawGraphTest, ASpectrumGraphTakesTheLargestOfAllItsCurves) {
  CDrawFreqAccSpec graph(DefaultLowerGraph());
  graph.AddSpectrum({40, 1, 0.02}, {10, 300, 200}, {});
  graph.AddSpectrum({0.02, 2}, {500, 1}, {});
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMax, 600.0);
  EXPECT_EQ(graph.Range().dataXMax, 40.0);
  EXPECT_EQ(graph.Range().xMax, 10.0);
}

TEST_F(DrawGraphTest, AKeptUpperLimitReplacesTheScan) {
  CDrawFreqAccSpec graph({});
  graph.AddSpectrum({1, 0.02}, {10, 300}, {});
  graph.KeepUpperLimit(1000.0);
  graph.ComputeRange();
  EXPECT_EQ(graph.Range().yMax, 1200.0);
}

TEST_F(DrawGraphTest, AnEmptySeriesDrawsOnlyTheFrame) {
  CDrawFourier empty({});
  CDrawFourier noPoints({});
  noPoints.AddSpectrum({}, {}, {kRed, 3});
  EXPECT_EQ(Drawn(empty), Drawn(noPoints));
  EXPECT_EQ(empty.Range().yMax, 120.0);
  EXPECT_EQ(empty.Range().yMin, 0.0);
}

TEST_F(DrawGraphTest, LimitsWithoutExtentDrawTheFrameAlone) {
  WaveGraphSetting block = FixedBlock();
  block.specXMin = block.specXMax = 5.0;
  block.specYMin = kNan;
  CDrawFreqAccSpec graph(block);
  graph.AddSpectrum({1, 5, 9}, {10, 20, 30}, {kRed, 3});
  const QImage image = Drawn(graph);
  EXPECT_EQ(CountRed(image, image.rect()), 0);
  EXPECT_EQ(image.pixelColor(44, 100), QColor(Qt::black));
}

TEST_F(DrawGraphTest, AnAreaSmallerThanItsMarginsIsPlain) {
  CDrawTimeAccGal graph({});
  QImage image(50, 40, QImage::Format_RGB32);
  QPainter painter(&image);
  graph.Draw(painter, image.rect());
  painter.end();
  QImage plain(50, 40, QImage::Format_RGB32);
  plain.fill(Qt::white);
  EXPECT_EQ(image, plain);
}

TEST_F(DrawGraphTest, APainterInTheMiddleOfAScaledWindowDrawsTheSamePixels) {
  CDrawFreqAccSpec graph({});
  graph.AddSpectrum({40, 1, 0.5, 0.02}, {10, 300, 50, 200}, {kRed, 2});
  const QImage alone = Drawn(graph, 1.5);
  QImage window(1200, 600, QImage::Format_RGB32);
  window.setDevicePixelRatio(1.5);
  QPainter painter(&window);
  painter.translate(101.0, 33.0);  // 151.5 and 49.5 pixels
  graph.Draw(painter, QRectF(QPointF(0, 0), kSize));
  painter.end();
  window.setDevicePixelRatio(1.0);
  EXPECT_EQ(window.copy(QRect(QPoint(152, 50), kSize * 1.5)), alone);
}

TEST_F(DrawGraphTest, ADarkPaletteChangesNothing) {
  CDrawFreqAccSpec graph({});
  graph.AddSpectrum({40, 1, 0.02}, {10, 300, 200}, {kRed, 2});
  const QImage light = Drawn(graph);
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::black));
  const QImage dark = Drawn(graph);
  QApplication::setPalette(before);
  EXPECT_EQ(dark, light);
}

TEST_F(DrawGraphTest, CurvesOfEqualPeriodsAreDrawnAsIfEachHadItsOwn) {
  for (const std::int32_t logarithmic : {0, 1}) {
    WaveGraphSetting block = FixedBlock();
    block.specLog = logarithmic;
    CDrawFreqAccSpec shared(block), own(block);
    for (int curve = 0; curve < 5; ++curve) {
      std::vector<double> periods, values;
      for (int i = 1; i <= 2000; ++i) {
        periods.push_back((curve < 3 ? 40.0 : 25.0) / i);
        values.push_back(60.0 * curve + 40.0 * std::sin(i * 0.02));
      }
      const CurvePen pen{curve * 0x203011, 1 + curve % 2};
      shared.AddSpectrum(periods, values, pen);
      // A point without a place on the axis is not drawn, but these periods are equal to none.
      periods.push_back(kNan);
      values.push_back(0.0);
      own.AddSpectrum(periods, values, pen);
    }
    EXPECT_EQ(Drawn(shared), Drawn(own)) << logarithmic;
    CDrawFreqAccSpec empty(block);
    EXPECT_NE(Drawn(shared), Drawn(empty));
  }
}

// Rows or columns outside the frame that hold something dark: what is written there.
QRect Ink(const QImage& image, const QRect& area) {
  QRect ink;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      if (image.pixelColor(x, y).lightness() < 128) ink |= QRect(x, y, 1, 1);
  return ink;
}

TEST_F(DrawGraphTest, LabelsAndTitlesStandInTheMargins) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    CDrawTimeAccGal graph(FixedBlock());
    const QImage image = Drawn(graph, ratio);
    const QRect frame = FrameRect(image, ratio);
    const auto px = [ratio](int n) { return qRound(n * ratio); };

    const QRect yLabels = Ink(image, QRect(0, frame.top() - px(4), frame.left(), frame.height() + px(4)));
    EXPECT_LE(yLabels.right(), frame.left() - px(2)) << ratio;
    EXPECT_GE(yLabels.left(), px(12)) << ratio;

    const QRect lower = Ink(image, QRect(0, frame.bottom() + px(2), image.width(), px(30)));
    EXPECT_LT(lower.bottom(), image.height() - 1) << ratio;

    const QRect xTitle = Ink(image, QRect(0, frame.bottom() + px(16), image.width(), px(16)));
    EXPECT_NEAR(xTitle.center().x(), frame.center().x(), px(6)) << ratio;

    const QRect yTitle = Ink(image, QRect(0, 0, image.width(), frame.top() - px(5)));
    EXPECT_GE(yTitle.top(), 1) << ratio;
    EXPECT_NEAR(yTitle.left(), px(8), px(3)) << ratio;
    QFont font = ScreenFont();
    font.setPixelSize(px(12));
    EXPECT_NEAR(yTitle.center().y(), frame.top() - QFontMetricsF(font).height() - px(2), px(2)) << ratio;
  }
}

// How much is written beside, below, above and inside the frame; below it the labels and the title apart.
struct Written {
  QSize yLabels, xLabels, xTitle, yTitle, note;
};

Written WrittenBy(CDrawGraph& graph) {
  const QImage image = Drawn(graph);
  const QRect frame = FrameRect(image, 1.0);
  const auto size = [&](const QRect& area) { return Ink(image, area).size(); };
  // The label beside the middle of the axis, and those below the middle of the frame.
  return {size(QRect(0, frame.center().y() - 20, frame.left(), 40)),
          size(QRect(frame.left() + 80, frame.bottom() + 2, 40, 30)),
          size(QRect(frame.center().x() - 30, frame.bottom() + 14, 60, 18)),
          size(QRect(0, 0, image.width(), frame.top() - 5)),
          size(QRect(frame.left() + 4, frame.top() + 2, 120, 25))};
}

TEST_F(DrawGraphTest, EachFontFactorEnlargesItsOwnTexts) {
  WaveGraphSetting block = FixedBlock();
  block.specXMax = 6.0;
  block.specXStep = 1.0;
  block.specYStep = 600.0;
  CDrawFreqAccSpec graph(block);
  const Written before = WrittenBy(graph);
  ASSERT_FALSE(before.yLabels.isEmpty() || before.xLabels.isEmpty() || before.xTitle.isEmpty());
  graph.xTickFont = 1.5;
  EXPECT_GT(WrittenBy(graph).xLabels.width(), before.xLabels.width());
  EXPECT_EQ(WrittenBy(graph).yLabels, before.yLabels);
  EXPECT_EQ(WrittenBy(graph).yTitle, before.yTitle);
  graph.xTickFont = 1.0;
  graph.yTickFont = 1.5;
  EXPECT_GT(WrittenBy(graph).yLabels.width(), before.yLabels.width());
  EXPECT_EQ(WrittenBy(graph).xLabels, before.xLabels);
  graph.yTickFont = 1.0;
  graph.xTitleFont = 0.5;
  EXPECT_LT(WrittenBy(graph).xTitle.height(), before.xTitle.height());
  EXPECT_EQ(WrittenBy(graph).yTitle, before.yTitle);
  EXPECT_EQ(WrittenBy(graph).note, before.note);
  graph.xTitleFont = 1.0;
  graph.yTitleFont = 0.5;
  EXPECT_LT(WrittenBy(graph).yTitle.width(), before.yTitle.width());
  EXPECT_LT(WrittenBy(graph).note.width(), before.note.width());
  EXPECT_EQ(WrittenBy(graph).xTitle, before.xTitle);
}

TEST_F(DrawGraphTest, TimesAreWholeNumbersAndPeriodsHaveOnePlace) {
  WaveGraphSetting block = FixedBlock();
  block.specXMax = block.timeXMax = 6.0;
  block.specXStep = block.timeXStep = 1.0;
  CDrawTimeAccGal time(block);
  CDrawFreqAccSpec spectrum(block);
  EXPECT_LE(WrittenBy(time).xLabels.width(), 6);
  EXPECT_GT(WrittenBy(spectrum).xLabels.width(), 10);
}

TEST_F(DrawGraphTest, OnlyTheSpectraCarryANoteInsideTheFrame) {
  const QRect corner(49, 32, 80, 14);
  CDrawTimeAccGal time(FixedBlock());
  CDrawFreqAccSpec spectrum(FixedBlock());
  CDrawFourier fourier(FixedBlock());
  EXPECT_TRUE(Ink(Drawn(time), corner).isEmpty());
  EXPECT_GT(Ink(Drawn(spectrum), corner).width(), 60);
  EXPECT_GT(Ink(Drawn(fourier), corner).width(), 50);
}

// The legend

constexpr QRect kUpperRight(344, 29, 299, 80);  // a third of the height, half of the width

CDrawFreqAccSpec& WithCurves(CDrawFreqAccSpec& graph, int count, const QString& ending = {}) {
  for (int i = 1; i <= count; ++i)
    graph.AddSpectrum({10, 0.02}, {-1.0, -1.0}, {kRed, 3}, QStringLiteral("断層%1").arg(i) + ending);
  return graph;
}

QRect LegendBox(const QImage& image, double ratio = 1.0) {
  QRect box;
  const QRect frame = FrameRect(image, ratio);
  for (int y = frame.top() + 2; y < frame.bottom() - 8 * ratio; ++y)
    for (int x = frame.left() + 2; x < frame.right() - 1; ++x)
      if (IsRed(image, x, y)) box |= QRect(x, y, 1, 1);
  return box;
}

TEST_F(DrawGraphTest, OneCurveHasNoLegend) {
  CDrawFreqAccSpec graph(FixedBlock());
  EXPECT_TRUE(LegendBox(Drawn(WithCurves(graph, 1))).isEmpty());
}

TEST_F(DrawGraphTest, SeveralCurvesAreNamedAtTheTopRight) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    CDrawFreqAccSpec graph(FixedBlock());
    const QImage image = Drawn(WithCurves(graph, 2), ratio);
    const QRect samples = LegendBox(image, ratio);
    const QRect room(QPointF(kUpperRight.topLeft() * ratio).toPoint(), kUpperRight.size() * ratio);
    EXPECT_TRUE(room.contains(samples)) << ratio;
    // Behind the samples stand the names.
    EXPECT_GT(
        Ink(image, QRect(samples.right() + 2, samples.top() - 2, qRound(40 * ratio), samples.height() + 4))
            .width(),
        20 * ratio);
  }
}

TEST_F(DrawGraphTest, OfManyCurvesTheLegendStaysInItsThirdOfTheHeight) {
  for (const QString& ending : {QString(), QString(200, u'長')}) {
    CDrawFreqAccSpec graph(FixedBlock());
    const QRect samples = LegendBox(Drawn(WithCurves(graph, 600, ending)));
    EXPECT_TRUE(kUpperRight.contains(samples));
    EXPECT_GT(samples.height(), 30);
  }
}

TEST_F(DrawGraphTest, TheLegendLeavesTheNoteAndTheLabelsAlone) {
  CDrawFreqAccSpec one(FixedBlock()), many(FixedBlock());
  const QImage without = Drawn(WithCurves(one, 1));
  const QImage with = Drawn(WithCurves(many, 600, QString(200, u'長')));
  const QRect legend(kUpperRight);
  for (const QRect& rest : {QRect(0, 0, 344, 300), QRect(0, 0, 660, 29), QRect(644, 0, 16, 300),
                            QRect(0, legend.bottom() + 1, 660, 299 - legend.bottom())})
    EXPECT_EQ(with.copy(rest), without.copy(rest));
}

TEST_F(DrawGraphTest, AGraphTooSmallForNamesHasNoLegend) {
  CDrawFreqAccSpec graph(FixedBlock());
  WithCurves(graph, 2);
  QImage image(160, 100, QImage::Format_RGB32);
  QPainter painter(&image);
  graph.Draw(painter, QRectF(0, 0, 160, 100));
  painter.end();
  EXPECT_LE(CountRed(image, QRect(45, 29, 98, 30)), 0);
}

}  // namespace
}  // namespace tremlo
