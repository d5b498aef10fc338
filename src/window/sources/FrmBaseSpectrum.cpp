#include "window/sources/FrmBaseSpectrum.h"

#include "core/project/BaseCandidateRows.h"
#include "core/project/CandidateFigures.h"
#include "core/project/SpectrumCurves.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/GridSize.h"
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

constexpr int kLabelColumn = 2;
constexpr int kBaseColumn = 7;
constexpr int kColumnWidths[] = {48, 0, 104, 96, 56, 48, 48};  // the label takes what is left
constexpr int kFewestRows = 4;                                 // in sight in a small window
constexpr int kPeriodWidth = 72;
constexpr int kTextLines = 2;
constexpr int kTextLength = 62;  // in full-width characters

}  // namespace

CFrmBaseSpectrum::CFrmBaseSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                                   CommandGate& gate, QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_gate(gate),
      m_rows(std::make_shared<BaseCandidateRows>(doc, rules)),
      m_project(doc.Generation()) {
  setAccessibleName(QStringLiteral("基準スペクトル設定"));
  MakeGrid(prompt);
  MakeControls(prompt);
  MakeGraphPanel({gate, files, prompt});
  LayOut();
  Refresh();
}

void CFrmBaseSpectrum::MakeGrid(Prompt& prompt) {
  m_grid = Named(new CSpread7(this), "candidateGrid", QStringLiteral("基準スペクトルの候補"));
  m_grid->SetMenu(CSpread7::Menu::ReadOnly);
  m_grid->SetShowWarning(WarningsBy(prompt));
  m_grid->SetCommandGate(m_gate);
  m_grid->SetData(m_rows);
  m_grid->verticalHeader()->hide();
  for (int column = 1; column <= m_grid->ColumnCount(); ++column)
    if (column != kLabelColumn) m_grid->SetColumnWidth(column, kColumnWidths[column - 1]);
  m_grid->horizontalHeader()->setSectionResizeMode(kLabelColumn - 1, QHeaderView::Stretch);
  m_grid->setMinimumHeight(HeightOf(*m_grid, kFewestRows));
  connect(m_grid, &CSpread7::Changed, this, [this](const GridChange& change) {
    // The graph, which may have hundreds of curves, does not tell which of them is the base.
    if (change.block.left == kBaseColumn)
      m_grid->Refresh();
    else
      Refresh();
  });
  connect(m_grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &CFrmBaseSpectrum::ShowCandidateText);
}

void CFrmBaseSpectrum::MakeControls(Prompt& prompt) {
  m_guide = Named(new QLabel(this), "guide", {});
  m_guide->setTextFormat(Qt::PlainText);
  m_guide->setWordWrap(true);
  m_guide->setText(
      QStringLiteral("一覧から、現場への影響が一番大きいスペクトルを基準スペクトルとして選択してください。"));

  m_showAllButton = NamedButton<QPushButton>("showAllButton", QStringLiteral("全表示"), this);
  m_hideAllButton = NamedButton<QPushButton>("hideAllButton", QStringLiteral("全非表示"), this);
  connect(m_showAllButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ShowAll(true); }); });
  connect(m_hideAllButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { ShowAll(false); }); });

  m_damPeriodEdit = new CExpEdit(this);
  m_damPeriodEdit->setObjectName(QStringLiteral("damPeriodEdit"));
  m_damPeriodEdit->SetRule(DamPeriodRule());
  m_damPeriodEdit->SetShowWarning(WarningsBy(prompt));
  m_damPeriodEdit->setFixedWidth(kPeriodWidth);
  m_damPeriodEdit->setToolTip(
      QStringLiteral("0.02～5 秒。一覧で選んだ候補の、この周期での応答値を下に表示します。"
                     "プロジェクトには保存されません。"));
  connect(m_damPeriodEdit, &CExpEdit::Entered, this, &CFrmBaseSpectrum::TakeDamPeriod);
  connect(m_damPeriodEdit, &CExpEdit::Abandoned, this, &CFrmBaseSpectrum::ShowDamPeriod);

  // Without a name of its own: a screen reader then says the text itself, and that it has changed.
  m_candidateText = Named(new QLabel(this), "candidateText", {});
  m_candidateText->setTextFormat(Qt::PlainText);
  m_candidateText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // Of the same size whatever it says: the graph must not jump while rows are walked through.
  const QFontMetrics metrics = m_candidateText->fontMetrics();
  m_candidateText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  m_candidateText->setMinimumWidth(kTextLength * metrics.horizontalAdvance(u'あ'));
  m_candidateText->setFixedHeight(kTextLines * metrics.lineSpacing());
  m_candidateText->setToolTip(QStringLiteral(
      "一覧で選んだ候補の値です。応答値と下限スペクトルは、前後の 2 点を結ぶ直線上で読みます。\n"
      "下限スペクトルとは候補自身の周期の点で比べ、下回る点が続く範囲を示します。\n"
      "スペクトルの周期の範囲外は「-」と表示します。"));
  m_candidateText->setAccessibleDescription(m_candidateText->toolTip());
}

