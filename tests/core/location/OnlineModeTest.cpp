#include "core/location/OnlineMode.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <gmock/gmock.h>

namespace tremlo {

namespace {

using test::LocalService;
using test::ReadAll;
using test::RecordedMessages;
using test::Warning;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kTile = QStringLiteral("/xyz/std/15/28817/12802.png");
const QString kSearch = QStringLiteral(
    "/map/api/"
    "fltsearch?position=136.61409,36.56144&epsg=4612&mode=C&version=Y2019&case=AVR&period=P_T30&format=json"
    "&param=0.6&ijma=50");

class OnlineModeTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(local.IsReady()); }

  QByteArray Received() const { return ReadAll(local.AnswerFolder() + QStringLiteral("/RecvTemp")); }
  bool Probe(const char* wishes, const char* port = "http") {
    return ProbeUrl(settings, local.Address(QString::fromLatin1(port), QString::fromLatin1(wishes)) + kTile);
  }
  const test::RecordedMessage tilesOffline = Warning(QStringLiteral("国土地理院 OffLine"));
  const test::RecordedMessage hazardOffline = Warning(QStringLiteral("J-SHIS OffLine"));

  LocalService local;
  ServiceSettings settings = local.Settings();
  RecordedMessages messages;
};

TEST_F(OnlineModeTest, BothServicesAreAskedTwiceInOrder) {
  EXPECT_TRUE(ProbeServices(settings, messages));
  EXPECT_THAT(local.Paths(), ElementsAre(kTile, kTile, kSearch, kSearch));
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(OnlineModeTest, LastAnswerStaysBehind) {
  ProbeServices(settings, messages);
  EXPECT_EQ(Received(), ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/fltsearch_C.json"))));
}

TEST_F(OnlineModeTest, HazardServiceDownIsOfflineWithOneMessage) {
  settings.hazardAddress = local.Address(QStringLiteral("refused"));
  EXPECT_FALSE(ProbeServices(settings, messages));
  EXPECT_THAT(messages.shown, ElementsAre(hazardOffline));
}

TEST_F(OnlineModeTest, HazardServiceIsTriedWhenTheTilesAreDown) {
  settings.tileAddress = local.Address(QStringLiteral("refused"));
  EXPECT_FALSE(ProbeServices(settings, messages));
  EXPECT_THAT(messages.shown, ElementsAre(tilesOffline));
  EXPECT_THAT(local.Paths(), ElementsAre(kSearch, kSearch));
}

TEST_F(OnlineModeTest, BothDownGivesBothMessagesInOrder) {
  settings.tileAddress = settings.hazardAddress = local.Address(QStringLiteral("refused"));
  EXPECT_FALSE(ProbeServices(settings, messages));
  EXPECT_THAT(messages.shown, ElementsAre(tilesOffline, hazardOffline));
}

TEST_F(OnlineModeTest, ProbesPauseBetweenTheServices) {
  settings.probePauseMs = 200;
  QElapsedTimer timer;
  timer.start();
  EXPECT_TRUE(ProbeServices(settings, messages));
  EXPECT_GE(timer.elapsed(), 200);
}

TEST_F(OnlineModeTest, StatusCodeOfAProbeIsNotLookedAt) {
  EXPECT_TRUE(Probe("tile=status:503"));
  EXPECT_TRUE(Received().contains("503"));
}

TEST_F(OnlineModeTest, ProbeThatFailsInTheFirstPassAsksOnce) {
  EXPECT_FALSE(Probe("tile=cut"));
  EXPECT_EQ(local.Paths().size(), 1);
}

TEST_F(OnlineModeTest, SilentServiceFailsTheProbe) {
  settings.hazard.silenceTimeoutMs = 200;
  EXPECT_FALSE(Probe("tile=stall"));
  EXPECT_FALSE(Probe("tile=half"));
}

TEST_F(OnlineModeTest, BadAddressFailsTheProbe) {
  EXPECT_FALSE(ProbeUrl(settings, QStringLiteral("nonsense")));
  EXPECT_FALSE(ProbeUrl(settings, QString()));
}

TEST_F(OnlineModeTest, CertificatesThatDoNotHoldFailTheProbe) {
  EXPECT_TRUE(Probe("", "https"));
  for (const char* port : {"https-host", "https-expired", "https-foreign"}) EXPECT_FALSE(Probe("", port)) << port;
}

TEST_F(OnlineModeTest, ServerThatInsistsOnAClientsCertificateFailsTheProbe) {
  for (const char* port : {"https-client", "https-client12", "https-client13"})
    EXPECT_FALSE(Probe("", port)) << port;
  EXPECT_THAT(local.Paths(), IsEmpty());
}

TEST_F(OnlineModeTest, ServerThatAsksForAClientsCertificateAndDoesWithoutIsAskedTwice) {
  EXPECT_TRUE(Probe("", "https-may"));
  EXPECT_THAT(local.Paths(), ElementsAre(kTile, kTile));
}

TEST_F(OnlineModeTest, ConnectionThatIsClosedUnannouncedBetweenThePassesFailsNoProbe) {
  for (const char* port : {"http", "https"})
    for (int i = 0; i < 10; ++i) EXPECT_TRUE(Probe("tile=close:1", port)) << port;
}

TEST_F(OnlineModeTest, FolderThatCannotBeWrittenFailsTheProbe) {
  const test::TestFolder folder;
  settings.answerFolder = folder.Write(QStringLiteral("file"), "x");
  EXPECT_FALSE(Probe(""));
}

TEST_F(OnlineModeTest, GoingOfflineAsksNobody) {
  OnlineMode mode;
  mode.Probe(settings, messages);
  ASSERT_TRUE(mode.IsOnline());
  const auto asked = local.Paths().size();
  mode.Toggle(settings, messages);
  EXPECT_FALSE(mode.IsOnline());
  EXPECT_EQ(local.Paths().size(), asked);
}

TEST_F(OnlineModeTest, GoingOnlineTakesTheResultOfTheProbes) {
  OnlineMode mode;
  EXPECT_FALSE(mode.IsOnline());
  mode.Toggle(settings, messages);
  EXPECT_TRUE(mode.IsOnline());
  EXPECT_THAT(local.Paths(), ElementsAre(kTile, kTile, kSearch, kSearch));
}

TEST_F(OnlineModeTest, FailedAttemptToGoOnlineStaysOffline) {
  OnlineMode mode;
  settings.hazardAddress = local.Address(QStringLiteral("refused"));
  mode.Toggle(settings, messages);
  EXPECT_FALSE(mode.IsOnline());
  EXPECT_EQ(mode.CaptionMark(), u"　(オフライン)");
  EXPECT_THAT(messages.shown, ElementsAre(hazardOffline));
}

TEST_F(OnlineModeTest, CaptionMarkIsThereOnlyOffline) {
  OnlineMode mode;
  EXPECT_EQ(mode.CaptionMark(), u"　(オフライン)");
  mode.Probe(settings, messages);
  EXPECT_EQ(mode.CaptionMark(), QString());
}

TEST(MapCacheTest, ClearingDeletesTheFolderWithAllItHolds) {
  const test::TestFolder folder;
  folder.Write(QStringLiteral("_cache/15/28817/12802.png"), "tile");
  folder.Write(QStringLiteral("_cache/.hidden"), "x");
  folder.Write(QStringLiteral("RecvTemp"), "kept");
  EXPECT_TRUE(ClearMapCache(folder.Path()));
  EXPECT_THAT(folder.Names(), ElementsAre(QStringLiteral("RecvTemp")));
}

TEST(MapCacheTest, ClearingWithoutACacheSucceeds) {
  const test::TestFolder folder;
  EXPECT_TRUE(ClearMapCache(folder.Path()));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(MapCacheTest, ClearingFollowsNoLinkOutOfTheCache) {
  const test::TestFolder folder;
  const test::TestFolder other;
  other.Write(QStringLiteral("kept"), "x");
  folder.Write(QStringLiteral("_cache/tile"), "x");
  ASSERT_TRUE(QFile::link(other.Path(), folder.Path(QStringLiteral("_cache/link"))));
  EXPECT_TRUE(ClearMapCache(folder.Path()));
  EXPECT_THAT(other.Names(), ElementsAre(QStringLiteral("kept")));
}

TEST(MapCacheTest, CacheThatIsALinkIsRemovedAndItsTargetLeft) {
  const test::TestFolder folder;
  const test::TestFolder other;
  other.Write(QStringLiteral("kept/tile"), "x");
  ASSERT_TRUE(QFile::link(other.Path(), folder.Path(QStringLiteral("_cache"))));
  EXPECT_TRUE(ClearMapCache(folder.Path()));
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_EQ(ReadAll(other.Path(QStringLiteral("kept/tile"))), "x");
}

TEST(MapCacheTest, LinkThatLeadsNowhereIsRemoved) {
  const test::TestFolder folder;
  ASSERT_TRUE(QFile::link(folder.Path(QStringLiteral("nowhere")), folder.Path(QStringLiteral("_cache"))));
  EXPECT_TRUE(ClearMapCache(folder.Path()));
  EXPECT_FALSE(QFileInfo(folder.Path(QStringLiteral("_cache"))).isSymLink());
}

TEST(MapCacheTest, CacheThatCannotBeReachedIsToldOf) {
  const test::TestFolder folder;
  EXPECT_FALSE(ClearMapCache(folder.Write(QStringLiteral("file"), "x")));
}

TEST(MapCacheTest, QuestionSaysWhatClearingBringsAbout) {
  EXPECT_EQ(QString::fromUtf16(kClearMapCacheQuestion),
            u"地図画像キャッシュをクリアします。\n以下の影響がありますがよろしいですか。\n\n"
            u"・地図画像を国土地理院から再度取得します。");
}

}  // namespace

}  // namespace tremlo
