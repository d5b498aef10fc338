#include "window/graphs/GridAccess.h"

#include "window/graphs/GridModel.h"
#include "window/graphs/Spread7.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QHeaderView>
#include <QPointer>

#include <map>

namespace tremlo {

namespace {

/// A cell, or with row 0 or column 0 a title.
class CellAccess : public QAccessibleInterface,
                   public QAccessibleTableCellInterface,
                   public QAccessibleActionInterface {
 public:
  CellAccess(CSpread7* grid, int row, int column)
      : m_alive(grid), m_grid(grid), m_row(row), m_column(column) {}

  int Row() const { return m_row; }
  int Column() const { return m_column; }

  // QAccessibleInterface
  bool isValid() const override {
    return m_alive && m_row <= m_grid->model()->rowCount() && m_column <= m_grid->model()->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return m_alive ? QAccessible::queryAccessibleInterface(m_grid) : nullptr;
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessible::Role role() const override {
    if (m_row == 0) return QAccessible::ColumnHeader;
    return m_column == 0 ? QAccessible::RowHeader : QAccessible::Cell;
  }
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text kind, const QString& text) override;
  QRect rect() const override;
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (!IsTitle() && type == QAccessible::TableCellInterface)
      return static_cast<QAccessibleTableCellInterface*>(this);
    if (!IsTitle() && type == QAccessible::ActionInterface)
      return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  // QAccessibleTableCellInterface
  bool isSelected() const override { return isValid() && m_grid->selectionModel()->isSelected(Index()); }
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override;
  int columnIndex() const override { return m_column - 1; }
  int rowIndex() const override { return m_row - 1; }
  int columnExtent() const override { return isValid() ? m_grid->columnSpan(m_row - 1, m_column - 1) : 1; }
  int rowExtent() const override { return isValid() ? m_grid->rowSpan(m_row - 1, m_column - 1) : 1; }
  QAccessibleInterface* table() const override { return parent(); }

  // QAccessibleActionInterface
  QStringList actionNames() const override;
  void doAction(const QString& action) override;
  QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

 private:
  bool IsTitle() const { return m_row == 0 || m_column == 0; }
  QModelIndex Index() const { return m_grid->model()->index(m_row - 1, m_column - 1); }
  QList<QAccessibleInterface*> OfGrid(int index) const {
    const QAccessibleInterface* const grid = parent();
    QAccessibleInterface* const child = grid ? grid->child(index) : nullptr;
    return child ? QList{child} : QList<QAccessibleInterface*>();
  }
  CellFormat Format() const { return m_grid->Data().Format(m_row, m_column); }

  QPointer<CSpread7> m_alive;
  CSpread7* m_grid;
  int m_row, m_column;
};

/// The grid: its children are the corner, the titles and the cells, row by row. They stand for places and are
/// made when they are asked for.
class GridAccess : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridAccess(CSpread7* grid) : QAccessibleWidget(grid, QAccessible::Table), m_grid(grid) {}
  ~GridAccess() override { ForgetCells(); }
  GridAccess(const GridAccess&) = delete;
  GridAccess& operator=(const GridAccess&) = delete;

  QAccessibleInterface* At(int row, int column) const { return child(row * Stride() + column); }

