#include "window/location/FrmField.h"

#include "core/graphs/SiteRows.h"
#include "core/location/PlaneZone.h"
#include "core/location/PositionTexts.h"
#include "window/graphs/ExpButton.h"
#include "window/graphs/GridSize.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/Spread7.h"
#include "window/location/DlgSelectRectangularPlane.h"
#include "window/location/LocationPictures.h"
#include "window/location/MapAttribution.h"
#include "window/location/SpanningHeader.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStatusTipEvent>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kTextColumnWidth = 400;
constexpr int kTitleWidth = 96;
constexpr int kPositionTitleWidth = 48;
constexpr int kPositionColumnWidth = 72;
constexpr int kZoneWidth = 170;
constexpr int kFewestComments = 4;                ///< rows in sight in a small window
constexpr std::int32_t kZoneGreyArea = 0xFFFFDB;  // 0x00BBGGRR
constexpr std::int32_t kZoneSelectedCells = 0xCFFFFF;

QGroupBox* InGroup(const QString& title, CSpread7* grid) {
  auto* const group = new QGroupBox(title);
  group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* const layout = new QVBoxLayout(group);
  layout->setContentsMargins(6, 4, 6, 6);
  layout->addWidget(grid);
  return group;
}

bool IsLeftButtonDown() {
  return (QGuiApplication::mouseButtons() & Qt::LeftButton) != 0;
}

}  // namespace

CFrmField::CFrmField(CMorvaneDoc& doc, Prompt& prompt, ChangeRules& rules, CommandGate& gate,
                     MapControl::OnlineFlag online, TileCache tiles, QWidget* parent)
    : Screen(parent),
      m_doc(doc),
      m_prompt(prompt),
      m_rules(rules),
      m_gate(gate),
      m_map(new MapControl(doc, std::move(online), std::move(tiles), this)),
      m_drag(m_map->Map()),
      m_planeLabel(new QLabel(this)),
      m_hintLabel(new QLabel(this)),
      m_attribution(new MapAttribution(prompt, gate, this)) {
  setAccessibleName(QStringLiteral("現場設定"));
  MakeGrids();
  MakeButtons();
  MakeMap();
  auto* const row = new QHBoxLayout(this);
  row->addWidget(MakeTextColumn());
  row->addWidget(MakeMapColumn(), 1);
  SetTabOrder(*this, {m_jobGrid, m_siteGrid, m_positionGrid, m_zoneGrid, m_zoneButton, m_backButton,
                      m_commentGrid, m_map, m_attribution});
  Refresh();
}

CSpread7* CFrmField::MakeGrid(const char* name, const QString& spokenName, std::unique_ptr<GridData> rows) {
  auto* const grid = Named(new CSpread7(this), name, spokenName);
  grid->SetData(std::move(rows));
  grid->SetShowWarning(WarningsBy(m_prompt));
  grid->verticalHeader()->setFixedWidth(kTitleWidth);
  // An edge that the pointer could drag would take columns out of sight, where nothing scrolls to them.
  grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid->horizontalHeader()->setStretchLastSection(true);
  return grid;
}

