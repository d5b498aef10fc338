#include "core/report/PageBreaks.h"

#include <algorithm>

namespace tremlo {

namespace {

double GapBetween(const PagePiece& upper, const PagePiece& lower) {
  return std::max(upper.below, lower.above);
}

/// Behind the last piece that is tied to the one at `first`.
std::size_t EndOfTied(std::span<const PagePiece> pieces, std::size_t first) {
  while (first + 1 < pieces.size() && pieces[first].withNext) ++first;
  return first + 1;
}

double HeightOf(std::span<const PagePiece> tied) {
  double height = tied.front().height;
  for (std::size_t i = 1; i < tied.size(); ++i) height += GapBetween(tied[i - 1], tied[i]) + tied[i].height;
  return height;
}

}  // namespace

std::vector<PiecePlace> BreakPages(std::span<const PagePiece> pieces, double pageHeight) {
  std::vector<PiecePlace> places;
  int page = 0;
  double bottom = 0.0;  // of what stands on the page
  std::size_t tiedEnd = 0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const PagePiece& piece = pieces[i];
    double needed = piece.height;
    if (i == tiedEnd) {
      tiedEnd = EndOfTied(pieces, i);
      needed = HeightOf(pieces.subspan(i, tiedEnd - i));
    }
    double top = i == 0 ? 0.0 : bottom + GapBetween(pieces[i - 1], piece);
    bool headed = false;
    if (i > 0 && top + needed > pageHeight) {
      ++page;
      headed = piece.repeated > 0.0 && piece.repeated + piece.height <= pageHeight;
      top = headed ? piece.repeated : 0.0;
    }
    places.push_back({page, top, headed});
    bottom = top + piece.height;
  }
  return places;
}

}  // namespace tremlo
