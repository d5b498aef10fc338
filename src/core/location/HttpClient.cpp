#include "core/location/HttpClient.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <curl/curl.h>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace tremlo {

namespace {

using Clock = std::chrono::steady_clock;

/// What the heads and trailers of all answers to one request may come to. The library keeps every line of
/// them, in a multiple of its size.
constexpr std::int64_t kMostHeadBytes = std::int64_t{1} << 20;

/// The library's global state, made once by whichever thread comes first.
bool InitLibrary() {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  return ready;
}

/// Whether the text is a whole http or https address. The library alone would guess a missing scheme.
bool IsServiceAddress(const QByteArray& url) {
  if (url.contains('\0')) return false;
  CURLU* parts = curl_url();
  char* scheme = nullptr;
  const bool sound = curl_url_set(parts, CURLUPART_URL, url.constData(), 0) == CURLUE_OK &&
                     curl_url_get(parts, CURLUPART_SCHEME, &scheme, 0) == CURLUE_OK;
  const bool known = sound && (std::string_view(scheme) == "http" || std::string_view(scheme) == "https");
  curl_free(scheme);
  curl_url_cleanup(parts);
  return known;
}

/// Whether a line of the head says that the body was packed for the way. The library unpacks such a body even
/// though none was asked for, to a thousand times its size and through several layers.
bool SaysPacked(std::string_view line) {
  const QByteArray text = QByteArray(line.data(), static_cast<qsizetype>(line.size())).toLower();
  constexpr char kName[] = "transfer-encoding:";
  if (!text.startsWith(kName)) return false;
  const QList<QByteArray> codings = text.mid(sizeof(kName) - 1).split(',');
  return std::any_of(codings.begin(), codings.end(), [](const QByteArray& coding) {
    return coding.trimmed() != "chunked" && coding.trimmed() != "identity";
  });
}

void Pause(int milliseconds, const std::stop_token& stop) {
  std::mutex mutex;
  std::unique_lock lock(mutex);
  std::condition_variable_any never;
  never.wait_for(lock, stop, std::chrono::milliseconds(milliseconds), [] { return false; });
}

}  // namespace

struct HttpClient::Session {
  Session(const HttpOptions& options, const QString& certificateFile);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// One request; none when it was broken off. `fresh`: over new connections alone.
  std::optional<CURLcode> Perform(const QByteArray& url, const BlockSink& sink, bool fresh,
                                  const std::stop_token& stop);
  bool NeverConnected(CURLcode code) const;
  bool FoundClosed(CURLcode code) const;

  CURLM* multi = nullptr;
  CURL* easy = nullptr;
  HttpOptions options;

  // Of the transfer at hand.
  bool sinkFailed = false;
  std::exception_ptr sinkThrew;
  std::int64_t bodyBytes = 0;

 private:
  void SetOptions(const QString& certificateFile);
  std::optional<CURLcode> Wait(const std::stop_token& stop);
  bool Take(std::string_view block);

  static std::size_t OnBody(char* data, std::size_t size, std::size_t count, void* self);
  static std::size_t OnHeadLine(char* data, std::size_t size, std::size_t count, void* self);
  static int OnTrace(CURL*, curl_infotype kind, char* data, std::size_t size, void* self);
  static int OnRequest(void* self, char*, char*, int, int);

  curl_slist* headers = nullptr;

  // Of the transfer at hand.
  const BlockSink* sink = nullptr;
  std::int64_t receivedBytes = 0;  // all of them, whatever they were
  std::int64_t headBytes = 0;
  long requestsSent = 0;
  long connectionsMade = 0;
  bool isOnKept = false;            // the last request went over a connection of an earlier one,
  std::int64_t bytesAtRequest = 0;  // and so much had been received before it
};

HttpClient::Session::Session(const HttpOptions& httpOptions, const QString& certificateFile)
    : options(httpOptions) {
  if (!InitLibrary()) return;
  multi = curl_multi_init();
  curl_multi_setopt(multi, CURLMOPT_MAXCONNECTS, 1L);  // to be kept; more would be of no use
  easy = curl_easy_init();
  for (const char* header : {"Cache-Control: no-cache", "Pragma: no-cache", "Accept:"})
    headers = curl_slist_append(headers, header);
  if (easy) SetOptions(certificateFile);
}

HttpClient::Session::~Session() {
  curl_easy_cleanup(easy);
  curl_multi_cleanup(multi);
  curl_slist_free_all(headers);
}

