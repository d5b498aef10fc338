#pragma once

#include "core/graphs/TitledRows.h"
#include "core/project/MorvaneDoc.h"

namespace tremlo {

/// The grid of the acquired faults, a row for each plane; all of it is locked. The two ways of acquiring have
/// a grid each, which differ in what they tell of a fault.
class FaultRows : public TitledRows {
 public:
  /// `acquireMode` is kAcquireRanking or kAcquireRange.
  FaultRows(const CMorvaneDoc& doc, std::int32_t acquireMode);

  int RowCount() const override;
  /// The cells that a fault with several planes has only once: blocks of more than one row.
  std::vector<GridBlock> Spans() const;

 protected:
  QString CellText(int row, int column) const override;

 private:
  QString RankingText(const FaultInfo& fault, int column) const;
  QString RangeText(const FaultInfo& fault, int column) const;

  const CMorvaneDoc& m_doc;
  bool m_ranking;
};

/// A distance in km as grids show it: four decimals, "nan" for none. Empty when the plane has no such
/// element.
QString DistanceText(const std::vector<double>& distances, std::size_t plane);

}  // namespace tremlo
