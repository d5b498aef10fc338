#include "window/location/DlgSelectRectangularPlane.h"

#include "core/location/PlaneZone.h"
#include "core/location/ZoneMap.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/ScrolledBody.h"
#include "window/graphs/Spread7.h"
#include "window/location/DlgHelpFieldRect.h"
#include "window/location/SpanningHeader.h"
#include "window/location/ZoneMapView.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kCheck = 1, kNumber = 2, kLongitude = 3, kLatitude = 4;
constexpr int kColumnWidths[] = {36, 90, 104, 96};
constexpr int kAreaLines = 4;
// 0x00BBGGRR, as grids keep colours.
constexpr std::int32_t kSelectedText = 0x8000FF;
constexpr std::int32_t kOtherText = 0x000000;
constexpr std::int32_t kBack = 0xFFFFFF;
constexpr std::int32_t kGreyArea = 0xFFFFDB;
constexpr std::int32_t kSelectedCells = 0xCFFFFF;

CellFormat FormatOf(int column) {
  CellFormat format;
  if (column == kCheck) format.type = CellType::Check;
  format.locked = column != kCheck;
  format.backColor = kBack;
  format.textColor = kOtherText;
  return format;
}

}  // namespace

CDlgSelectRectangularPlane::CDlgSelectRectangularPlane(const ProgramFolders& folders,
                                                       std::vector<CDPoly> areas, int current,
                                                       QWidget* parent)
    : QDialog(parent),
      m_map(new ZoneMapView(
          QDir(folders.TableFolder(QStringLiteral("SystemData"))).filePath(QStringLiteral("kei_map_500.svg")),
          std::move(areas))),
      m_grid(new CSpread7),
      m_area(new QLabel) {
  setObjectName(QStringLiteral("CDlgSelectRectangularPlane"));
  setWindowTitle(QStringLiteral("平面直角座標系番号の選択"));
  Named(m_map, "zoneMap", QStringLiteral("平面直角座標系の区域図"));
  m_map->setAccessibleDescription(QStringLiteral("区域をクリックすると、その系を選択します。"));
  connect(m_map, &ZoneMapView::Picked, this, &CDlgSelectRectangularPlane::Select);
  MakeGrid();
  Named(m_area, "areaText", QStringLiteral("適用区域"));
  m_area->setTextFormat(Qt::PlainText);
  m_area->setWordWrap(true);
  m_area->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  m_area->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_area->setFixedHeight(kAreaLines * fontMetrics().lineSpacing());

  auto* const gridColumn = new QVBoxLayout;
  gridColumn->setSpacing(0);
  gridColumn->addWidget(SpanningHeader(*m_grid, kLongitude, kZoneGridHeaders[1].toString()));
  gridColumn->addWidget(m_grid, 1);
  auto* const choice = new QHBoxLayout;
  choice->addLayout(gridColumn);
  choice->addWidget(m_map, 0, Qt::AlignTop);
  auto* const content = new QWidget;
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins({});
  rows->addLayout(choice);
  rows->addWidget(MakeHeading());
  rows->addWidget(m_area);
  auto* const buttons = new QDialogButtonBox(this);  // in the dialog before OK becomes its default button
  QPushButton* const ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  Named(ok, "ok", ok->text())->setDefault(true);
  QPushButton* const cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
  Named(cancel, "cancel", cancel->text());
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  auto* const body = new ScrolledBody;
  column->addWidget(body);
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
  body->setWidget(content);
  body->Fit(*buttons);
  body->FollowCells(*m_grid);

  if (current >= 0 && static_cast<std::size_t>(current) < kPlaneZoneCount) {
    Select(current);
    m_grid->SelectCell(current + 1, kCheck);
  } else {
    m_grid->SelectCell(1, kCheck);
  }
  m_grid->setFocus();
}

