#include "core/location/PlaneZone.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <set>

namespace tremlo {
namespace {

TEST(PlaneZone, EveryLabelGivesItsNumber) {
  const QStringList roman =
      QStringLiteral("I II III IV V VI VII VIII IX X XI XII XIII XIV XV XVI XVII XVIII XIX")
          .split(QStringLiteral(" "));
  for (int number = 1; number <= 19; ++number) {
    const QString label = QStringLiteral("%1 (%2)").arg(roman[number - 1]).arg(number);
    EXPECT_EQ(ZoneFromLabel(label), number);
    EXPECT_EQ(PlaneZones()[static_cast<std::size_t>(number - 1)].label.toString(), label);
  }
}

TEST(PlaneZone, AnyOtherTextIsUnknown) {
  for (const QString& text : {QString(), QStringLiteral("I"), QStringLiteral("I(1)"), QStringLiteral("i (1)"),
                              QStringLiteral("I (1) "), QStringLiteral("XX (20)"), QStringLiteral("Ⅰ (1)")})
    EXPECT_EQ(ZoneFromLabel(text), -1) << text.toStdString();
}

TEST(PlaneZone, NumbersAndEpsgCodesCountUpTogether) {
  int number = 1;
  for (const PlaneZone& zone : PlaneZones()) {
    EXPECT_EQ(zone.number, number);
    EXPECT_EQ(zone.epsg, 2442 + number);
    ++number;
  }
}

TEST(PlaneZone, OriginsOnPartsOfADegreeHaveTheBitsOfTheirDoubleSum) {
  const auto origin = [](int number) { return PlaneZones()[static_cast<std::size_t>(number - 1)].lonOrigin; };
  EXPECT_EQ(origin(3), 132.0 + 1.0 / 6.0);
  EXPECT_EQ(origin(3), 132.16666666666666666666);
  EXPECT_EQ(origin(5), 134.33333333333333333333);
  EXPECT_EQ(origin(7), 137.16666666666666666666);
  EXPECT_EQ(origin(9), 139.83333333333333333333);
  EXPECT_EQ(origin(10), 140.83333333333333333333);
}

/// Degrees of a text such as "131度 0分0秒".
double ShownDegrees(QStringView text) {
  const QStringList parts = text.toString().replace(u'度', u'分').remove(u'秒').remove(u' ').split(u'分');
  return parts[0].toDouble() + parts[1].toDouble() / 60.0 + parts[2].toDouble() / 3600.0;
}

TEST(PlaneZone, ShownOriginsAreTheOriginsOfTheProjection) {
  for (const PlaneZone& zone : PlaneZones()) {
    EXPECT_NEAR(ShownDegrees(zone.shownLon), zone.lonOrigin, 1e-12) << zone.number;
    EXPECT_NEAR(ShownDegrees(zone.shownLat), zone.latOrigin, 1e-12) << zone.number;
  }
}

TEST(PlaneZone, ShownLongitudesAreOfOneWidth) {
  for (const PlaneZone& zone : PlaneZones()) EXPECT_EQ(zone.shownLon.size(), 9) << zone.number;
  EXPECT_EQ(PlaneZones()[1].shownLon.toString(), QStringLiteral("131度 0分0秒"));
}

TEST(PlaneZone, AreasOfTheMainlandZonesNameEachPrefectureOnce) {
  std::multiset<QString> names;
  const QString blanks = QStringLiteral("　 ");
  for (const PlaneZone& zone : PlaneZones()) {
    if (zone.number > 10) break;
    QString area = zone.areaText.toString();
    for (QString& item : area.replace(u' ', u'　').split(u'　')) {
      const qsizetype note = item.indexOf(u'（');
      const QString name = note < 0 ? item : item.left(note);
      if (name.size() <= 4) names.insert(name);
    }
  }
  EXPECT_EQ(names.size(),
            45U);  // 47 without Hokkaido and Okinawa; Kagoshima's islands have no name of their own
  EXPECT_EQ(std::set<QString>(names.begin(), names.end()).size(), 45U);
}

TEST(PlaneZone, AreaItemsAreJoinedByIdeographicBlanksAndThreeByPlainOnes) {
  for (const PlaneZone& zone : PlaneZones()) {
    const qsizetype plain = zone.areaText.toString().count(u' ');
    EXPECT_EQ(plain, zone.number == 6 ? 1 : zone.number == 9 ? 2 : 0) << zone.number;
  }
}

TEST(PlaneZone, GridHeaders) {
  EXPECT_EQ(kZoneGridHeaders[0].toString() + kZoneGridHeaders[1].toString() + kZoneGridHeaders[2].toString() +
                kZoneGridHeaders[3].toString(),
            QStringLiteral("系番号座標系原点の経緯度経度(東経)緯度(北緯)"));
}

}  // namespace
}  // namespace tremlo
