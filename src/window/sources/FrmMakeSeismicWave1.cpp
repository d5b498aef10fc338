#include "window/sources/FrmMakeSeismicWave1.h"

#include "core/location/FaultOverlays.h"
#include "core/location/PlaneZone.h"
#include "core/location/PositionTexts.h"
#include "core/location/SitePosition.h"
#include "core/project/AcquisitionEntries.h"
#include "core/project/DocumentAcquisition.h"
#include "core/project/FaultRows.h"
#include "core/project/LastAcquisition.h"
#include "window/graphs/ChosenRadio.h"
#include "window/graphs/InfoButton.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/Spread7.h"
#include "window/location/MapAttribution.h"
#include "window/sources/FaultRun.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStatusTipEvent>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kTextColumnWidth = 380;
constexpr int kRangeWidth = 90;
constexpr int kFewestRows = 5;  ///< of a grid, in sight in a small window
constexpr int kRowNumberWidth = 36;
constexpr int kColumnWidths[] = {44, 200, 92, 104, 122, 90, 90, 90, 90};
constexpr int kActivityColumnWidths[] = {100, 100, 88, 88};  ///< the last four of the search range

const QString kScreenInfoText = QStringLiteral("断層情報から加速度応答スペクトルを作成します。");
const QString kRankingInfoText = QStringLiteral(
    "現場位置に影響が大きい断層のランキングが得られます。\n\n指定した現場位置に対して、地震動の超過確率をもと"
    "に"
    "ランク付けして、断層名を表示します。評価方法に関してはマニュアルを参照してください。");

