#pragma once

#include "core/location/ServiceAddresses.h"

#include <QString>

#include <cstdint>

namespace tremlo {

/// How one GET is carried out. There is no limit on the time of a whole transfer: a slow answer that keeps
/// coming is let through.
struct HttpOptions {
  int connectTimeoutMs = 5000;
  int connectAttempts = 3;      ///< in all; only a connection that did not come about is tried again
  int connectPauseMs = 1000;    ///< between two attempts
  int silenceTimeoutMs = 5000;  ///< longest time without a byte moving once connected
  int maxRedirects = 5;
  /// Of all that comes back for one request: heads, trailers and the bodies of redirects counted. A longer
  /// answer is a network failure.
  std::int64_t maxAnswerBytes = std::int64_t{64} * 1024 * 1024;

  bool operator==(const HttpOptions&) const = default;
};

/// Everything about the two services that is not fixed by their queries.
struct ServiceSettings {
  QString hazardAddress = QString::fromLatin1(kHazardServiceAddress);  ///< scheme and host
  QString tileAddress = QString::fromLatin1(kTileServiceAddress);
  QString certificateFile;  ///< certificates (PEM) to trust in place of the system's; empty: the system's
  QString answerFolder;     ///< where "j-shis.json" and "RecvTemp" are kept; must be writable
  HttpOptions hazard;       ///< requests to the hazard service and all probes
  HttpOptions tiles{
      .connectTimeoutMs = 60000, .connectAttempts = 1, .connectPauseMs = 0, .silenceTimeoutMs = 30000};
  int probePauseMs = 500;  ///< between the probes of the two services

  bool operator==(const ServiceSettings&) const = default;
};

}  // namespace tremlo
