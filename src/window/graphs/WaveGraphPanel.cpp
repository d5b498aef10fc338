#include "window/graphs/WaveGraphPanel.h"

#include "core/graphs/GraphTexts.h"
#include "window/graphs/GraphEditDialog.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/NamedControl.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStatusTipEvent>
#include <QVBoxLayout>

#include <new>

namespace tremlo {

namespace {

const char* ButtonName(GraphKind kind) {
  if (kind == GraphKind::Time) return "timeButton";
  return kind == GraphKind::Spectrum ? "specButton" : "fourierButton";
}

}  // namespace

WaveGraphPanel::WaveGraphPanel(const std::vector<GraphKind>& kinds, Source source, Settings settings,
                               const GraphDoors& doors, QWidget* parent)
    : QWidget(parent),
      m_source(std::move(source)),
      m_settings(std::move(settings)),
      m_gate(doors.gate),
      m_kind(kinds.front()),
      m_kindButtons(new QButtonGroup(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  if (kinds.size() > 1) AddKindButtons(kinds);

  m_caption = new QLabel(QStringLiteral("グラフ（時間－加速度）"), this);
  m_caption->setObjectName(QStringLiteral("caption"));
  layout->addWidget(m_caption);

  m_graph = Named(new GraphView(this), "graph", QStringLiteral("グラフ"));
  m_graph->SetSource([this] { return MakeGraph(); });
  connect(m_graph, &GraphView::PointedAt, this, [this](const QString& values) {
    QStatusTipEvent tip(values);
    QCoreApplication::sendEvent(this, &tip);
  });
  new GraphMenu(*m_graph, doors);
  layout->addWidget(m_graph, 1);

  auto* const row = new QHBoxLayout;
  row->addStretch();
  m_copyButton = NamedButton<QPushButton>("copyButton", QStringLiteral("画像コピー"), this);
  m_copyButton->setToolTip(QStringLiteral("グラフの画像コピー"));
  m_copyButton->setAccessibleName(m_copyButton->toolTip());
  connect(m_copyButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { m_graph->CopyPicture(); }); });
  row->addWidget(m_copyButton);
  m_settingsButton = NamedButton<QPushButton>("settingsButton", QStringLiteral("描画設定"), this);
  connect(m_settingsButton, &QAbstractButton::clicked, this,
          [this] { m_gate.Run([this] { OpenSettings(); }); });
  row->addWidget(m_settingsButton);
  layout->addLayout(row);
}

void WaveGraphPanel::AddKindButtons(const std::vector<GraphKind>& kinds) {
  auto* const row = new QHBoxLayout;
  for (const GraphKind kind : kinds) {
    auto* const button = NamedButton<QPushButton>(ButtonName(kind), TextsOf(kind).name, this);
    button->setCheckable(true);
    button->setChecked(kind == m_kind);
    m_kindButtons->addButton(button, static_cast<int>(kind));
    row->addWidget(button);
  }
  row->addStretch();
  // Toggled rather than clicked: the action that the accessibility bus offers on a button makes no click.
  connect(m_kindButtons, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    if (on && static_cast<GraphKind>(id) != m_kind) ChooseKind(static_cast<GraphKind>(id));
  });
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

/// A kind may have to be computed first, and the spectrum is kept with the wave.
void WaveGraphPanel::ChooseKind(GraphKind kind) {
  if (!m_gate.Run([this, kind] { ShowKind(kind); }))
    m_kindButtons->button(static_cast<int>(m_kind))->setChecked(true);
}

void WaveGraphPanel::ShowKind(GraphKind kind) {
  m_kind = kind;
  if (QAbstractButton* const button = m_kindButtons->button(static_cast<int>(kind))) button->setChecked(true);
  Refresh();
  Q_EMIT KindShown();
}

void WaveGraphPanel::Offer(const Offers& offers) {
  m_settingsButton->setEnabled(offers.settings);
  QAbstractButton* const fourier = m_kindButtons->button(static_cast<int>(GraphKind::Fourier));
  if (!fourier) return;
  fourier->setEnabled(offers.fourier);
  fourier->setToolTip(offers.fourier ? QString() : QStringLiteral("波形データがありません。"));
  if (!offers.fourier && m_kind == GraphKind::Fourier) ShowKind(GraphKind::Time);
}

void WaveGraphPanel::Refresh() {
  m_caption->setText(TextsOf(m_kind).Caption());
  m_graph->Refresh();
}

void WaveGraphPanel::MakeNow() {
  m_graph->Picture(devicePixelRatioF());
  if (m_lacksMemory) throw std::bad_alloc();
}

std::vector<QWidget*> WaveGraphPanel::Controls() const {
  const QList<QAbstractButton*> buttons = m_kindButtons->buttons();
  std::vector<QWidget*> controls(buttons.begin(), buttons.end());
  controls.insert(controls.end(), {m_graph, m_copyButton, m_settingsButton});
  return controls;
}

/// Called while the graph is painted, where no box can be shown: too little memory is told in its place.
std::unique_ptr<CDrawGraph> WaveGraphPanel::MakeGraph() {
  m_lacksMemory = false;
  try {
    return m_source(m_kind);
  } catch (const std::bad_alloc&) {
    m_lacksMemory = true;
    m_caption->setText(TextsOf(m_kind).Caption() +
                       QStringLiteral("　メモリが不足しているため表示できません。"));
    return nullptr;
  }
}

void WaveGraphPanel::OpenSettings() {
  const std::unique_ptr<GraphEditDialog> dialog = m_settings.make(window());
  if (!dialog) return;
  connect(dialog.get(), &GraphEditDialog::Apply, this, [this] {
    m_settings.changed();
    Refresh();
  });
  connect(dialog.get(), &GraphEditDialog::ResetRange, this, m_settings.resetRange);
  if (m_settings.resetColors)
    connect(dialog.get(), &GraphEditDialog::ResetColors, this, m_settings.resetColors);
  dialog->exec();
}

}  // namespace tremlo
