#pragma once

#include <span>
#include <vector>

namespace tremlo {

/// What no page break parts: a line of a text, a line of a table's row, a figure. Heights in any one unit.
struct PagePiece {
  double height = 0.0;
  double above = 0.0;  ///< to keep free above and below it, the larger of two that meet; not at a page's head
  double below = 0.0;
  bool withNext = false;  ///< the next piece is to stand on the same page
  double repeated = 0.0;  ///< height of what comes again above it where it heads a page: a table's headings
};

struct PiecePlace {
  int page = 0;         ///< counted from 0
  double top = 0.0;     ///< below the page's head
  bool headed = false;  ///< what it repeats stands above it
};

/// Places the pieces one below the other on pages of that height. Pieces tied together move to a new page
/// where the rest of one does not hold them all; of more than a page holds each page takes what it can.
std::vector<PiecePlace> BreakPages(std::span<const PagePiece> pieces, double pageHeight);

}  // namespace tremlo
