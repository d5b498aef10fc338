#include "core/location/TileDownload.h"

#include "core/location/HttpClient.h"

#include <memory>

namespace tremlo {

TileDownload MakeTileDownload(const ServiceSettings& settings) {
  // Shared, since the cache copies its function and a connection cannot be copied.
  auto client = std::make_shared<HttpClient>(settings.tiles, settings.certificateFile);
  return [client](const QString& url, QByteArray& content, const std::stop_token& stop) {
    content.clear();
    const auto append = [&](std::string_view block) {
      content.append(block.data(), static_cast<qsizetype>(block.size()));
      return true;
    };
    switch (client->Get(url, append, stop)) {
      case HttpResult::Done:
        return TileOutcome::Done;
      case HttpResult::BrokenOff:
        return TileOutcome::BrokenOff;
      default:
        return TileOutcome::Failed;
    }
  };
}

}  // namespace tremlo
