#include "window/sources/FrmLowerSpectrum.h"

#include "core/project/LowerLimitRows.h"
#include "core/project/SpectrumCurves.h"
#include "window/graphs/DlgGraphEditAccSpec.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/GridSize.h"
#include "window/graphs/InfoButton.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaveGraphPanel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

enum Columns { kNumber = 1, kName, kSelected };
constexpr int kMostRows = 8;  ///< in sight at once; of more the grid shows some and scrolls

const QString kInformation = QStringLiteral(
    "下限スペクトルを設定します。\n\n"
    "照査下限スペクトルとは、加速度応答スペクトルの内でもっとも小さいものを意味します。"
    "現場近隣地震波形や距離減衰式から得られた加速度応答スペクトルが下限スペクトルを下回る場合には、"
    "下限スペクトルを基準スペクトルとして設定する必要があります。");

}  // namespace

CFrmLowerSpectrum::CFrmLowerSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                                     CommandGate& gate, QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_infoButton(new InfoButton("infoButton", QStringLiteral("下限スペクトルについて"), kInformation,
                                  prompt, gate, this)) {
  setAccessibleName(QStringLiteral("下限スペクトル"));
  MakeGrid(prompt, rules, gate);
  MakeGraphPanel({gate, files, prompt});
  LayOut();
  Refresh();
}

void CFrmLowerSpectrum::MakeGrid(Prompt& prompt, ChangeRules& rules, CommandGate& gate) {
  m_limitGrid = Named(new CSpread7(this), "limitGrid", {});
  m_limitGrid->SetMenu(CSpread7::Menu::ReadOnly);
  m_limitGrid->SetShowWarning(WarningsBy(prompt));
  m_limitGrid->SetCommandGate(gate);
  m_limitGrid->SetData(std::make_shared<LowerLimitRows>(m_doc, rules));
  m_limitGrid->verticalHeader()->hide();
  FitColumn(*m_limitGrid, kNumber, 4);
  FitColumn(*m_limitGrid, kSelected, 6);
  m_limitGrid->horizontalHeader()->setSectionResizeMode(kName - 1, QHeaderView::Stretch);
  connect(m_limitGrid, &CSpread7::Changed, this, &CFrmLowerSpectrum::Refresh);
}

void CFrmLowerSpectrum::MakeGraphPanel(const GraphDoors& doors) {
  WaveGraphPanel::Settings settings;
  settings.make = [this](QWidget* parent) -> std::unique_ptr<GraphEditDialog> {
    CSeismicWave* const limit = m_doc.lowerSpectra.Selected();
    if (!limit) return nullptr;
    const std::vector<CurveColor> colors{{limit->name, &limit->lowerGraph.specColor}};
    return std::make_unique<CDlgGraphEditAccSpec>(limit->lowerGraph, colors, parent);
  };
  settings.changed = [this] { m_doc.SetModified(true); };
  settings.resetRange = [this] {
    if (CSeismicWave* const limit = m_doc.lowerSpectra.Selected()) limit->lowerGraph = DefaultLowerGraph();
  };
  settings.resetColors = [this] {
    if (CSeismicWave* const limit = m_doc.lowerSpectra.Selected()) ResetColors(limit->lowerGraph);
  };
  const auto graph = [this](GraphKind) {
    const CSeismicWave* const limit = m_doc.lowerSpectra.Selected();
    return std::make_unique<CDrawFreqAccSpec>(limit ? limit->lowerGraph : DefaultLowerGraph(),
                                              LowerLimitCurve(m_doc));
  };
  m_graphPanel = new WaveGraphPanel({GraphKind::Spectrum}, graph, settings, doors, this);
}

void CFrmLowerSpectrum::LayOut() {
  auto* const titleRow = new QHBoxLayout;
  titleRow->addWidget(LabelFor(m_limitGrid, QStringLiteral("下限スペクトル")));
  titleRow->addWidget(m_infoButton);
  titleRow->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(titleRow);
  layout->addWidget(m_limitGrid);
  layout->addWidget(m_graphPanel, 1);

  std::vector<QWidget*> controls{m_infoButton, m_limitGrid};
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  SetTabOrder(*this, controls);
}

void CFrmLowerSpectrum::Refresh() {
  m_limitGrid->Refresh();
  m_limitGrid->setFixedHeight(HeightOf(*m_limitGrid, std::clamp(m_limitGrid->RowCount(), 1, kMostRows)));
  m_graphPanel->Offer({.settings = m_doc.lowerSpectra.Selected() != nullptr});
  m_graphPanel->Refresh();
}

}  // namespace tremlo
