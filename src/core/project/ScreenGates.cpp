#include "core/project/ScreenGates.h"

#include "core/project/BaseSpectrum.h"
#include "core/project/ResponseRoute.h"
#include "core/waves/FitText.h"

#include <algorithm>

namespace tremlo {

namespace {

template <class Condition>
bool AnyWave(const CMorvaneDoc& doc, Condition condition) {
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  return std::any_of(waves.begin(), waves.end(), condition);
}

bool LacksSpectrum(const CSeismicWave& wave) {
  return !wave.spectrumValid;
}
bool IsAdopted(const CSeismicWave& wave) {
  return wave.adopted;
}
bool IsNeighbourWithoutSpectrum(const CSeismicWave& wave) {
  return wave.siteUse && !wave.spectrumValid;
}

}  // namespace

SwitchOutcome ScreenGates::Pass(ScreenId id) {
  switch (id) {
    case ScreenId::DamsiteWave:
      return PassDamsiteWave();
    case ScreenId::MakeSeismicWave1:
      return Prepared(id);
    case ScreenId::MakeSeismicWave2:
      return PassFaultSpectra();
    case ScreenId::BaseSpectrum:
      return PassBaseSpectrum();
    case ScreenId::AdjustSeismicWave:
      return PassAdjustSeismicWave();
    case ScreenId::Visualization:
      return PassVisualization();
    case ScreenId::RespAdjustSpectrum:
      EnsureRespSpectrum(m_doc);
      return Prepared(id);
    case ScreenId::RespVisualization:
      return PassRespVisualization();
    default:
      return SwitchOutcome::Open;
  }
}

SwitchOutcome ScreenGates::PassDamsiteWave() {
  if (m_doc.seedWaves.IsEmpty()) return Refused(QStringLiteral("「波形登録」で波形を登録してください。"));
  if (AnyWave(m_doc, LacksSpectrum) && !ComputeMissingSpectra()) return SwitchOutcome::Refused;
  return Prepared(ScreenId::DamsiteWave);
}

SwitchOutcome ScreenGates::PassFaultSpectra() {
  if (!m_host.CalculateFaultSpectra()) return SwitchOutcome::EndProgram;
  return Prepared(ScreenId::MakeSeismicWave2);
}

SwitchOutcome ScreenGates::PassBaseSpectrum() {
  if (m_doc.flowNeighbourWave && AnyWave(m_doc, IsNeighbourWithoutSpectrum) && !ComputeMissingSpectra())
    return SwitchOutcome::Refused;
  if (m_doc.flowFaultSource && !m_host.CalculateFaultSpectra()) return SwitchOutcome::EndProgram;
  return Prepared(ScreenId::BaseSpectrum);
}

SwitchOutcome ScreenGates::PassAdjustSeismicWave() {
  if (m_doc.seedWaves.IsEmpty())
    return Refused(QStringLiteral("原種波形が設定されていません。「波形登録」で波形を設定してください。"));
  // The marks count, not the label: the target of a run is found by them.
  if (!MarkedBase(m_doc))
    return Refused(
        QStringLiteral("基準スペクトルが選択されていません。「基準スペクトル設定」で基準スペクトルを"
                       "選択してください。"));
  if (AnyWave(m_doc, LacksSpectrum) && !ComputeMissingSpectra()) return SwitchOutcome::Refused;
  return Prepared(ScreenId::AdjustSeismicWave);
}

SwitchOutcome ScreenGates::PassVisualization() {
  if (!AnyWave(m_doc, IsAdopted))
    return Refused(QStringLiteral("「原種波形の振幅調整」にて採用する原種波形が選択されていません。"));
  return Prepared(ScreenId::Visualization);
}

SwitchOutcome ScreenGates::PassRespVisualization() {
  if (!HasRespWaveData(m_doc)) return Refused(QStringLiteral("原種波形が設定されていません。"));
  if (!HasRespTarget(m_doc)) return Refused(QStringLiteral("調整用スペクトルのデータがありません。"));
  if (m_doc.seedWaves.At(0).adjusted) return Prepared(ScreenId::RespVisualization);
  const AdjustResult run = m_host.RunRespAdjustment();
  if (run.converged) return Prepared(ScreenId::RespVisualization);
  m_prompt.Tell(QStringLiteral("地震波形調整の計算に失敗しました。"), PromptIcon::Warning,
                FailedRunText(run));
  // On display already, the screen must not go on showing an adjusted wave that is no more.
  m_host.Prepare(ScreenId::RespVisualization);
  return SwitchOutcome::Refused;
}

bool ScreenGates::ComputeMissingSpectra() {
  if (m_host.ComputeMissingSpectra()) return true;
  m_prompt.Tell(QStringLiteral("加速度応答スペクトルの計算に失敗しました。"));
  return false;
}

SwitchOutcome ScreenGates::Prepared(ScreenId id) {
  m_host.Prepare(id);
  return SwitchOutcome::Open;
}

SwitchOutcome ScreenGates::Refused(const QString& message) {
  m_prompt.Tell(message);
  return SwitchOutcome::Refused;
}

}  // namespace tremlo
