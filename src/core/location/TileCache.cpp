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

std::optional<QString> TileCache::Find(const TileNumber& tile) const {
  QString path = TileFilePath(m_programFolder, tile);
  if (!QFileInfo::exists(path)) return std::nullopt;
  return path;
}

TileOutcome TileCache::Download(const TileNumber& tile, const std::stop_token& stop) const {
  QByteArray content;
  const TileOutcome outcome = m_download(TileUrl(m_serviceAddress, tile), content, stop);
  if (outcome != TileOutcome::Done) return outcome;
  // Who has broken the request off may be about to clear the cache.
  if (stop.stop_requested()) return TileOutcome::BrokenOff;
  const QString path = TileFilePath(m_programFolder, tile);
  const std::string_view bytes(content.constData(), static_cast<std::size_t>(content.size()));
  const bool kept = QDir().mkpath(QFileInfo(path).path()) && WriteWholeFile(path, bytes);
  return kept ? TileOutcome::Done : TileOutcome::Failed;
}

}  // namespace tremlo