void CDlgSelectRectangularPlane::MakeGrid() {
  Named(m_grid, "zoneGrid", QStringLiteral("平面直角座標系番号"));
  m_grid->SetSize(static_cast<int>(kPlaneZoneCount), kLatitude);
  m_grid->SetMenu(CSpread7::Menu::ReadOnly);
  m_grid->verticalHeader()->hide();
  m_grid->SetCellText(0, kCheck, QStringLiteral("選択"));
  m_grid->SetCellText(0, kNumber, kZoneGridHeaders[0].toString());
  m_grid->SetCellText(0, kLongitude, kZoneGridHeaders[2].toString());
  m_grid->SetCellText(0, kLatitude, kZoneGridHeaders[3].toString());
  int width = 2 * m_grid->frameWidth();
  for (int column = kCheck; column <= kLatitude; ++column) {
    m_grid->SetColumnFormat(column, FormatOf(column));
    m_grid->SetColumnWidth(column, kColumnWidths[column - 1]);
    width += kColumnWidths[column - 1];
  }
  m_grid->setFixedWidth(width);
  m_grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_grid->SetGreyAreaColor(kGreyArea);
  m_grid->SetSelectionColor(kSelectedCells);
  for (const PlaneZone& zone : PlaneZones()) {
    m_grid->SetCheck(zone.number, kCheck, false);
    m_grid->SetCellText(zone.number, kNumber, zone.label.toString());
    m_grid->SetCellText(zone.number, kLongitude, zone.shownLon.toString());
    m_grid->SetCellText(zone.number, kLatitude, zone.shownLat.toString());
  }
  // A click on the selected row changes nothing: exactly one stays selected once one is.
  m_grid->SetGuard([this](const GridChange& change) { return change.block.top - 1 != m_selected; });
  connect(m_grid, &CSpread7::CellClicked, this, [this](int row, int) { Select(row - 1); });
}

QWidget* CDlgSelectRectangularPlane::MakeHeading() {
  auto* const line = new QWidget;
  auto* const row = new QHBoxLayout(line);
  row->setContentsMargins({});
  auto* const heading = new QLabel(QStringLiteral("適用区域"));
  auto* const help = NamedButton<QPushButton>("helpButton", QStringLiteral("？"), line);
  help->setAccessibleName(QStringLiteral("平面直角座標系について"));
  help->setToolTip(help->accessibleName());
  help->setAutoDefault(false);
  help->setFixedWidth(help->sizeHint().height() + help->fontMetrics().horizontalAdvance(help->text()));
  connect(help, &QAbstractButton::clicked, this, &CDlgSelectRectangularPlane::ShowHelp);
  row->addWidget(heading);
  row->addStretch();
  row->addWidget(help);
  return line;
}

void CDlgSelectRectangularPlane::Select(int index) {
  if (index == m_selected || static_cast<std::size_t>(index) >= kPlaneZoneCount) return;
  if (m_selected >= 0) ShowRow(m_selected, false);
  m_selected = index;
  ShowRow(index, true);
  m_area->setText(PlaneZones()[static_cast<std::size_t>(index)].areaText.toString());
  m_area->setAccessibleName(QStringLiteral("適用区域 ") +
                            m_area->text());  // it is read out in place of the text
  m_map->MarkZone(index);
}

void CDlgSelectRectangularPlane::ShowRow(int index, bool selected) {
  const int row = index + 1;
  m_grid->SetCheck(row, kCheck, selected);
  m_grid->SetTextColor({row, kCheck, row, kLatitude}, selected ? kSelectedText : kOtherText);
}

void CDlgSelectRectangularPlane::ShowHelp() {
  CDlgHelpFieldRect(this).exec();
}

std::optional<int> SelectZoneDialog(const ProgramFolders& folders, int current, Prompt& prompt,
                                    QWidget* parent) {
  std::vector<CDPoly> areas;
  if (const std::optional<QString> fault = LoadZonePolygons(folders, areas)) {
    prompt.Tell(*fault, PromptIcon::Stop);
    return std::nullopt;
  }
  CDlgSelectRectangularPlane dialog(folders, std::move(areas), current, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Selected();
}

}  // namespace tremlo
