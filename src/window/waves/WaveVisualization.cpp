#include "window/waves/WaveVisualization.h"

#include "core/graphs/CellNumber.h"
#include "core/project/SpectrumCurves.h"
#include "core/waves/WaveFileQuestion.h"
#include "numeric/waves/FourierSpectrum.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/DlgGraphEditVisual.h"
#include "window/graphs/DrawFourier.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/WaitCursor.h"
#include "window/graphs/WaveGraphPanel.h"
#include "window/waves/FiguresLabel.h"
#include "window/waves/NoteLabel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr std::int32_t kSeedColor = 0xFF3232;
constexpr std::int32_t kAdjustedColor = 0x0000FF;
constexpr int kKeySize = 12;
constexpr int kLeastDigits = 7;  // of a number that is read in the narrowest window

QString SeedName() {
  return QStringLiteral("原種波形");
}
QString AdjustedName() {
  return QStringLiteral("調整後波形");
}

/// A patch in the colour of the curve: the key to the graph.
QIcon KeyOf(std::int32_t bgr) {
  QPixmap patch(4 * kKeySize, 4 * kKeySize);
  patch.fill(ColorFromBgr(bgr));
  return {patch};
}

CExpEdit* ReadOnlyEdit(const char* objectName, QWidget* parent) {
  auto* const edit = new CExpEdit(parent);
  edit->setObjectName(QLatin1String(objectName));
  edit->setReadOnly(true);
  edit->setMinimumWidth(edit->minimumSizeHint().width() +
                        kLeastDigits * edit->fontMetrics().horizontalAdvance(u'0'));
  return edit;
}

}  // namespace

