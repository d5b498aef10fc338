#include "core/location/TileDownload.h"

#include "core/location/HttpClient.h"

#include <memory>

namespace tremlo {

TileDownload MakeTileDownload(const ServiceSettings& settings) {
  // Shared, since the cache copies its function and a connection cannot be copied.
  auto client = std::make_shared<HttpClient>(settings.tiles, settings.certificateFile);
  return [client](const QString& url, QByteArray& content, const std::stop_token& stop) {
    content.clear();
    const HttpResult result = client->Get(url, [&](std::string_view block) {
      content.append(block.data(), static_cast<qsizetype>(block.size()));
      return !stop.stop_requested();
    });
    if (stop.stop_requested()) return TileOutcome::BrokenOff;
    return result == HttpResult::Done ? TileOutcome::Done : TileOutcome::Failed;
  };
}

}  // namespace tremlo
