#include "core/waves/FiguresText.h"

#include "core/files/NumberText.h"

#include <cmath>

namespace tremlo {

namespace {

constexpr double kWidest = 1e6;  // longer numbers would take the room of the figures behind them
constexpr int kMostDecimals = 4;

int DecimalsOf(double size) {
  int decimals = kMostDecimals;
  for (double limit = 1.0; decimals > 0 && size >= limit; limit *= 10.0) --decimals;
  return decimals;
}

}  // namespace

QString FiguresLine::Text() const {
  QString text = title;
  for (const FigureText& figure : figures) text += u'　' + figure.Text();
  return text;
}

QString FigureNumber(double value) {
  if (!std::isfinite(value)) return QStringLiteral("－");
  const double size = std::fabs(value);
  if (size >= kWidest) return QString::number(value, 'e', 2);
  const QString text = FixedText(value, DecimalsOf(size));
  // What is too small to be seen has no sign.
  return text == u"-0.0000" ? FixedText(0.0, kMostDecimals) : text;
}

FiguresLine MakeFiguresLine(const QString& title, const WaveFigures& figures) {
  const QString velocity = QStringLiteral("静止状態から加速度を台形公式で積分した速度、基線補正なし。");
  const QString displacement = QStringLiteral("静止状態から速度を台形公式で積分した変位、基線補正なし。");
  const auto figure = [](const QString& label, double value, const QString& unit, const QString& definition) {
    return FigureText{label, FigureNumber(value) + u' ' + unit, definition};
  };
  return {title,
          {figure(QStringLiteral("最大加速度"), figures.pga, QStringLiteral("gal"),
                  QStringLiteral("加速度の絶対値の最大（PGA）。")),
           figure(QStringLiteral("最大速度"), figures.pgv, QStringLiteral("cm/s"),
                  QStringLiteral("速度の絶対値の最大（PGV）。") + velocity),
           figure(QStringLiteral("最大変位"), figures.pgd, QStringLiteral("cm"),
                  QStringLiteral("変位の絶対値の最大（PGD）。") + displacement),
           figure(QStringLiteral("終端速度"), figures.endVelocity, QStringLiteral("cm/s"),
                  QStringLiteral("波形の終わりの速度。") + velocity),
           figure(QStringLiteral("終端変位"), figures.endDisplacement, QStringLiteral("cm"),
                  QStringLiteral("波形の終わりの変位。") + displacement),
           figure(QStringLiteral("アリアス強度"), figures.ariasIntensity, QStringLiteral("cm/s"),
                  QStringLiteral("π/(2g)・∫a²dt、波形全体、台形公式、g = 980.665 gal。")),
           figure(QStringLiteral("継続時間(5–95%)"), figures.duration, QStringLiteral("秒"),
                  QStringLiteral("∫a²dt が全体の 5 % に達する時刻から 95 % に達する時刻まで。"))}};
}

std::vector<FiguresLine> FiguresOf(const CSeismicWave& wave) {
  std::vector<FiguresLine> lines{MakeFiguresLine(QStringLiteral("原種波形"),
                                                 ComputeWaveFigures(WithoutBlanks(wave.acc), wave.timeStep))};
  if (wave.adjusted)
    lines.push_back(
        MakeFiguresLine(QStringLiteral("調整後波形"), ComputeWaveFigures(wave.adjustedAcc, wave.timeStep)));
  return lines;
}

}  // namespace tremlo
