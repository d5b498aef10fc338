#include "window/waves/WaveRegistration.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"
#include "core/graphs/CellNumber.h"
#include "core/graphs/GridTable.h"
#include "core/graphs/NumberRows.h"
#include "core/project/WaveSpectrum.h"
#include "core/waves/WaveFileQuestion.h"
#include "numeric/waves/FourierSpectrum.h"
#include "window/graphs/DlgGraphEdit.h"
#include "window/graphs/DrawFourier.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaitCursor.h"
#include "window/graphs/WaveGraphPanel.h"
#include "window/waves/ReadRecordFile.h"
#include "window/waves/RecordLine.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr int kTimeWidth = 80;
constexpr int kWidestTime = 130;
constexpr int kCellPadding = 10;
constexpr int kGridsWidth = 290;  // every digit of a sample is seen
constexpr int kMostDecimals = 9;

/// Places behind the point that tell every multiple of the step from its neighbours.
int TimeDecimals(double timeStep) {
  const QString text = ShortestText(timeStep);
  const qsizetype point = text.indexOf(u'.');
  if (text.contains(u'e')) return kMostDecimals;
  return point < 0 ? 0 : std::min(kMostDecimals, static_cast<int>(text.size() - point - 1));
}

/// A text that is no number is 0.
double TimeStepOf(const QString& text) {
  return TextToDouble(HalfWidthNumber(text));
}

void FitHeight(CSpread7* grid) {
  grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid->setFixedHeight(grid->horizontalHeader()->sizeHint().height() + grid->verticalHeader()->length() +
                       2 * grid->frameWidth());
}

CellFormat LockedNumber() {
  CellFormat format;
  format.type = CellType::Number;
  format.locked = true;
  return format;
}

}  // namespace

WaveRegistration::WaveRegistration(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                                   bool onlyOne, QWidget* parent)
    : Screen(parent), m_doc(doc), m_prompt(prompt), m_gate(gate), m_files(files), m_onlyOne(onlyOne) {
  MakeButtons();
  MakeFields();
  MakeGrids();
  MakeGraphPanel();
  m_recordLine = new RecordLine(
      m_prompt, m_gate, [this](const QString& path) { ReadOtherwise(path); }, this);
}

void WaveRegistration::MakeButtons() {
  m_readButton = NamedButton<QPushButton>("readButton", QStringLiteral("波形データ読込"), this);
  connect(m_readButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { ReadFile(); }); });
  m_dbButton = NamedButton<QPushButton>("dbButton", QStringLiteral("DBから入力"), this);
  m_dbButton->setEnabled(false);
  m_helpButton = NamedButton<QPushButton>("helpButton", QStringLiteral("ヘルプ"), this);
  connect(m_helpButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { ShowHelp(); }); });
}

void WaveRegistration::ShowHelp() {
  m_prompt.Tell(QStringLiteral("使用する地震波形を登録します。\n\n"
                               "地震波形作成の種となる原種波形と、ダム基礎の観測波形、近隣で観測された波形、"
                               "それらの波形が無い場合には公開されている既往の地震波形を設定します。"),
                PromptIcon::Information);
}

void WaveRegistration::MakeFields() {
  m_countEdit = new CExpEdit(this);
  m_countEdit->setObjectName(QStringLiteral("countEdit"));
  m_countEdit->setReadOnly(true);
  m_timeStepEdit = new CExpEdit(this);
  m_timeStepEdit->setObjectName(QStringLiteral("timeStepEdit"));
  const QString refusal = QStringLiteral("時間間隔の入力エラーです。");
  RefuseEmpty(*m_timeStepEdit, m_prompt, refusal);
  m_timeStepEdit->SetOwnerCheck([refusal](const QString& text) {
    const bool tooLarge = ReadNumber(text).fault == NumberFault::TooLarge;
    return text.isEmpty() || tooLarge ? refusal : QString();
  });
  connect(m_timeStepEdit, &CExpEdit::Entered, this, &WaveRegistration::EnterTimeStep);
  connect(m_timeStepEdit, &CExpEdit::Abandoned, this, &WaveRegistration::ShowTimeStep);
}

void WaveRegistration::MakeGrids() {
  m_sampleGrid = Named(new CSpread7(this), "sampleGrid", QStringLiteral("波形データ"));
  m_sampleGrid->SetMenu(CSpread7::Menu::FullEdit);
  m_sampleGrid->SetShowWarning(WarningsBy(m_prompt));
  // The questions come before the grid changes the samples, and what they clear is cleared by then.
  m_sampleGrid->SetGuard([this](const GridChange& change) { return MayChange(change); });
  connect(m_sampleGrid, &CSpread7::Changed, this, &WaveRegistration::ShowData);

  m_extremeGrid = Named(new CSpread7(this), "extremeGrid", QStringLiteral("最大値と最小値"));
  m_extremeGrid->SetMenu(CSpread7::Menu::ReadOnly);
  m_extremeGrid->SetSize(2, 2);
  for (const int column : {1, 2}) m_extremeGrid->SetColumnFormat(column, LockedNumber());
  m_extremeGrid->SetCellText(0, 1, QStringLiteral("時間 (sec)"));
  m_extremeGrid->SetCellText(0, 2, QStringLiteral("加速度 (gal)"));
  m_extremeGrid->SetCellText(1, 0, QStringLiteral("最大"));
  m_extremeGrid->SetCellText(2, 0, QStringLiteral("最小"));
  m_extremeGrid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  FitHeight(m_extremeGrid);
  for (CSpread7* const grid : {m_sampleGrid, m_extremeGrid}) {
    grid->setFixedWidth(kGridsWidth);
    grid->horizontalHeader()->setStretchLastSection(true);
  }
}

