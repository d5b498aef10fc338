#include "core/location/HttpClient.h"
#include "support/LocalService.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <limits>
#include <mutex>
#include <stdexcept>
#include <stop_token>
#include <thread>

namespace tremlo {

namespace {

using test::LocalService;
using test::ReadAll;
using test::TestFolder;

const QString kHttp = QStringLiteral("http");
const QString kHttps = QStringLiteral("https");
const QString kSearch = QStringLiteral("/map/api/fltsearch?mode=C");

QByteArray Fixture(const char* name) {
  return ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/") + QString::fromLatin1(name)));
}

QString Path(const char* wishes) {
  return QString::fromLatin1(wishes);
}

class HttpClientTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(service.IsReady()); }

  /// One GET of the ranking at a port, misbehaviour as wished.
  HttpResult Fetch(const QString& port, const char* wishes = "") {
    HttpClient client(options, service.CertificateFile());
    return client.GetToFile(service.Address(port, Path(wishes)) + kSearch, file);
  }

  QByteArray Answer() const { return ReadAll(file); }

  /// What the file held before, to see whether a fetch touched it.
  void LeaveOlderAnswer() { folder.Write(QStringLiteral("answer"), "older"); }

  LocalService service;
  TestFolder folder;
  QString file = folder.Path(QStringLiteral("answer"));
  HttpOptions options = service.Settings().hazard;
};

TEST_F(HttpClientTest, AnswerIsWrittenByteForByte) {
  EXPECT_EQ(Fetch(kHttp), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
  EXPECT_EQ(service.Requests().size(), 1u);
}

TEST_F(HttpClientTest, AnswerReplacesALongerOne) {
  folder.Write(QStringLiteral("answer"), QByteArray(100000, 'x'));
  EXPECT_EQ(Fetch(kHttp), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
}

TEST_F(HttpClientTest, EmptyAnswerEmptiesTheFile) {
  LeaveOlderAnswer();
  EXPECT_EQ(Fetch(kHttp, "ranking=empty"), HttpResult::Done);
  EXPECT_EQ(Answer(), "");
}

TEST_F(HttpClientTest, RequestIsAPlainGetThatNoCacheMayAnswer) {
  ASSERT_EQ(Fetch(kHttp), HttpResult::Done);
  const test::ServiceRequest request = service.Requests().at(0);
  EXPECT_EQ(request.method, u"GET");
  EXPECT_EQ(request.version, u"HTTP/1.1");
  EXPECT_EQ(request.path, kSearch);
  const auto header = [&](const char* name) { return request.headers.at(QString::fromLatin1(name)); };
  EXPECT_EQ(header("Cache-Control"), u"no-cache");
  EXPECT_EQ(header("Pragma"), u"no-cache");
  EXPECT_TRUE(header("User-Agent").startsWith(u"Tremlo/"));
  EXPECT_EQ(request.headers.count(QStringLiteral("Accept")), 0u);
  EXPECT_EQ(request.headers.count(QStringLiteral("Referer")), 0u);
}

TEST_F(HttpClientTest, StatusCodeIsNotLookedAt) {
  for (const char* wishes : {"ranking=status:404", "ranking=status:403", "ranking=status:500"}) {
    EXPECT_EQ(Fetch(kHttp, wishes), HttpResult::Done) << wishes;
    EXPECT_TRUE(Answer().startsWith("<html>")) << wishes;
  }
}

TEST_F(HttpClientTest, ConnectionServesSeveralRequests) {
  HttpClient client(options, service.CertificateFile());
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(client.GetToFile(service.Address(kHttps) + kSearch, file), HttpResult::Done);
    EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
  }
  const auto asked = service.Requests();
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_EQ(asked[0].connection, asked[1].connection);
  EXPECT_EQ(asked[1].connection, asked[2].connection);
}

TEST_F(HttpClientTest, ConnectionClosedUnannouncedBehindAnAnswerLosesNoRequest) {
  // How soon the end arrives decides whether the next request is under way by then: whichever it is, each
  // request has its answer.
  for (const QString& port : {kHttp, kHttps})
    for (const char* wishes :
         {"ranking=close", "ranking=close:1", "ranking=reset:1", "ranking=close-every:5"}) {
      HttpClient client(options, service.CertificateFile());
      const QString url = service.Address(port, Path(wishes)) + kSearch;
      for (int i = 0; i < 20; ++i)
        EXPECT_EQ(client.GetToFile(url, file), HttpResult::Done) << wishes << ' ' << i;
      EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
    }
}

TEST_F(HttpClientTest, RedirectsOverConnectionsThatAreClosedUnannouncedLoseNoRequest) {
  HttpClient client(options, service.CertificateFile());
  const QString url = service.Address(kHttp, Path("ranking=redirect-then-close:5")) + kSearch;
  for (int i = 0; i < 20; ++i) EXPECT_EQ(client.GetToFile(url, file), HttpResult::Done) << i;
}

TEST_F(HttpClientTest, RequestOnAKeptConnectionThatEndsWithoutAByteIsSentOnceMoreOnAFreshOne) {
  HttpClient client(options, service.CertificateFile());
  ASSERT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=drop-second")) + kSearch, file),
            HttpResult::Done);
  auto asked = service.Requests();
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_EQ(asked[0].connection, asked[1].connection);
  EXPECT_NE(asked[1].connection, asked[2].connection);

  ASSERT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=drop")) + kSearch, file),
            HttpResult::Failed);
  asked = service.Requests();
  ASSERT_EQ(asked.size(), 6u) << "once more, not again and again";
  EXPECT_EQ(asked[3].connection, asked[4].connection);
  EXPECT_NE(asked[4].connection, asked[5].connection);
}

