#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace tremlo {

void PrintTo(const SplitDegrees& split, std::ostream* out) {
  *out << split.degrees << ' ' << split.minutes << ' ' << split.seconds;
}

namespace {

constexpr long double kPi = 3.14159265358979323846264338327950288L;

/// The projection once more, by another road: Krueger's series in the third flattening n up to n^5, as Kawase
/// gives it (Bulletin of the Geospatial Information Authority of Japan 59, 2011), in extended precision. What
/// is left out is below 1e-8 m.
class KruegerSeries {
 public:
  explicit KruegerSeries(const PlaneZone& zone)
      : m_lonOrigin(zone.lonOrigin), m_meridianArc(MeridianArc(zone.latOrigin / 180.0L * kPi)) {}

  PlanePoint Project(double latDegrees, double lonDegrees) const {
    const long double lat = latDegrees / 180.0L * kPi;
    const long double lon = (lonDegrees - m_lonOrigin) / 180.0L * kPi;
    const long double e = 2.0L * std::sqrt(kN) / (1.0L + kN);
    const long double t = std::sinh(std::atanh(std::sin(lat)) - e * std::atanh(e * std::sin(lat)));
    const long double xi = std::atan2(t, std::cos(lon));
    const long double eta = std::atanh(std::sin(lon) / std::sqrt(1.0L + t * t));
    long double x = xi;
    long double y = eta;
    for (std::size_t j = 0; j < kAlpha.size(); ++j) {
      const long double k = 2.0L * static_cast<long double>(j + 1);
      x += kAlpha[j] * std::sin(k * xi) * std::cosh(k * eta);
      y += kAlpha[j] * std::cos(k * xi) * std::sinh(k * eta);
    }
    const long double scale = kScale * kRadius / (1.0L + kN) * kArc[0];
    return {static_cast<double>(scale * x - m_meridianArc), static_cast<double>(scale * y)};
  }

 private:
  static constexpr long double kScale = 0.9999L;
  static constexpr long double kRadius = 6378137.0L;
  static constexpr long double kFlattening = 1.0L / 298.257222101L;
  static constexpr long double kN = kFlattening / (2.0L - kFlattening);
  static constexpr long double kN2 = kN * kN;
  static constexpr long double kN3 = kN2 * kN;
  static constexpr long double kN4 = kN2 * kN2;
  static constexpr long double kN5 = kN4 * kN;
  static constexpr std::array<long double, 5> kAlpha = {
      kN / 2 - kN2 * 2 / 3 + kN3 * 5 / 16 + kN4 * 41 / 180 - kN5 * 127 / 288,
      kN2 * 13 / 48 - kN3 * 3 / 5 + kN4 * 557 / 1440 + kN5 * 281 / 630,
      kN3 * 61 / 240 - kN4 * 103 / 140 + kN5 * 15061 / 26880, kN4 * 49561 / 161280 - kN5 * 179 / 168,
      kN5 * 34729 / 80640};
  static constexpr std::array<long double, 6> kArc = {
      1 + kN2 / 4 + kN4 / 64,    -(kN - kN3 / 8 - kN5 / 64) * 3 / 2,
      (kN2 - kN4 / 4) * 15 / 16, -(kN3 - kN5 * 5 / 16) * 35 / 48,
      kN4 * 315 / 512,           -kN5 * 693 / 1280};

  static long double MeridianArc(long double lat) {
    long double sum = kArc[0] * lat;
    for (std::size_t j = 1; j < kArc.size(); ++j)
      sum += kArc[j] * std::sin(2.0L * static_cast<long double>(j) * lat);
    return kScale * kRadius / (1.0L + kN) * sum;
  }

