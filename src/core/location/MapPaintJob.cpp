#include "core/location/MapPaintJob.h"

#include <optional>

namespace tremlo {

void MapPaintJob::Start(const MapView& view, bool online) {
  m_state = online ? State::Tiles : State::Offline;
  m_grid = TileGrid(view);
}

void MapPaintJob::Abandon() {
  m_state = State::Idle;
}

MapPaintStep MapPaintJob::Next() {
  if (m_state == State::Idle) return {};
  if (m_state == State::Tiles)
    if (const std::optional<TilePlacement> tile = m_grid.Next()) return {MapPaintStep::Kind::Tile, *tile};
  const bool wasOffline = m_state == State::Offline;
  m_state = State::Idle;
  return {wasOffline ? MapPaintStep::Kind::OfflinePicture : MapPaintStep::Kind::Completion, {}};
}

}  // namespace tremlo