TEST_F(HttpClientTest, SilenceOnAKeptConnectionIsNotMetWithARepetition) {
  options.silenceTimeoutMs = 1000;
  HttpClient client(options, service.CertificateFile());
  ASSERT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=stall")) + kSearch, file),
            HttpResult::Failed);
  EXPECT_EQ(service.Requests().size(), 2u);
}

TEST_F(HttpClientTest, RequestWhoseAnswerBeganIsNotRepeated) {
  HttpClient client(options, service.CertificateFile());
  ASSERT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=cut")) + kSearch, file),
            HttpResult::Failed);
  EXPECT_EQ(service.Requests().size(), 2u);
}

TEST_F(HttpClientTest, BadAddressSendsNothing) {
  LeaveOlderAnswer();
  HttpClient client(options, {});
  for (const char* url :
       {"", "nonsense", "http://", "127.0.0.1/map", "ftp://127.0.0.1/", "file:///etc/hostname",
        "http://127.0.0.1/a b", "http://127.0.0.1/a\nb", "http://127.0.0.1:99999/"})
    EXPECT_EQ(client.GetToFile(QString::fromLatin1(url), file), HttpResult::BadAddress) << url;
  const QString withNull = service.Address() + QChar(u'\0') + kSearch;
  EXPECT_EQ(client.GetToFile(withNull, file), HttpResult::BadAddress);
  EXPECT_EQ(Answer(), "older");
  EXPECT_TRUE(service.Requests().empty());
}

TEST_F(HttpClientTest, FileThatCannotBeOpenedFails) {
  LeaveOlderAnswer();
  HttpClient client(options, {});
  const QString below = file + QStringLiteral("/below");
  EXPECT_EQ(client.GetToFile(service.Address() + kSearch, below), HttpResult::FileFailed);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=empty")) + kSearch, below),
            HttpResult::FileFailed);
  EXPECT_EQ(client.GetToFile(service.Address() + kSearch, folder.Path()), HttpResult::FileFailed);
}

TEST_F(HttpClientTest, DroppedConnectionLeavesTheFile) {
  LeaveOlderAnswer();
  EXPECT_EQ(Fetch(kHttp, "ranking=drop"), HttpResult::Failed);
  EXPECT_EQ(Answer(), "older");
  EXPECT_EQ(service.Requests().size(), 1u);
}

