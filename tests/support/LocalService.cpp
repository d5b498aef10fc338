#include "support/LocalService.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>

namespace tremlo::test {

namespace {

constexpr int kPatienceMs = 60000;

}  // namespace

LocalService::LocalService(const QString& dataFolder) {
  // A proxy of the developer's own would stand between the tests and the loopback.
  for (const char* name : {"http_proxy", "https_proxy", "all_proxy", "HTTPS_PROXY", "ALL_PROXY"})
    qunsetenv(name);
  QDir(m_folder.path()).mkdir(QStringLiteral("answers"));
  QStringList words = {QStringLiteral(TREMLO_SOURCE_DIR "/tests/service/local_service.py"),
                       QStringLiteral("--log"),
                       m_folder.filePath(QStringLiteral("log")),
                       QStringLiteral("--work"),
                       m_folder.path(),
                       QStringLiteral("--wishes"),
                       m_folder.filePath(QStringLiteral("wishes"))};
  if (!dataFolder.isEmpty()) words << QStringLiteral("--data") << dataFolder;
  m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  m_process.start(QStringLiteral(TREMLO_PYTHON), words);
  while (!m_ready && (m_process.canReadLine() || m_process.waitForReadyRead(kPatienceMs))) {
    while (m_process.canReadLine()) {
      const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
      const qsizetype equals = line.indexOf(u'=');
      if (equals > 0) m_values[line.left(equals).toStdString()] = line.mid(equals + 1);
      if (line == u"ready") m_ready = true;
    }
  }
}

LocalService::~LocalService() {
  m_process.closeWriteChannel();
  m_process.waitForFinished(kPatienceMs);
}

QString LocalService::Address(const QString& port, const QString& wishes) const {
  const QString scheme = port.startsWith(u"https") ? QStringLiteral("https") : QStringLiteral("http");
  const QString host = scheme + QStringLiteral("://127.0.0.1:") + m_values.at(port.toStdString());
  return wishes.isEmpty() ? host : host + u'/' + wishes;
}

void LocalService::Behave(const QString& wishes) const {
  // Renamed into place, so that no request reads half of it.
  const QString written = m_folder.filePath(QStringLiteral("wishes.new"));
  QFile file(written);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(wishes.toUtf8());
  file.close();
  std::filesystem::rename(written.toStdString(), m_folder.filePath(QStringLiteral("wishes")).toStdString());
}

ServiceSettings LocalService::Settings(const QString& port, const QString& wishes) const {
  ServiceSettings settings;
  settings.hazardAddress = settings.tileAddress = Address(port, wishes);
  settings.certificateFile = CertificateFile();
  settings.answerFolder = AnswerFolder();
  settings.hazard.connectTimeoutMs = settings.hazard.silenceTimeoutMs = kPatienceMs;
  settings.hazard.connectPauseMs = settings.probePauseMs = 1;
  settings.tiles = settings.hazard;
  return settings;
}

std::vector<ServiceRequest> LocalService::Requests() const {
  std::vector<ServiceRequest> requests;
  QFile log(m_folder.filePath(QStringLiteral("log")));
  if (!log.open(QIODevice::ReadOnly)) return requests;
  while (!log.atEnd()) {
    const QJsonObject entry = QJsonDocument::fromJson(log.readLine()).object();
    ServiceRequest& request = requests.emplace_back();
    request.method = entry[u"method"].toString();
    request.path = entry[u"path"].toString();
    request.version = entry[u"version"].toString();
    request.connection = entry[u"connection"].toInt();
    const QJsonObject headers = entry[u"headers"].toObject();
    for (auto it = headers.begin(); it != headers.end(); ++it)
      request.headers[it.key()] = it.value().toString();
  }
  return requests;
}

QStringList LocalService::Paths() const {
  QStringList paths;
  for (const ServiceRequest& request : Requests()) paths << request.path;
  return paths;
}

}  // namespace tremlo::test
