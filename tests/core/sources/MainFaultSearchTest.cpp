#include "core/location/Coordinates.h"
#include "core/sources/MainFaultSearch.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace tremlo {

namespace {

constexpr int kZone = 7;  // its origin: 36 N, 137 + 1/6 E

/// A row on the zone's meridian, so many km (about) north of the origin.
MainFaultRow Row(const char* code, double northKm) {
  MainFaultRow row;
  row.code = QString::fromLatin1(code);
  row.name = row.code + QStringLiteral("断層");
  row.lon = 137.0 + 1.0 / 6.0;
  row.lat = 36.0 + northKm / 110.96;
  return row;
}

/// The codes found around the origin, nearest first.
QString Codes(const std::vector<MainFaultRow>& rows, double rangeKm) {
  QStringList codes;
  for (const MainFaultGroup& group : FindMainFaults(rows, kZone, 0.0, 0.0, rangeKm)) codes << group.code;
  return codes.join(u' ');
}

TEST(MainFaultSearchTest, RowsWithinTheRangeAreKeptNearestFirst) {
  EXPECT_EQ(Codes({Row("F1", 30), Row("F2", 60), Row("F3", -10), Row("F4", 49)}, 50.0), u"F3 F1 F4");
}

TEST(MainFaultSearchTest, RangeOfZeroKeepsOnlyARowExactlyAtTheSite) {
  EXPECT_EQ(Codes({Row("F1", 0.001)}, 0.0), u"");
  const MainFaultRow row = Row("F1", 10);
  const PlanePoint there = ToPlaneRectangular(kZone, row.lat, row.lon);
  EXPECT_EQ(FindMainFaults({row}, kZone, there.easting / 1000.0, there.northing / 1000.0, 0.0).size(), 1u);
}

TEST(MainFaultSearchTest, LimitOfTheRangeIsInside) {
  const std::vector<MainFaultRow> rows = {Row("F1", 30)};
  const double distance = FindMainFaults(rows, kZone, 0.0, 0.0, 100.0).at(0).distanceKm;
  EXPECT_NEAR(distance, 30.0, 0.05);
  EXPECT_EQ(FindMainFaults(rows, kZone, 0.0, 0.0, distance).size(), 1u);
  EXPECT_TRUE(FindMainFaults(rows, kZone, 0.0, 0.0, std::nextafter(distance, 0.0)).empty());
}

TEST(MainFaultSearchTest, NegativeRangeKeepsNothing) {
  EXPECT_EQ(Codes({Row("F1", 0)}, -1.0), u"");
}

TEST(MainFaultSearchTest, GroupTakesNameAndDistanceOfItsFirstRow) {
  std::vector<MainFaultRow> rows = {Row("F1", 40), Row("F1", 5), Row("F2", 20)};
  rows[1].name = QStringLiteral("other");
  const auto groups = FindMainFaults(rows, kZone, 0.0, 0.0, 50.0);
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].code, u"F2");
  EXPECT_EQ(groups[1].code, u"F1");
  EXPECT_EQ(groups[1].name, u"F1断層");
  EXPECT_NEAR(groups[1].distanceKm, 40.0, 0.05);
}

TEST(MainFaultSearchTest, RowsOfACodeWithAnotherKeptBetweenMakeTwoGroups) {
  EXPECT_EQ(Codes({Row("F1", 1), Row("F2", 2), Row("F1", 3)}, 50.0), u"F1 F2 F1");
}

TEST(MainFaultSearchTest, RowOutsideTheRangeSeparatesNoGroup) {
  EXPECT_EQ(Codes({Row("F1", 1), Row("F2", 200), Row("F1", 3)}, 50.0), u"F1");
  EXPECT_EQ(Codes({Row("F1", 200), Row("F1", 3), Row("F1", 1)}, 50.0), u"F1");
}

TEST(MainFaultSearchTest, EqualDistancesKeepTheOrderOfTheTable) {
  EXPECT_EQ(Codes({Row("F4", 9), Row("F3", 7), Row("F2", 7), Row("F5", 7), Row("F1", 1)}, 50.0),
            u"F1 F3 F2 F5 F4");
}

TEST(MainFaultSearchTest, RowWithoutAPlaceIsNotKept) {
  MainFaultRow row = Row("F1", 1);
  row.lat = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(FindMainFaults({row}, kZone, 0.0, 0.0, 1e300).empty());
}

}  // namespace

}  // namespace tremlo