  long double m_lonOrigin;
  long double m_meridianArc;
};

void CheckPoint(int zone, double lat, double lon, double northing, double easting, double tolerance) {
  const PlanePoint point = ToPlaneRectangular(zone, lat, lon);
  EXPECT_NEAR(point.northing, northing, tolerance) << "zone " << zone << " at " << lat << ", " << lon;
  EXPECT_NEAR(point.easting, easting, tolerance) << "zone " << zone << " at " << lat << ", " << lon;
}

// The figures that the calculation service of the Geospatial Information Authority of Japan (vldb.gsi.go.jp)
// gives, to a tenth of a millimetre; the first is the example of its page.
TEST(Coordinates, PublishedExamplesAgreeToAMillimetre) {
  constexpr double kMillimetre = 0.001;
  CheckPoint(9, DecimalDegrees(36, 6, 13.58925), DecimalDegrees(140, 5, 16.27815), 11543.6883, 22916.2436,
             kMillimetre);
  CheckPoint(9, 35.658596, 139.745403, -37873.4184, -7961.3583, kMillimetre);
  CheckPoint(1, 32.890270, 129.013751, -12063.3920, -45493.3744, kMillimetre);
  CheckPoint(1, 33.190977, 129.917483, 21256.0449, 38927.1043, kMillimetre);
  CheckPoint(13, 44.005905, 144.270721, 656.2613, 1661.6215, kMillimetre);
  CheckPoint(15, 26.160347222222224, 127.70422777777777, 17779.0104, 20416.9652, kMillimetre);
}

TEST(Coordinates, EveryZoneAgreesWithTheSeriesToAMicrometre) {
  for (const PlaneZone& zone : PlaneZones()) {
    const KruegerSeries series(zone);
    for (double dLat = -2.5; dLat <= 4.5; dLat += 1.75) {
      for (double dLon = -2.0; dLon <= 2.0; dLon += 0.8) {
        const double lat = zone.latOrigin + dLat;
        const double lon = zone.lonOrigin + dLon;
        const PlanePoint expected = series.Project(lat, lon);
        CheckPoint(zone.number, lat, lon, expected.northing, expected.easting, 1e-6);
      }
    }
  }
}

TEST(Coordinates, PlacesFarFromTheMeridianKeepTheMicrometre) {
  const KruegerSeries series(PlaneZones()[0]);
  for (const double lon : {137.8, 141.0, 145.6, 154.0}) {
    const PlanePoint expected = series.Project(43.0, lon);
    CheckPoint(1, 43.0, lon, expected.northing, expected.easting, 1e-6);
  }
}

TEST(Coordinates, OriginOfEveryZoneIsZero) {
  for (const PlaneZone& zone : PlaneZones())
    CheckPoint(zone.number, zone.latOrigin, zone.lonOrigin, 0.0, 0.0, 1e-7);
}

TEST(Coordinates, NorthingGrowsToTheNorthAndEastingToTheEast) {
  const PlanePoint point = ToPlaneRectangular(6, 36.1, 136.2);
  EXPECT_NEAR(point.northing, 11100.0, 100.0);
  EXPECT_NEAR(point.easting, 18000.0, 100.0);
}

TEST(Coordinates, UnknownZoneMeansTheFirst) {
  const PlanePoint first = ToPlaneRectangular(1, 36.0, 138.0);
  for (const int zone : {0, -1, 20, 100, -2147483647}) {
    const PlanePoint point = ToPlaneRectangular(zone, 36.0, 138.0);
    EXPECT_EQ(point.northing, first.northing) << zone;
    EXPECT_EQ(point.easting, first.easting) << zone;
  }
  EXPECT_NE(ToPlaneRectangular(2, 36.0, 138.0).easting, first.easting);
}

TEST(Coordinates, PlaceBeyondThePoleHasNoFinitePoint) {
  EXPECT_FALSE(std::isfinite(ToPlaneRectangular(1, 91.0, 130.0).northing));
  EXPECT_FALSE(std::isfinite(ToPlaneRectangular(1, std::nan(""), 130.0).northing));
}

TEST(Coordinates, APlaceWithoutAPointLeavesTheNextOneSound) {
  const PlanePoint before = ToPlaneRectangular(7, 36.5, 136.6);
  ToPlaneRectangular(7, 91.0, 130.0);
  const PlanePoint after = ToPlaneRectangular(7, 36.5, 136.6);
  EXPECT_EQ(after.northing, before.northing);
  EXPECT_EQ(after.easting, before.easting);
}

TEST(Coordinates, LibraryWithoutItsDatabaseProjectsAllTheSameAndPrintsNothing) {
  const PlanePoint before = ToPlaneRectangular(3, 35.5, 132.5);
  const QByteArray folder = qgetenv("PROJ_DATA");
  const bool wasSet = qEnvironmentVariableIsSet("PROJ_DATA");
  qputenv("PROJ_DATA", "/no such folder");
  testing::internal::CaptureStderr();
  const PlanePoint point = ToPlaneRectangular(3, 35.5, 132.5);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(point.northing, before.northing);
  EXPECT_EQ(point.easting, before.easting);
  wasSet ? qputenv("PROJ_DATA", folder) : qunsetenv("PROJ_DATA");
}

TEST(Coordinates, ThreadsAtOnceGetTheSameAsOneAfterTheOther) {
  constexpr std::size_t kPlaces = 200;
  const auto project = [](std::vector<PlanePoint>& points) {
    for (std::size_t i = 0; i < kPlaces; ++i)
      points.push_back(
          ToPlaneRectangular(static_cast<int>(i % 19) + 1, 30.0 + 0.05 * static_cast<double>(i), 138.0));
  };
  std::vector<PlanePoint> alone;
  project(alone);
  std::array<std::vector<PlanePoint>, 4> together;
  std::vector<std::thread> threads;
  for (std::vector<PlanePoint>& points : together) threads.emplace_back(project, std::ref(points));
  for (std::thread& thread : threads) thread.join();
  for (const std::vector<PlanePoint>& points : together) {
    ASSERT_EQ(points.size(), kPlaces);
    for (std::size_t i = 0; i < kPlaces; ++i) {
      EXPECT_EQ(points[i].northing, alone[i].northing);
      EXPECT_EQ(points[i].easting, alone[i].easting);
    }
  }
}

TEST(Coordinates, DecimalDegreesAddMinutesFirst) {
  EXPECT_EQ(DecimalDegrees(38.0, 15.0, 20.66), 15.0 / 60.0 + 38.0 + 20.66 / 3600.0);
  EXPECT_EQ(DecimalDegrees(0.0, 90.0, 7200.0), 3.5);
}

TEST(Coordinates, NewSiteStandsAtItsDefaultPlace) {
  EXPECT_NEAR(SiteLatitude(SiteRecord()), 38.255738888888889, 1e-13);
  EXPECT_NEAR(SiteLongitude(SiteRecord()), 137.776944444444444, 1e-13);
  EXPECT_EQ(ZoneFromLabel(SiteRecord().planeZone), 1);
  EXPECT_EQ(SiteRecord().mapZoom, 5);
}

TEST(Coordinates, SplitOfAPositionWithFiveDecimals) {
  EXPECT_EQ(SplitDecimalDegrees(36.56144), (SplitDegrees{36, 33, 41.184}));
  EXPECT_EQ(SplitDecimalDegrees(136.61409), (SplitDegrees{136, 36, 50.724}));
}

TEST(Coordinates, SplitIsExactForEveryPositionWithFiveDecimals) {
  for (int k = 2000000; k <= 15400000; k += 977) {
    const int thousandths = k * 36 % 60000;  // one unit of the fifth decimal is 36 thousandths of a second
    const int minutes = static_cast<int>(static_cast<long long>(k) * 36 / 60000 % 60);
    const SplitDegrees expected{static_cast<double>(k / 100000), static_cast<double>(minutes),
                                thousandths / 1000.0};
    EXPECT_EQ(SplitDecimalDegrees(k / 100000.0), expected) << k;
  }
}

TEST(Coordinates, SplitCutsAndDoesNotRound) {
  EXPECT_EQ(SplitDecimalDegrees(35.0 + 59.9999 / 3600.0), (SplitDegrees{35, 0, 59.999}));
  EXPECT_EQ(SplitDecimalDegrees(35.0 + 0.0009 / 3600.0), (SplitDegrees{35, 0, 0.0}));
}

TEST(Coordinates, SplitOfANegativePositionMirrorsThePositive) {
  EXPECT_EQ(SplitDecimalDegrees(-36.56144), (SplitDegrees{-36, -33, -41.184}));
  EXPECT_FALSE(std::signbit(SplitDecimalDegrees(-1e-9).degrees));
}

}  // namespace
}  // namespace tremlo
