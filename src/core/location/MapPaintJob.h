#pragma once

#include "numeric/location/TileGrid.h"

namespace tremlo {

/// What the painter of the map does next.
struct MapPaintStep {
  enum class Kind {
    Nothing,         ///< no job runs
    OfflinePicture,  ///< last step: the offline picture over the whole client rectangle, then show the
                     ///< surface
    Tile,            ///< stretch the tile's image, if it has one, into its target
    Completion,      ///< last step: overlays where wanted, crosshair and scale bar, then show the surface
  };
  Kind kind = Kind::Nothing;
  TilePlacement placement;  ///< of a tile

  bool operator==(const MapPaintStep&) const = default;
};

/// One painting of the map, cut into steps of at most one tile, since each missing tile is a download that
/// blocks. The control takes a step at a time from its event loop, draws it on an off-screen surface, and
/// shows the surface only at a job's last step: between steps the window lives, and of an abandoned painting
/// nothing is seen.
class MapPaintJob {
 public:
  /// A paint request or a new size: begins a painting of this view from its first tile. One that runs is
  /// dropped.
  void Start(const MapView& view, bool online);

  /// A close request or a command: drops the painting.
  void Abandon();

  bool IsRunning() const { return m_state != State::Idle; }

  /// Mouse moves that come while tiles are painted are of use to a drag alone.
  bool DropsMouseMove(bool dragging) const { return IsRunning() && !dragging; }

  /// The next step. After OfflinePicture and Completion the job no longer runs.
  MapPaintStep Next();

 private:
  enum class State { Idle, Offline, Tiles };

  State m_state = State::Idle;
  TileGrid m_grid{MapView{}};
};

}  // namespace tremlo
