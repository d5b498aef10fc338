#include "window/waves/FrmRespVisualization.h"

#include "core/project/WaveSpectrum.h"
#include "core/waves/FitText.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/WaitCursor.h"
#include "window/waves/NoteLabel.h"

#include <QComboBox>
#include <QHBoxLayout>

namespace tremlo {

CFrmRespVisualization::CFrmRespVisualization(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                             CommandGate& gate, QWidget* parent)
    : WaveVisualization(doc, prompt, files, gate,
                        {QStringLiteral("原種波形の出力"), QStringLiteral("調整後波形の出力")}, parent),
      m_nameCombo(new QComboBox(this)),
      m_fitLabel(new NoteLabel("fitLabel", QStringLiteral("適合度"), this)) {
  m_nameCombo->setObjectName(QStringLiteral("nameCombo"));
  m_nameCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* const row = new QHBoxLayout;
  row->addWidget(LabelFor(m_nameCombo, QStringLiteral("波形データ名")));
  row->addWidget(m_nameCombo, 1);
  BuildBody(row, {m_nameCombo});
  m_fitLabel->SetDefinitions(FitDefinitions());
  layout()->addWidget(m_fitLabel);
  Refresh();
}

void CFrmRespVisualization::Prepare() {
  Refresh();
  ShowTimeGraph();
}

void CFrmRespVisualization::Refresh() {
  const CSeismicWave* const wave = Wave();
  m_nameCombo->clear();
  if (wave) m_nameCombo->addItem(wave->name);
  TellFit();
  WaveVisualization::Refresh();
}

void CFrmRespVisualization::ShowRun(AdjustResult run) {
  m_run = std::move(run);
  m_runGeneration = m_doc.Generation();
  TellFit();
}

void CFrmRespVisualization::TellFit() {
  const CSeismicWave* const wave = Wave();
  const bool there = m_run && m_runGeneration == m_doc.Generation() && wave &&
                     wave->adjusted == m_run->converged &&
                     (!wave->adjusted || wave->adjustedAcc == m_run->acc);
  m_fitLabel->Tell(there ? RunFitText(*m_run) : QString());
}

CSeismicWave* CFrmRespVisualization::Wave() {
  return m_doc.seedWaves.IsEmpty() ? nullptr : &m_doc.seedWaves.At(0);
}

void CFrmRespVisualization::PrepareSpectrum(CSeismicWave& wave) {
  if (wave.spectrumValid) return;
  const WaitCursor waiting;
  EnsureWaveSpectrum(m_doc, wave);
}

void CFrmRespVisualization::ExportSeed(CSeismicWave& wave, const SavePath& path) {
  EnsureWaveSpectrum(m_doc, wave);
  ExportWave(path, wave.name, wave.timeStep, wave.acc, wave.periods, wave.accSpec);
}

void CFrmRespVisualization::ExportAdjusted(CSeismicWave& wave, const SavePath& path) {
  ExportWave(path, wave.name, wave.timeStep, wave.adjustedAcc, wave.adjustedPeriods, wave.adjustedSpec);
}

}  // namespace tremlo