TEST_F(HttpClientTest, AnswerCutOffFails) {
  EXPECT_EQ(Fetch(kHttp, "ranking=cut"), HttpResult::Failed);
  EXPECT_EQ(Fetch(kHttps, "ranking=cut"), HttpResult::Failed);
  EXPECT_EQ(service.Requests().size(), 2u);
}

TEST_F(HttpClientTest, BytesThatAreNoHttpFail) {
  EXPECT_EQ(Fetch(kHttp, "ranking=nohttp"), HttpResult::Failed);
}

TEST_F(HttpClientTest, SilenceEndsTheRequestOnce) {
  options.silenceTimeoutMs = 500;
  for (const char* wishes : {"ranking=stall", "ranking=half"}) {
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Fetch(kHttp, wishes), HttpResult::Failed) << wishes;
    EXPECT_GE(timer.elapsed(), 500) << wishes;
  }
  EXPECT_EQ(service.Requests().size(), 2u);
}

TEST_F(HttpClientTest, TrickleLongerThanTheSilenceIsLetThrough) {
  options.silenceTimeoutMs = 1000;
  HttpClient client(options, {});
  const QString tile = QStringLiteral("/xyz/std/15/28817/12802.png");
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("tile=trickle:15")) + tile, file), HttpResult::Done);
  EXPECT_GT(timer.elapsed(), 1000);
  EXPECT_EQ(Answer(), ReadAll(test::SourcePath(QStringLiteral("tests/data/tiles/tile.png"))));
}

TEST_F(HttpClientTest, HeaderLineThatTricklesIsNotSilence) {
  // The 19 letters of "HTTP/1.1 404 Answer" alone take longer than the silence allows.
  options.silenceTimeoutMs = 600;
  HttpClient client(options, {});
  const QString nothing = QStringLiteral("/nothing");
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("all=trickle:35")) + nothing, file),
            HttpResult::Done);
}

TEST_F(HttpClientTest, AnswerOfExactlyTheLimitPassesAndOneByteMoreFails) {
  const qint64 head = QByteArray("HTTP/1.1 200 Answer\r\nConnection: close\r\n\r\n").size();
  const qint64 body = options.maxAnswerBytes - head;
  EXPECT_EQ(Fetch(kHttp, ("ranking=huge:" + QByteArray::number(body)).constData()), HttpResult::Done);
  EXPECT_EQ(QFileInfo(file).size(), body);
  EXPECT_EQ(Fetch(kHttp, ("ranking=huge:" + QByteArray::number(body + 1)).constData()), HttpResult::Failed);
  EXPECT_EQ(Fetch(kHttp, "ranking=huge-length"), HttpResult::Failed);
  EXPECT_LE(QFileInfo(file).size(), options.maxAnswerBytes);
}

TEST_F(HttpClientTest, BodyOfARedirectCountsTowardsTheLimit) {
  options.maxAnswerBytes = 3000000;
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect-huge:2900000"), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect-huge:2999999"), HttpResult::Failed);
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect-huge"), HttpResult::Failed);
}

TEST_F(HttpClientTest, AnswerThatWasPackedForTheWayUnaskedFails) {
  LeaveOlderAnswer();
  EXPECT_EQ(Fetch(kHttp, "ranking=bomb:200000000"), HttpResult::Failed);
  EXPECT_EQ(Answer(), "older");
}

TEST_F(HttpClientTest, HeadsAndTrailersCountTowardsTheLimit) {
  for (const char* wishes : {"ranking=heads:90000", "ranking=trailers:90000"}) {
    options.maxAnswerBytes = 100000;
    EXPECT_EQ(Fetch(kHttp, wishes), HttpResult::Done) << wishes;
    EXPECT_EQ(Answer(), Fixture("fltsearch_C.json")) << wishes;
    options.maxAnswerBytes = 90000;
    EXPECT_EQ(Fetch(kHttp, wishes), HttpResult::Failed) << wishes;
  }
}

