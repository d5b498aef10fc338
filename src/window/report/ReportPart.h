#pragma once

#include "core/report/PageBreaks.h"

class QPainter;

namespace tremlo {

/// A part of a report's text, laid out for the width of a page, as pieces which pages may part. Lengths in
/// units of the device.
class ReportPart {
 public:
  virtual ~ReportPart() = default;

  const std::vector<PagePiece>& Pieces() const { return m_pieces; }

  /// Draws those of the pieces that stand on one page: `first` and on, one for each place. The painter's
  /// origin is the left end of the page's head.
  virtual void Draw(QPainter& painter, std::size_t first, std::span<const PiecePlace> places) const = 0;

 protected:
  std::vector<PagePiece> m_pieces;
};

}  // namespace tremlo
