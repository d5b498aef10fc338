#include "window/waves/FrmRespOrigSeismicWave.h"

#include "core/project/ResponseRoute.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"

#include <QAbstractButton>
#include <QHBoxLayout>

namespace tremlo {

CFrmRespOrigSeismicWave::CFrmRespOrigSeismicWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                                 CommandGate& gate, QWidget* parent)
    : WaveRegistration(doc, prompt, files, gate, true, parent), m_nameEdit(new CExpEdit(this)) {
  setAccessibleName(QStringLiteral("原種波形設定"));
  m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
  RefuseEmpty(*m_nameEdit, m_prompt, QStringLiteral("地震波形名の入力エラーです。"));
  connect(m_nameEdit, &CExpEdit::Entered, this, &CFrmRespOrigSeismicWave::Rename);
  connect(m_nameEdit, &CExpEdit::Abandoned, this, &CFrmRespOrigSeismicWave::ShowName);

  auto* const row = new QHBoxLayout;
  row->addWidget(LabelFor(m_nameEdit, QStringLiteral("波形名")));
  row->addWidget(m_nameEdit, 1);
  row->addWidget(m_readButton);
  row->addWidget(m_dbButton);
  row->addWidget(m_helpButton);
  BuildBody(row, {m_nameEdit, m_readButton, m_dbButton, m_helpButton});
  Refresh();
}

void CFrmRespOrigSeismicWave::Refresh() {
  ShowName();
  ShowWave();
}

CSeismicWave* CFrmRespOrigSeismicWave::Wave() {
  return m_doc.seedWaves.IsEmpty() ? nullptr : &m_doc.seedWaves.At(0);
}

bool CFrmRespOrigSeismicWave::ChangeWave(const std::function<void()>& apply) {
  if (!Wave()) return false;
  ChangeRespWave(m_doc, apply);
  return true;
}

void CFrmRespOrigSeismicWave::TakeWaves(std::vector<ImportedWave> waves) {
  ImportedWave& read = waves.front();
  const bool modified = m_doc.IsModified();
  const CSeismicWaveSet before = m_doc.seedWaves;
  try {
    EnsureRespWave(m_doc);
    ChangeRespWave(m_doc, [&] {
      CSeismicWave& wave = m_doc.seedWaves.At(0);
      wave.name = read.name;
      wave.timeStep = read.timeStep;
      wave.acc = std::move(read.acc);
      wave.note = std::move(read.note);
    });
    Refresh();
    MakeGraphNow();
  } catch (...) {  // there is no memory to show it
    m_doc.seedWaves = before;
    m_doc.SetModified(modified);
    Refresh();
    throw;
  }
}

void CFrmRespOrigSeismicWave::Rename() {
  CSeismicWave* const wave = Wave();
  if (!wave || wave->name == m_nameEdit->GetText()) return;
  wave->name = m_nameEdit->GetText();
  m_doc.SetModified(true);
}

void CFrmRespOrigSeismicWave::ShowName() {
  const CSeismicWave* const wave = Wave();
  m_nameEdit->SetText(wave ? wave->name : QString());
  m_nameEdit->setEnabled(wave != nullptr);
}

}  // namespace tremlo
