#include "core/verify/VerifyAdjustment.h"

#include "core/project/AdjustCheck.h"
#include "core/project/ResponseRoute.h"
#include "core/verify/Agreement.h"
#include "core/verify/StoredResults.h"
#include "core/waves/FitText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tremlo {

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
/// How far a run with other settings is followed when the project's own allow for fewer passes.
constexpr int kPassesFollowed = 100;

/// A run of the adjustment with what it measured on its way.
struct Run {
  bool converged = false;
  std::vector<double> acc;         ///< the last wave
  std::vector<double> deviations;  ///< of each sweep
};

Run RunOf(const AdjustInput& input, int iterations, double tolerance) {
  Run run;
  run.converged =
      AdjustAmplitude(iterations, input.acc, input.periods, input.target, run.acc, tolerance, input.timeStep,
                      [&](const FitFigures& fit) { run.deviations.push_back(fit.deviation); });
  return run;
}

Agreement CompareWaves(const std::vector<double>& stored, const std::vector<double>& anew) {
  return Compare(stored, anew, LargestSize(anew));
}

/// How far a wave is from the target: one sweep.
double DeviationOf(const AdjustInput& input, const std::vector<double>& acc) {
  AdjustInput one = input;
  one.acc = acc;
  return RunOf(one, 1, kInfinite).deviations.front();
}

QString SettingsText(const AdjustInput& input) {
  return QStringLiteral("繰り返し %1 回まで、収束判定 %2")
      .arg(input.iterations)
      .arg(PercentText(input.tolerance));
}

/// What the stored wave may be when the settings of the project do not lead to it. Every run over seed and
/// target passes through the same waves; the settings only say where it stops. So the stored wave is one of
/// them if the run that stops at its deviation stops at it.
QString CauseText(const AdjustInput& input, const std::vector<double>& stored) {
  QString other = QStringLiteral(
      "繰り返し回数や収束判定の違いでは説明できません。種波形、目標スペクトル、調整後波形のどれかが計算の後で"
      "変わ"
      "っています。");
  if (stored.empty()) return other;
  const double deviation = DeviationOf(input, stored);
  if (!std::isfinite(deviation)) return other;
  const Run run =
      RunOf(input, std::max(input.iterations, kPassesFollowed), std::nextafter(deviation, kInfinite));
  if (!run.converged || CompareWaves(stored, run.acc).outcome == VerifyOutcome::Differs) return other;
  const std::size_t passes = run.deviations.size();
  QString text =
      QStringLiteral("同じ種波形と目標スペクトルによる計算の %1 回目の波形（偏差 %2）と一致します。")
          .arg(passes)
          .arg(PercentText(deviation));
  text += QStringLiteral("別の設定（%1 回以上、収束判定 %2 を超え").arg(passes).arg(PercentText(deviation));
  if (passes > 1)
    text += QStringLiteral(" %1 以下")
                .arg(PercentText(*std::min_element(run.deviations.begin(), run.deviations.end() - 1)));
  return text + QStringLiteral("）で調整された波形です。");
}

/// What a run takes now, or why there is none to be made.
AdjustInput InputOf(const CMorvaneDoc& doc, std::size_t index, QString& missing) {
  if (!doc.guidelineRoute && index > 0) {
    missing = QStringLiteral("この手順で調整するのは最初の波形だけです。");
    return {};
  }
  AdjustInput input = doc.guidelineRoute ? AdjustInputOf(doc, doc.seedWaves.At(index)) : RespAdjustInput(doc);
  if (!input.HasTarget()) {
    missing = doc.guidelineRoute
                  ? QStringLiteral("基準スペクトルが選択されていないか、そのデータがありません。")
                  : QStringLiteral("調整用スペクトルのデータがありません。");
  } else if (!input.HasWave()) {
    missing = QStringLiteral("種波形のデータがありません。");
  }
  return input;
}

void Tell(VerifyItem& item, const AdjustInput& input, const std::vector<double>& stored, const Run& run) {
  const Agreement agreement = CompareWaves(stored, run.acc);
  item.outcome = run.converged ? agreement.outcome : VerifyOutcome::Differs;
  item.difference = agreement.difference;
  if (item.outcome == VerifyOutcome::Equal) return;
  if (agreement.outcome != VerifyOutcome::Equal) {
    item.at = item.key + u'[' + QString::number(agreement.index) + u']';
    item.place = QStringLiteral("時刻 %1 秒（%2 番目）")
                     .arg(QString::number(static_cast<double>(agreement.index) * input.timeStep, 'g', 6))
                     .arg(agreement.index + 1);
    item.reason = BothValues(agreement, stored.size(), run.acc.size());
  }
  if (item.outcome != VerifyOutcome::Differs) return;
  const QString last = run.deviations.empty() ? QStringLiteral("－") : PercentText(run.deviations.back());
  item.reason +=
      QStringLiteral("保存された設定（%1）では %2 回で%3（偏差 %4）。")
          .arg(SettingsText(input))
          .arg(run.deviations.size())
          .arg(run.converged ? QStringLiteral("収束します") : QStringLiteral("収束しません"), last);
  item.reason += CauseText(input, stored);
}

}  // namespace

void VerifyAdjustedWave(const CMorvaneDoc& doc, std::size_t index, std::vector<VerifyItem>& items) {
  const CSeismicWave& wave = doc.seedWaves.At(index);
  if (!wave.adjusted) return;
  VerifyItem item = RecordItem(ResultKind::AdjustedWave, index, wave.name);
  QString missing;
  const AdjustInput input = InputOf(doc, index, missing);
  if (!missing.isEmpty()) {
    items.push_back(UncheckedItem(item.key, item.name, missing));
    return;
  }
  Tell(item, input, wave.adjustedAcc, RunOf(input, input.iterations, input.tolerance));
  items.push_back(item);
}

}  // namespace tremlo
