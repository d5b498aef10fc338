#pragma once

#include "core/location/ScaleBar.h"
#include "core/location/TileMap.h"
#include "numeric/location/TileGrid.h"

#include <QImage>

class QPainter;

namespace tremlo {

/// The picture of one painting of the map, in device pixels; everything is given in logical ones. The map
/// keeps its colours in a dark theme.
class MapSurface {
 public:
  /// Colour of what no tile covers.
  static constexpr QRgb kGap = 0xFFDADADA;

  /// Begins a painting with gaps alone.
  void Begin(QSize size, double devicePixelRatio);

  /// Stretches the tile's picture into its place.
  void DrawTile(const QImage& tile, const PixelRect& target);
  /// Stretches the picture over all of the surface.
  void DrawOver(const QImage& picture);
  /// The overlays in two passes, each blended with the map's alpha: the filled polygons, then their outlines.
  void DrawOverlays(const TileMap& map);
  void DrawCrosshair(const PixelRect& client);
  void DrawScaleBar(const ScaleBar& bar);

  const QImage& Image() const { return m_image; }
  QSize Size() const { return m_size; }
  double PixelRatio() const { return m_ratio; }

 private:
  QRect DevicePixels(const PixelRect& rect) const;
  void BlendPass(const TileMap& map, bool filled);

  QImage m_image;
  QSize m_size;
  double m_ratio = 1.0;
};

}  // namespace tremlo