  // QAccessibleInterface
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int childCount() const override { return (Rows() + 1) * Stride(); }
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  // QAccessibleTableInterface, rows and columns from 0
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override {
    const bool known = row >= 0 && row < Rows() && column >= 0 && column < Columns();
    return known ? At(row + 1, column + 1) : nullptr;
  }
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int column) const override { return Title(column, Qt::Horizontal); }
  QString rowDescription(int row) const override { return Title(row, Qt::Vertical); }
  int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  int columnCount() const override { return Columns(); }
  int rowCount() const override { return Rows(); }
  QList<int> selectedColumns() const override;
  QList<int> selectedRows() const override;
  bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
  bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool selectRow(int row) override { return Select({row + 1, -1, row + 1, -1}); }
  bool selectColumn(int column) override { return Select({-1, column + 1, -1, column + 1}); }
  // Of rows and columns in one block none can be left out.
  bool unselectRow(int row) override { return isRowSelected(row) && Unselect(); }
  bool unselectColumn(int column) override { return isColumnSelected(column) && Unselect(); }
  void modelChange(QAccessibleTableModelChangeEvent* event) override {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) ForgetCells();
  }

 private:
  int Rows() const { return m_grid->model()->rowCount(); }
  int Columns() const { return m_grid->model()->columnCount(); }
  int Stride() const { return Columns() + 1; }
  QString Title(int section, Qt::Orientation orientation) const {
    return m_grid->model()->headerData(section, orientation).toString();
  }
  GridBlock Selected() const {
    return m_grid->selectionModel()->hasSelection() ? m_grid->SelectedCells() : GridBlock();
  }
  bool Select(const GridBlock& block) {
    m_grid->SelectBlock(block);
    return true;
  }
  bool Unselect() {
    m_grid->clearSelection();
    return true;
  }
  void ForgetCells() {
    for (const auto& [index, id] : m_cells) QAccessible::deleteAccessibleInterface(id);
    m_cells.clear();
  }

  CSpread7* m_grid;
  mutable std::map<int, QAccessible::Id> m_cells;
};

QAccessible::State CellAccess::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  const QRect shown(m_grid->mapToGlobal(QPoint()), m_grid->size());
  state.invisible = !m_grid->isVisible() || !shown.intersects(rect());
  state.disabled = !m_grid->isEnabled();
  if (IsTitle()) return state;
  const QModelIndex index = Index();
  const CellFormat format = Format();
  state.selectable = state.focusable = true;
  state.selected = isSelected();
  state.focused = m_grid->hasFocus() && m_grid->currentIndex() == index;
  state.readOnly = format.locked;
  state.editable = index.flags().testFlag(Qt::ItemIsEditable);
  state.checkable = format.type == CellType::Check;
  state.checked = format.type == CellType::Check && m_grid->GetCheck(m_row, m_column);
  return state;
}

QString CellAccess::text(QAccessible::Text kind) const {
  if (!isValid() || kind != QAccessible::Name) return {};
  const QAbstractItemModel& model = *m_grid->model();
  if (m_row == 0) return model.headerData(m_column - 1, Qt::Horizontal).toString();
  if (m_column == 0) return model.headerData(m_row - 1, Qt::Vertical).toString();
  const QString spoken = Index().data(Qt::AccessibleTextRole).toString();
  return spoken.isEmpty() ? Index().data().toString() : spoken;
}

void CellAccess::setText(QAccessible::Text /*kind*/, const QString& text) {
  if (isValid() && !IsTitle() && Index().flags().testFlag(Qt::ItemIsEditable))
    m_grid->model()->setData(Index(), text);
}

