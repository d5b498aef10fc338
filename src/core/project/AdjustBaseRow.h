#pragma once

#include "core/graphs/TitledRows.h"
#include "core/project/MorvaneDoc.h"

namespace tremlo {

/// The one row that tells of the base spectrum above the waves that are held against it; empty and locked
/// while none is chosen.
class AdjustBaseRow : public TitledRows {
 public:
  explicit AdjustBaseRow(CMorvaneDoc& doc);

  int RowCount() const override { return 1; }
  CellFormat Format(int row, int column) const override;

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  CMorvaneDoc& m_doc;
};

}  // namespace tremlo