TEST_F(HttpClientTest, AnswerThatHardlyEndsIsGivenUp) {
  for (const char* wishes : {"ranking=heads", "ranking=interim", "ranking=trailers", "ranking=extension"})
    EXPECT_EQ(Fetch(kHttp, wishes), HttpResult::Failed) << wishes;
}

TEST_F(HttpClientTest, LinesThatTheLibraryKeepsAreBoundedApart) {
  EXPECT_EQ(Fetch(kHttp, "ranking=trailers:1000000"), HttpResult::Done);
  EXPECT_EQ(Fetch(kHttp, "ranking=trailers:1100000"), HttpResult::Failed);
}

TEST_F(HttpClientTest, ExceptionOfTheSinkReachesTheCallerAndTheClientGoesOn) {
  HttpClient client(options, service.CertificateFile());
  const auto throwing = [](std::string_view) -> bool { throw std::length_error("full"); };
  for (const char* wishes : {"", "ranking=empty"})
    EXPECT_THROW(client.Get(service.Address(kHttp, Path(wishes)) + kSearch, throwing), std::length_error);
  EXPECT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
}

TEST_F(HttpClientTest, FiveRedirectsAreFollowedAndNotASixth) {
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect:5"), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
  EXPECT_EQ(service.Requests().size(), 6u);
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect:6"), HttpResult::Failed);
}

TEST_F(HttpClientTest, RedirectWithoutEndFails) {
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect"), HttpResult::Failed);
  EXPECT_EQ(service.Requests().size(), 6u);
}

TEST_F(HttpClientTest, RedirectLeadsToNoOtherScheme) {
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect-to:file%3A%2F%2F%2Fetc%2Fhostname"), HttpResult::Failed);
  EXPECT_EQ(Fetch(kHttp, "ranking=redirect-to:ftp%3A%2F%2F127.0.0.1%2F"), HttpResult::Failed);
}

TEST_F(HttpClientTest, RedirectToAHostThatIsNotThereAsksOnce) {
  QString target = service.Address(QStringLiteral("refused"));
  target.replace(u':', QStringLiteral("%3A")).replace(u'/', QStringLiteral("%2F"));
  EXPECT_EQ(Fetch(kHttp, ("ranking=redirect-to:" + target.toStdString()).c_str()), HttpResult::Failed);
  EXPECT_EQ(service.Requests().size(), 1u);
}

