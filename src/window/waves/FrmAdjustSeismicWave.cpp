#include "window/waves/FrmAdjustSeismicWave.h"

#include "core/project/AdjustBaseRow.h"
#include "core/project/SpectrumCurves.h"
#include "core/waves/AdoptedWave.h"
#include "core/waves/FitText.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/GridSize.h"
#include "window/graphs/InfoButton.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/SpectrumSettings.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaveGraphPanel.h"
#include "window/waves/FiguresLabel.h"
#include "window/waves/NoteLabel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kLeastRows = 3;
constexpr int kMostRows = 7;  // the others are scrolled to, and the graph keeps its room
constexpr int kCellPadding = 16;

int WidthOf(const CSpread7& grid, const QString& text) {
  return grid.fontMetrics().horizontalAdvance(text) + kCellPadding;
}

struct ColumnWidths {
  explicit ColumnWidths(const CSpread7& grid)
      : number(WidthOf(grid, QStringLiteral("No.0"))),
        source(WidthOf(grid, QStringLiteral("距離減衰式（断層）"))),
        area(WidthOf(grid, QStringLiteral("面積 (gal・sec)"))),
        maximum(WidthOf(grid, QStringLiteral("00000000.00"))),
        check(WidthOf(grid, QStringLiteral("表示")) + kCellPadding / 2) {}
  int number, source, area, maximum, check;
};

}  // namespace

CFrmAdjustSeismicWave::CFrmAdjustSeismicWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                             ChangeRules& rules, CommandGate& gate, AdjustRunner run,
                                             QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_gate(gate),
      m_fitLabel(new NoteLabel("fitLabel", QStringLiteral("適合度"), this)),
      m_figuresLabel(new FiguresLabel(this)) {
  setAccessibleName(QStringLiteral("原種波形の振幅調整"));
  m_fitLabel->SetDefinitions(FitDefinitions());
  MakeButtons(prompt);
  MakeGrids(rules, prompt, std::move(run));
  MakeGraphPanel({gate, files, prompt});
  LayOut();
  Refresh();
}

void CFrmAdjustSeismicWave::MakeButtons(Prompt& prompt) {
  m_showAllButton = NamedButton<QPushButton>("showAllButton", QStringLiteral("全表示"), this);
  connect(m_showAllButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ShowAll(true); }); });
  m_hideAllButton = NamedButton<QPushButton>("hideAllButton", QStringLiteral("全非表示"), this);
  connect(m_hideAllButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ShowAll(false); }); });
  m_helpButton = new InfoButton(
      "helpButton", QStringLiteral("ヘルプ"),
      QStringLiteral("原種波形のスペクトルが、基準スペクトルを下回る場合には振幅調整を行います。\n\n"
                     "原種波形のスペクトルが調整され、調整した地震波形を求めることができます。"),
      prompt, m_gate, this);
}

void CFrmAdjustSeismicWave::MakeGrids(ChangeRules& rules, Prompt& prompt, AdjustRunner run) {
  const auto make = [this](const char* objectName, const QString& name) {
    auto* const grid = Named(new CSpread7(this), objectName, name);
    grid->SetMenu(CSpread7::Menu::ReadOnly);
    grid->SetCommandGate(m_gate);
    grid->verticalHeader()->hide();
    connect(grid, &CSpread7::Changed, this, &CFrmAdjustSeismicWave::Refresh);
    return grid;
  };
  m_baseGrid = make("baseGrid", QStringLiteral("基準スペクトル"));
  m_baseGrid->SetData(std::make_shared<AdjustBaseRow>(m_doc));
  m_waveGrid = make("waveGrid", QStringLiteral("原種波形"));
  m_waves = std::make_shared<AdjustRows>(m_doc, rules, prompt, std::move(run));
  m_waveGrid->SetData(m_waves);
  m_waveGrid->SetColorChooser(
      [this](QWidget* parent, std::int32_t color) { return ChooseColor(parent, color); });

  const ColumnWidths widths(*m_waveGrid);
  const auto set = [](CSpread7& grid, const std::vector<int>& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i) grid.SetColumnWidth(static_cast<int>(i) + 1, columns[i]);
    grid.horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);  // that of the name
  };
  set(*m_baseGrid, {widths.source, widths.source, widths.area, widths.maximum, widths.check});
  set(*m_waveGrid, {widths.number, widths.source, widths.area, widths.maximum, widths.check, widths.check,
                    widths.check, widths.check});
  FitRows(*m_baseGrid);
}

void CFrmAdjustSeismicWave::MakeGraphPanel(const GraphDoors& doors) {
  const auto graph = [this](GraphKind) {
    return std::make_unique<CDrawFreqAccSpec>(m_doc.graphAdjust.origGraph, AdjustCurves(m_doc));
  };
  m_graphPanel = new WaveGraphPanel({GraphKind::Spectrum}, graph,
                                    SpectrumSettings(m_doc, &CMorvaneDoc::graphAdjust), doors, this);
}

void CFrmAdjustSeismicWave::LayOut() {
  auto* const row = new QHBoxLayout;
  row->addWidget(m_helpButton);
  row->addStretch(1);
  row->addWidget(m_showAllButton);
  row->addWidget(m_hideAllButton);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_baseGrid);
  layout->addWidget(m_waveGrid);
  layout->addLayout(row);
  layout->addWidget(m_graphPanel, 1);
  layout->addWidget(m_figuresLabel);
  layout->addWidget(m_fitLabel);

  std::vector<QWidget*> controls{m_baseGrid, m_waveGrid, m_helpButton, m_showAllButton, m_hideAllButton};
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  controls.push_back(m_figuresLabel);
  SetTabOrder(*this, controls);
}

void CFrmAdjustSeismicWave::Refresh() {
  const bool any = !m_doc.seedWaves.IsEmpty();
  m_baseGrid->Refresh();
  m_waveGrid->Refresh();
  m_waveGrid->setFixedHeight(HeightOf(*m_waveGrid, std::clamp(m_waves->RowCount(), kLeastRows, kMostRows)));
  m_showAllButton->setEnabled(any);
  m_hideAllButton->setEnabled(any);
  m_graphPanel->Refresh();
  const std::optional<std::size_t> adopted = AdoptedWave(m_doc.seedWaves);
  m_figuresLabel->TellWave(adopted ? &m_doc.seedWaves.At(*adopted) : nullptr);
  m_fitLabel->Tell(m_waves->LastRunText());
}

void CFrmAdjustSeismicWave::ShowAll(bool shown) {
  m_waves->ShowAll(shown);
  Refresh();
}

std::optional<std::int32_t> CFrmAdjustSeismicWave::ChooseColor(QWidget* parent, std::int32_t color) {
  const std::uint64_t generation = m_doc.Generation();
  const std::optional<std::int32_t> chosen = CSpread7::ChooseColorInDialog(parent, color);
  return m_doc.Generation() == generation ? chosen : std::nullopt;
}

}  // namespace tremlo