bool WaveRegistration::MayChange(const GridChange& change) {
  CSeismicWave* const wave = Wave();
  if (!wave) return false;
  // Where there is no memory for the samples it shows before anything has changed.
  wave->acc.reserve(static_cast<std::size_t>(std::max(change.block.bottom, 0)));
  return ChangeWave([] {});
}

void WaveRegistration::MakeGraphPanel() {
  WaveGraphPanel::Settings settings;
  settings.make = [this](QWidget* parent) -> std::unique_ptr<GraphEditDialog> {
    const CSeismicWave* const wave = Wave();
    if (!wave) return nullptr;
    m_edited = wave->origGraph;
    return std::make_unique<CDlgGraphEdit>(m_edited, ColorsOf(m_edited), parent);
  };
  settings.changed = [this] {
    CSeismicWave* const wave = Wave();
    if (!wave) return;
    wave->origGraph = m_edited;
    m_doc.SetModified(true);
  };
  // A reset as the set makes it, of the block that is being edited.
  const auto reset = [this](void (CSeismicWaveSet::*clear)(const QString&)) {
    CSeismicWave* const wave = Wave();
    if (!wave) return;
    wave->origGraph = m_edited;
    (m_doc.seedWaves.*clear)(QString(wave->name));
    m_edited = wave->origGraph;
  };
  settings.resetRange = [reset] { reset(&CSeismicWaveSet::ResetOrigGraph); };
  settings.resetColors = [reset] { reset(&CSeismicWaveSet::ResetOrigColors); };
  m_graphPanel = new WaveGraphPanel(
      {GraphKind::Time, GraphKind::Spectrum, GraphKind::Fourier},
      [this](GraphKind kind) { return MakeGraph(kind); }, settings, GraphDoors{m_gate, m_files, m_prompt},
      this);
}

