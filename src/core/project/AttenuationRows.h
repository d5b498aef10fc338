#pragma once

#include "core/graphs/ColorRows.h"
#include "core/graphs/TitledRows.h"
#include "core/project/ChangeRules.h"

#include <functional>

namespace tremlo {

/// Computes the spectra of all planes afresh, because a ground class or the relation has changed.
using CalculatePlanes = std::function<void()>;

/// The grid of the planes whose spectra the attenuation relation gives: ground class, colour, drawn or not,
/// in use or not. A click asks what it has to.
class AttenuationRows : public TitledRows {
 public:
  AttenuationRows(CMorvaneDoc& doc, ChangeRules& rules, CalculatePlanes calculate);

  int RowCount() const override;
  /// "全表示" and "全非表示".
  void ShowAll(bool shown);
  /// "全て利用する" and "全て利用しない".
  bool UseAll(bool use) { return m_rules.SetAllPlanesUse(use); }

  /// The colours of the planes in the graph, row by row; good until the faults change.
  std::vector<CurveColor> Colors();
  /// Gives every plane the colour of the palette that it had after the acquisition.
  void ResetColors();

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
  CalculatePlanes m_calculate;
};

}  // namespace tremlo
