#pragma once

#include "core/location/TileCache.h"

#include <functional>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>

namespace tremlo {

/// The tiles that one map holds in memory, decoded once each and kept as long as the map lives. A tile that
/// cannot be had, or whose file is no picture, is remembered as a gap: it is asked for once. One whose
/// download was broken off is not, and is asked for again. `Image` is the
/// screen's own type, so that the rules hold without a window.
template <typename Image>
class TileStore {
 public:
  /// Loads the picture in a file; none when it is no picture.
  using Decode = std::function<std::optional<Image>(const QString& path)>;

  TileStore(TileCache cache, Decode decode) : m_cache(std::move(cache)), m_decode(std::move(decode)) {}

  /// The tile's image, or null for a gap. May block on one download, which another thread may break off
  /// through `stop`. The image stays where it is as long as the store lives.
  const Image* Get(const TileNumber& tile, const std::stop_token& stop = {}) {
    const auto [entry, isNew] = m_tiles.try_emplace(TileKey(tile));
    std::optional<Image>& image = entry->second;
    if (!isNew) return image ? &*image : nullptr;
    const std::optional<QString> path = m_cache.Fetch(tile, stop);
    if (!path && stop.stop_requested()) {
      m_tiles.erase(entry);
      return nullptr;
    }
    if (path) image = m_decode(*path);
    return image ? &*image : nullptr;
  }

 private:
  TileCache m_cache;
  Decode m_decode;
  std::map<std::string, std::optional<Image>> m_tiles;
};

}  // namespace tremlo
