#include "window/waves/FrmRespVisualization.h"

#include "core/project/WaveSpectrum.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/WaitCursor.h"

#include <QComboBox>
#include <QHBoxLayout>

namespace tremlo {

CFrmRespVisualization::CFrmRespVisualization(CMorvaneDoc& doc, FileDialogs& files, CommandGate& gate,
                                             QWidget* parent)
    : WaveVisualization(doc, files, gate,
                        {QStringLiteral("原種波形の出力"), QStringLiteral("調整後波形の出力")}, parent),
      m_nameCombo(new QComboBox(this)),
      m_fitLabel(new QLabel(this)) {
  m_nameCombo->setObjectName(QStringLiteral("nameCombo"));
  m_nameCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_fitLabel->setObjectName(QStringLiteral("fitLabel"));
  m_fitLabel->setTextFormat(Qt::PlainText);
  m_fitLabel->setWordWrap(true);
  auto* const row = new QHBoxLayout;
  row->addWidget(LabelFor(m_nameCombo, QStringLiteral("波形データ名")));
  row->addWidget(m_nameCombo, 1);
  row->addStretch(1);
  BuildBody(row, {m_nameCombo});
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
  if (!wave || !wave->adjusted || wave->adjustedAcc != m_fitted) TellFit({});
  WaveVisualization::Refresh();
}

void CFrmRespVisualization::ShowFit(const QString& figures) {
  const CSeismicWave* const wave = Wave();
  if (!wave || !wave->adjusted) return;
  m_fitted = wave->adjustedAcc;
  TellFit(figures);
}

void CFrmRespVisualization::TellFit(const QString& figures) {
  m_fitLabel->setText(figures);
  m_fitLabel->setAccessibleName(QStringLiteral("適合度 ") + figures);  // it is read out in place of the text
  m_fitLabel->setVisible(!figures.isEmpty());
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
