#pragma once

#include "numeric/location/TileArithmetic.h"

#include <cstdint>
#include <optional>

namespace tremlo {

/// Numbers of one tile. They are not held to the tiles that exist: a number outside is asked for like any
/// other and shows as a gap.
struct TileNumber {
  std::int32_t zoom = 0;
  std::int32_t x = 0;
  std::int32_t y = 0;

  bool operator==(const TileNumber&) const = default;
};

struct TilePlacement {
  TileNumber tile;
  PixelRect target;  ///< where the tile's picture is stretched to

  bool operator==(const TilePlacement&) const = default;
};

/// The tiles that one painting of a view needs, handed out in painting order: column by column from the west,
/// each from the north. Tile tx lies at trunc((tx - cx)·p) from the middle of the client rectangle, cx the
/// centre's tile coordinate and p the tile's pixels. Nothing is stored per tile: a large window over tiny
/// tiles has millions.
class TileGrid {
 public:
  explicit TileGrid(const MapView& view);

  /// Numbers of the last column and row, counted from 0: how many whole tiles fit, plus 2.
  std::int64_t LastColumn() const { return m_lastColumn; }
  std::int64_t LastRow() const { return m_lastRow; }

  /// The next tile that shares a pixel with the client rectangle; none after the last, for an empty
  /// rectangle, and for a centre that is no position.
  std::optional<TilePlacement> Next();

 private:
  TilePlacement At(std::int64_t column, std::int64_t row) const;

  MapView m_view;
  TilePoint m_center;
  std::int32_t m_tilePixels;
  std::int64_t m_lastColumn;
  std::int64_t m_lastRow;
  std::int64_t m_column = 0;
  std::int64_t m_row = 0;
};

}  // namespace tremlo
