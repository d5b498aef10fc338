#pragma once

#include "core/graphs/TitledRows.h"
#include "core/project/ChangeRules.h"

namespace tremlo {

/// The grid of the lower limits, of which exactly one is selected: the row that bears the name of the first
/// selected record. A click asks what it has to.
class LowerLimitRows : public TitledRows {
 public:
  LowerLimitRows(const CMorvaneDoc& doc, ChangeRules& rules);

  int RowCount() const override { return static_cast<int>(m_doc.lowerSpectra.Count()); }

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  const CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
};

}  // namespace tremlo
