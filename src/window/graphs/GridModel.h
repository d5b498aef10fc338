#pragma once

#include "core/graphs/GridData.h"

#include <QAbstractTableModel>

#include <functional>
#include <memory>

namespace tremlo {

/// Shows a GridData to a view, row 1 and column 1 being index 0. It remembers nothing but the size, so that
/// the view and the data agree on it between a change behind the view's back and Refresh.
class GridModel : public QAbstractTableModel {
 public:
  /// Takes what comes for a cell from outside the grid's own editors, as over the accessibility bus; says
  /// whether it will be looked at.
  using EditCell = std::function<bool(int row, int column, const QString& text)>;

  GridModel(std::shared_ptr<GridData> data, EditCell editCell, QObject* parent);

  GridData& Data() const { return *m_data; }
  void SetData(std::shared_ptr<GridData> data);
  /// Reads the data anew. Rows are added or removed at the end, so that selection and scroll position stay.
  void Refresh();
  void TellCells(const GridBlock& block);
  void InsertGridRows(int before, int count);  ///< into the data too
  void RemoveGridRows(int first, int count);

  CellFormat Format(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  bool Holds(const QModelIndex& index) const;

  std::shared_ptr<GridData> m_data;
  EditCell m_editCell;
  int m_rows = 0, m_columns = 0;
};

}  // namespace tremlo
