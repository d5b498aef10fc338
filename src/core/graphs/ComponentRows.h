#pragma once

#include "core/graphs/TitledRows.h"
#include "core/records/RecordImport.h"

namespace tremlo {

/// The grid of the components of a record: which are to be read, and under what names. Where a single one is
/// to be chosen, checking another unchecks it.
class ComponentRows : public TitledRows {
 public:
  static constexpr int kChosen = 1, kName = 2;  ///< the columns that the user fills

  explicit ComponentRows(RecordImport& import);

  int RowCount() const override { return static_cast<int>(m_import.Components().size()); }
  CellFormat Format(int row, int column) const override;

 protected:
  QString CellText(int row, int column) const override;
  /// An empty name is no name: the old one stays.
  void Take(int row, int column, const QString& text) override;

 private:
  RecordImport& m_import;
};

}  // namespace tremlo
