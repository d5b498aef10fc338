#include "core/location/TileCache.h"

#include "core/files/WholeFile.h"
#include "core/location/FaultSearchRequest.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace tremlo {

std::string TileKey(const TileNumber& tile) {
  std::array<char, 40> text{};  // three whole numbers of at most 11 characters
  std::snprintf(text.data(), text.size(), "%02d%06d%06d", tile.zoom, tile.y, tile.x);
  return text.data();
}

QString TileCacheFolder(const QString& programFolder) {
  return QDir(programFolder).filePath(QStringLiteral("_cache"));
}

QString TileFilePath(const QString& programFolder, const TileNumber& tile) {
  return TileCacheFolder(programFolder) +
         QStringLiteral("/%1/%2/%3.png").arg(tile.zoom).arg(tile.x).arg(tile.y);
}

QString TileUrl(const QString& serviceAddress, const TileNumber& tile) {
  return ServiceUrl(serviceAddress,
                    QStringLiteral("/xyz/std/%1/%2/%3.png").arg(tile.zoom).arg(tile.x).arg(tile.y));
}

TileCache::TileCache(QString programFolder, QString serviceAddress, TileDownload download)
    : m_programFolder(std::move(programFolder)),
      m_serviceAddress(std::move(serviceAddress)),
      m_download(std::move(download)) {}

std::optional<QString> TileCache::Fetch(const TileNumber& tile, const std::stop_token& stop) const {
  QString path = TileFilePath(m_programFolder, tile);
  if (!QFileInfo::exists(path) && !Download(tile, path, stop)) return std::nullopt;
  return path;
}

bool TileCache::Download(const TileNumber& tile, const QString& path, const std::stop_token& stop) const {
  QByteArray content;
  if (!m_download(TileUrl(m_serviceAddress, tile), content, stop)) return false;
  if (!QDir().mkpath(QFileInfo(path).path())) return false;
  return WriteWholeFile(path,
                        std::string_view(content.constData(), static_cast<std::size_t>(content.size())));
}

}  // namespace tremlo
