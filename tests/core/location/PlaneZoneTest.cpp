#include "core/location/PlaneZone.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <iterator>
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

const char16_t* const kAreas[] = {
    u"長崎県　鹿児島県のうち北方北緯32度南方北緯27度西方東経128度18分東方東経130度を境界線とす"
    u"る区域内（奄美群島は東経130度13分までを含む。)にあるすべての島、小島、環礁及び岩礁",
    u"福岡県　佐賀県　熊本県　大分県　宮崎県　鹿児島県（I系に規定する区域を除く。)",
    u"山口県　島根県　広島県",
    u"香川県　愛媛県　徳島県　高知県",
    u"兵庫県　鳥取県　岡山県",
    u"京都府　大阪府　福井県　滋賀県　三重県　奈良県 和歌山県",
    u"石川県　富山県　岐阜県　愛知県",
    u"新潟県　長野県　山梨県　静岡県",
    u"東京都（XIV系、XVIII系及びXIX系に規定する区域を除く。)　福島県　栃木県　茨城県　埼玉県 "
    u"千葉県 群馬県　神奈川県",
    u"青森県　秋田県　山形県　岩手県　宮城県",
    u"小樽市　函館市　伊達市　北斗市　北海道後志総合振興局の所管区域　北海道胆振総合振興局の所"
    u"管区域のうち豊浦町、壮瞥町及び洞爺湖町　北海道渡島総合振興局の所管区域　北海道檜山振興局"
    u"の所管区域",
    u"北海道（XI系及びXIII系に規定する区域を除く。）",
    u"北見市　帯広市　釧路市　網走市　根室市　北海道オホーツク総合振興局の所管区域のうち美幌町"
    u"、津別町、斜里町、清里町、小清水町、訓子府町、置戸町、佐呂間町及び大空町　北海道十勝総合"
    u"振興局の所管区域　北海道釧路総合振興局の所管区域　北海道根室振興局の所管区域",
    u"東京都のうち北緯28度から南であり、かつ東経140度30分から東であり東経143度から西である区域",
    u"沖縄県のうち東経126度から東であり、かつ東経130度から西である区域",
    u"沖縄県のうち東経126度から西である区域",
    u"沖縄県のうち東経130度から東である区域",
    u"東京都のうち北緯28度から南であり、かつ東経140度30分から西である区域",
    u"東京都のうち北緯28度から南であり、かつ東経143度から東である区域"};

TEST(PlaneZone, AreasAreTheseTexts) {
  ASSERT_EQ(std::size(kAreas), PlaneZones().size());
  for (std::size_t i = 0; i < std::size(kAreas); ++i)
    EXPECT_EQ(PlaneZones()[i].areaText.toString(), QString::fromUtf16(kAreas[i])) << i + 1;
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
