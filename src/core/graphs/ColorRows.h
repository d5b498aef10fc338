#pragma once

#include "core/graphs/GridData.h"
#include "core/waves/WaveGraphSetting.h"

#include <vector>

namespace tremlo {

/// A curve in a colour grid, and where its colour, 0x00BBGGRR, is kept.
struct CurveColor {
  QString name;
  std::int32_t* color = nullptr;
};

/// The three colours of a block, by their graphs.
std::vector<CurveColor> ColorsOf(WaveGraphSetting& block);

/// The colour grid: a row for each curve, its name and its colour.
class ColorRows : public GridData {
 public:
  /// What the colours point to must outlive the rows.
  explicit ColorRows(std::vector<CurveColor> curves) : m_curves(std::move(curves)) {}

  int RowCount() const override { return static_cast<int>(m_curves.size()); }
  int ColumnCount() const override { return 2; }
  QString Text(int row, int column) const override;
  void SetText(int row, int column, const QString& text) override;
  CellFormat Format(int row, int column) const override;

 private:
  const CurveColor* Find(int row) const;

  std::vector<CurveColor> m_curves;
};

}  // namespace tremlo
