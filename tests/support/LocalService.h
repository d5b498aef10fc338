#pragma once

#include "core/location/ServiceSettings.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <string>
#include <vector>

namespace tremlo::test {

struct ServiceRequest {
  QString method;
  QString path;  ///< with the wishes in front
  QString version;
  std::map<QString, QString> headers;
  int connection = 0;  ///< the same number for requests of one connection
};

/// tests/service/local_service.py as a process of this one: its ports, its certificate and what it was asked.
class LocalService {
 public:
  /// Starts the service and returns once it listens. `dataFolder`: its answers; empty for those of
  /// tests/data/jshis.
  explicit LocalService(const QString& dataFolder = QString());
  ~LocalService();
  LocalService(const LocalService&) = delete;
  LocalService& operator=(const LocalService&) = delete;

  bool IsReady() const { return m_ready; }

  /// Scheme and host of a port by its name, the wishes for misbehaviour behind it:
  /// Address("http", "ranking=cut/model=stall").
  QString Address(const QString& port = QStringLiteral("http"), const QString& wishes = QString()) const;

  /// Both services at that address with its certificate, timeouts that no healthy answer meets, hardly any
  /// pause, and a folder of the service's own for the answers.
  ServiceSettings Settings(const QString& port = QStringLiteral("http"),
                           const QString& wishes = QString()) const;

  /// From now on the service misbehaves so towards every request, whose own wishes come behind; none:
  /// honestly.
  void Behave(const QString& wishes) const;

  QString CertificateFile() const { return m_values.at("ca"); }
  QString AnswerFolder() const { return m_folder.filePath(QStringLiteral("answers")); }

  /// Everything that was asked so far, in order.
  std::vector<ServiceRequest> Requests() const;
  QStringList Paths() const;

 private:
  QTemporaryDir m_folder;
  QProcess m_process;
  std::map<std::string, QString> m_values;
  bool m_ready = false;
};

}  // namespace tremlo::test
