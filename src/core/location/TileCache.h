#pragma once

#include "numeric/location/TileGrid.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace tremlo {

/// How the request of a tile ended.
enum class TileOutcome {
  Done,       ///< the whole answer is there, whatever its status code
  Failed,     ///< no answer, or only a part of one, or it could not be kept
  BrokenOff,  ///< the caller wanted it no longer
};

/// Fetches the whole answer of one GET into `content`. Returns soon once a stop is requested.
using TileDownload =
    std::function<TileOutcome(const QString& url, QByteArray& content, const std::stop_token& stop)>;

/// Name of a tile in memory: zoom in two digits, then tile y and tile x in six each.
std::string TileKey(const TileNumber& tile);

/// The folder of the map's cache in the program's folder.
QString TileCacheFolder(const QString& programFolder);

/// The file of a tile in the cache: a folder for the zoom, in it one for tile x, in it tile y with ".png".
QString TileFilePath(const QString& programFolder, const TileNumber& tile);

/// Address of a tile behind the scheme and host of the tile service, with or without a slash at the end.
QString TileUrl(const QString& serviceAddress, const TileNumber& tile);

/// The disk cache of the map. A file that is there is taken as it is and nothing expires.
class TileCache {
 public:
  TileCache(QString programFolder, QString serviceAddress, TileDownload download);

  /// Path of the tile's file; none when it is not in the cache.
  std::optional<QString> Find(const TileNumber& tile) const;

  /// Downloads the tile into its file. Unless Done no file and no part of one is left behind, and no failure
  /// is reported. What the service sends is kept unseen: an error page may stand under a tile's name. Blocks;
  /// runs on one thread at a time, while Find may be called from another.
  TileOutcome Download(const TileNumber& tile, const std::stop_token& stop) const;

 private:
  QString m_programFolder;
  QString m_serviceAddress;
  TileDownload m_download;
};

}  // namespace tremlo
