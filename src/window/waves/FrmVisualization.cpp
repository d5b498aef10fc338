#include "window/waves/FrmVisualization.h"

#include "core/waves/AdoptedWave.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/NamedControl.h"

#include <QHBoxLayout>

namespace tremlo {

namespace {

void ExportAfresh(const SavePath& path, const CSeismicWave& wave, const std::vector<double>& acc) {
  std::vector<double> periods, values;
  ComputeResponseSpectrum(WithoutBlanks(acc), periods, values, wave.timeStep);
  ExportWave(path, wave.name, wave.timeStep, acc, periods, values);
}

}  // namespace

CFrmVisualization::CFrmVisualization(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                                     QWidget* parent)
    : WaveVisualization(doc, prompt, files, gate,
                        {QStringLiteral("原種波形のCSV出力"), QStringLiteral("調整後波形のCSV出力")}, parent),
      m_nameEdit(new CExpEdit(this)) {
  m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
  m_nameEdit->setReadOnly(true);
  auto* const row = new QHBoxLayout;
  row->addWidget(LabelFor(m_nameEdit, QStringLiteral("採用した原種波形")));
  row->addWidget(m_nameEdit, 1);
  BuildBody(row, {m_nameEdit});
  Refresh();
}

void CFrmVisualization::Prepare() {
  Refresh();
  ShowTimeGraph();
}

void CFrmVisualization::Refresh() {
  const CSeismicWave* const wave = Wave();
  m_nameEdit->SetText(wave ? wave->name : QString());
  m_nameEdit->setCursorPosition(0);
  WaveVisualization::Refresh();
}

CSeismicWave* CFrmVisualization::Wave() {
  const std::optional<std::size_t> adopted = AdoptedWave(m_doc.seedWaves);
  return adopted ? &m_doc.seedWaves.At(*adopted) : nullptr;
}

/// Its samples have been changed since: the old spectrum is that of another wave.
QString CFrmVisualization::MissingSpectrumText(const CSeismicWave& wave) const {
  if (wave.spectrumValid) return {};
  return QStringLiteral(
      "原種波形の加速度応答スペクトルは、波形データの変更後に計算されていません。"
      "「原種波形の振幅調整」を開くと計算されます。");
}

void CFrmVisualization::ExportSeed(CSeismicWave& wave, const SavePath& path) {
  ExportAfresh(path, wave, wave.acc);
}

void CFrmVisualization::ExportAdjusted(CSeismicWave& wave, const SavePath& path) {
  ExportAfresh(path, wave, wave.adjustedAcc);
}

}  // namespace tremlo
