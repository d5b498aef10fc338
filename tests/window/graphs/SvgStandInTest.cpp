// What stands in for Qt's module on Windows where that cannot be had, held against the module itself.

#include "support/TestFolder.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/JapaneseFont.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QSvgRenderer>

#include <cmath>
#include <gtest/gtest.h>

// The classes bear Qt's names.
#define QSvgGenerator StandInGenerator
#include "SvgWriter.cpp"
#undef QSvgGenerator
#define QSvgRenderer StandInRenderer
#include "PngRenderer.cpp"
#undef QSvgRenderer

namespace tremlo {
namespace {

constexpr QSize kSize(640, 300);
constexpr int kUnits = 8;

template <class Generator>
QByteArray Written(const std::function<void(QPainter&)>& draw) {
  QByteArray content;
  QBuffer buffer(&content);
  Generator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(96);
  svg.setSize(kSize);
  svg.setViewBox(QRect(QPoint(0, 0), kSize * kUnits));
  svg.setTitle(QStringLiteral("図"));
  QPainter painter(&svg);
  painter.scale(kUnits, kUnits);
  draw(painter);
  painter.end();
  return content;
}

QImage Rendered(const QByteArray& svg) {
  QSvgRenderer renderer(svg);
  EXPECT_TRUE(renderer.isValid());
  QImage image(kSize, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

/// The share of pixels that differ visibly.
double Difference(const QImage& one, const QImage& other) {
  int count = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x) {
      const QColor a = one.pixelColor(x, y), b = other.pixelColor(x, y);
      const int most = std::max(
          {std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
      if (most > 64) ++count;
    }
  return count / (1.0 * one.width() * one.height());
}

double PaintedShare(const QImage& image) {
  QImage white(image.size(), image.format());
  white.fill(Qt::white);
  return Difference(image, white);
}

void ExpectTheSame(const std::function<void(QPainter&)>& draw) {
  const QImage own = Rendered(Written<StandInGenerator>(draw));
  const QImage qt = Rendered(Written<QSvgGenerator>(draw));
  EXPECT_GT(PaintedShare(qt), 0.01);
  EXPECT_LT(Difference(own, qt), 0.002);
}

TEST(SvgStandIn, AGraphLooksAsWithTheModule) {
  InstallJapaneseFonts();
  WaveGraphSetting block;
  block.specLog = 1;
  CDrawFreqAccSpec graph(block);
  std::vector<double> periods, values;
  for (int i = 1; i <= 400; ++i) {
    periods.push_back(4.0 / i);
    values.push_back(400.0 + 300.0 * std::sin(std::log(i)));
  }
  graph.AddSpectrum(periods, values, {0x0000FF, 2}, QStringLiteral("原種 <&> \"波\""));
  graph.AddSpectrum({10, 1, 0.1, 0.02}, {900, 500, 100, 300}, {0xFF0000, 2, CurveLine::Dotted},
                    QStringLiteral("目標"));
  ExpectTheSame([&](QPainter& painter) { graph.Draw(painter, QRectF(QPointF(0.0, 0.0), QSizeF(kSize))); });
}

TEST(SvgStandIn, ShapesAndPicturesLookAsWithTheModule) {
  QImage picture(4, 4, QImage::Format_ARGB32);
  picture.fill(Qt::darkGreen);
  ExpectTheSame([&](QPainter& painter) {
    painter.setBrush(QColor(200, 0, 0, 128));
    painter.drawEllipse(QRectF(20, 20, 200, 120));
    painter.setPen(QPen(Qt::blue, 5, Qt::DashLine, Qt::RoundCap));
    painter.drawPolyline(QPolygonF({{10, 10}, {300, 40}, {200, 280}}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({{400, 20}, {500, 20}, {450, 120}}));
    painter.fillRect(QRectF(300, 150, 100, 50), Qt::magenta);
    painter.setOpacity(0.5);
    painter.rotate(5);
    painter.drawImage(QRectF(450, 150, 100, 60), picture);
  });
}

/// The picture as it looks on white, `scale` times as large as its SVG states.
template <class Renderer>
QImage Shown(Renderer& renderer, double scale) {
  QImage image((QSizeF(renderer.defaultSize()) * scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter, QRectF(image.rect()));
  return image;
}

class PicturesForAnSvg : public testing::Test {
 protected:
  /// PNG pictures of these scales in one file.
  QByteArray Pictures(std::initializer_list<int> scales) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    for (const int scale : scales) {
      QImage drawn(module.defaultSize() * scale, QImage::Format_ARGB32);
      drawn.fill(Qt::transparent);
      QPainter painter(&drawn);
      module.render(&painter);
      painter.end();
      EXPECT_TRUE(drawn.save(&bytes, "PNG"));
    }
    return bytes.data();
  }

  const test::TestFolder folder;
  QSvgRenderer module{QStringLiteral(TREMLO_SOURCE_DIR "/src/window/shell/pictures/splash.svg")};
};

TEST_F(PicturesForAnSvg, HaveItsSizeAndLook) {
  const QByteArray pictures = Pictures({4, 2, 1});
  folder.Write("a.svg", pictures);
  folder.Write("b.svg.png", pictures);
  for (const QString& name : {QStringLiteral("a.svg"), QStringLiteral("b.svg")}) {
    StandInRenderer standIn(folder.Path(name));
    ASSERT_TRUE(standIn.isValid());
    EXPECT_EQ(standIn.defaultSize(), module.defaultSize());
    for (const double scale : {0.5, 1.0, 1.5, 2.0, 3.0})
      EXPECT_LT(Difference(Shown(standIn, scale), Shown(module, scale)), 0.002) << scale;
  }
}

TEST_F(PicturesForAnSvg, TheSmallestThatIsLargeEnoughIsShown) {
  QByteArray pictures;
  for (const auto& [scale, colour] :
       {std::pair(4, Qt::red), std::pair(2, Qt::green), std::pair(1, Qt::blue)}) {
    QImage picture(10 * scale, 10 * scale, QImage::Format_RGB32);
    picture.fill(colour);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    ASSERT_TRUE(picture.save(&bytes, "PNG"));
    pictures += bytes.data();
  }
  folder.Write("a.svg", pictures);
  StandInRenderer standIn(folder.Path("a.svg"));
  EXPECT_EQ(standIn.defaultSize(), QSize(10, 10));
  const auto colour = [&](double scale) { return Shown(standIn, scale).pixelColor(2, 2); };
  EXPECT_EQ(colour(0.5), QColor(Qt::blue));
  EXPECT_EQ(colour(1.0), QColor(Qt::blue));
  EXPECT_EQ(colour(1.1), QColor(Qt::green));
  EXPECT_EQ(colour(2.0), QColor(Qt::green));
  EXPECT_EQ(colour(2.1), QColor(Qt::red));
  EXPECT_EQ(colour(5.0), QColor(Qt::red));
}

TEST_F(PicturesForAnSvg, AFileThatHoldsSomethingElseShowsNothing) {
  const QByteArray picture = Pictures({1});
  EXPECT_TRUE(StandInRenderer(folder.Write("whole.svg", picture)).isValid());
  for (const QByteArray& bytes : {QByteArray(), QByteArray("<svg/>"), picture + "and more"}) {
    StandInRenderer standIn(folder.Write("a.svg", bytes));
    EXPECT_FALSE(standIn.isValid()) << bytes.size();
    EXPECT_EQ(standIn.defaultSize(), QSize());
  }
  EXPECT_FALSE(StandInRenderer(folder.Path("none.svg")).isValid());
}

}  // namespace
}  // namespace tremlo
