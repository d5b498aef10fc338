#include "window/graphs/GridModel.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "window/graphs/BgrColor.h"

#include <algorithm>

namespace tremlo {

namespace {

QString SpokenCheck(const QString& title, const QString& text) {
  const QString state = IsCheckedText(text) ? QStringLiteral("オン") : QStringLiteral("オフ");
  return title.isEmpty() ? state : title + u' ' + state;
}

}  // namespace

GridModel::GridModel(std::shared_ptr<GridData> data, EditCell editCell, QObject* parent)
    : QAbstractTableModel(parent), m_data(std::move(data)), m_editCell(std::move(editCell)) {
  m_rows = m_data->RowCount();
  m_columns = m_data->ColumnCount();
}

void GridModel::SetData(std::shared_ptr<GridData> data) {
  beginResetModel();
  m_data = std::move(data);
  m_rows = m_data->RowCount();
  m_columns = m_data->ColumnCount();
  endResetModel();
}

void GridModel::Refresh() {
  if (m_data->ColumnCount() != m_columns) {
    SetData(m_data);
    return;
  }
  const int rows = m_data->RowCount();
  if (rows > m_rows) {
    beginInsertRows({}, m_rows, rows - 1);
    m_rows = rows;
    endInsertRows();
  } else if (rows < m_rows) {
    beginRemoveRows({}, rows, m_rows - 1);
    m_rows = rows;
    endRemoveRows();
  }
  TellCells({1, 1, m_rows, m_columns});
  if (m_columns > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
  if (m_rows > 0) Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rows - 1);
}

void GridModel::TellCells(const GridBlock& block) {
  const GridBlock held{std::max(block.top, 1), std::max(block.left, 1), std::min(block.bottom, m_rows),
                       std::min(block.right, m_columns)};
  if (!held.IsEmpty())
    Q_EMIT dataChanged(index(held.top - 1, held.left - 1), index(held.bottom - 1, held.right - 1));
}

void GridModel::InsertGridRows(int before, int count) {
  const int place = std::clamp(before, 1, m_rows + 1);
  if (count < 1) return;
  beginInsertRows({}, place - 1, place + count - 2);
  m_data->InsertRows(place, count);
  m_rows += count;
  endInsertRows();
}

void GridModel::RemoveGridRows(int first, int count) {
  const int from = std::max(first, 1);
  const int last = std::min(first + count - 1, m_rows);
  if (last < from) return;
  beginRemoveRows({}, from - 1, last - 1);
  m_data->RemoveRows(from, last - from + 1);
  m_rows -= last - from + 1;
  endRemoveRows();
}

bool GridModel::Holds(const QModelIndex& index) const {
  return index.isValid() && index.row() < m_data->RowCount() && index.column() < m_data->ColumnCount();
}

CellFormat GridModel::Format(const QModelIndex& index) const {
  return Holds(index) ? m_data->Format(index.row() + 1, index.column() + 1) : CellFormat();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : m_columns;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!Holds(index)) return {};
  const auto text = [&] { return m_data->Text(index.row() + 1, index.column() + 1); };
  if (role == Qt::DisplayRole || role == Qt::EditRole) return text();

  const CellFormat format = Format(index);
  switch (role) {
    case Qt::TextAlignmentRole:
      return QVariant::fromValue((format.type == CellType::Number ? Qt::AlignRight : Qt::AlignLeft) |
                                 Qt::AlignVCenter);
    case Qt::BackgroundRole:
      return format.backColor ? QVariant(ColorFromBgr(*format.backColor)) : QVariant();
    case Qt::ForegroundRole:
      if (format.textColor) return ColorFromBgr(*format.textColor);
      return format.backColor ? QVariant(ReadableOn(ColorFromBgr(*format.backColor))) : QVariant();
    case Qt::CheckStateRole:
      if (format.type != CellType::Check) return {};
      return IsCheckedText(text()) ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
      if (format.type == CellType::Color)
        if (const auto color = TextToColor(text())) return SpokenColor(*color);
      if (format.type == CellType::Check) return SpokenCheck(m_data->Text(0, index.column() + 1), text());
      return {};
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Horizontal) return m_data->Text(0, section + 1);
  const QString title = m_data->Text(section + 1, 0);
  return title.isNull() ? QString::number(section + 1) : title;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!Holds(index)) return Qt::NoItemFlags;
  const CellFormat format = Format(index);
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  if (format.type == CellType::Check) flags |= Qt::ItemIsUserCheckable;
  const bool written =
      format.type == CellType::Text || format.type == CellType::Number || format.type == CellType::List;
  if (written && !format.locked) flags |= Qt::ItemIsEditable;
  return flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!Holds(index)) return false;
  if (role == Qt::EditRole) return m_editCell(index.row() + 1, index.column() + 1, value.toString());
  if (role != Qt::CheckStateRole) return false;
  const bool checked = value.toInt() == Qt::Checked;
  return m_editCell(index.row() + 1, index.column() + 1, checked ? QStringLiteral("1") : QStringLiteral("0"));
}

}  // namespace tremlo