void CFrmField::MakeGrids() {
  m_jobGrid =
      MakeGrid("jobGrid", QStringLiteral("業務情報"), std::make_unique<TextRows>(JobRows(m_doc.site)));
  m_siteGrid =
      MakeGrid("siteGrid", QStringLiteral("現場情報"), std::make_unique<TextRows>(SiteRows(m_doc.site)));
  m_commentGrid = MakeGrid("commentGrid", QStringLiteral("コメント"),
                           std::make_unique<TextRows>(CommentRows(m_doc.site), QStringLiteral("コメント")));
  for (CSpread7* const grid : {m_jobGrid, m_siteGrid, m_commentGrid}) {
    grid->SetMenu(CSpread7::Menu::TextGrid);
    connect(grid, &CSpread7::Changed, this, &CFrmField::TakeTexts);
  }
  for (CSpread7* const grid : {m_jobGrid, m_siteGrid}) {
    grid->horizontalHeader()->hide();
    FitRows(*grid);
  }
  m_commentGrid->verticalHeader()->setFixedWidth(kPositionTitleWidth);
  m_commentGrid->setMinimumHeight(HeightOf(*m_commentGrid, kFewestComments));
  m_commentGrid->setMaximumHeight(HeightOf(*m_commentGrid, m_commentGrid->RowCount()));

  m_positionGrid =
      MakeGrid("positionGrid", QStringLiteral("現場位置( °)"), std::make_unique<PositionRows>(m_position));
  m_positionGrid->SetMenu(CSpread7::Menu::NumberGrid);
  m_positionGrid->verticalHeader()->setFixedWidth(kPositionTitleWidth);
  for (const int column : {1, 2, 3}) m_positionGrid->SetColumnWidth(column, kPositionColumnWidth);
  FitRows(*m_positionGrid);

  m_zoneGrid =
      MakeGrid("zoneGrid", QStringLiteral("平面直角座標系番号"), std::make_unique<ZoneRow>(m_doc.site));
  m_zoneGrid->SetMenu(CSpread7::Menu::ReadOnly);
  m_zoneGrid->verticalHeader()->hide();
  m_zoneGrid->SetGreyAreaColor(kZoneGreyArea);
  m_zoneGrid->SetSelectionColor(kZoneSelectedCells);
  m_zoneGrid->setFixedWidth(kZoneWidth);
  FitRows(*m_zoneGrid);

  for (CSpread7* const grid : {m_positionGrid, m_zoneGrid})
    grid->SetGuard([this](const GridChange&) { return MayChangeSite(); });
  connect(m_positionGrid, &CSpread7::Changed, this, &CFrmField::TakePosition);
  connect(m_zoneGrid, &CSpread7::Changed, this, &CFrmField::TakeZone);
}

void CFrmField::MakeButtons() {
  m_zoneButton =
      MakePictureButton("zoneButton", QStringLiteral("zone"), QStringLiteral("平面直角座標系番号の選択"));
  connect(m_zoneButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { SelectZone(); }); });
  m_backButton = MakePictureButton("backButton", QStringLiteral("back"), QStringLiteral("現場位置に戻る"));
  connect(m_backButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { ReturnToSite(); }); });
}

void CFrmField::MakeMap() {
  Named(m_map, "map", QStringLiteral("地図"));
  connect(m_map, &MapControl::Pressed, this, [this](const PixelPoint& pixel) {
    m_drag.Press(PositionOf(m_doc.site), pixel);
    m_map->Repaint();
  });
  connect(m_map, &MapControl::Moved, this, [this](const PixelPoint& pixel, bool buttonDown) {
    // The release went elsewhere: to a box, or to another window.
    ApplyDrag(buttonDown ? m_drag.Move(
                               pixel, [this] { return MayDragSite(); }, IsLeftButtonDown)
                         : m_drag.Release(pixel));
  });
  connect(m_map, &MapControl::Released, this,
          [this](const PixelPoint& pixel) { ApplyDrag(m_drag.Release(pixel)); });
  connect(m_map, &MapControl::PointerAt, this,
          [this](const GeoPoint& place) { TellPointer(PlaceText(place)); });
  connect(m_map, &MapControl::PointerLeft, this, [this] { TellPointer({}); });
}

QWidget* CFrmField::MakeTextColumn() {
  auto* const position = new QVBoxLayout;
  position->setSpacing(0);
  position->addWidget(SpanningHeader(*m_positionGrid, 1, QStringLiteral("現場位置( °)")));
  position->addWidget(m_positionGrid);
  auto* const zone = new QHBoxLayout;
  zone->addWidget(m_zoneGrid);
  zone->addWidget(m_zoneButton);
  zone->addStretch();
  zone->addWidget(m_backButton);

  auto* const column = new QWidget;
  column->setFixedWidth(kTextColumnWidth);
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins({});
  layout->addWidget(InGroup(QStringLiteral("業務情報"), m_jobGrid));
  layout->addWidget(InGroup(QStringLiteral("現場情報"), m_siteGrid));
  layout->addLayout(position);
  layout->addLayout(zone);
  layout->addWidget(m_commentGrid, 1);
  layout->addStretch();
  return column;
}

