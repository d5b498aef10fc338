#include "core/graphs/SiteRows.h"

#include "core/graphs/CellNumber.h"
#include "core/location/PlaneZone.h"

#include <cmath>

namespace tremlo {

namespace {

constexpr int kLatitude = 1, kLongitude = 2;
constexpr int kDegrees = 1, kMinutes = 2, kSeconds = 3;
constexpr int kSecondsDecimals = 4;

}  // namespace

QString TextRows::Text(int row, int column) const {
  if (row == 0) return column == 1 ? m_columnTitle : QString();
  if (!Holds(row)) return {};
  const Row& shown = m_rows[static_cast<std::size_t>(row - 1)];
  if (column == 0) return shown.title;
  return column == 1 ? *shown.text : QString();
}

void TextRows::SetText(int row, int column, const QString& text) {
  if (Holds(row) && column == 1) *m_rows[static_cast<std::size_t>(row - 1)].text = text;
}

CellFormat TextRows::Format(int /*row*/, int /*column*/) const {
  return {};
}

std::vector<TextRows::Row> JobRows(SiteRecord& site) {
  return {{QStringLiteral("タイトル"), &site.title}, {QStringLiteral("サブタイトル"), &site.subtitle},
          {QStringLiteral("日付"), &site.workDate},  {QStringLiteral("会社名"), &site.company},
          {QStringLiteral("電話番号"), &site.phone}, {QStringLiteral("FAX番号"), &site.fax}};
}

std::vector<TextRows::Row> SiteRows(SiteRecord& site) {
  return {{QStringLiteral("現場名"), &site.siteName}, {QStringLiteral("住所"), &site.address}};
}

std::vector<TextRows::Row> CommentRows(SiteRecord& site) {
  std::vector<TextRows::Row> rows;
  for (QString& comment : site.comments) rows.push_back({{}, &comment});
  return rows;
}

double* PositionRows::Find(int row, int column) const {
  if (row != kLatitude && row != kLongitude) return nullptr;
  const bool lat = row == kLatitude;
  switch (column) {
    case kDegrees:
      return lat ? &m_position.latDeg : &m_position.lonDeg;
    case kMinutes:
      return lat ? &m_position.latMin : &m_position.lonMin;
    case kSeconds:
      return lat ? &m_position.latSec : &m_position.lonSec;
    default:
      return nullptr;
  }
}

QString PositionRows::Text(int row, int column) const {
  if (row == 0) {
    const QStringList titles = {{}, QStringLiteral("度"), QStringLiteral("分"), QStringLiteral("秒")};
    return titles.value(column);
  }
  if (column == 0 && row == kLatitude) return QStringLiteral("北緯");
  if (column == 0 && row == kLongitude) return QStringLiteral("東経");
  const double* const number = Find(row, column);
  return number ? NumberToText(*number, column == kSeconds ? kSecondsDecimals : 0) : QString();
}

QString PositionRows::ExactText(int row, int column) const {
  const double* const number = Find(row, column);
  return number ? ShortestText(*number) : QString();
}

bool PositionRows::WouldChange(int row, int column, const QString& text) const {
  const double* const number = Find(row, column);
  return number && std::isfinite(NumberOfText(text, *number)) && !text.isEmpty() &&
         GridData::WouldChange(row, column, text);
}

void PositionRows::SetText(int row, int column, const QString& text) {
  double* const number = Find(row, column);
  if (!number) return;
  const double value = NumberOfText(text, *number);
  if (std::isfinite(value)) *number = value;
}

CellFormat PositionRows::Format(int row, int column) const {
  CellFormat format;
  format.type = CellType::Number;
  format.locked = !Find(row, column);
  return format;
}

QString ZoneRow::Text(int row, int column) const {
  if (column != 1) return {};
  if (row == 0) return QStringLiteral("平面直角座標系番号");
  return row == 1 ? m_site.planeZone : QString();
}

void ZoneRow::SetText(int row, int column, const QString& text) {
  if (row == 1 && column == 1) m_site.planeZone = text;
}

CellFormat ZoneRow::Format(int /*row*/, int /*column*/) const {
  CellFormat format;
  format.type = CellType::List;
  for (const PlaneZone& zone : PlaneZones()) format.choices << zone.label.toString();
  return format;
}

}  // namespace tremlo