TEST_F(HttpClientTest, CertificateOfTheAuthorityIsAccepted) {
  EXPECT_EQ(Fetch(kHttps), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
}

TEST_F(HttpClientTest, FileOfTheAuthorityMayHaveAnyName) {
  const QString copy = folder.Path(QStringLiteral("認証局 é.pem"));
  ASSERT_TRUE(QFile::copy(service.CertificateFile(), copy));
  HttpClient client(options, copy);
  EXPECT_EQ(client.GetToFile(service.Address(kHttps) + kSearch, file), HttpResult::Done);
}

TEST_F(HttpClientTest, OtherCertificatesAreRefusedBeforeAnythingIsAsked) {
  for (const char* port : {"https-host", "https-expired", "https-foreign"})
    EXPECT_EQ(Fetch(QString::fromLatin1(port)), HttpResult::Failed) << port;
  EXPECT_TRUE(service.Requests().empty());
}

TEST_F(HttpClientTest, SystemCertificatesDoNotKnowTheTestAuthority) {
  HttpClient client(options, {});
  EXPECT_EQ(client.GetToFile(service.Address(kHttps) + kSearch, file), HttpResult::Failed);
  HttpClient missing(options, folder.Path(QStringLiteral("missing.pem")));
  EXPECT_EQ(missing.GetToFile(service.Address(kHttps) + kSearch, file), HttpResult::Failed);
  EXPECT_TRUE(service.Requests().empty());
}

TEST_F(HttpClientTest, ConnectionThatNeverComesAboutIsTriedThreeTimes) {
  options.connectTimeoutMs = 200;
  options.connectPauseMs = 100;
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(Fetch(QStringLiteral("full")), HttpResult::Failed);
  EXPECT_GE(timer.elapsed(), 3 * 200 + 2 * 100);
}

TEST_F(HttpClientTest, RefusedConnectionIsTriedAgainAfterThePause) {
  options.connectPauseMs = 150;
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(Fetch(QStringLiteral("refused")), HttpResult::Failed);
  EXPECT_GE(timer.elapsed(), 2 * 150);

  options.connectAttempts = 1;
  options.connectPauseMs = 60000;
  timer.start();
  EXPECT_EQ(Fetch(QStringLiteral("refused")), HttpResult::Failed);
  EXPECT_LT(timer.elapsed(), 60000);
}

TEST_F(HttpClientTest, HandshakeThatNeverAnswersIsNotTriedAgain) {
  options.connectTimeoutMs = 200;
  options.connectPauseMs = 60000;
  QElapsedTimer timer;
  timer.start();
  HttpClient client(options, service.CertificateFile());
  QString silent = service.Address(QStringLiteral("silent"));
  silent.replace(QStringLiteral("http:"), QStringLiteral("https:"));
  EXPECT_EQ(client.GetToFile(silent + kSearch, file), HttpResult::Failed);
  EXPECT_LT(timer.elapsed(), 60000);
}

/// Asks another thread to break a request off, at a moment of the request's own.
class Stopper {
 public:
  std::stop_token Token() const { return m_source.get_token(); }

  void Stop() {
    m_timer.start();
    m_source.request_stop();
  }

  /// For a phase that shows nothing of itself to the outside.
  void StopSoon() {
    m_thread = std::thread([this] {
      std::mutex mutex;
      std::unique_lock lock(mutex);
      std::condition_variable().wait_for(lock, std::chrono::milliseconds(30));
      Stop();
    });
  }

  template <class Condition>
  void StopWhen(const Condition& condition) {
    m_thread = std::thread([this, condition] {
      while (!condition()) std::this_thread::yield();
      Stop();
    });
  }

  /// How long the request went on; for a call that has come back.
  qint64 Elapsed() {
    const qint64 elapsed = m_timer.elapsed();
    if (m_thread.joinable()) m_thread.join();
    return elapsed;
  }

 private:
  std::stop_source m_source;
  QElapsedTimer m_timer;
  std::thread m_thread;
};

/// What the promise of the header allows.
constexpr qint64 kAtOnceMs = 100;

class BrokenOffTest : public HttpClientTest {
 protected:
  /// Breaks a request off in the phase that `arm` waits for. A busy machine may hold up one of three.
  template <class Arm>
  void ExpectAtOnce(const QString& address, const Arm& arm) {
    qint64 fastest = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 3; ++i) {
      HttpClient client(options, service.CertificateFile());
      Stopper stopper;
      arm(stopper);
      EXPECT_EQ(client.GetToFile(address + kSearch, file, stopper.Token()), HttpResult::BrokenOff)
          << address.toStdString();
      fastest = std::min(fastest, stopper.Elapsed());
    }
    EXPECT_LT(fastest, kAtOnceMs) << address.toStdString();
  }

  /// A server that has the request.
  void ExpectAtOnceOnceAsked(const QString& address) {
    ExpectAtOnce(address, [&](Stopper& stopper) {
      stopper.StopWhen(
          [this, asked = service.Requests().size()] { return service.Requests().size() > asked; });
    });
  }

  void ExpectAtOnceSoon(const QString& address) {
    ExpectAtOnce(address, [](Stopper& stopper) { stopper.StopSoon(); });
  }
};

TEST_F(BrokenOffTest, WhileTheConnectionIsMade) {
  ExpectAtOnceSoon(service.Address(QStringLiteral("full")));
}

