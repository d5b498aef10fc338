#include "core/location/OnlineMode.h"

#include "core/location/FaultSearchRequest.h"
#include "core/location/HttpClient.h"
#include "core/location/TileCache.h"

#include <QDir>
#include <QFileInfo>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

namespace tremlo {

namespace {

const QString kKnownTile = QStringLiteral("/xyz/std/15/28817/12802.png");
const QString kKnownSearch = QStringLiteral(
    "/map/api/"
    "fltsearch?position=136.61409,36.56144&epsg=4612&mode=C&version=Y2019&case=AVR&period=P_T30&format=json"
    "&param=0.6&ijma=50");

bool ProbeService(const ServiceSettings& settings, const QString& url, const QString& failure,
                  Prompt& prompt) {
  if (ProbeUrl(settings, url)) return true;
  prompt.Tell(failure, PromptIcon::Warning);
  return false;
}

}  // namespace

bool ProbeUrl(const ServiceSettings& settings, const QString& url) {
  HttpClient client(settings.hazard, settings.certificateFile);
  if (client.Get(url, [](std::string_view) { return true; }) != HttpResult::Done) return false;
  const QString path = QDir(settings.answerFolder).filePath(QStringLiteral("RecvTemp"));
  return client.GetToFile(url, path) == HttpResult::Done;
}

bool ProbeServices(const ServiceSettings& settings, Prompt& prompt) {
  const bool tiles = ProbeService(settings, ServiceUrl(settings.tileAddress, kKnownTile),
                                  QStringLiteral("国土地理院 OffLine"), prompt);
  std::this_thread::sleep_for(std::chrono::milliseconds(settings.probePauseMs));
  const bool hazard = ProbeService(settings, ServiceUrl(settings.hazardAddress, kKnownSearch),
                                   QStringLiteral("J-SHIS OffLine"), prompt);
  return tiles && hazard;
}

void OnlineMode::Probe(const ServiceSettings& settings, Prompt& prompt) {
  m_online = ProbeServices(settings, prompt);
}

void OnlineMode::Toggle(const ServiceSettings& settings, Prompt& prompt) {
  if (m_online) {
    m_online = false;
  } else {
    Probe(settings, prompt);
  }
}

QString OnlineMode::CaptionMark() const {
  return m_online ? QString() : QStringLiteral("　(オフライン)");
}

bool ClearMapCache(const QString& programFolder) {
  // Follows no link, be it the folder itself: a link is removed, its target left.
  std::error_code error;
  std::filesystem::remove_all(QFileInfo(TileCacheFolder(programFolder)).filesystemFilePath(), error);
  return !error;
}

}  // namespace tremlo
