#include "core/project/AdjustCheck.h"

#include "core/project/BaseSpectrumView.h"
#include "core/waves/FitText.h"

namespace tremlo {

namespace {

QString NoTargetText(const QString& label) {
  return QStringLiteral("基準スペクトルとして「") + label +
         QStringLiteral("」が選択されていますが，その波形データがありません。");
}

QString NoWaveText(const QString& name) {
  return QStringLiteral("調整する「") + name + QStringLiteral("」の波形データがありません。");
}

void SetChecked(CMorvaneDoc& doc, std::size_t wave, bool checked) {
  doc.seedWaves.At(wave).adjustChecked = checked;
  doc.SetModified(true);
}

}  // namespace

AdjustInput AdjustInputOf(const CMorvaneDoc& doc, const CSeismicWave& wave) {
  AdjustInput input;
  const BaseSpectrumView base = ViewOfBase(doc);
  input.SetWave(wave);
  input.periods.assign(base.periods.begin(), base.periods.end());
  input.target.assign(base.spectrum.begin(), base.spectrum.end());
  PutLongestFirst(input.periods, input.target);
  input.iterations = doc.adjustMaxIterations;
  input.tolerance = doc.adjustTolerancePercent;
  return input;
}

std::optional<AdjustResult> CheckAdjustment(CMorvaneDoc& doc, Prompt& prompt, std::size_t wave, bool checked,
                                            const AdjustRunner& run) {
  if (wave >= doc.seedWaves.Count()) return std::nullopt;
  if (!checked || doc.seedWaves.At(wave).adjusted) {
    SetChecked(doc, wave, checked);
    return std::nullopt;
  }
  const QString name = doc.seedWaves.At(wave).name;
  const AdjustInput input = AdjustInputOf(doc, doc.seedWaves.At(wave));
  if (!input.HasTarget()) {
    prompt.Tell(NoTargetText(ViewOfBase(doc).label));
    return std::nullopt;
  }
  if (!input.HasWave()) {
    prompt.Tell(NoWaveText(name));
    return std::nullopt;
  }
  const std::uint64_t generation = doc.Generation();
  AdjustResult result = run(input);
  if (doc.Generation() != generation) return std::nullopt;
  if (!result.converged) {
    prompt.Tell(QStringLiteral("地震波形調整の計算に失敗しました。"), PromptIcon::Warning,
                FailedRunText(result));
    return result;
  }
  // A result goes to the record that it was made of, or nowhere.
  if (wave >= doc.seedWaves.Count() || doc.seedWaves.At(wave).name != name) return result;
  StoreAdjustment(doc.seedWaves.At(wave), result);
  SetChecked(doc, wave, true);
  return result;
}

}  // namespace tremlo
