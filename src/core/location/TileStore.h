#pragma once

#include "core/location/TileCache.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tremlo {

/// The tiles that one map holds in memory, decoded once each and kept as long as the map lives. A tile that
/// cannot be had, or whose file is no picture, is remembered as a gap: it is asked for once. One whose
/// request was broken off is not, and is asked for again. `Image` is the screen's own type, so that the rules
/// hold without a window.
template <typename Image>
class TileStore {
 public:
  /// Loads the picture in a file; none when it is no picture.
  using Decode = std::function<std::optional<Image>(const QString& path)>;

  TileStore(TileCache cache, Decode decode) : m_cache(std::move(cache)), m_decode(std::move(decode)) {}

  const TileCache& Cache() const { return m_cache; }
  std::size_t Count() const { return m_tiles.size(); }  ///< tiles and gaps

  /// What is known of a tile from memory or the cache: its image, or null for a gap. Nothing at all when it
  /// has to be downloaded. An image stays where it is as long as the store lives.
  std::optional<const Image*> Find(const TileNumber& tile) {
    const std::string key = TileKey(tile);
    if (const auto known = m_tiles.find(key); known != m_tiles.end()) return ImageOf(known->second);
    const std::optional<QString> path = m_cache.Find(tile);
    if (!path) return std::nullopt;
    return ImageOf(m_tiles.emplace(key, m_decode(*path)).first->second);
  }

  /// The download of a tile has ended.
  void TakeAnswer(const TileNumber& tile, TileOutcome outcome) {
    if (outcome == TileOutcome::BrokenOff) return;
    // Also one whose file is gone already, or it would be asked for without end.
    if (outcome == TileOutcome::Failed || !Find(tile)) m_tiles.try_emplace(TileKey(tile));
  }

 private:
  static const Image* ImageOf(const std::optional<Image>& image) { return image ? &*image : nullptr; }

  TileCache m_cache;
  Decode m_decode;
  std::map<std::string, std::optional<Image>> m_tiles;
};

}  // namespace tremlo
