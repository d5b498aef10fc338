#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/GraphPicture.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/JapaneseFont.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <cmath>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr QSize kView(660, 300);
constexpr QSize kPicture(656, 292);

/// Two curves, a solid and a dotted one, and names that XML would take for its own.
std::unique_ptr<CDrawFreqAccSpec> Spectra() {
  WaveGraphSetting block;
  block.specLog = 1;
  auto graph = std::make_unique<CDrawFreqAccSpec>(block);
  std::vector<double> periods, values;
  for (int i = 1; i <= 4000; ++i) {
    periods.push_back(40.0 / i);
    values.push_back(400.0 + 300.0 * std::sin(std::log(i)));
  }
  graph->AddSpectrum(periods, values, {0x0000FF, 2}, QStringLiteral("原種 <&> \"波\""));
  graph->AddSpectrum({10, 1, 0.1, 0.02}, {900, 500, 100, 300}, {0xFF0000, 2, CurveLine::Dotted},
                     QStringLiteral("目標"));
  return graph;
}

QImage ReadPng(const QByteArray& content) {
  return QImage::fromData(content, "PNG");
}

QImage Rendered(const QByteArray& svg, const QSize& size) {
  QSvgRenderer renderer(svg);
  EXPECT_TRUE(renderer.isValid());
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::green);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

/// What the text elements of an SVG file say.
std::string TextsIn(const QByteArray& svg) {
  QXmlStreamReader xml(svg);
  QString all;
  while (!xml.atEnd())
    if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"text")
      all += xml.readElementText();
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return all.toStdString();
}

QList<QByteArray> StreamsIn(const QByteArray& pdf) {
  QList<QByteArray> streams;
  for (qsizetype at = 0; (at = pdf.indexOf("\nstream\n", at)) >= 0;) {
    at += 8;
    const qsizetype end = pdf.indexOf("\nendstream", at);
    const QByteArray stream = pdf.mid(at, end - at);
    // Qt expects a guess of the size before the data.
    streams << (stream.startsWith('x') ? qUncompress(QByteArray(4, '\1') + stream) : stream);
    at = end;
  }
  return streams;
}

/// The text that a reader of a PDF file finds and searches, by way of the map that its only font brings.
std::string TextsInPdf(const QByteArray& pdf) {
  const QList<QByteArray> streams = StreamsIn(pdf);
  std::map<QString, QChar> letters;
  const QRegularExpression range(QStringLiteral("<(\\w{4})> <\\w{4}> \\[(.*)\\]"));
  const QRegularExpression code(QStringLiteral("<(\\w{4})>"));
  for (const QByteArray& stream : streams) {
    if (!stream.contains("begincmap")) continue;
    const QRegularExpressionMatch found = range.match(QString::fromLatin1(stream));
    int glyph = found.captured(1).toInt(nullptr, 16);
    for (auto each = code.globalMatch(found.captured(2)); each.hasNext();)
      letters[QStringLiteral("%1").arg(glyph++, 4, 16, QChar(u'0'))] =
          QChar(each.next().captured(1).toUShort(nullptr, 16));
  }
  QString all;
  for (const QByteArray& stream : streams) {
    if (!stream.contains("\nBT\n")) continue;
    const QRegularExpression shown(QStringLiteral("<(\\w{4})> Tj"));
    for (auto each = shown.globalMatch(QString::fromLatin1(stream)); each.hasNext();)
      all += letters[each.next().captured(1).toLower()];
  }
  return all.replace(u'\t', u' ').toStdString();  // Qt's map takes the glyph of a blank for a tab
}

/// In each column of the plot the uppermost pixel of that colour below the legend; -1 where there is none.
std::vector<int> TopsOf(const QImage& picture, const QColor& color) {
  std::vector<int> tops;
  for (int x = 100; x < picture.width() - 40; ++x) {
    int top = -1;
    for (int y = picture.height() / 4; y < picture.height() - 70 && top < 0; ++y) {
      const QColor pixel = picture.pixelColor(x, y);
      const bool same = std::abs(pixel.red() - color.red()) < 100 &&
                        std::abs(pixel.green() - color.green()) < 100 &&
                        std::abs(pixel.blue() - color.blue()) < 100;
      if (same) top = y;
    }
    tops.push_back(top);
  }
  return tops;
}

/// Whether two pictures show the curve of that colour at the same place.
void ExpectSameCurve(const QImage& a, const QImage& b, const QColor& color) {
  const std::vector<int> first = TopsOf(a, color), second = TopsOf(b, color);
  ASSERT_EQ(first.size(), second.size());
  int seen = 0;
  for (std::size_t i = 0; i < first.size(); ++i) {
    if (first[i] < 0 || second[i] < 0) continue;
    ++seen;
    EXPECT_NEAR(first[i], second[i], 4) << i;
  }
  EXPECT_GT(seen, static_cast<int>(first.size()) / 4) << "dots stand elsewhere, but half of the line is dots";
}

class GraphPictureTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }
};

TEST_F(GraphPictureTest, APngFileHasTwiceThePixelsOfThePictureInEitherDirection) {
  const auto graph = Spectra();
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const QImage image = ReadPng(PictureFile(PictureFormat::Png, *graph, kView, ratio));
    EXPECT_EQ(image.size(), (QSizeF(kPicture) * 2 * ratio).toSize()) << ratio;
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), GraphPicture(graph.get(), kView, 2.0 * ratio));
    // 96 pixels an inch on a screen at 100 %
    EXPECT_NEAR(image.dotsPerMeterX(), 2 * ratio * 96 / 0.0254, 1.0);
    EXPECT_NEAR(image.dotsPerMeterY(), 2 * ratio * 96 / 0.0254, 1.0);
  }
}

TEST_F(GraphPictureTest, AnSvgFileHasItsTextsAsText) {
  const QByteArray svg = PictureFile(PictureFormat::Svg, *Spectra(), kView, 1.5);
  EXPECT_THAT(TextsIn(svg), AllOf(HasSubstr("周期T (sec)"), HasSubstr("加速度応答スペクトルS (gal)"),
                                  HasSubstr("減衰定数 h=5%"), HasSubstr("0.1"), HasSubstr("原種 <&> \"波\""),
                                  HasSubstr("目標")));
  EXPECT_TRUE(svg.contains("width=\"173.567mm\" height=\"77.2583mm\"")) << "656 by 292 at 96 an inch";
}

TEST_F(GraphPictureTest, AnSvgFileShowsTheSameCurvesOnWhite) {
  const auto graph = Spectra();
  const QImage shown = Rendered(PictureFile(PictureFormat::Svg, *graph, kView, 1.0), kPicture * 2);
  const QImage screen = GraphPicture(graph.get(), kView, 2.0);
  ExpectSameCurve(shown, screen, Qt::red);
  ExpectSameCurve(shown, screen, Qt::blue);
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::white));
  EXPECT_EQ(shown.pixelColor(shown.width() - 1, shown.height() - 1), QColor(Qt::white));
}

TEST_F(GraphPictureTest, APdfFileIsOnePageOfThePicturesSizeWithTextAndItsFont) {
  const QByteArray pdf = PictureFile(PictureFormat::Pdf, *Spectra(), kView, 2.0);
  EXPECT_TRUE(pdf.startsWith("%PDF-1."));
  EXPECT_TRUE(pdf.contains("/Count 1"));
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 492.000000 219.000000]")) << "656 by 292 at 96 an inch";
  EXPECT_TRUE(pdf.contains("/FontFile2")) << "the font is in the file";
  EXPECT_THAT(TextsInPdf(pdf),
              AllOf(HasSubstr("周期T (sec)"), HasSubstr("加速度応答スペクトルS (gal)"),
                    HasSubstr("減衰定数 h=5%"), HasSubstr("原種 <&> \"波\""), HasSubstr("目標")));
}

TEST_F(GraphPictureTest, ACurveOfManyPointsIsNoMultitudeOfElements) {
  CDrawTimeAccGal graph({});
  std::vector<double> samples;
  for (int i = 0; i < 65536; ++i) samples.push_back(300.0 * std::sin(i * 0.7));
  graph.AddWave(samples, 0.005, {0x0000FF, 1});
  const QByteArray svg = PictureFile(PictureFormat::Svg, graph, kView, 1.0);
  EXPECT_LT(svg.count("<path"), 4);
  EXPECT_LT(svg.size(), 1'000'000);
}

TEST_F(GraphPictureTest, ADarkPaletteLeavesEveryFileAsItIs) {
  const auto files = [] {
    const auto graph = Spectra();
    return std::pair(PictureFile(PictureFormat::Png, *graph, kView, 1.0),
                     PictureFile(PictureFormat::Svg, *graph, kView, 1.0));
  };
  const auto light = files();
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::black));
  const auto dark = files();
  QApplication::setPalette(before);
  EXPECT_TRUE(dark == light);
  EXPECT_EQ(ReadPng(light.first).pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(GraphPictureTest, AViewTooSmallForItsMarginsGivesAFileToo) {
  const auto graph = Spectra();
  for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf})
    EXPECT_FALSE(PictureFile(format, *graph, {20, 20}, 1.0).isEmpty());
}

}  // namespace
}  // namespace tremlo
