// The stated timeouts in real seconds: too slow for every run, so scripts/slow-tests runs them.

#include "core/location/HazardService.h"
#include "core/location/OnlineMode.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

namespace tremlo {

namespace {

using test::LocalService;
using test::RecordedMessages;
using testing::IsEmpty;

/// What a busy machine may add to a stated time.
constexpr qint64 kSlackMs = 1500;

class SlowServiceTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(local.IsReady()); }

  /// The stated times, at a port of the local service.
  void Use(const char* port, const char* wishes = "") {
    settings = ServiceSettings();
    settings.hazardAddress = settings.tileAddress =
        local.Address(QString::fromLatin1(port), QString::fromLatin1(wishes));
    settings.certificateFile = local.CertificateFile();
    settings.answerFolder = local.AnswerFolder();
  }

  ServiceOutcome Search() {
    HazardService service(settings, messages);
    FaultSearchRequest request({}, 36.56144, 136.61409);
    std::vector<FaultInfo> faults;
    timer.start();
    return service.SearchMeshFaults(request, faults);
  }

  void ExpectElapsed(qint64 expectedMs) const {
    EXPECT_GE(timer.elapsed(), expectedMs);
    EXPECT_LT(timer.elapsed(), expectedMs + kSlackMs);
  }

  LocalService local;
  ServiceSettings settings;
  RecordedMessages messages;
  QElapsedTimer timer;
};

TEST_F(SlowServiceTest, SilentAnswerEndsAfterFiveSeconds) {
  Use("http", "ranking=stall");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(5000);
}

TEST_F(SlowServiceTest, HalfAnAnswerEndsAfterFiveSeconds) {
  Use("http", "ranking=half");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(5000);
  Use("https", "ranking=half");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(5000);
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(SlowServiceTest, TrickleLongerThanFiveSecondsIsLetThrough) {
  Use("http", "ranking=trickle:2");
  EXPECT_EQ(Search(), ServiceOutcome::Done);
  EXPECT_GT(timer.elapsed(), 5000);
}

TEST_F(SlowServiceTest, ConnectionThatNeverComesAboutTakesThreeAttemptsOfFiveSeconds) {
  Use("full");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(3 * 5000 + 2 * 1000);
}

TEST_F(SlowServiceTest, RefusedConnectionTakesTwoPausesOfASecond) {
  Use("refused");
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(2 * 1000);
}

TEST_F(SlowServiceTest, HandshakeWithoutAnAnswerEndsAfterFiveSeconds) {
  Use("silent");
  settings.hazardAddress.replace(QStringLiteral("http:"), QStringLiteral("https:"));
  EXPECT_EQ(Search(), ServiceOutcome::NoAnswer);
  ExpectElapsed(5000);
}

TEST_F(SlowServiceTest, ProbesPauseForHalfASecond) {
  Use("http");
  timer.start();
  EXPECT_TRUE(ProbeServices(settings, messages));
  ExpectElapsed(500);
}

TEST_F(SlowServiceTest, ProbesOfTwoRefusedServicesTakeTheirPauses) {
  Use("refused");
  timer.start();
  EXPECT_FALSE(ProbeServices(settings, messages));
  ExpectElapsed(2 * 2 * 1000 + 500);
}

TEST_F(SlowServiceTest, SilentTileIsWaitedForThirtySeconds) {
  Use("http", "tile=stall");
  HttpClient client(settings.tiles, {});
  timer.start();
  EXPECT_EQ(client.GetToFile(settings.tileAddress + QStringLiteral("/xyz/std/5/28/12.png"),
                             local.AnswerFolder() + QStringLiteral("/tile")),
            HttpResult::Failed);
  ExpectElapsed(30000);
}

}  // namespace

}  // namespace tremlo
