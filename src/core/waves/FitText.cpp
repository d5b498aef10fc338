#include "core/waves/FitText.h"

#include <cmath>

namespace tremlo {

namespace {

QString ExtremeText(const QString& label, double size, double period) {
  if (!(period > 0.0)) return {};
  return QStringLiteral("　%1 %2（周期 %3 秒）")
      .arg(label, PercentText(size), QString::number(period, 'g', 4));
}

}  // namespace

QString PercentText(double fraction) {
  if (!std::isfinite(fraction)) return QStringLiteral("－");
  return QString::number(fraction * 100.0, 'f', 2) + QStringLiteral(" %");
}

QString FitText(const FitFigures& fit) {
  return QStringLiteral("偏差（RMS） ") + PercentText(fit.deviation) +
         ExtremeText(QStringLiteral("目標を上回る最大"), fit.overshoot, fit.overshootPeriod) +
         ExtremeText(QStringLiteral("目標を下回る最大"), fit.undershoot, fit.undershootPeriod);
}

QString FitDefinitions() {
  return QStringLiteral(
      "偏差（RMS）：目標スペクトルの周期の範囲で、1－目標／応答 の二乗平均の平方根。\n"
      "目標を上回る最大：応答／目標－1 の最大と、その周期。\n"
      "目標を下回る最大：1－応答／目標 の最大と、その周期。\n"
      "応答は、波形の離散フーリエ周波数での、減衰 5 % の加速度応答スペクトル。");
}

QString RunFitText(const AdjustResult& run) {
  const QString line = FitText(run.fit);
  return run.converged ? line : QStringLiteral("収束しなかった計算：") + line;
}

QString FailedRunText(const AdjustResult& run) {
  // Without a pass memory was short, or the settings allow for none.
  const QString outcome = run.passes > 0
                              ? QStringLiteral("繰り返し %1 回で収束しませんでした（最後の偏差 %2）。\n")
                                    .arg(QString::number(run.passes), PercentText(run.fit.deviation))
                              : QStringLiteral("繰り返し計算は 1 回も終わりませんでした。\n");
  return outcome + QStringLiteral("繰り返し回数と収束判定は「波形調整設定」で設定します。");
}

}  // namespace tremlo