void WaveRegistration::BuildBody(QHBoxLayout* nameRow, std::vector<QWidget*> controls) {
  auto* const left = new QGridLayout;
  left->addWidget(LabelFor(m_countEdit, QStringLiteral("データ数")), 0, 0);
  left->addWidget(m_countEdit, 0, 1);
  left->addWidget(LabelFor(m_timeStepEdit, QStringLiteral("時間間隔")), 1, 0);
  left->addWidget(m_timeStepEdit, 1, 1);
  left->addWidget(new QLabel(QStringLiteral("(sec)"), this), 1, 2);
  left->addWidget(m_sampleGrid, 2, 0, 1, 3);
  left->addWidget(m_extremeGrid, 3, 0, 1, 3);
  auto* const body = new QHBoxLayout;
  body->addLayout(left);
  body->addWidget(m_graphPanel, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(nameRow);
  layout->addLayout(body, 1);
  layout->addWidget(m_recordLine);

  controls.insert(controls.end(), {m_timeStepEdit, m_sampleGrid, m_extremeGrid});
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  const std::vector<QWidget*> lineControls = m_recordLine->Controls();
  controls.insert(controls.end(), lineControls.begin(), lineControls.end());
  SetTabOrder(*this, controls);
}

void WaveRegistration::ShowWave() {
  const CSeismicWave* const shown = Wave();
  // The same wave, shown again when the user is back from another screen, stays where it was read.
  if (!shown || m_shown != std::tuple(shown->name, shown->acc.size(), shown->timeStep)) FillSampleGrid();
  ShowTimeStep();
  m_timeStepEdit->setEnabled(shown != nullptr);
  m_sampleGrid->setEnabled(shown != nullptr);
  ShowData();
}

void WaveRegistration::FillSampleGrid() {
  const CSeismicWave* const shown = Wave();
  const auto samples = [this] {
    CSeismicWave* const wave = Wave();
    return wave ? &wave->acc : nullptr;
  };
  const auto time = [this](int index) {
    const CSeismicWave* const wave = Wave();
    return wave ? index * wave->timeStep : 0.0;
  };
  m_sampleGrid->SetData(std::make_shared<NumberRows>(std::vector<NumberRows::Column>{
      {QStringLiteral("時間 (sec)"), nullptr, time, TimeDecimals(shown ? shown->timeStep : 0.0), {}},
      {QStringLiteral("加速度 (gal)"), samples, nullptr, {}, kBlankSample}}));
  m_sampleGrid->scrollToTop();
  for (CSpread7* const grid : {m_sampleGrid, m_extremeGrid}) grid->SetColumnWidth(1, kTimeWidth);
}

void WaveRegistration::ShowData() {
  const CSeismicWave* const wave = Wave();
  m_shown = wave ? std::tuple(wave->name, wave->acc.size(), wave->timeStep) : decltype(m_shown)();
  m_countEdit->SetText(wave ? QString::number(wave->acc.size()) : QString());
  m_sampleGrid->Refresh();
  ShowExtremes();
  WidenTimeColumns();
  m_recordLine->Tell(wave ? wave->note : std::nullopt);
  m_graphPanel->Offer({.settings = wave != nullptr, .fourier = wave && !wave->acc.empty()});
  m_graphPanel->Refresh();
}

void WaveRegistration::MakeGraphNow() {
  m_graphPanel->MakeNow();
}

void WaveRegistration::ShowTimeStep() {
  const CSeismicWave* const wave = Wave();
  m_timeStepEdit->SetText(wave ? ShortestText(wave->timeStep) : QString());
}

void WaveRegistration::ShowExtremes() {
  const CSeismicWave* const wave = Wave();
  const auto show = [this, wave](int row, double value, double time) {
    const bool known = wave && !std::isnan(value);
    m_extremeGrid->SetCellText(row, 1, known ? FixedText(time, TimeDecimals(wave->timeStep)) : QString());
    m_extremeGrid->SetCellText(row, 2, known ? ShortestText(value) : QString());
  };
  double value = std::nan(""), time = 0.0;
  if (wave) m_doc.seedWaves.MaxAcc(wave->name, value, time);
  show(1, value, time);
  if (wave) m_doc.seedWaves.MinAcc(wave->name, value, time);
  show(2, value, time);
}

/// The last time of the wave is the longest text of its column. While the wave is on display no column gets
/// narrower: the user may have set its width.
void WaveRegistration::WidenTimeColumns() {
  const CSeismicWave* const wave = Wave();
  if (!wave || wave->acc.empty()) return;
  const double last = static_cast<double>(wave->acc.size() - 1) * wave->timeStep;
  const int text = fontMetrics().horizontalAdvance(FixedText(last, TimeDecimals(wave->timeStep)));
  const int width = std::min(text + kCellPadding, kWidestTime);
  for (CSpread7* const grid : {m_sampleGrid, m_extremeGrid})
    if (grid->columnWidth(0) < width) grid->SetColumnWidth(1, width);
}

void WaveRegistration::ReadFile() {
  const FileChoice choice = m_files.AskOpenFile(RecordFileToRead(m_readButton->text()));
  if (!choice.path.isEmpty()) Take(ReadRecordFile(choice, {m_prompt, m_files, window(), m_onlyOne}));
}

void WaveRegistration::ReadOtherwise(const QString& path) {
  Take(ReadRecordOtherwise(path, {m_prompt, m_files, window(), m_onlyOne}));
}

void WaveRegistration::Take(std::vector<ImportedWave> waves) {
  const WaitCursor waiting;
  if (!waves.empty()) TakeWaves(std::move(waves));
}

void WaveRegistration::EnterTimeStep() {
  const CSeismicWave* const shown = Wave();
  if (!shown) return;
  const double timeStep = TimeStepOf(m_timeStepEdit->GetText());
  // Questions come first, so the record is looked up behind them.
  const auto apply = [&] {
    if (CSeismicWave* const wave = Wave()) wave->timeStep = timeStep;
  };
  if (timeStep == shown->timeStep || !ChangeWave(apply)) {
    ShowTimeStep();
    return;
  }
  ShowWave();
}

std::unique_ptr<CDrawGraph> WaveRegistration::MakeGraph(GraphKind kind) {
  CSeismicWave* const wave = Wave();
  if (!wave) return nullptr;
  if (kind == GraphKind::Spectrum) return MakeSpectrumGraph(*wave);
  const std::vector<double> samples = WithoutBlanks(wave->acc);
  const CurvePen pen{.color = wave->origGraph.*ColorField(kind)};
  if (kind == GraphKind::Time) {
    auto graph = std::make_unique<CDrawTimeAccGal>(wave->origGraph);
    graph->AddWave(samples, wave->timeStep, pen);
    return graph;
  }
  std::vector<double> periods, amplitudes;
  ComputeFourierSpectrum(samples, periods, amplitudes, wave->timeStep);
  auto graph = std::make_unique<CDrawFourier>(wave->origGraph);
  graph->AddSpectrum(periods, amplitudes, pen);
  return graph;
}

std::unique_ptr<CDrawGraph> WaveRegistration::MakeSpectrumGraph(CSeismicWave& wave) {
  if (!wave.spectrumValid) {
    const WaitCursor waiting;
    EnsureWaveSpectrum(m_doc, wave);
  }
  const CurvePen pen{.color = wave.origGraph.specColor};
  auto graph = std::make_unique<CDrawFreqAccSpec>(wave.origGraph);
  // A graph needs a point to have axes.
  if (wave.accSpec.empty())
    graph->AddSpectrum({1000.0}, {1000.0}, pen);
  else
    graph->AddSpectrum(wave.periods, wave.accSpec, pen);
  return graph;
}

}  // namespace tremlo
