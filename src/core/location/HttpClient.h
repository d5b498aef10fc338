#pragma once

#include "core/location/ServiceSettings.h"

#include <functional>
#include <memory>
#include <string_view>

namespace tremlo {

enum class HttpResult {
  Done,               ///< the whole answer came, whatever its status code
  BadAddress,         ///< not an http or https address: nothing was sent
  FileFailed,         ///< the answer could not be written
  CertificateWanted,  ///< the server asks for a certificate of the client
  Failed,             ///< any other failure of the network or of the answer
};

/// Sends GET requests, one after the other: HTTP/1.1, never from a cache, redirects followed to http and
/// https alone, certificates verified. Connections are kept between the requests of one client, but a request
/// is never repeated once it may have reached the server. Clients of several threads do not meet; one client
/// serves one thread.
class HttpClient {
 public:
  /// `certificateFile`: certificates to trust in place of the system's; empty for the system's.
  HttpClient(const HttpOptions& options, const QString& certificateFile);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  /// Takes a block of the body as it comes, at least once before Done (an empty block for an empty body).
  /// False ends the transfer with FileFailed.
  using BlockSink = std::function<bool(std::string_view block)>;

  /// One GET; blocks until the answer is there or has failed.
  HttpResult Get(const QString& url, const BlockSink& sink);

  /// One GET whose body replaces the file at `path`. The file is opened when the answer begins: it is as it
  /// was after a request that never got one, and holds the beginning of an answer that broke off.
  HttpResult GetToFile(const QString& url, const QString& path);

 private:
  struct Session;
  std::unique_ptr<Session> m_session;
};

}  // namespace tremlo