QRect CellAccess::rect() const {
  if (!isValid()) return {};
  const auto section = [](const QHeaderView& header, int at) {
    const int from = header.sectionViewportPosition(at);
    const QRect place = header.orientation() == Qt::Horizontal
                            ? QRect(from, 0, header.sectionSize(at), header.height())
                            : QRect(0, from, header.width(), header.sectionSize(at));
    return QRect(header.viewport()->mapToGlobal(place.topLeft()), place.size());
  };
  if (m_row == 0) return section(*m_grid->horizontalHeader(), m_column - 1);
  if (m_column == 0) return section(*m_grid->verticalHeader(), m_row - 1);
  const QRect place = m_grid->visualRect(Index());
  return {m_grid->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QList<QAccessibleInterface*> CellAccess::columnHeaderCells() const {
  return OfGrid(m_column);
}

QList<QAccessibleInterface*> CellAccess::rowHeaderCells() const {
  return isValid() ? OfGrid(m_row * (m_grid->model()->columnCount() + 1)) : QList<QAccessibleInterface*>();
}

QStringList CellAccess::actionNames() const {
  if (!isValid() || IsTitle()) return {};
  QStringList names;
  const CellFormat format = Format();
  if (!format.locked && format.type == CellType::Check) names << toggleAction();
  const bool pressed =
      format.type == CellType::Check || format.type == CellType::Color || format.type == CellType::List;
  if (!format.locked && pressed) names << pressAction();
  return names << setFocusAction();
}

void CellAccess::doAction(const QString& action) {
  if (!actionNames().contains(action)) return;
  if (action != setFocusAction()) {
    m_grid->Press(m_row, m_column);
  } else if (m_grid->isEnabled()) {
    m_grid->setFocus(Qt::OtherFocusReason);
    m_grid->setCurrentIndex(Index());
  }
}

QAccessibleInterface* GridAccess::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  if (index == 0) return QAccessible::queryAccessibleInterface(m_grid->findChild<QAbstractButton*>());
  if (const auto known = m_cells.find(index); known != m_cells.end())
    return QAccessible::accessibleInterface(known->second);
  auto* const cell = new CellAccess(m_grid, index / Stride(), index % Stride());
  m_cells[index] = QAccessible::registerAccessibleInterface(cell);
  return cell;
}

QAccessibleInterface* GridAccess::childAt(int x, int y) const {
  const auto inside = [&](const QWidget& part) {
    return part.rect().contains(part.mapFromGlobal(QPoint(x, y)));
  };
  const auto section = [&](const QHeaderView& header) {
    return header.logicalIndexAt(header.viewport()->mapFromGlobal(QPoint(x, y))) + 1;
  };
  if (inside(*m_grid->viewport())) {
    const QModelIndex index = m_grid->indexAt(m_grid->viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? At(index.row() + 1, index.column() + 1) : nullptr;
  }
  const QHeaderView& titles = *m_grid->horizontalHeader();
  const QHeaderView& rows = *m_grid->verticalHeader();
  if (titles.isVisible() && inside(titles) && section(titles) > 0) return At(0, section(titles));
  if (rows.isVisible() && inside(rows) && section(rows) > 0) return At(section(rows), 0);
  return nullptr;
}

int GridAccess::indexOfChild(const QAccessibleInterface* child) const {
  if (child && child == this->child(0)) return 0;
  const auto* const cell = dynamic_cast<const CellAccess*>(child);
  return cell && cell->parent() == this ? cell->Row() * Stride() + cell->Column() : -1;
}

QAccessibleInterface* GridAccess::focusChild() const {
  const QModelIndex index = m_grid->currentIndex();
  return index.isValid() ? At(index.row() + 1, index.column() + 1) : nullptr;
}

int GridAccess::selectedCellCount() const {
  const GridBlock block = Selected();
  return block.IsEmpty() ? 0 : block.RowCount() * (block.right - block.left + 1);
}

QList<QAccessibleInterface*> GridAccess::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  const GridBlock block = Selected();
  if (block.IsEmpty()) return cells;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column) cells.append(At(row, column));
  return cells;
}

QList<int> GridAccess::selectedColumns() const {
  QList<int> columns;
  const GridBlock block = Selected();
  if (block.IsEmpty() || block.top > 1 || block.bottom < Rows()) return columns;
  for (int column = block.left; column <= block.right; ++column) columns.append(column - 1);
  return columns;
}

QList<int> GridAccess::selectedRows() const {
  QList<int> rows;
  const GridBlock block = Selected();
  if (block.IsEmpty() || block.left > 1 || block.right < Columns()) return rows;
  for (int row = block.top; row <= block.bottom; ++row) rows.append(row - 1);
  return rows;
}

QAccessibleInterface* MakeGridAccess(const QString& className, QObject* object) {
  if (className != QLatin1String(CSpread7::staticMetaObject.className())) return nullptr;
  auto* const grid = qobject_cast<CSpread7*>(object);
  return grid ? new GridAccess(grid) : nullptr;
}

}  // namespace

void InstallGridAccess() {
  // A factory that is installed twice stays installed once.
  QAccessible::installFactory(MakeGridAccess);
}

void TellCheckState(CSpread7& grid, int row, int column) {
  if (!QAccessible::isActive()) return;
  const int child = row * (grid.model()->columnCount() + 1) + column;
  QAccessible::State changed;
  changed.checked = true;
  QAccessibleStateChangeEvent stateChange(&grid, changed);
  stateChange.setChild(child);
  QAccessible::updateAccessibility(&stateChange);
  QAccessibleEvent nameChange(&grid, QAccessible::NameChanged);
  nameChange.setChild(child);
  QAccessible::updateAccessibility(&nameChange);
}

}  // namespace tremlo