WaveVisualization::WaveVisualization(CMorvaneDoc& doc, FileDialogs& files, CommandGate& gate,
                                     const Texts& texts, QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_files(files),
      m_gate(gate),
      m_countEdit(ReadOnlyEdit("countEdit", this)),
      m_timeStepEdit(ReadOnlyEdit("timeStepEdit", this)) {
  setAccessibleName(QStringLiteral("可視化"));
  MakeSwitches();
  MakeExportButtons(texts);
  MakeGraphPanel();
}

void WaveVisualization::MakeSwitches() {
  const auto make = [this](const char* objectName, const QString& text, std::function<void(bool)> set) {
    auto* const check = NamedButton<QCheckBox>(objectName, text, this);
    check->setIconSize({kKeySize, kKeySize});
    connect(check, &QCheckBox::toggled, this, [this, check, set = std::move(set)](bool on) {
      if (!m_gate.Run([&] { set(on); })) ShowChecked(*check, !on);
    });
    return check;
  };
  m_seedCheck =
      make("seedCheck", SeedName(), [this](bool on) { SetSwitch(&CMorvaneDoc::visualShowOrig, on); });
  m_adjustedCheck = make("adjustedCheck", AdjustedName(),
                         [this](bool on) { SetSwitch(&CMorvaneDoc::visualShowAdjusted, on); });
  m_targetCheck =
      make("targetCheck", QStringLiteral("目標スペクトル"), [this](bool) { m_graphPanel->Refresh(); });
  m_targetCheck->setIcon(KeyOf(kTargetColor));
  ShowChecked(*m_targetCheck, true);
}

void WaveVisualization::MakeExportButtons(const Texts& texts) {
  const auto make = [this](const char* objectName, const QString& text, const QString& ending, Export write) {
    auto* const button = NamedButton<QPushButton>(objectName, text, this);
    connect(button, &QAbstractButton::clicked, this,
            [this, text, ending, write] { m_gate.Run([&] { AskAndExport(text, ending, write); }); });
    return button;
  };
  m_exportSeedButton = make("exportSeedButton", texts.exportSeed, {}, &WaveVisualization::ExportSeed);
  m_exportAdjustedButton = make("exportAdjustedButton", texts.exportAdjusted, QStringLiteral("_調整後"),
                                &WaveVisualization::ExportAdjusted);
}

void WaveVisualization::MakeGraphPanel() {
  WaveGraphPanel::Settings settings;
  settings.make = [this](QWidget* parent) {
    const std::vector<CurveColor> colors{{SeedName(), &m_doc.visualColorOrig},
                                         {AdjustedName(), &m_doc.visualColorAdjusted}};
    return std::make_unique<CDlgGraphEditVisual>(m_doc.graphAdjust.origGraph, colors, parent);
  };
  settings.changed = [this] {
    m_doc.SetModified(true);
    Refresh();
  };
  settings.resetRange = [this] { m_doc.graphAdjust = CSeismicWave(); };
  settings.resetColors = [this] {
    m_doc.visualColorOrig = kSeedColor;
    m_doc.visualColorAdjusted = kAdjustedColor;
  };
  m_graphPanel = new WaveGraphPanel(
      {GraphKind::Time, GraphKind::Spectrum, GraphKind::Fourier},
      [this](GraphKind kind) { return MakeGraph(kind); }, settings, m_gate, this);
  connect(m_graphPanel, &WaveGraphPanel::KindShown, this, &WaveVisualization::ShowSwitches);
  m_figuresLabel = new FiguresLabel(this);
  m_missingLabel = new NoteLabel("missingLabel", QStringLiteral("注意"), this);
}

void WaveVisualization::BuildBody(QHBoxLayout* firstRow, std::vector<QWidget*> controls) {
  firstRow->addWidget(LabelFor(m_countEdit, QStringLiteral("データ数")));
  firstRow->addWidget(m_countEdit);
  firstRow->addWidget(LabelFor(m_timeStepEdit, QStringLiteral("時間間隔")));
  firstRow->addWidget(m_timeStepEdit);
  firstRow->addWidget(new QLabel(QStringLiteral("(sec)"), this));
  auto* const switchRow = new QHBoxLayout;
  for (QWidget* const control : {m_seedCheck, m_adjustedCheck, m_targetCheck}) {
    switchRow->addWidget(control);
    controls.push_back(control);
  }
  switchRow->addStretch(1);
  for (QWidget* const control : {m_exportSeedButton, m_exportAdjustedButton}) {
    switchRow->addWidget(control);
    controls.push_back(control);
  }
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(firstRow);
  layout->addLayout(switchRow);
  layout->addWidget(m_graphPanel, 1);
  layout->addWidget(m_figuresLabel);
  layout->addWidget(m_missingLabel);

  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  controls.push_back(m_figuresLabel);
  SetTabOrder(*this, controls);
}

void WaveVisualization::Refresh() {
  const CSeismicWave* const wave = Wave();
  m_countEdit->SetText(wave ? QString::number(wave->acc.size()) : QString());
  m_timeStepEdit->SetText(wave ? ShortestText(wave->timeStep) : QString());
  m_exportSeedButton->setEnabled(wave != nullptr);
  m_exportAdjustedButton->setEnabled(wave != nullptr);
  const bool samples = wave && (!wave->acc.empty() || (wave->adjusted && !wave->adjustedAcc.empty()));
  m_graphPanel->Offer({.settings = wave != nullptr, .fourier = samples});
  m_figuresLabel->TellWave(wave);
  m_graphPanel->Refresh();
  ShowSwitches();
}

void WaveVisualization::ShowSwitches() {
  ShowChecked(*m_seedCheck, m_doc.visualShowOrig == 1);
  ShowChecked(*m_adjustedCheck, m_doc.visualShowAdjusted == 1);
  m_seedCheck->setIcon(KeyOf(m_doc.visualColorOrig));
  m_adjustedCheck->setIcon(KeyOf(m_doc.visualColorAdjusted));
  const bool spectrum = m_graphPanel->Kind() == GraphKind::Spectrum;
  const CSeismicWave* const wave = Wave();
  m_targetCheck->setEnabled(spectrum && wave && TargetCurve(m_doc));
  m_targetCheck->setToolTip(spectrum ? QString()
                                     : QStringLiteral("周期－加速度応答スペクトルのグラフに表示します。"));
  m_missingLabel->Tell(spectrum && wave && DrawsSeed() ? MissingSpectrumText(*wave) : QString());
}

void WaveVisualization::ShowTimeGraph() {
  m_graphPanel->ShowKind(GraphKind::Time);
}

void WaveVisualization::SetSwitch(std::int32_t CMorvaneDoc::*field, bool on) {
  m_doc.*field = on ? 1 : 0;
  m_doc.SetModified(true);
  m_graphPanel->Refresh();
  ShowSwitches();
}

void WaveVisualization::AskAndExport(const QString& title, const QString& ending, Export write) {
  const CSeismicWave* const shown = Wave();
  if (!shown) return;
  const std::uint64_t generation = m_doc.Generation();
  const QString name = FileNameOfWave(shown->name, ending);
  const SavePath path = SplitSavePath(m_files.AskSavePath(WaveFileToWrite(title, name)));
  if (m_doc.Generation() != generation) return;
  const WaitCursor waiting;
  if (CSeismicWave* const wave = Wave()) (this->*write)(*wave, path);
}

std::unique_ptr<CDrawGraph> WaveVisualization::MakeGraph(GraphKind kind) {
  CSeismicWave* const wave = Wave();
  if (!wave) return nullptr;
  if (kind == GraphKind::Spectrum) return MakeSpectrumGraph(*wave);
  if (kind == GraphKind::Fourier) return MakeFourierGraph(*wave);
  auto graph = std::make_unique<CDrawTimeAccGal>(m_doc.graphAdjust.origGraph);
  if (DrawsSeed())
    graph->AddWave(WithoutBlanks(wave->acc), wave->timeStep, {.color = m_doc.visualColorOrig}, SeedName());
  if (DrawsAdjusted(*wave))
    graph->AddWave(wave->adjustedAcc, wave->timeStep, {.color = m_doc.visualColorAdjusted}, AdjustedName());
  return graph;
}

std::unique_ptr<CDrawGraph> WaveVisualization::MakeSpectrumGraph(CSeismicWave& wave) {
  auto graph = std::make_unique<CDrawFreqAccSpec>(m_doc.graphAdjust.origGraph);
  if (DrawsSeed()) {
    PrepareSpectrum(wave);
    if (wave.spectrumValid)
      graph->AddSpectrum(wave.periods, wave.accSpec, {.color = m_doc.visualColorOrig}, SeedName());
  }
  if (DrawsAdjusted(wave))
    graph->AddSpectrum(wave.adjustedPeriods, wave.adjustedSpec, {.color = m_doc.visualColorAdjusted},
                       AdjustedName());
  if (m_targetCheck->isChecked())
    if (std::optional<GraphSeries> target = TargetCurve(m_doc)) graph->AddCurve(std::move(*target));
  return graph;
}

std::unique_ptr<CDrawGraph> WaveVisualization::MakeFourierGraph(const CSeismicWave& wave) {
  auto graph = std::make_unique<CDrawFourier>(m_doc.graphAdjust.origGraph);
  const auto add = [&](const std::vector<double>& samples, std::int32_t color, const QString& name) {
    std::vector<double> periods, amplitudes;
    ComputeFourierSpectrum(samples, periods, amplitudes, wave.timeStep);
    graph->AddSpectrum(periods, amplitudes, {.color = color}, name);
  };
  if (DrawsSeed()) add(WithoutBlanks(wave.acc), m_doc.visualColorOrig, SeedName());
  if (DrawsAdjusted(wave)) add(wave.adjustedAcc, m_doc.visualColorAdjusted, AdjustedName());
  return graph;
}

}  // namespace tremlo
