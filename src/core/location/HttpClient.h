#pragma once

#include "core/location/ServiceSettings.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <string_view>

namespace tremlo {

enum class HttpResult {
  Done,        ///< the whole answer came, whatever its status code
  BadAddress,  ///< not an http or https address: nothing was sent
  FileFailed,  ///< the answer could not be written
  BrokenOff,   ///< the caller asked to stop before the whole answer was there
  Failed,      ///< any other failure of the network or of the answer
};

/// Sends GET requests, one after the other: HTTP/1.1, never from a cache, redirects followed to http and
/// https alone, certificates verified. Connections are kept between the requests of one client. A server may
/// close one at any time without announcing it: a request to which a kept connection brings no single byte is
/// sent once more, on a fresh one. Nothing else is repeated once it may have reached the server. Clients of
/// several threads do not meet; one client serves one thread.
class HttpClient {
 public:
  /// `certificateFile`: certificates to trust in place of the system's; empty for the system's.
  HttpClient(const HttpOptions& options, const QString& certificateFile);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  /// Takes a block of the body as it comes, at least once before Done (an empty block for an empty body).
  /// False ends the transfer with FileFailed; an exception ends it and goes on to the caller of Get.
  using BlockSink = std::function<bool(std::string_view block)>;

  /// One GET; blocks until the answer is there or has failed. Another thread may end it through `stop`: in
  /// every phase, the name's lookup, the connect, a silence, the midst of an answer and the pause before a
  /// further attempt, the request is broken off at once, well within 100 ms, and the call returns BrokenOff.
  /// Blocks that came before stay with the sink. Once asked to stop, nothing is sent at all; an answer that
  /// is whole by then is Done.
  HttpResult Get(const QString& url, const BlockSink& sink, const std::stop_token& stop = {});

  /// One GET whose body replaces the file at `path`. The file is opened when the answer begins: it is as it
  /// was after a request that never got one, and holds the beginning of an answer that broke off.
  HttpResult GetToFile(const QString& url, const QString& path, const std::stop_token& stop = {});

 private:
  struct Session;
  std::unique_ptr<Session> m_session;
};

}  // namespace tremlo
