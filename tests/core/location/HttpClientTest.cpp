#include "core/location/HttpClient.h"
#include "support/LocalService.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <gtest/gtest.h>
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
  EXPECT_EQ(service.Requests().size(), 3u);
}

TEST_F(HttpClientTest, RequestThatMayHaveArrivedIsNotRepeatedOnANewConnection) {
  HttpClient client(options, service.CertificateFile());
  ASSERT_EQ(client.GetToFile(service.Address() + kSearch, file), HttpResult::Done);
  EXPECT_EQ(client.GetToFile(service.Address(kHttp, Path("ranking=drop")) + kSearch, file),
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

TEST_F(HttpClientTest, AnswerOfMoreThanTheLimitFails) {
  EXPECT_EQ(Fetch(kHttp, "ranking=huge:67108865"), HttpResult::Failed);
  EXPECT_EQ(Fetch(kHttp, "ranking=huge-length"), HttpResult::Failed);
  EXPECT_LE(QFileInfo(file).size(), 67108864);
}

TEST_F(HttpClientTest, AnswerOfExactlyTheLimitPasses) {
  EXPECT_EQ(Fetch(kHttp, "ranking=huge:67108864"), HttpResult::Done);
  EXPECT_EQ(QFileInfo(file).size(), 67108864);
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