/// A label that breaks its lines and takes no more height than it needs.
QLabel* TextLine(const char* name, QWidget* parent) {
  auto* const label = Named(new QLabel(parent), name, {});
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

CFrmMakeSeismicWave1::CFrmMakeSeismicWave1(Parts parts, TileCache tiles, QWidget* parent)
    : Screen(parent),
      m_parts(std::move(parts)),
      m_doc(m_parts.doc),
      m_offlineLabel(TextLine("offlineLabel", this)),
      m_sourceLabel(TextLine("sourceLabel", this)),
      m_acquisitionLabel(TextLine("acquisitionLabel", this)),
      m_map(new MapControl(m_doc, m_parts.isOnline, std::move(tiles), this)),
      m_attribution(new MapAttribution(m_parts.prompt, m_parts.gate, this)),
      m_grids(new QStackedWidget(this)) {
  setAccessibleName(QStringLiteral("距離減衰式（断層）"));
  MakeModes();
  MakeRange();
  MakeButtons();
  MakeMap();
  m_rankingGrid = MakeGrid("rankingGrid", kAcquireRanking);
  m_rangeGrid = MakeGrid("rangeGrid", kAcquireRange);

  auto* const top = new QHBoxLayout;
  top->addWidget(MakeTextColumn());
  top->addWidget(MakeMapColumn(), 1);
  auto* const next = new QHBoxLayout;
  next->addStretch();
  next->addWidget(m_attenuationButton);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(top, 1);
  layout->addWidget(m_grids, 1);
  layout->addLayout(next);
  SetTabOrder(*this, {m_screenInfo, m_rankingRadio, m_rankingInfo, m_rangeRadio, m_rangeEdit,
                      m_parametersButton, m_acquireButton, m_map, m_attribution, m_rankingGrid.view,
                      m_rangeGrid.view, m_attenuationButton});
  Refresh();
}

void CFrmMakeSeismicWave1::MakeModes() {
  m_screenInfo = new InfoButton("screenInfoButton", QStringLiteral("この画面の説明"), kScreenInfoText,
                                m_parts.prompt, m_parts.gate, this);
  m_rankingRadio =
      MakeMode("rankingRadio", QStringLiteral("現場位置に影響の大きい断層を取得"), kAcquireRanking);
  m_rankingInfo = new InfoButton("rankingInfoButton", QStringLiteral("影響の大きい断層の説明"),
                                 kRankingInfoText, m_parts.prompt, m_parts.gate, this);
  m_rangeRadio = MakeMode("rangeRadio", QStringLiteral("探索範囲内の断層を取得"), kAcquireRange);
}

QRadioButton* CFrmMakeSeismicWave1::MakeMode(const char* name, const QString& text, std::int32_t mode) {
  auto* const radio = NamedButton<QRadioButton>(name, text, this);
  connect(radio, &QAbstractButton::toggled, this, [this, mode](bool on) {
    if (on) ChooseMode(mode);
  });
  return radio;
}

void CFrmMakeSeismicWave1::MakeRange() {
  m_rangeEdit = new CExpEdit(this);
  m_rangeEdit->setObjectName(QStringLiteral("rangeEdit"));
  m_rangeEdit->SetRule(SearchRangeRule());
  m_rangeEdit->SetOwnerCheck(SearchRangeRefusal);
  m_rangeEdit->SetShowWarning(WarningsBy(m_parts.prompt));
  m_rangeEdit->setAlignment(Qt::AlignRight);
  m_rangeEdit->setFixedWidth(kRangeWidth);
  m_rangeEdit->setAccessibleDescription(QStringLiteral("km"));
  connect(m_rangeEdit, &CExpEdit::Entered, this, &CFrmMakeSeismicWave1::TakeRange);
  connect(m_rangeEdit, &CExpEdit::Abandoned, this, &CFrmMakeSeismicWave1::ShowRange);
}

void CFrmMakeSeismicWave1::MakeButtons() {
  m_parametersButton = MakeCommand("parametersButton", QStringLiteral("断層データの取得方法"),
                                   &CFrmMakeSeismicWave1::EditParameters);
  m_acquireButton =
      MakeCommand("acquireButton", QStringLiteral("断層データを取得"), &CFrmMakeSeismicWave1::Acquire);
  m_attenuationButton = MakeCommand("attenuationButton", QStringLiteral("距離減衰の計算"),
                                    &CFrmMakeSeismicWave1::GoToAttenuation);
}

QAbstractButton* CFrmMakeSeismicWave1::MakeCommand(const char* name, const QString& text,
                                                   void (CFrmMakeSeismicWave1::*command)()) {
  auto* const button = NamedButton<QPushButton>(name, text, this);
  connect(button, &QAbstractButton::clicked, this,
          [this, command] { m_parts.gate.Run([this, command] { (this->*command)(); }); });
  return button;
}

void CFrmMakeSeismicWave1::MakeMap() {
  Named(m_map, "map", QStringLiteral("地図"));
  m_map->SetMovesView(true);
  m_map->SetShowsOverlays(true);
  connect(m_map, &MapControl::PointerAt, this,
          [this](const GeoPoint& place) { TellPointer(PlaceText(place)); });
  connect(m_map, &MapControl::PointerLeft, this, [this] { TellPointer({}); });
}

CFrmMakeSeismicWave1::Grid CFrmMakeSeismicWave1::MakeGrid(const char* name, std::int32_t acquireMode) {
  Grid grid{new CSpread7(m_grids), std::make_shared<FaultRows>(m_doc, acquireMode)};
  Named(grid.view, name, QStringLiteral("取得した断層"));
  grid.view->SetData(grid.rows);
  grid.view->SetMenu(CSpread7::Menu::ReadOnly);
  grid.view->SetShowWarning(WarningsBy(m_parts.prompt));
  grid.view->verticalHeader()->setFixedWidth(kRowNumberWidth);
  for (int column = 1; column <= grid.view->ColumnCount(); ++column) {
    const bool activity = acquireMode == kAcquireRange && column > 5;
    grid.view->SetColumnWidth(column,
                              activity ? kActivityColumnWidths[column - 6] : kColumnWidths[column - 1]);
  }
  QHeaderView& header = *grid.view->horizontalHeader();
  header.setStretchLastSection(true);
  grid.view->setMinimumHeight(header.sizeHint().height() +
                              kFewestRows * grid.view->verticalHeader()->defaultSectionSize());
  m_grids->addWidget(grid.view);
  return grid;
}

QGroupBox* CFrmMakeSeismicWave1::MakeAcquisitionGroup() {
  auto* const group = new QGroupBox(QStringLiteral("断層データの取得"));
  auto* const ranking = new QHBoxLayout;
  ranking->addWidget(m_rankingRadio);
  ranking->addWidget(m_rankingInfo);
  ranking->addStretch();
  auto* const range = new QHBoxLayout;
  range->addSpacing(20);
  range->addWidget(LabelFor(m_rangeEdit, QStringLiteral("探索範囲")));
  range->addWidget(m_rangeEdit);
  range->addWidget(new QLabel(QStringLiteral("km")));
  range->addStretch();
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(m_parametersButton);
  buttons->addWidget(m_acquireButton);
  m_offlineLabel->setText(QStringLiteral("オフラインではデータを取得できません。"));
  QSizePolicy policy = m_offlineLabel->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  m_offlineLabel->setSizePolicy(policy);
  auto* const layout = new QVBoxLayout(group);
  layout->addLayout(ranking);
  layout->addWidget(m_rangeRadio);
  layout->addLayout(range);
  layout->addLayout(buttons);
  layout->addWidget(m_offlineLabel);
  return group;
}

QWidget* CFrmMakeSeismicWave1::MakeTextColumn() {
  m_sourceLabel->setText(QStringLiteral("断層データの出典：J-SHIS（APIより取得）"));
  auto* const intro = new QHBoxLayout;
  auto* const text = new QLabel(QStringLiteral("断層情報からの加速度応答スペクトル"));
  intro->addWidget(text);
  intro->addWidget(m_screenInfo);
  intro->addStretch();
  auto* const column = new QWidget;
  column->setFixedWidth(kTextColumnWidth);
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins({});
  layout->addLayout(intro);
  layout->addWidget(MakeAcquisitionGroup());
  layout->addWidget(m_sourceLabel);
  layout->addWidget(m_acquisitionLabel);
  layout->addStretch();
  return column;
}

QWidget* CFrmMakeSeismicWave1::MakeMapColumn() {
  auto* const column = new QWidget;
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins({});
  layout->addWidget(m_map, 1);
  layout->addWidget(m_attribution);
  return column;
}

void CFrmMakeSeismicWave1::Entered() {
  Refresh();
  m_map->CenterOn(PlaceOf(PositionOf(m_doc.site)));
}

void CFrmMakeSeismicWave1::Left() {
  CommandBegins();
}

void CFrmMakeSeismicWave1::CommandBegins() {
  m_map->Abandon();
  TellPointer({});
}

void CFrmMakeSeismicWave1::CommandEnded() {
  m_map->Repaint();
}

void CFrmMakeSeismicWave1::Refresh() {
  ShowMode();
  ShowRange();
  ShowGrid(m_rankingGrid);
  ShowGrid(m_rangeGrid);
  ShowOnline();
  ShowSources();
  m_map->Map().overlays = FaultOverlays(m_doc.faults);
  m_map->Repaint();
}

void CFrmMakeSeismicWave1::ChooseMode(std::int32_t mode) {
  m_parts.gate.Run([this, mode] { SetAcquireMode(m_doc, mode); });
  ShowMode();
}

void CFrmMakeSeismicWave1::Acquire() {
  if (!m_parts.isOnline()) return;
  if (!m_parts.rules.BeginAcquisition(ZoneFromLabel(m_doc.site.planeZone) > 0)) return;
  if (AcquireBehindDialog(m_doc, m_parts.services, m_parts.prompt, window()))
    m_parts.procedure.RefreshFaultScreens();
}

void CFrmMakeSeismicWave1::EditParameters() {
  m_parts.editApiParameters();
}

void CFrmMakeSeismicWave1::GoToAttenuation() {
  m_parts.follow(m_parts.procedure.SwitchScreen(ScreenId::MakeSeismicWave2));
}

void CFrmMakeSeismicWave1::TakeRange() {
  EnterSearchRange(m_doc, m_rangeEdit->GetText());
  ShowRange();
}

void CFrmMakeSeismicWave1::ShowMode() {
  const bool range = m_doc.faultAcquireMode == kAcquireRange;
  QRadioButton& chosen = range ? *m_rangeRadio : *m_rankingRadio;
  ShowChecked(chosen, true);
  StopAtChosen(chosen);
  m_grids->setCurrentIndex(range ? 1 : 0);
}

void CFrmMakeSeismicWave1::ShowRange() {
  m_rangeEdit->SetNumber(m_doc.searchRangeKm);
}

void CFrmMakeSeismicWave1::ShowGrid(Grid& grid) {
  grid.view->clearSpans();
  grid.view->Refresh();
  for (const GridBlock& block : grid.rows->Spans())
    grid.view->SetSpan(block.top, block.left, block.bottom - block.top + 1, block.right - block.left + 1);
}

void CFrmMakeSeismicWave1::ShowOnline() {
  const bool online = m_parts.isOnline();
  m_acquireButton->setEnabled(online);
  m_offlineLabel->setVisible(!online);
}

void CFrmMakeSeismicWave1::ShowSources() {
  const QString line = LastAcquisitionLine(m_doc);
  m_acquisitionLabel->setText(line);
  m_acquisitionLabel->setVisible(!line.isEmpty());
  const QString more = LongLastAcquisitionLine(m_doc);
  // As a paragraph it breaks its lines.
  m_acquisitionLabel->setToolTip(more == line ? QString()
                                              : QStringLiteral("<p>%1</p>").arg(more.toHtmlEscaped()));
}

/// In the status bar of the window, as the hints of the menu.
void CFrmMakeSeismicWave1::TellPointer(const QString& text) {
  QStatusTipEvent event(text);
  QCoreApplication::sendEvent(this, &event);
}

}  // namespace tremlo
