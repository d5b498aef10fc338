#include "core/graphs/GraphFile.h"
#include "support/TestFolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

GraphSeries Curve(const QString& name, std::vector<double> y = {1.0, 2.0}) {
  return {name, {0.1, 0.2}, std::move(y), {}};
}

TEST(GraphFile, TheEndingOfTheNameChoosesTheFormat) {
  EXPECT_EQ(PictureFormatOf("/a/b.png"), PictureFormat::Png);
  EXPECT_EQ(PictureFormatOf("図 0.5.SVG"), PictureFormat::Svg);
  EXPECT_EQ(PictureFormatOf("a.png.Pdf"), PictureFormat::Pdf);
}

TEST(GraphFile, AnotherEndingChoosesNone) {
  for (const char* const name : {"", "a", "png", "a.jpg", "a.png.bak", "a.pdfx", "/a.svg/b"})
    EXPECT_EQ(PictureFormatOf(name), std::nullopt) << name;
  EXPECT_EQ(
      UnknownPictureText("/a/図.jpg"),
      QString("画像を保存できません。ファイル名の末尾は .png、.svg、.pdf のいずれかにしてください。\n") +
          QDir::toNativeSeparators("/a/図.jpg"));
}

TEST(GraphFile, TheQuestionsOfferTheFormatsAndProposeTheNameOfTheGraph) {
  const FileQuestion picture = PictureToWrite(GraphKind::Time, {});
  EXPECT_EQ(picture.title, QString("画像をファイルに保存"));
  EXPECT_EQ(picture.nameFilters, QString("PNG画像 (*.png);;SVG画像 (*.svg);;PDF文書 (*.pdf)"));
  EXPECT_EQ(picture.suffix, QString("png"));
  EXPECT_EQ(picture.proposedName, QString("時間－加速度.png"));
  const FileQuestion curves = CurvesToWrite(GraphKind::Fourier, {});
  EXPECT_EQ(curves.title, QString("データをCSVで保存"));
  EXPECT_EQ(curves.nameFilters, QString("CSVファイル (*.csv)"));
  EXPECT_EQ(curves.suffix, QString("csv"));
  EXPECT_EQ(curves.proposedName, QString("フーリエスペクトル.csv"));
}

TEST(GraphFile, TheOnlyCurveGivesItsNameToTheFile) {
  const auto proposed = [](const std::vector<GraphSeries>& curves) {
    return PictureToWrite(GraphKind::Spectrum, curves).proposedName;
  };
  EXPECT_EQ(proposed({Curve("下限/1")}), QString("下限_1_周期－加速度応答スペクトル.png"));
  EXPECT_EQ(proposed({Curve("A", {}), Curve("B")}), QString("B_周期－加速度応答スペクトル.png"));
  EXPECT_EQ(proposed({Curve("A"), Curve("B")}), QString("周期－加速度応答スペクトル.png"));
  EXPECT_EQ(proposed({Curve({})}), QString("周期－加速度応答スペクトル.png"));
  EXPECT_LE(proposed({Curve(QString(300, u'波'))}).toUtf8().size(), 255);
}

}  // namespace
}  // namespace tremlo
