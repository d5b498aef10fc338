#include "window/graphs/GraphEditDialog.h"

#include "core/graphs/RangeRows.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/ScrolledBody.h"
#include "window/graphs/Spread7.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {
namespace {

constexpr int kNumberWidth = 80;
constexpr int kCellPadding = 16;
constexpr int kMostColorRows = 6;  // of more curves the grid shows some and scrolls

QString NameOf(GraphKind kind) {
  if (kind == GraphKind::Time) return QStringLiteral("time");
  return kind == GraphKind::Spectrum ? QStringLiteral("spectrum") : QStringLiteral("fourier");
}

template <class Button>
Button* MakeButton(const QString& text, const QString& objectName, QWidget* parent) {
  auto* const button = new Button(text, parent);
  button->setObjectName(objectName);
  button->setAccessibleName(text);
  return button;
}

CSpread7* MakeGrid(std::shared_ptr<GridData> rows, const QString& objectName, QWidget* parent) {
  auto* const grid = new CSpread7(parent);
  grid->setObjectName(objectName);
  grid->SetData(std::move(rows));
  grid->verticalHeader()->hide();
  grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  return grid;
}

}  // namespace

GraphEditDialog::GraphEditDialog(const std::vector<Graph>& graphs, WaveGraphSetting& block,
                                 std::optional<std::vector<CurveColor>> colors, QWidget* parent)
    : QDialog(parent), m_block(block) {
  setWindowTitle(QStringLiteral("描画設定"));
  auto* const outside = new QVBoxLayout(this);
  outside->setSizeConstraint(QLayout::SetFixedSize);
  auto* const body = new ScrolledBody(this);
  outside->addWidget(body);
  auto* const content = new QWidget(body);
  auto* const layout = new QVBoxLayout(content);
  layout->setContentsMargins({});

  m_autoCheck = MakeButton<QCheckBox>(QStringLiteral("各グラフの自動調整を有効にする"),
                                      QStringLiteral("autoCheck"), this);
  connect(m_autoCheck, &QCheckBox::toggled, this, [this](bool checked) {
    m_block.autoRange = checked ? 1 : 0;
    TellChange();
  });
  layout->addWidget(m_autoCheck);
  layout->addWidget(MakeRangeGroup(graphs));
  if (colors) layout->addWidget(MakeColorGroup(std::move(*colors)));

  auto* const buttons = new QDialogButtonBox(this);
  buttons->setObjectName(QStringLiteral("buttons"));
  const auto addButton = [&](const QString& text, const QString& objectName,
                             QDialogButtonBox::ButtonRole role) {
    buttons->addButton(MakeButton<QPushButton>(text, objectName, this), role);
  };
  addButton(QStringLiteral("OK"), QStringLiteral("okButton"), QDialogButtonBox::AcceptRole);
  addButton(QStringLiteral("キャンセル"), QStringLiteral("cancelButton"), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  outside->addWidget(buttons);

  FitGrids();  // before the layouts are asked for a size, which they keep
  body->setWidget(content);
  body->Fit(*buttons);
  Rebuild();
}

QWidget* GraphEditDialog::MakeRangeGroup(const std::vector<Graph>& graphs) {
  auto* const group = new QGroupBox(QStringLiteral("グラフ表示範囲"), this);
  group->setObjectName(QStringLiteral("rangeGroup"));
  auto* const layout = new QVBoxLayout(group);
  for (const Graph& graph : graphs) AddRangePart(graph, layout);
  AddReset(QStringLiteral("初期範囲に戻す"), QStringLiteral("resetRangeButton"), &GraphEditDialog::ResetRange,
           layout);
  return group;
}

void GraphEditDialog::AddRangePart(const Graph& graph, QVBoxLayout* layout) {
  QWidget* const group = layout->parentWidget();
  RangePart part;
  part.graph = graph;
  part.rows = std::make_shared<RangeRows>(graph.kind, graph.title, m_block);
  part.grid = MakeGrid(part.rows, NameOf(graph.kind) + QStringLiteral("Grid"), group);
  part.grid->SetMenu(CSpread7::Menu::NumberGrid);
  part.grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (int column = 2; column <= part.rows->ColumnCount(); ++column)
    part.grid->SetColumnWidth(column, kNumberWidth);
  connect(part.grid, &CSpread7::Changed, this, [this] { TellChange(); });
  layout->addWidget(part.grid);

  if (const auto field = LogField(graph.kind)) {
    part.logCheck = MakeButton<QCheckBox>(QStringLiteral("対数グラフにする"),
                                          NameOf(graph.kind) + QStringLiteral("LogCheck"), group);
    part.logCheck->setAccessibleName(part.logCheck->text() + QStringLiteral(" ") + graph.title);
    connect(part.logCheck, &QCheckBox::toggled, this, [this, field](bool checked) {
      m_block.*field = checked ? 1 : 0;
      TellChange();
    });
    layout->addWidget(part.logCheck);
  }
  m_ranges.push_back(std::move(part));
}

void GraphEditDialog::AddReset(const QString& text, const QString& name, void (GraphEditDialog::*reset)(),
                               QVBoxLayout* layout) {
  auto* const button = MakeButton<QPushButton>(text, name, layout->parentWidget());
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, reset] {
    (this->*reset)();
    TellChange();
  });
  layout->addWidget(button, 0, Qt::AlignRight);
}