void HttpClient::Session::SetOptions(const QString& certificateFile) {
  curl_easy_setopt(easy, CURLOPT_HTTPGET, 1L);
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
  curl_easy_setopt(easy, CURLOPT_USERAGENT, kUserAgent);
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(easy, CURLOPT_MAXREDIRS, static_cast<long>(options.maxRedirects));
  curl_easy_setopt(easy, CURLOPT_FAILONERROR, 0L);
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 2L);
  if (!certificateFile.isEmpty()) {
    // OpenSSL takes names in UTF-8 on Windows, too, whatever the code page.
    curl_easy_setopt(easy, CURLOPT_CAINFO, certificateFile.toUtf8().constData());
    // Without this the system's folder of certificates would still be trusted beside the file.
    curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
  } else {
    // On Windows the authorities stand in the system's store; elsewhere the library knows their file anyway.
    curl_easy_setopt(easy, CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_NATIVE_CA));
  }
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  // The system's resolver cannot be stopped: with name servers that do not answer, waiting for its thread
  // would go on for many times the connect timeout.
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectTimeoutMs));
  curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(options.maxAnswerBytes));
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Session::OnBody);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Session::OnHeadLine);
  curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
  // The body that is handed over is not all that a server can send: the library reads trailers, chunk
  // extensions and the bodies of redirects to their end without a word. Its trace alone shows every byte.
  curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, &Session::OnTrace);
  curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
  curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, &Session::OnRequest);
  curl_easy_setopt(easy, CURLOPT_PREREQDATA, this);
}

/// Hands a block to the sink. No exception may pass through the library, which is C.
bool HttpClient::Session::Take(std::string_view block) {
  try {
    sinkFailed = !(*sink)(block);
  } catch (...) {
    sinkThrew = std::current_exception();
  }
  return !sinkFailed && !sinkThrew;
}

std::size_t HttpClient::Session::OnBody(char* data, std::size_t size, std::size_t count, void* self) {
  auto* session = static_cast<Session*>(self);
  const std::size_t bytes = size * count;
  session->bodyBytes += static_cast<std::int64_t>(bytes);
  if (session->receivedBytes > session->options.maxAnswerBytes) return CURL_WRITEFUNC_ERROR;
  return session->Take({data, bytes}) ? bytes : CURL_WRITEFUNC_ERROR;
}

std::size_t HttpClient::Session::OnHeadLine(char* data, std::size_t size, std::size_t count, void* self) {
  auto* session = static_cast<Session*>(self);
  const std::size_t bytes = size * count;
  session->headBytes += static_cast<std::int64_t>(bytes);
  const bool taken = session->headBytes <= kMostHeadBytes && !SaysPacked({data, bytes});
  return taken ? bytes : CURL_WRITEFUNC_ERROR;
}

int HttpClient::Session::OnTrace(CURL*, curl_infotype kind, char*, std::size_t size, void* self) {
  if (kind == CURLINFO_HEADER_IN || kind == CURLINFO_DATA_IN)
    static_cast<Session*>(self)->receivedBytes += static_cast<std::int64_t>(size);
  return 0;
}

int HttpClient::Session::OnRequest(void* self, char*, char*, int, int) {
  auto* session = static_cast<Session*>(self);
  long redirects = 0;
  long connections = 0;
  curl_easy_getinfo(session->easy, CURLINFO_REDIRECT_COUNT, &redirects);
  curl_easy_getinfo(session->easy, CURLINFO_NUM_CONNECTS, &connections);
  // A request that is not the first of its address is the library's own repetition after a kept connection
  // was found closed. It does that a few times in the life of its handle and then no more: we do it instead.
  if (session->requestsSent > redirects) return CURL_PREREQFUNC_ABORT;
  ++session->requestsSent;
  session->isOnKept = connections == session->connectionsMade;
  session->connectionsMade = connections;
  session->bytesAtRequest = session->receivedBytes;
  return CURL_PREREQFUNC_OK;
}

std::optional<CURLcode> HttpClient::Session::Perform(const QByteArray& url, const BlockSink& blockSink,
                                                     bool fresh, const std::stop_token& stop) {
  sink = &blockSink;
  sinkFailed = isOnKept = false;
  sinkThrew = nullptr;
  bodyBytes = receivedBytes = headBytes = bytesAtRequest = 0;
  requestsSent = connectionsMade = 0;
  curl_easy_setopt(easy, CURLOPT_URL, url.constData());
  curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, fresh ? 1L : 0L);
  curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, fresh ? 1L : 0L);  // for the redirects on the way
  if (curl_multi_add_handle(multi, easy) != CURLM_OK) return CURLE_FAILED_INIT;
  const std::stop_callback wake(stop, [this] { curl_multi_wakeup(multi); });
  const std::optional<CURLcode> code = Wait(stop);
  curl_multi_remove_handle(multi, easy);
  return code;
}

