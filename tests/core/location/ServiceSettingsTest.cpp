#include "core/location/ServiceSettings.h"

#include <gtest/gtest.h>

namespace tremlo {

namespace {

TEST(ServiceSettingsTest, DefaultsAreThePublicServicesWithTheirStatedTimes) {
  const ServiceSettings settings;
  EXPECT_EQ(settings.hazardAddress, u"https://www.j-shis.bosai.go.jp");
  EXPECT_EQ(settings.tileAddress, u"https://cyberjapandata.gsi.go.jp");
  EXPECT_TRUE(settings.certificateFile.isEmpty());
  EXPECT_TRUE(settings.answerFolder.isEmpty());
  EXPECT_EQ(settings.probePauseMs, 500);

  EXPECT_EQ(settings.hazard.connectTimeoutMs, 5000);
  EXPECT_EQ(settings.hazard.connectAttempts, 3);
  EXPECT_EQ(settings.hazard.connectPauseMs, 1000);
  EXPECT_EQ(settings.hazard.silenceTimeoutMs, 5000);
  EXPECT_EQ(settings.hazard.maxRedirects, 5);
  EXPECT_EQ(settings.hazard.maxAnswerBytes, 67108864);

  EXPECT_EQ(settings.tiles.connectTimeoutMs, 60000);
  EXPECT_EQ(settings.tiles.connectAttempts, 1);
  EXPECT_EQ(settings.tiles.silenceTimeoutMs, 30000);
  EXPECT_EQ(settings.tiles.maxRedirects, 5);
  EXPECT_EQ(settings.tiles.maxAnswerBytes, 67108864);
}

}  // namespace

}  // namespace tremlo
