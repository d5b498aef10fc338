#include "window/sources/FrmMakeSeismicWave2.h"

#include "core/project/AttenuationRows.h"
#include "core/project/LastAcquisition.h"
#include "core/project/RelationRows.h"
#include "core/project/SpectrumCurves.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/GridSize.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/SpectrumSettings.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaveGraphPanel.h"
#include "window/sources/FrmMakeSeismicWave2Refer.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kRelationName = 1, kRelationInUse = 2;
constexpr int kPlaneName = 2;
constexpr int kFewestPlanes = 4;  ///< rows in sight in a small window
constexpr int kGridShare = 2, kGraphShare = 3;

/// The digits that the columns of the planes hold, beside their titles. The name takes what is left.
constexpr std::pair<int, int> kPlaneDigits[] = {{1, 5}, {3, 6}, {4, 5}, {5, 5}, {6, 9},
                                                {7, 9}, {8, 7}, {9, 6}, {10, 6}};

}  // namespace

CFrmMakeSeismicWave2::CFrmMakeSeismicWave2(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                           WorkProcedure& procedure, ChangeRules& rules, CommandGate& gate,
                                           Doors doors, QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_procedure(procedure),
      m_gate(gate),
      m_doors(std::move(doors)),
      m_sourceLabel(MakeText("sourceLabel", QStringLiteral("J-SHIS2014年版（APIより取得）"))),
      m_acquisitionLine(MakeText("acquisitionLine", {})) {
  setAccessibleName(QStringLiteral("距離減衰式（断層）"));
  m_acquisitionLine->setWordWrap(true);
  MakeRelationGrid(prompt, rules);
  MakePlaneGrid(prompt, rules);
  MakeButtons();
  MakeGraphPanel({gate, files, prompt});
  LayOut();
  Refresh();
}

QLabel* CFrmMakeSeismicWave2::MakeText(const char* name, const QString& text) {
  auto* const label = Named(new QLabel(text, this), name, {});
  label->setTextFormat(Qt::PlainText);
  return label;
}

void CFrmMakeSeismicWave2::MakeRelationGrid(Prompt& prompt, ChangeRules& rules) {
  const auto rows = std::make_shared<RelationRows>(m_doc, rules, [this] { Calculate(); });
  m_relationGrid = Named(new CSpread7(this), "relationGrid", QStringLiteral("距離減衰式"));
  m_relationGrid->SetMenu(CSpread7::Menu::ReadOnly);
  m_relationGrid->SetShowWarning(WarningsBy(prompt));
  m_relationGrid->SetCommandGate(m_gate);
  m_relationGrid->SetData(rows);
  m_relationGrid->verticalHeader()->hide();
  const QFontMetrics metrics = fontMetrics();
  FitColumn(*m_relationGrid, kRelationInUse, 6);
  const int name = metrics.horizontalAdvance(rows->Text(1, kRelationName)) + 2 * metrics.averageCharWidth();
  m_relationGrid->setFixedWidth(name + m_relationGrid->columnWidth(kRelationInUse - 1) +
                                2 * m_relationGrid->frameWidth());
  m_relationGrid->horizontalHeader()->setSectionResizeMode(kRelationName - 1, QHeaderView::Stretch);
  FitRows(*m_relationGrid);
  connect(m_relationGrid, &CSpread7::Changed, this, &CFrmMakeSeismicWave2::ShowPlanes);
}

void CFrmMakeSeismicWave2::MakePlaneGrid(Prompt& prompt, ChangeRules& rules) {
  m_planes = std::make_shared<AttenuationRows>(m_doc, rules, [this] { Calculate(); });
  m_planeGrid = Named(new CSpread7(this), "planeGrid", QStringLiteral("断層面"));
  m_planeGrid->SetMenu(CSpread7::Menu::ReadOnly);
  m_planeGrid->SetShowWarning(WarningsBy(prompt));
  m_planeGrid->SetCommandGate(m_gate);
  m_planeGrid->SetData(m_planes);
  m_planeGrid->verticalHeader()->hide();
  for (const auto& [column, digits] : kPlaneDigits) FitColumn(*m_planeGrid, column, digits);
  m_planeGrid->horizontalHeader()->setSectionResizeMode(kPlaneName - 1, QHeaderView::Stretch);
  m_planeGrid->setMinimumHeight(HeightOf(*m_planeGrid, kFewestPlanes));
  connect(m_planeGrid, &CSpread7::Changed, this, &CFrmMakeSeismicWave2::ShowPlanes);
}

void CFrmMakeSeismicWave2::MakeButtons() {
  m_resetButton = NamedButton<QPushButton>("resetButton", QStringLiteral("断層データの再設定"), this);
  connect(m_resetButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ReturnToFaults(); }); });
  m_referButton = NamedButton<QPushButton>("referButton", QStringLiteral("距離減衰式について"), this);
  connect(m_referButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ExplainRelation(); }); });
  using Self = CFrmMakeSeismicWave2;
  m_allButtons = {
      MakeAllButton("showAllButton", QStringLiteral("全表示"), &Self::ShowAll, true),
      MakeAllButton("showNoneButton", QStringLiteral("全非表示"), &Self::ShowAll, false),
      MakeAllButton("useAllButton", QStringLiteral("全て利用する"), &Self::UseAll, true),
      MakeAllButton("useNoneButton", QStringLiteral("全て利用しない"), &Self::UseAll, false),
  };
}

