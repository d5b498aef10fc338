#include "numeric/location/TileGrid.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

bool ShareAPixel(const PixelRect& a, const PixelRect& b) {
  return std::max(a.left, b.left) < std::min(a.right, b.right) &&
         std::max(a.top, b.top) < std::min(a.bottom, b.bottom);
}

}  // namespace

TileGrid::TileGrid(const MapView& view)
    : m_view(view),
      m_center(CenterTile(view)),
      m_tilePixels(TilePixels(view)),
      m_lastColumn(view.clientRect.Width() / m_tilePixels + 2),
      m_lastRow(view.clientRect.Height() / m_tilePixels + 2) {
  const bool isPlace = std::isfinite(m_center.x) && std::isfinite(m_center.y);
  if (!isPlace || view.clientRect.Width() == 0 || view.clientRect.Height() == 0) m_column = m_lastColumn + 1;
}

std::optional<TilePlacement> TileGrid::Next() {
  while (m_column <= m_lastColumn) {
    const TilePlacement placement = At(m_column, m_row);
    if (++m_row > m_lastRow) {
      m_row = 0;
      ++m_column;
    }
    if (ShareAPixel(placement.target, m_view.clientRect)) return placement;
  }
  return std::nullopt;
}

TilePlacement TileGrid::At(std::int64_t column, std::int64_t row) const {
  const std::int32_t tx = LimitedPosition(column - m_lastColumn / 2 + TruncatedPosition(m_center.x));
  const std::int32_t ty = LimitedPosition(row - m_lastRow / 2 + TruncatedPosition(m_center.y));
  const PixelPoint middle = m_view.clientRect.Middle();
  const std::int32_t left =
      LimitedPosition(std::int64_t{TruncatedPosition((tx - m_center.x) * m_tilePixels)} + middle.x);
  const std::int32_t top =
      LimitedPosition(std::int64_t{TruncatedPosition((ty - m_center.y) * m_tilePixels)} + middle.y);
  return {{m_view.zoom, tx, ty}, {left, top, left + m_tilePixels, top + m_tilePixels}};
}

}  // namespace tremlo
