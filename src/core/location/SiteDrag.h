#pragma once

#include "core/location/SitePosition.h"
#include "core/location/TileMap.h"

#include <functional>

namespace tremlo {

/// The drag by which the user moves the site: the map goes with the pointer under the fixed crosshair, and
/// the site follows the map's centre. Until the drag is over the numbers are its own; the owner shows them
/// meanwhile and stores them at the end.
class SiteDrag {
 public:
  enum class Outcome {
    Nothing,  ///< show what is on display
    Moved,    ///< show Position() and the map
    PutBack,  ///< the drag is over; show the site as it was
    Ended,    ///< the drag is over; store Position() and show it
  };

  /// The map outlives the drag.
  explicit SiteDrag(TileMap& map) : m_map(map) {}

  bool IsActive() const { return m_active; }
  /// The site's numbers as the drag has left them.
  const SitePosition& Position() const { return m_position; }

  /// The button went down on the map: the map is centred on the site and taken hold of.
  void Press(const SitePosition& site, const PixelPoint& pixel);

  /// The pointer moved. The first move of a drag asks `mayChange`, which may open a box: on false the map is
  /// centred on the site again and the drag is over. When the box has swallowed the release, so that
  /// `isButtonDown` says no, this move is the drag's last.
  Outcome Move(const PixelPoint& pixel, const std::function<bool()>& mayChange,
               const std::function<bool()>& isButtonDown);

  /// The button went up.
  Outcome Release(const PixelPoint& pixel);

  /// Something else begins while the button is down, a command or another screen: the drag ends where it is.
  /// One that has not moved the site leaves nothing to store.
  Outcome Finish();

 private:
  void End(const PixelPoint& pixel);

  TileMap& m_map;
  bool m_active = false;
  bool m_allowed = false;  ///< the question has been answered with Yes, or there was none
  SitePosition m_saved;
  SitePosition m_position;
  PixelPoint m_pixel;
};

}  // namespace tremlo