QWidget* GraphEditDialog::MakeColorGroup(std::vector<CurveColor> colors) {
  auto* const group = new QGroupBox(QStringLiteral("色の設定"), this);
  group->setObjectName(QStringLiteral("colorGroup"));
  auto* const layout = new QVBoxLayout(group);
  m_colorGrid = MakeGrid(std::make_shared<ColorRows>(std::move(colors)), QStringLiteral("colorGrid"), group);
  m_colorGrid->setAccessibleName(group->title());
  m_colorGrid->SetColumnWidth(2, kNumberWidth);
  connect(m_colorGrid, &CSpread7::Changed, this, [this] { TellChange(); });
  layout->addWidget(m_colorGrid);

  AddReset(QStringLiteral("色のリセット"), QStringLiteral("resetColorsButton"), &GraphEditDialog::ResetColors,
           layout);
  return group;
}

/// All grids as wide as the longest text of a range grid needs, be the axes linear or logarithmic, and as
/// high as their rows. The sizes are set rather than left to the grids: one that asks for the width of its
/// columns, while a column takes what width there is, asks for more each time it is laid out.
void GraphEditDialog::FitGrids() {
  int width = 0;
  WaveGraphSetting logarithmic;
  logarithmic.specLog = logarithmic.fourierLog = 1;
  for (const RangePart& part : m_ranges) {
    const RangeRows rows(part.graph.kind, part.graph.title, logarithmic);
    for (int row = 0; row <= rows.RowCount(); ++row)
      width = qMax(width, fontMetrics().horizontalAdvance(rows.Text(row, 1)));
  }
  width += kCellPadding + 3 * kNumberWidth;
  for (const RangePart& part : m_ranges) FitGrid(*part.grid, width, part.grid->RowCount());
  if (m_colorGrid) FitGrid(*m_colorGrid, width, qMin(m_colorGrid->RowCount(), kMostColorRows));
}

void GraphEditDialog::FitGrid(CSpread7& grid, int width, int rows) {
  const int rim = 2 * grid.frameWidth();
  grid.setMinimumWidth(width + rim);
  const int header = grid.horizontalHeader()->sizeHint().height();
  grid.setFixedHeight(header + rows * grid.verticalHeader()->defaultSectionSize() + rim);
}

void GraphEditDialog::Rebuild() {
  ShowChecked(*m_autoCheck, m_block.autoRange != 0);
  for (const RangePart& part : m_ranges) {
    part.grid->Refresh();
    part.grid->setAccessibleName(part.rows->Title());
    if (part.logCheck) ShowChecked(*part.logCheck, HasLogarithmicAxis(part.graph.kind, m_block));
  }
  if (m_colorGrid) m_colorGrid->Refresh();
}

void GraphEditDialog::TellChange() {
  Rebuild();
  Q_EMIT Apply();
}

void GraphEditDialog::done(int result) {
  for (const RangePart& part : m_ranges) part.grid->FinishEdit();
  QDialog::done(result);
}

void GraphEditDialog::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Who types numbers ends them with Enter, and does not mean to close the dialog by one too many.
  if (enter && qobject_cast<CSpread7*>(focusWidget())) return;
  QDialog::keyPressEvent(event);
}

}  // namespace tremlo
