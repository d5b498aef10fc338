#include "core/location/PositionTexts.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

SiteRecord SiteAt(double lat, double lon, const QString& zone) {
  SiteRecord site;
  site.latDeg = lat;
  site.lonDeg = lon;
  site.latMin = site.latSec = site.lonMin = site.lonSec = 0.0;
  site.planeZone = zone;
  return site;
}

TEST(PlaceText, IsDegreesMinutesAndCutSeconds) {
  EXPECT_EQ(PlaceText({136.61409, 36.56144}), u"北緯 36°33′41.184″　東経 136°36′50.724″");
  EXPECT_EQ(PlaceText({140.0, 5.0}), u"北緯 5°00′00.000″　東経 140°00′00.000″");
}

TEST(PlaceText, NamesTheOtherHalvesOfTheEarth) {
  EXPECT_EQ(PlaceText({-0.5, -10.25}), u"南緯 10°15′00.000″　西経 0°30′00.000″");
}

TEST(PlaceText, CountsBeyondTheDateLineFromTheOtherSide) {
  EXPECT_EQ(PlaceText({190.0, 0.0}), u"北緯 0°00′00.000″　西経 170°00′00.000″");
  EXPECT_EQ(PlaceText({180.0, 0.0}), u"北緯 0°00′00.000″　東経 180°00′00.000″");
}

TEST(PlaceText, IsEmptyForWhatIsNoPlace) {
  EXPECT_TRUE(PlaceText({std::nan(""), 36.0}).isEmpty());
  EXPECT_TRUE(PlaceText({136.0, HUGE_VAL}).isEmpty());
}

TEST(PlaneText, IsZeroOnTheOriginOfTheZone) {
  EXPECT_EQ(PlaneText(SiteAt(36.0, 138.5, QStringLiteral("VIII (8)"))),
            u"平面直角座標 VIII (8)系　X = 0.000 m　Y = 0.000 m");
}

TEST(PlaneText, IsNorthingAndEastingInMillimetres) {
  // One degree east of the meridian on the 36th parallel: reckoned apart by the series of Kawase (2011)
  // that the Geospatial Information Authority publishes, GRS80, scale 0.9999.
  EXPECT_EQ(PlaneText(SiteAt(36.0, 139.5, QStringLiteral("VIII (8)"))),
            u"平面直角座標 VIII (8)系　X = 462.473 m　Y = 90156.099 m");
}

TEST(PlaneText, AsksForAZoneWhenTheLabelIsNone) {
  EXPECT_EQ(PlaneText(SiteAt(36.0, 138.5, QStringLiteral("VIII"))),
            u"平面直角座標: 座標系番号を選択してください。");
}

TEST(PlaneText, HasNoCoordinatesForWhatIsNoPlace) {
  EXPECT_EQ(PlaneText(SiteAt(std::nan(""), 138.5, QStringLiteral("VIII (8)"))),
            u"平面直角座標 VIII (8)系　X = -　Y = -");
}

TEST(ZoneHint, ANewProjectHasOne) {
  EXPECT_TRUE(IsFarFromZone(SiteRecord()));
  EXPECT_EQ(ZoneHintText(SiteRecord().planeZone),
            u"現場の経度がI (1)系の原点から6度を超えて離れています。座標系番号を確認してください。");
}

TEST(ZoneHint, ComesBeyondSixDegreesOnEitherSide) {
  const QString zone = QStringLiteral("IV (4)");  // 133.5 degrees
  EXPECT_FALSE(IsFarFromZone(SiteAt(36.0, 139.5, zone)));
  EXPECT_FALSE(IsFarFromZone(SiteAt(36.0, 127.5, zone)));
  EXPECT_TRUE(IsFarFromZone(SiteAt(36.0, 139.51, zone)));
  EXPECT_TRUE(IsFarFromZone(SiteAt(36.0, 127.49, zone)));
}

TEST(ZoneHint, SaysNothingWithoutAZoneOrAPlace) {
  EXPECT_FALSE(IsFarFromZone(SiteAt(36.0, 139.0, QStringLiteral("?"))));
  EXPECT_TRUE(ZoneHintText(QStringLiteral("?")).isEmpty());
  EXPECT_FALSE(IsFarFromZone(SiteAt(36.0, std::nan(""), QStringLiteral("I (1)"))));
}

}  // namespace
}  // namespace tremlo
