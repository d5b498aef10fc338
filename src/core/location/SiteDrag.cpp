#include "core/location/SiteDrag.h"

namespace tremlo {

namespace {

void CenterOn(TileMap& map, const SitePosition& position) {
  const GeoPoint place = PlaceOf(position);
  map.view.centerLon = place.lon;
  map.view.centerLat = place.lat;
}

}  // namespace

void SiteDrag::Press(const SitePosition& site, const PixelPoint& pixel) {
  m_active = true;
  m_allowed = false;
  m_saved = site;
  m_position = site;
  m_pixel = pixel;
  CenterOn(m_map, site);
  m_map.BeginDrag(pixel);
}

SiteDrag::Outcome SiteDrag::Move(const PixelPoint& pixel, const std::function<bool()>& mayChange,
                                 const std::function<bool()>& isButtonDown) {
  // The pointer may be reported where it was pressed: that is no move, and asks nothing.
  if (!m_active || (!m_allowed && pixel == m_pixel)) return Outcome::Nothing;
  if (!m_allowed) {
    const bool allowed = mayChange();
    if (!m_active) return Outcome::Nothing;  // ended from behind the question
    m_allowed = allowed;
    if (!allowed) {
      m_position = m_saved;
      End(pixel);
      return Outcome::PutBack;
    }
  }
  m_pixel = pixel;
  m_position = PositionAt(m_map.MoveDrag(pixel));
  if (isButtonDown()) return Outcome::Moved;
  End(pixel);
  return Outcome::Ended;
}

SiteDrag::Outcome SiteDrag::Release(const PixelPoint& pixel) {
  if (!m_active) return Outcome::Nothing;
  End(pixel);
  return Outcome::Ended;
}

SiteDrag::Outcome SiteDrag::Finish() {
  if (!m_active) return Outcome::Nothing;
  End(m_pixel);
  return m_allowed ? Outcome::Ended : Outcome::Nothing;
}

void SiteDrag::End(const PixelPoint& pixel) {
  m_map.EndDrag(pixel);
  // A drag brings the grabbed point under the pointer step by step, in latitude only nearly: its last step
  // has moved the centre a little away from the position that is on display.
  CenterOn(m_map, m_position);
  m_active = false;
}

}  // namespace tremlo
