#pragma once

#include "core/project/AttenuationRows.h"

namespace tremlo {

/// The grid of the two relations, of which the one in use is checked: a click on it changes nothing, a click
/// on the other asks what it has to.
class RelationRows : public TitledRows {
 public:
  RelationRows(const CMorvaneDoc& doc, ChangeRules& rules, CalculatePlanes calculate);

  int RowCount() const override { return 2; }

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  const CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
  CalculatePlanes m_calculate;
};

}  // namespace tremlo
