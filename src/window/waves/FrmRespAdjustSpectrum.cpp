#include "window/waves/FrmRespAdjustSpectrum.h"

#include "core/graphs/NumberRows.h"
#include "core/project/ResponseRoute.h"
#include "core/waves/WaveFile.h"
#include "core/waves/WaveFileQuestion.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/SpectrumSettings.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaveGraphPanel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kPeriodWidth = 100;
constexpr int kGridWidth = 290;

}  // namespace

CFrmRespAdjustSpectrum::CFrmRespAdjustSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                               CommandGate& gate, QWidget* parent)
    : Screen(parent), m_doc(doc), m_prompt(prompt), m_files(files), m_gate(gate) {
  setAccessibleName(QStringLiteral("調整用スペクトル設定"));
  MakeControls();
  MakeGraphPanel();
  LayOut();
  Refresh();
}

void CFrmRespAdjustSpectrum::MakeControls() {
  m_nameEdit = new CExpEdit(this);
  m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
  RefuseEmpty(*m_nameEdit, m_prompt, QStringLiteral("地震波形名の入力エラーです。"));
  connect(m_nameEdit, &CExpEdit::Entered, this, &CFrmRespAdjustSpectrum::Rename);
  connect(m_nameEdit, &CExpEdit::Abandoned, this, &CFrmRespAdjustSpectrum::ShowName);

  m_readButton = NamedButton<QPushButton>("readButton", QStringLiteral("加速度応答スペクトル読込"), this);
  connect(m_readButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { ReadFile(); }); });

  const auto column = [this](std::vector<double> CSeismicWave::*member) {
    return [this, member] {
      CSeismicWave* const target = Target();
      return target ? &(target->*member) : nullptr;
    };
  };
  m_spectrumGrid = Named(new CSpread7(this), "spectrumGrid", QStringLiteral("加速度応答スペクトル"));
  m_spectrumGrid->SetMenu(CSpread7::Menu::FullEdit);
  m_spectrumGrid->SetShowWarning(WarningsBy(m_prompt));
  m_spectrumGrid->SetData(std::make_shared<NumberRows>(std::vector<NumberRows::Column>{
      {QStringLiteral("周期 (sec)"), column(&CSeismicWave::periods), nullptr, {}, {}},
      {QStringLiteral("応答値 (gal)"), column(&CSeismicWave::accSpec), nullptr, {}, {}}}));
  m_spectrumGrid->SetColumnWidth(1, kPeriodWidth);
  m_spectrumGrid->setFixedWidth(kGridWidth);
  m_spectrumGrid->horizontalHeader()->setStretchLastSection(true);
  m_spectrumGrid->SetGuard([this](const GridChange& change) { return MayChange(change); });
  connect(m_spectrumGrid, &CSpread7::Changed, this, [this] {
    ChangeRespSpectrum(m_doc, [] {});
    ShowData();
  });
}

void CFrmRespAdjustSpectrum::MakeGraphPanel() {
  m_graphPanel = new WaveGraphPanel(
      {GraphKind::Spectrum}, [this](GraphKind) { return MakeGraph(); },
      SpectrumSettings(m_doc, &CMorvaneDoc::graphBase), GraphDoors{m_gate, m_files, m_prompt}, this);
}

void CFrmRespAdjustSpectrum::LayOut() {
  auto* const nameRow = new QHBoxLayout;
  nameRow->addWidget(LabelFor(m_nameEdit, QStringLiteral("スペクトル名")));
  nameRow->addWidget(m_nameEdit, 1);
  nameRow->addWidget(m_readButton);
  auto* const body = new QHBoxLayout;
  body->addWidget(m_spectrumGrid);
  body->addWidget(m_graphPanel, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(nameRow);
  layout->addLayout(body, 1);

  std::vector<QWidget*> controls{m_nameEdit, m_readButton, m_spectrumGrid};
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  SetTabOrder(*this, controls);
}

CSeismicWave* CFrmRespAdjustSpectrum::Target() {
  return m_doc.respSpectra.IsEmpty() ? nullptr : &m_doc.respSpectra.At(0);
}

void CFrmRespAdjustSpectrum::Refresh() {
  ShowName();
  m_spectrumGrid->setEnabled(Target() != nullptr);
  ShowData();
}

void CFrmRespAdjustSpectrum::ShowName() {
  const CSeismicWave* const target = Target();
  m_nameEdit->SetText(target ? target->name : QString());
  m_nameEdit->setEnabled(target != nullptr);
}

void CFrmRespAdjustSpectrum::ShowData() {
  m_spectrumGrid->Refresh();
  m_graphPanel->Refresh();
}

bool CFrmRespAdjustSpectrum::MayChange(const GridChange& change) {
  CSeismicWave* const target = Target();
  if (!target) return false;
  // Where there is no memory for the values it shows before anything has changed.
  const auto rows = static_cast<std::size_t>(std::max(change.block.bottom, 0));
  target->periods.reserve(rows);
  target->accSpec.reserve(rows);
  return true;
}

void CFrmRespAdjustSpectrum::ReadFile() {
  const QString path = m_files.AskOpenPath(WaveFileToRead(m_readButton->text()));
  if (path.isEmpty()) return;
  QString name;
  std::vector<double> periods, values;
  if (const std::optional<QString> failure = ReadSpectrumFile(path, name, periods, values)) {
    m_prompt.Tell(*failure);
    return;
  }
  const bool modified = m_doc.IsModified();
  const CSeismicWaveSet spectra = m_doc.respSpectra;
  const CSeismicWaveSet waves = m_doc.seedWaves;
  try {
    EnsureRespSpectrum(m_doc);
    ChangeRespSpectrum(m_doc, [&] {
      CSeismicWave& target = m_doc.respSpectra.At(0);
      target.name = name;
      target.periods = std::move(periods);
      target.accSpec = std::move(values);
    });
    Refresh();
    m_graphPanel->MakeNow();
  } catch (...) {  // there is no memory to show it
    m_doc.respSpectra = spectra;
    m_doc.seedWaves = waves;
    m_doc.SetModified(modified);
    Refresh();
    throw;
  }
}

void CFrmRespAdjustSpectrum::Rename() {
  CSeismicWave* const target = Target();
  if (!target || target->name == m_nameEdit->GetText()) return;
  target->name = m_nameEdit->GetText();
  m_doc.SetModified(true);
}

std::unique_ptr<CDrawGraph> CFrmRespAdjustSpectrum::MakeGraph() {
  const CSeismicWave* const target = Target();
  if (!target) return nullptr;
  const WaveGraphSetting& block = m_doc.graphBase.origGraph;
  auto graph = std::make_unique<CDrawFreqAccSpec>(block);
  graph->AddSpectrum(target->periods, target->accSpec, {.color = block.specColor}, target->name);
  return graph;
}

}  // namespace tremlo