TEST_F(BrokenOffTest, WhileTheHandshakeIsUnanswered) {
  QString silent = service.Address(QStringLiteral("silent"));
  ExpectAtOnceSoon(silent.replace(QStringLiteral("http:"), QStringLiteral("https:")));
}

TEST_F(BrokenOffTest, InThePauseBetweenTwoAttempts) {
  options.connectPauseMs = 60000;
  ExpectAtOnceSoon(service.Address(QStringLiteral("refused")));
}

TEST_F(BrokenOffTest, WhileTheServerIsSilent) {
  LeaveOlderAnswer();
  for (const QString& port : {kHttp, kHttps})
    ExpectAtOnceOnceAsked(service.Address(port, Path("ranking=stall")));
  EXPECT_EQ(Answer(), "older");
}

TEST_F(BrokenOffTest, BehindHalfAnAnswer) {
  for (const QString& port : {kHttp, kHttps}) {
    HttpClient client(options, service.CertificateFile());
    Stopper stopper;
    const auto stopAtTheFirstBlock = [&](std::string_view) { return stopper.Stop(), true; };
    EXPECT_EQ(client.Get(service.Address(port, Path("ranking=half")) + kSearch, stopAtTheFirstBlock,
                         stopper.Token()),
              HttpResult::BrokenOff);
    EXPECT_LT(stopper.Elapsed(), 10 * kAtOnceMs);
    ExpectAtOnceOnceAsked(service.Address(port, Path("ranking=half")));
  }
}

TEST_F(BrokenOffTest, WhileAnAnswerTrickles) {
  ExpectAtOnceOnceAsked(service.Address(kHttp, Path("ranking=trickle:20")));
}

TEST_F(BrokenOffTest, WhileAnAnswerPoursInWithoutAnEnd) {
  options.maxAnswerBytes = std::numeric_limits<std::int64_t>::max();
  ExpectAtOnceOnceAsked(service.Address(kHttp, Path("ranking=redirect-huge:100000000000")));
}

TEST_F(BrokenOffTest, BeforeItBeganNothingIsSent) {
  Stopper stopper;
  stopper.Stop();
  HttpClient client(options, service.CertificateFile());
  EXPECT_EQ(client.GetToFile(service.Address() + kSearch, file, stopper.Token()), HttpResult::BrokenOff);
  EXPECT_TRUE(service.Requests().empty());
}

TEST_F(BrokenOffTest, AfterTheWholeAnswerItIsDone) {
  HttpClient client(options, service.CertificateFile());
  Stopper stopper;
  const auto stopAtTheFirstBlock = [&](std::string_view) { return stopper.Stop(), true; };
  EXPECT_EQ(client.Get(service.Address(kHttp, Path("ranking=empty")) + kSearch, stopAtTheFirstBlock,
                       stopper.Token()),
            HttpResult::Done);
}

TEST_F(BrokenOffTest, NextRequestOfTheClientIsAnswered) {
  HttpClient client(options, service.CertificateFile());
  Stopper stopper;
  stopper.StopSoon();
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=stall")) + kSearch, file, stopper.Token()),
            HttpResult::BrokenOff);
  stopper.Elapsed();
  EXPECT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(Answer(), Fixture("fltsearch_C.json"));
}

TEST_F(HttpClientTest, ClientsOfSeveralThreadsDoNotDisturbEachOther) {
  std::vector<HttpResult> results(4, HttpResult::Failed);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < results.size(); ++i)
    threads.emplace_back([&, i] {
      HttpClient client(options, service.CertificateFile());
      results[i] =
          client.GetToFile(service.Address(kHttps) + kSearch, folder.Path(QStringLiteral("answer%1").arg(i)));
    });
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < results.size(); ++i) {
    EXPECT_EQ(results[i], HttpResult::Done);
    EXPECT_EQ(ReadAll(folder.Path(QStringLiteral("answer%1").arg(i))), Fixture("fltsearch_C.json"));
  }
}

}  // namespace

}  // namespace tremlo
