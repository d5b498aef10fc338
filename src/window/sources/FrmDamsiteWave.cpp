#include "window/sources/FrmDamsiteWave.h"

#include "core/project/NeighbourRows.h"
#include "core/project/SpectrumCurves.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/InfoButton.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/SpectrumSettings.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaveGraphPanel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kNameColumn = 2;
constexpr int kColumnWidths[] = {48, 0, 56, 48, 48};  // the name takes what is left
constexpr int kGridWidth = 440;

}  // namespace

CFrmDamsiteWave::CFrmDamsiteWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                                 CommandGate& gate, QWidget* parent)
    : Screen(parent), m_doc(doc), m_gate(gate), m_rows(std::make_shared<NeighbourRows>(doc, rules)) {
  setAccessibleName(QStringLiteral("現場近隣地震波形"));
  MakeGrid(prompt);
  MakeGraphPanel({gate, files, prompt});
  LayOut(prompt);
  Refresh();
}

void CFrmDamsiteWave::MakeGrid(Prompt& prompt) {
  m_grid = Named(new CSpread7(this), "waveGrid", QStringLiteral("登録した地震波形"));
  m_grid->SetMenu(CSpread7::Menu::ReadOnly);
  m_grid->SetShowWarning(WarningsBy(prompt));
  m_grid->SetCommandGate(m_gate);
  m_grid->SetData(m_rows);
  m_grid->setFixedWidth(kGridWidth);
  m_grid->verticalHeader()->hide();
  for (int column = 1; column <= m_grid->ColumnCount(); ++column)
    if (column != kNameColumn) m_grid->SetColumnWidth(column, kColumnWidths[column - 1]);
  m_grid->horizontalHeader()->setSectionResizeMode(kNameColumn - 1, QHeaderView::Stretch);
  connect(m_grid, &CSpread7::Changed, this, &CFrmDamsiteWave::Refresh);
}

void CFrmDamsiteWave::MakeGraphPanel(const GraphDoors& doors) {
  const auto graph = [this](GraphKind) {
    return std::make_unique<CDrawFreqAccSpec>(m_doc.graphDamsite.origGraph, NeighbourCurves(m_doc));
  };
  const ColorSettings colors{[this] { return m_rows->Colors(); }, [this] { m_rows->ResetColors(); },
                             [this] { m_grid->Refresh(); }};
  m_graphPanel = new WaveGraphPanel({GraphKind::Spectrum}, graph,
                                    SpectrumSettings(m_doc, &CMorvaneDoc::graphDamsite, colors), doors, this);
}

QWidget* CFrmDamsiteWave::MakeRowsButton(const char* name, const QString& text, std::function<void()> act) {
  auto* const button = NamedButton<QPushButton>(name, text, this);
  connect(button, &QAbstractButton::clicked, this, [this, act = std::move(act)] {
    m_gate.Run([&] {
      act();
      Refresh();
    });
  });
  return button;
}

void CFrmDamsiteWave::LayOut(Prompt& prompt) {
  const std::vector<QWidget*> buttons{
      MakeRowsButton("showAllButton", QStringLiteral("全表示"), [this] { m_rows->ShowAll(true); }),
      MakeRowsButton("hideAllButton", QStringLiteral("全非表示"), [this] { m_rows->ShowAll(false); }),
      MakeRowsButton("useAllButton", QStringLiteral("全て利用する"), [this] { m_rows->UseAll(true); }),
      MakeRowsButton("useNoneButton", QStringLiteral("全て利用しない"), [this] { m_rows->UseAll(false); }),
      new InfoButton("infoButton", QStringLiteral("現場近隣地震波形について"),
                     QStringLiteral("現場近隣地震波形の加速度応答スペクトルを選択します。\n\n"
                                    "登録した地震波形の中から、現場近隣の地震波形の加速度応答スペクトルを"
                                    "選択してください。"),
                     prompt, m_gate, this)};
  auto* const buttonRow = new QHBoxLayout;
  for (QWidget* const button : buttons) buttonRow->addWidget(button);
  buttonRow->insertStretch(static_cast<int>(buttons.size()) - 1);
  auto* const list = new QVBoxLayout;
  list->addWidget(m_grid, 1);
  list->addLayout(buttonRow);
  auto* const layout = new QHBoxLayout(this);
  layout->addLayout(list);
  layout->addWidget(m_graphPanel, 1);

  std::vector<QWidget*> controls{m_grid};
  controls.insert(controls.end(), buttons.begin(), buttons.end());
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  SetTabOrder(*this, controls);
}

void CFrmDamsiteWave::Refresh() {
  m_grid->Refresh();
  m_graphPanel->Refresh();
}

}  // namespace tremlo