void CFrmBaseSpectrum::MakeGraphPanel(const GraphDoors& doors) {
  const auto graph = [this](GraphKind) {
    return std::make_unique<CDrawFreqAccSpec>(m_doc.graphBase.origGraph, CandidateCurves(m_doc));
  };
  m_graphPanel = new WaveGraphPanel({GraphKind::Spectrum}, graph,
                                    SpectrumSettings(m_doc, &CMorvaneDoc::graphBase), doors, this);
}

void CFrmBaseSpectrum::LayOut() {
  auto* const row = new QHBoxLayout;
  row->addWidget(m_showAllButton);
  row->addWidget(m_hideAllButton);
  row->addStretch();
  row->addWidget(LabelFor(m_damPeriodEdit, QStringLiteral("ダムの固有周期 (sec)")));
  row->addWidget(m_damPeriodEdit);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_guide);
  layout->addWidget(m_grid, 2);
  layout->addLayout(row);
  layout->addWidget(m_candidateText);
  layout->addWidget(m_graphPanel, 3);

  std::vector<QWidget*> controls{m_grid, m_showAllButton, m_hideAllButton, m_damPeriodEdit};
  const std::vector<QWidget*> graphControls = m_graphPanel->Controls();
  controls.insert(controls.end(), graphControls.begin(), graphControls.end());
  SetTabOrder(*this, controls);
}

void CFrmBaseSpectrum::Prepare() {
  StoreCandidateAreas(m_doc);
  Refresh();
}

void CFrmBaseSpectrum::Refresh() {
  m_rows->Refresh();
  m_grid->Refresh();
  // Of few candidates the grid takes what it needs, and the graph has the rest.
  m_grid->setMaximumHeight(HeightOf(*m_grid, std::max(m_grid->RowCount(), kFewestRows)));
  ForgetOtherProject();
  ShowCandidateText();
  m_graphPanel->Refresh();
}

void CFrmBaseSpectrum::ForgetOtherProject() {
  const bool isOther = m_project != m_doc.Generation();
  m_project = m_doc.Generation();
  if (isOther) {
    m_damPeriod.reset();
    ShowDamPeriod();
  }
  if (isOther || m_grid->ActiveRow() == 0) m_grid->SelectCell(1, kLabelColumn);
}

void CFrmBaseSpectrum::ShowAll(bool shown) {
  SetAllCandidatesShown(m_doc, shown);
  Refresh();
}

void CFrmBaseSpectrum::TakeDamPeriod() {
  if (m_damPeriodEdit->GetText().isEmpty())
    m_damPeriod.reset();
  else
    m_damPeriod = m_damPeriodEdit->GetNumber();
  ShowCandidateText();
}

void CFrmBaseSpectrum::ShowDamPeriod() {
  m_damPeriodEdit->SetNumber(m_damPeriod.value_or(m_damPeriodEdit->Rule().emptyValue));
}

void CFrmBaseSpectrum::ShowCandidateText() {
  const auto row = static_cast<std::size_t>(m_grid->ActiveRow());
  const std::vector<BaseCandidate>& candidates = m_rows->Candidates();
  m_candidateText->setText(row >= 1 && row <= candidates.size()
                               ? CandidateText(m_doc, candidates[row - 1].item, m_damPeriod)
                               : QString());
}

}  // namespace tremlo