QWidget* CFrmField::MakeMapColumn() {
  Named(m_planeLabel, "planeLabel", {});
  Named(m_hintLabel, "hintLabel", {});
  for (QLabel* const label : {m_planeLabel, m_hintLabel}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  // A map that grew and shrank under a drag, as the hint goes and comes, would carry the site along.
  QSizePolicy kept = m_hintLabel->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  m_hintLabel->setSizePolicy(kept);
  auto* const column = new QWidget;
  auto* const layout = new QVBoxLayout(column);
  layout->setContentsMargins({});
  layout->addWidget(m_map, 1);
  layout->addWidget(m_planeLabel);
  layout->addWidget(m_hintLabel);
  layout->addWidget(m_attribution);
  return column;
}

void CFrmField::Entered() {
  Refresh();
  m_map->setFocus(Qt::OtherFocusReason);
}

void CFrmField::Left() {
  CommandBegins();
}

void CFrmField::CommandBegins() {
  EndDrag();
  m_map->Abandon();
  TellPointer({});
}

void CFrmField::CommandEnded() {
  m_map->Repaint();
}

void CFrmField::Refresh() {
  for (CSpread7* const grid : {m_jobGrid, m_siteGrid, m_commentGrid, m_zoneGrid}) grid->Refresh();
  if (m_drag.IsActive())
    m_map->Repaint();
  else
    ShowSite();
}

void CFrmField::SelectZone() {
  if (!m_rules.BeginSiteChange()) return;
  const int zone = ZoneFromLabel(m_doc.site.planeZone);
  const auto chosen = SelectZoneDialog(m_doc.Folders(), zone < 0 ? -1 : zone - 1, m_prompt, window());
  if (!chosen) return;
  const bool known = *chosen >= 0 && static_cast<std::size_t>(*chosen) < kPlaneZoneCount;
  m_doc.site.planeZone = PlaneZones()[known ? static_cast<std::size_t>(*chosen) : 0].label.toString();
  m_zoneGrid->Refresh();
  TakeZone();
}

void CFrmField::ReturnToSite() {
  m_map->CenterOn(PlaceOf(PositionOf(m_doc.site)));
}

bool CFrmField::MayChangeSite() {
  if (m_rules.BeginSiteChange()) return true;
  ShowSite();
  return false;
}

bool CFrmField::MayDragSite() {
  const bool asks = !m_doc.faults.empty();
  if (!m_rules.BeginSiteChange()) return false;
  // A box takes the mouse away from the map, which would hear nothing more of a button that is still down.
  if (asks && IsLeftButtonDown()) m_map->grabMouse();
  return true;
}

void CFrmField::TakeTexts() {
  m_doc.SetModified(true);
}

void CFrmField::TakePosition() {
  StorePosition(m_position, m_doc.site);
  m_doc.SetModified(true);
  ShowSite();
}

void CFrmField::TakeZone() {
  m_doc.SetModified(true);
  ShowPlaneTexts();
}

/// A command takes the position that is on display.
void CFrmField::EndDrag() {
  ApplyDrag(m_drag.Finish());
}

void CFrmField::ApplyDrag(SiteDrag::Outcome outcome) {
  if (!m_drag.IsActive() && QWidget::mouseGrabber() == m_map) m_map->releaseMouse();
  switch (outcome) {
    case SiteDrag::Outcome::Nothing:
      break;
    case SiteDrag::Outcome::Moved:
      ShowPosition(m_drag.Position());
      m_map->Repaint();
      break;
    case SiteDrag::Outcome::Ended:
      StorePosition(m_drag.Position(), m_doc.site);
      m_doc.SetModified(true);
      ShowSite();
      break;
    case SiteDrag::Outcome::PutBack:
      ShowSite();
      break;
  }
}

void CFrmField::ShowSite() {
  const SitePosition position = PositionOf(m_doc.site);
  ShowPosition(position);
  m_map->CenterOn(PlaceOf(position));
}

void CFrmField::ShowPosition(const SitePosition& position) {
  m_position = position;
  m_positionGrid->Refresh();
  ShowPlaneTexts();
}

void CFrmField::ShowPlaneTexts() {
  SiteRecord shown = m_doc.site;
  StorePosition(m_position, shown);
  m_planeLabel->setText(PlaneText(shown));
  m_hintLabel->setText(ZoneHintText(shown.planeZone));
  m_hintLabel->setVisible(IsFarFromZone(shown));
}

/// In the status bar of the window, as the hints of the menu.
void CFrmField::TellPointer(const QString& text) {
  QStatusTipEvent event(text);
  QCoreApplication::sendEvent(this, &event);
}

}  // namespace tremlo
