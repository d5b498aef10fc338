#include "core/location/HttpClient.h"

#include <QFile>

#include <chrono>
#include <curl/curl.h>
#include <thread>

namespace tremlo {

namespace {

using Clock = std::chrono::steady_clock;

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

}  // namespace

struct HttpClient::Session {
  Session(const HttpOptions& options, const QString& certificateFile);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  CURLcode Perform(const QByteArray& url, const BlockSink& sink);
  bool NeverConnected(CURLcode code) const;

  static std::size_t OnBody(char* data, std::size_t size, std::size_t count, void* self);
  static int OnRequest(void* self, char*, char*, int, int);

  CURLM* multi = nullptr;
  CURL* easy = nullptr;
  curl_slist* headers = nullptr;
  HttpOptions options;

  // Of the transfer at hand.
  const BlockSink* sink = nullptr;
  bool sinkFailed = false;
  std::int64_t received = 0;
  long requestsSent = 0;

 private:
  void SetOptions(const QString& certificateFile);
  CURLcode Wait();
};

HttpClient::Session::Session(const HttpOptions& httpOptions, const QString& certificateFile)
    : options(httpOptions) {
  if (!InitLibrary()) return;
  multi = curl_multi_init();
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
    curl_easy_setopt(easy, CURLOPT_CAINFO, QFile::encodeName(certificateFile).constData());
    // Without this the system's folder of certificates would still be trusted beside the file.
    curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
  }
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  // The system's resolver cannot be stopped: with name servers that do not answer, waiting for its thread
  // would go on for many times the connect timeout.
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectTimeoutMs));
  curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(options.maxBodyBytes));
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Session::OnBody);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, &Session::OnRequest);
  curl_easy_setopt(easy, CURLOPT_PREREQDATA, this);
}

std::size_t HttpClient::Session::OnBody(char* data, std::size_t size, std::size_t count, void* self) {
  auto* session = static_cast<Session*>(self);
  const std::size_t bytes = size * count;
  session->received += static_cast<std::int64_t>(bytes);
  if (session->received > session->options.maxBodyBytes) return CURL_WRITEFUNC_ERROR;
  if ((*session->sink)(std::string_view(data, bytes))) return bytes;
  session->sinkFailed = true;
  return CURL_WRITEFUNC_ERROR;
}

int HttpClient::Session::OnRequest(void* self, char*, char*, int, int) {
  // When a kept connection breaks before the first byte of the answer the library would send the request
  // again on a new one, although the server may have had it. Only a redirect is a reason for a further
  // request.
  auto* session = static_cast<Session*>(self);
  long redirects = 0;
  curl_easy_getinfo(session->easy, CURLINFO_REDIRECT_COUNT, &redirects);
  ++session->requestsSent;
  return session->requestsSent <= redirects + 1 ? CURL_PREREQFUNC_OK : CURL_PREREQFUNC_ABORT;
}

CURLcode HttpClient::Session::Perform(const QByteArray& url, const BlockSink& blockSink) {
  sink = &blockSink;
  sinkFailed = false;
  received = 0;
  requestsSent = 0;
  curl_easy_setopt(easy, CURLOPT_URL, url.constData());
  if (curl_multi_add_handle(multi, easy) != CURLM_OK) return CURLE_FAILED_INIT;
  const CURLcode code = Wait();
  curl_multi_remove_handle(multi, easy);
  return code;
}

/// Drives the transfer to its end. The silence is measured on the socket itself, since the library's own
/// counts leave out a header line until it is whole, and its low-speed limit stops an answer that trickles.
CURLcode HttpClient::Session::Wait() {
  const std::chrono::milliseconds longestSilence(options.silenceTimeoutMs);
  Clock::time_point lastMove = Clock::now();
  while (true) {
    int running = 0;
    if (curl_multi_perform(multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
    if (running == 0) {
      int left = 0;
      const CURLMsg* message = curl_multi_info_read(multi, &left);
      return message ? message->data.result : CURLE_FAILED_INIT;
    }
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

HttpClient::HttpClient(const HttpOptions& options, const QString& certificateFile)
    : m_session(std::make_unique<Session>(options, certificateFile)) {}

HttpClient::~HttpClient() = default;

HttpResult HttpClient::Get(const QString& url, const BlockSink& sink) {
  const QByteArray bytes = url.toUtf8();
  if (!IsServiceAddress(bytes)) return HttpResult::BadAddress;
  if (!m_session->multi || !m_session->easy) return HttpResult::Failed;
  CURLcode code = m_session->Perform(bytes, sink);
  const HttpOptions& options = m_session->options;
  for (int attempt = 1; attempt < options.connectAttempts && m_session->NeverConnected(code); ++attempt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(options.connectPauseMs));
    code = m_session->Perform(bytes, sink);
  }
  if (m_session->sinkFailed) return HttpResult::FileFailed;
  if (code == CURLE_SSL_CLIENTCERT) return HttpResult::CertificateWanted;
  if (code != CURLE_OK) return HttpResult::Failed;
  return m_session->received > 0 || sink({}) ? HttpResult::Done : HttpResult::FileFailed;
}

HttpResult HttpClient::GetToFile(const QString& url, const QString& path) {
  QFile file(path);
  const HttpResult result = Get(url, [&](std::string_view block) {
    if (!file.isOpen() && !file.open(QIODevice::WriteOnly)) return false;
    const auto size = static_cast<qint64>(block.size());
    return file.write(block.data(), size) == size;
  });
  // On a full disk only the flush tells that the end of a short answer did not fit.
  const bool written = !file.isOpen() || (file.flush() && file.error() == QFileDevice::NoError);
  return result == HttpResult::Done && !written ? HttpResult::FileFailed : result;
}

}  // namespace tremlo