QAbstractButton* CFrmMakeSeismicWave2::MakeAllButton(const char* name, const QString& text,
                                                     void (CFrmMakeSeismicWave2::*act)(bool), bool on) {
  auto* const button = NamedButton<QPushButton>(name, text, this);
  connect(button, &QAbstractButton::clicked, this,
          [this, act, on] { m_gate.Run([this, act, on] { (this->*act)(on); }); });
  return button;
}

void CFrmMakeSeismicWave2::MakeGraphPanel(const GraphDoors& doors) {
  const auto graph = [this](GraphKind) {
    return std::make_unique<CDrawFreqAccSpec>(m_doc.graphAttenuation.origGraph, AttenuationCurves(m_doc));
  };
  const ColorSettings colors{[this] { return m_planes->Colors(); }, [this] { m_planes->ResetColors(); },
                             [this] { m_planeGrid->Refresh(); }};
  m_graphPanel =
      new WaveGraphPanel({GraphKind::Spectrum}, graph,
                         SpectrumSettings(m_doc, &CMorvaneDoc::graphAttenuation, colors), doors, this);
}

void CFrmMakeSeismicWave2::LayOut() {
  auto* const sourceRow = new QHBoxLayout;
  sourceRow->addWidget(new QLabel(QStringLiteral("断層パラメータ："), this));
  sourceRow->addWidget(m_sourceLabel);
  sourceRow->addStretch();
  sourceRow->addWidget(m_resetButton);
  auto* const allButtons = new QGridLayout;
  for (int i = 0; i < 4; ++i) allButtons->addWidget(m_allButtons[static_cast<std::size_t>(i)], i / 2, i % 2);
  auto* const relationRow = new QHBoxLayout;
  relationRow->addWidget(m_relationGrid);
  relationRow->addWidget(m_referButton, 0, Qt::AlignBottom);
  relationRow->addStretch();
  relationRow->addLayout(allButtons);
  auto* const lineRow = new QHBoxLayout;
  lineRow->addStretch();
  lineRow->addWidget(MakeText("solidLabel", QStringLiteral("実線 ： 最短距離")));
  lineRow->addSpacing(2 * fontMetrics().height());
  lineRow->addWidget(MakeText("dottedLabel", QStringLiteral("点線 ： 等価震源距離")));

  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(sourceRow);
  layout->addWidget(m_acquisitionLine);
  layout->addLayout(relationRow);
  layout->addWidget(m_planeGrid, kGridShare);
  layout->addLayout(lineRow);
  layout->addWidget(m_graphPanel, kGraphShare);

  std::vector<QWidget*> controls{m_resetButton, m_relationGrid, m_referButton};
  controls.insert(controls.end(), m_allButtons.begin(), m_allButtons.end());
  controls.push_back(m_planeGrid);
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  SetTabOrder(*this, controls);
}

void CFrmMakeSeismicWave2::Refresh() {
  const QString acquisition = LastAcquisitionLine(m_doc);
  m_acquisitionLine->setText(acquisition);
  m_acquisitionLine->setVisible(!acquisition.isEmpty());
  ShowPlanes();
}

void CFrmMakeSeismicWave2::ShowPlanes() {
  m_relationGrid->Refresh();
  m_planeGrid->Refresh();
  const int planes = m_planeGrid->RowCount();
  // Of few planes the grid takes what it needs, and the graph has the rest.
  m_planeGrid->setMaximumHeight(HeightOf(*m_planeGrid, std::max(planes, kFewestPlanes)));
  for (QAbstractButton* const button : m_allButtons) button->setEnabled(planes > 0);
  m_graphPanel->Refresh();
}

void CFrmMakeSeismicWave2::ReturnToFaults() {
  m_doors.follow(m_procedure.SwitchScreen(ScreenId::MakeSeismicWave1));
}

void CFrmMakeSeismicWave2::ExplainRelation() {
  CFrmMakeSeismicWave2Refer(window()).exec();
}

void CFrmMakeSeismicWave2::ShowAll(bool shown) {
  m_planes->ShowAll(shown);
  ShowPlanes();
}

void CFrmMakeSeismicWave2::UseAll(bool use) {
  m_planes->UseAll(use);
  ShowPlanes();
}

void CFrmMakeSeismicWave2::Calculate() {
  if (!m_doors.calculate()) m_doors.follow(SwitchOutcome::EndProgram);
}

}  // namespace tremlo
