#pragma once

#include "core/graphs/ColorRows.h"
#include "core/graphs/TitledRows.h"
#include "core/project/ChangeRules.h"

namespace tremlo {

/// The grid of the waves near the site: colour, drawn or not, in use or not. A click reaches every wave of
/// the row's name and asks what it has to.
class NeighbourRows : public TitledRows {
 public:
  NeighbourRows(CMorvaneDoc& doc, ChangeRules& rules);

  int RowCount() const override { return static_cast<int>(m_doc.seedWaves.Count()); }
  /// "全表示" and "全非表示".
  void ShowAll(bool shown);
  /// "全て利用する" and "全て利用しない".
  bool UseAll(bool use) { return m_rules.SetAllNeighbourUse(use); }

  /// The waves with their colours, for the settings of the graph; holds as long as no wave comes or goes.
  std::vector<CurveColor> Colors();
  /// Gives the waves the colours of the palette, in their order.
  void ResetColors();

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
};

}  // namespace tremlo
