#include "core/graphs/GraphTexts.h"

#include "core/graphs/GraphAxis.h"
#include "core/graphs/GraphLegend.h"

#include <QStringList>

namespace tremlo {
namespace {

QString Limits(const QString& title, double min, double max) {
  return title + QStringLiteral("：") + ShortText(min) + QStringLiteral(" ～ ") + ShortText(max);
}

}  // namespace

const GraphTexts& TextsOf(GraphKind kind) {
  static const QString seconds = QStringLiteral("sec");
  static const GraphTexts time = {QStringLiteral("時間－加速度"),
                                  QStringLiteral("時間"),
                                  seconds,
                                  QStringLiteral("加速度"),
                                  QStringLiteral("gal"),
                                  {},
                                  0};
  static const GraphTexts spectrum = {QStringLiteral("周期－加速度応答スペクトル"),
                                      QStringLiteral("周期T"),
                                      seconds,
                                      QStringLiteral("加速度応答スペクトルS"),
                                      QStringLiteral("gal"),
                                      QStringLiteral("減衰定数 h=5%"),
                                      1};
  static const GraphTexts fourier = {QStringLiteral("フーリエスペクトル"),
                                     QStringLiteral("周期T"),
                                     seconds,
                                     QStringLiteral("フーリエスペクトル"),
                                     QStringLiteral("gal・sec"),
                                     QStringLiteral("フィルタなし"),
                                     1};
  switch (kind) {
    case GraphKind::Time:
      return time;
    case GraphKind::Spectrum:
      return spectrum;
    case GraphKind::Fourier:
      break;
  }
  return fourier;
}

QString DescribeAxes(GraphKind kind, const GraphRange& range) {
  const GraphTexts& texts = TextsOf(kind);
  QString x = Limits(texts.XTitle(), range.xMin, range.xMax);
  if (range.logarithmic) x += QStringLiteral(" (対数)");
  return x + QStringLiteral("、") + Limits(texts.YTitle(), range.yMin, range.yMax);
}

QString DescribeCurves(const std::vector<GraphSeries>& series) {
  constexpr int kMostNames = 10;
  QStringList names;
  int others = 0;
  for (const GraphSeries& curve : series) {
    if (!HasPoints(curve) || curve.name.isEmpty()) continue;
    if (names.size() < kMostNames)
      names << curve.name;
    else
      ++others;
  }
  if (names.isEmpty()) return {};
  if (others > 0) names << OtherCurvesText(others);
  return QStringLiteral("曲線：") + names.join(QStringLiteral("、"));
}

QString DescribePoint(GraphKind kind, const QString& curve, double x, double y) {
  const GraphTexts& texts = TextsOf(kind);
  const QString point =
      QStringLiteral("%1 %2 %3、%4 %5 %6")
          .arg(texts.xName, ShortText(x), texts.xUnit, texts.yName, ShortText(y), texts.yUnit);
  return curve.isEmpty() ? point : curve + QStringLiteral("：") + point;
}

}  // namespace tremlo
