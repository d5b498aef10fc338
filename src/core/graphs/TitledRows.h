#pragma once

#include "core/graphs/GridData.h"

#include <vector>

namespace tremlo {

/// A grid of fixed columns whose cells follow records that live elsewhere. It keeps no cell, so a change that
/// was declined shows the old value again by itself. Text and number columns are locked; a check, colour or
/// list column takes what the user gives it.
class TitledRows : public GridData {
 public:
  struct Column {
    const char16_t* title;
    CellType type = CellType::Text;
    QStringList choices = {};  ///< of a list
  };

  int ColumnCount() const final { return static_cast<int>(m_columns.size()); }
  QString Text(int row, int column) const final;
  /// Does nothing for a cell that does not exist or is locked.
  void SetText(int row, int column, const QString& text) final;
  CellFormat Format(int row, int column) const override;

 protected:
  explicit TitledRows(std::vector<Column> columns) : m_columns(std::move(columns)) {}

  static QString CheckText(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

  /// Text of a cell that exists, rows and columns from 1.
  virtual QString CellText(int row, int column) const = 0;
  /// The user has given an open cell this text.
  virtual void Take(int row, int column, const QString& text);

 private:
  bool Holds(int row, int column) const;

  std::vector<Column> m_columns;
};

}  // namespace tremlo