/// Drives the transfer to its end; none when it was stopped. The silence is measured on the socket itself,
/// since the library's own counts leave out a header line until it is whole, and its low-speed limit stops an
/// answer that trickles.
std::optional<CURLcode> HttpClient::Session::Wait(const std::stop_token& stop) {
  const std::chrono::milliseconds longestSilence(options.silenceTimeoutMs);
  Clock::time_point lastMove = Clock::now();
  while (true) {
    int running = 0;
    if (curl_multi_perform(multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
    if (receivedBytes > options.maxAnswerBytes) return CURLE_FILESIZE_EXCEEDED;
    if (running == 0) {
      int left = 0;
      const CURLMsg* message = curl_multi_info_read(multi, &left);
      return message ? message->data.result : CURLE_FAILED_INIT;
    }
    if (stop.stop_requested()) return std::nullopt;
    const Clock::time_point now = Clock::now();
    if (requestsSent == 0) lastMove = now;  // the connect timeout rules until then
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(lastMove + longestSilence - now);
    if (rest.count() <= 0) return CURLE_OPERATION_TIMEDOUT;
    int events = 0;
    if (curl_multi_poll(multi, nullptr, 0, static_cast<int>(rest.count()), &events) != CURLM_OK)
      return CURLE_FAILED_INIT;
    if (events > 0) lastMove = Clock::now();
  }
}

bool HttpClient::Session::NeverConnected(CURLcode code) const {
  if (requestsSent > 0) return false;  // a redirect may lead to a host that is not there
  long connections = 0;
  curl_easy_getinfo(easy, CURLINFO_NUM_CONNECTS, &connections);
  return code == CURLE_COULDNT_RESOLVE_HOST || code == CURLE_COULDNT_CONNECT ||
         (code == CURLE_OPERATION_TIMEDOUT && connections == 0);
}

/// Whether the request went over a kept connection that ended before a single byte of the answer: the server
/// had closed it without announcing it, as it may at any time, before it saw the request.
bool HttpClient::Session::FoundClosed(CURLcode code) const {
  const bool ended = code == CURLE_GOT_NOTHING || code == CURLE_SEND_ERROR || code == CURLE_RECV_ERROR ||
                     code == CURLE_ABORTED_BY_CALLBACK;
  return ended && isOnKept && receivedBytes == bytesAtRequest;
}

HttpClient::HttpClient(const HttpOptions& options, const QString& certificateFile)
    : m_session(std::make_unique<Session>(options, certificateFile)) {}

HttpClient::~HttpClient() = default;

HttpResult HttpClient::Get(const QString& url, const BlockSink& sink, const std::stop_token& stop) {
  const QByteArray bytes = url.toUtf8();
  if (!IsServiceAddress(bytes)) return HttpResult::BadAddress;
  if (!m_session->multi || !m_session->easy) return HttpResult::Failed;
  const HttpOptions& options = m_session->options;
  std::optional<CURLcode> code;
  bool fresh = false;
  for (int attempt = 1;; ++attempt) {
    if (stop.stop_requested()) return HttpResult::BrokenOff;
    code = m_session->Perform(bytes, sink, fresh, stop);
    if (code && !fresh && m_session->FoundClosed(*code)) {
      fresh = true;
      code = m_session->Perform(bytes, sink, fresh, stop);
    }
    if (attempt >= options.connectAttempts || !code || !m_session->NeverConnected(*code)) break;
    Pause(options.connectPauseMs, stop);
  }
  if (m_session->sinkThrew) std::rethrow_exception(std::exchange(m_session->sinkThrew, nullptr));
  if (m_session->sinkFailed) return HttpResult::FileFailed;
  if (!code) return HttpResult::BrokenOff;
  if (*code != CURLE_OK) return HttpResult::Failed;
  return m_session->bodyBytes > 0 || sink({}) ? HttpResult::Done : HttpResult::FileFailed;
}

HttpResult HttpClient::GetToFile(const QString& url, const QString& path, const std::stop_token& stop) {
  QFile file(path);
  const auto write = [&](std::string_view block) {
    if (!file.isOpen() && !file.open(QIODevice::WriteOnly)) return false;
    const auto size = static_cast<qint64>(block.size());
    return file.write(block.data(), size) == size;
  };
  const HttpResult result = Get(url, write, stop);
  // On a full disk only the flush tells that the end of a short answer did not fit.
  const bool written = !file.isOpen() || (file.flush() && file.error() == QFileDevice::NoError);
  return result == HttpResult::Done && !written ? HttpResult::FileFailed : result;
}

}  // namespace tremlo
