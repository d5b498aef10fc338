#pragma once

#include "numeric/location/TileGrid.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace tremlo {

/// Fetches the whole answer of one GET into `content`, whatever its status code. False when there is no
/// answer, or only a part of one. Another thread may break it off through `stop`.
using TileDownload =
    std::function<bool(const QString& url, QByteArray& content, const std::stop_token& stop)>;

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

  /// Path of the tile's file, downloaded first when it is missing. None when it cannot be fetched or written,
  /// or was broken off through `stop`; no part of a file is left behind then, and no failure is reported.
  /// What the service sends is kept unseen: an error page may stand under a tile's name.
  std::optional<QString> Fetch(const TileNumber& tile, const std::stop_token& stop = {}) const;

 private:
  bool Download(const TileNumber& tile, const QString& path, const std::stop_token& stop) const;

  QString m_programFolder;
  QString m_serviceAddress;
  TileDownload m_download;
};

}  // namespace tremlo
