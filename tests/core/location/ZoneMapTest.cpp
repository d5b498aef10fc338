#include "core/location/PlaneZone.h"
#include "core/location/ZoneMap.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;

std::vector<CDPoly> PolygonsOf(const QByteArray& content) {
  const TestFolder folder;
  folder.Write("SystemData/keiarea.csv", content);
  std::vector<CDPoly> polygons;
  EXPECT_EQ(LoadZonePolygons(folder.Path(), polygons), std::nullopt);
  return polygons;
}

/// The points of the only polygon of a file.
std::vector<CDPoint> PointsOf(const QByteArray& content) {
  const std::vector<CDPoly> polygons = PolygonsOf(content);
  EXPECT_EQ(polygons.size(), 1U);
  return polygons.empty() ? std::vector<CDPoint>() : polygons.front().Points();
}

void ExpectFault(const QByteArray& content, int line) {
  const TestFolder folder;
  folder.Write("SystemData/keiarea.csv", content);
  std::vector<CDPoly> polygons(3);
  const std::optional<QString> failure = LoadZonePolygons(folder.Path(), polygons);
  ASSERT_TRUE(failure) << content.toStdString();
  EXPECT_TRUE(failure->contains(QStringLiteral("keiarea.csvの%1行目").arg(line))) << failure->toStdString();
  EXPECT_EQ(polygons.size(), 3U);
}

TEST(ZoneMap, LinesMakePolygonsWithTheirBoxes) {
  const std::vector<CDPoly> polygons = PolygonsOf("KEI,1\n10,100\n20,100\n20,150\nKEI,2\n1.5,2.5");
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(polygons[0].Points().size(), 3U);
  EXPECT_EQ(polygons[0].MinCorner(), (CDPoint{10, 350, 0}));
  EXPECT_EQ(polygons[0].MaxCorner(), (CDPoint{20, 400, 0}));
  EXPECT_EQ(polygons[1].MinCorner(), (CDPoint{1.5, 497.5, 0}));
  EXPECT_EQ(polygons[1].MaxCorner(), (CDPoint{1.5, 497.5, 0}));
}

TEST(ZoneMap, HeightCountsUpInTheFileAndDownOnThePicture) {
  EXPECT_EQ(PointsOf("KEI\n10,100"), std::vector<CDPoint>({{10, 400, 0}}));
}

TEST(ZoneMap, LinesBeforeTheFirstPolygonAreIgnored) {
  EXPECT_EQ(PointsOf("10,20\n\nx\nKEI,1\n10,100").size(), 1U);
  EXPECT_TRUE(PolygonsOf("10,20\n30,40\n").empty());
}

TEST(ZoneMap, OnlyTheExactWordOpensAPolygon) {
  EXPECT_EQ(PolygonsOf("KEI,1\nKEI 2,3\n kei,4\nKEIX,5\nKEI").size(), 2U);
}

TEST(ZoneMap, EmptyFieldsBetweenCommasAndAtTheEndDoNotCount) {
  EXPECT_EQ(PointsOf("KEI,,1\n10,,100,,\n20,100,"), std::vector<CDPoint>({{10, 400, 0}, {20, 400, 0}}));
}

TEST(ZoneMap, FurtherFieldsAreNotRead) {
  EXPECT_EQ(PointsOf("KEI\n10,100,7,x").front(), (CDPoint{10, 400, 0}));
}

TEST(ZoneMap, NumbersAreReadAsFarAsTheyGo) {
  EXPECT_EQ(PointsOf("KEI\n 10x,1e2y\nx,-"), std::vector<CDPoint>({{10, 400, 0}, {0, 500, 0}}));
}

TEST(ZoneMap, LineEndsOfEitherKind) {
  EXPECT_EQ(PointsOf("KEI,1\r\n10,100\r\n20,100\r\n").back(), (CDPoint{20, 400, 0}));
  EXPECT_EQ(PointsOf("\xEF\xBB\xBFKEI\n10,100\n").size(), 1U);
}

TEST(ZoneMap, PointWithFewerThanTwoFieldsIsAFault) {
  ExpectFault("KEI,1\n10,100\n20", 3);
  ExpectFault("KEI,1\n20,\n", 2);
  ExpectFault("KEI,1\n,20\n10,", 3);
  ExpectFault("x\nKEI,1\n10,100\n\nKEI,2\n", 4);
  ExpectFault("KEI\n,,,", 2);
}

TEST(ZoneMap, FileThatCannotBeOpenedLeavesNoPolygons) {
  const TestFolder folder;
  std::vector<CDPoly> polygons(3);
  EXPECT_EQ(LoadZonePolygons(folder.Path(), polygons), std::nullopt);
  EXPECT_TRUE(polygons.empty());
  EXPECT_EQ(PickZone(polygons, 250, 250), -1);
}

TEST(ZoneMap, FirstPolygonThatContainsThePixelWins) {
  const std::vector<CDPoly> polygons = PolygonsOf(
      "KEI\n0,0\n50,50\nKEI\n0,400\n100,400\n100,500\n0,500\nKEI\n50,400\n200,400\n200,500\n50,500\n");
  EXPECT_EQ(PickZone(polygons, 75, 51), 1);
  EXPECT_EQ(PickZone(polygons, 150, 51), 2);
  EXPECT_EQ(PickZone(polygons, 300, 51), -1);
}

struct Place {
  const char* name;
  double lat, lon;
  int zone;
};

/// The pixel at the place and its eight neighbours: some give the zone, none gives another.
void ExpectZoneAround(const std::vector<CDPoly>& polygons, const Place& place) {
  const double x = std::round((place.lon - 121.9) * 15.55);
  const double y = std::round(500.0 - (place.lat - 20.0) * 19.2);
  int hits = 0;
  for (const double dy : {-1.0, 0.0, 1.0}) {
    for (const double dx : {-1.0, 0.0, 1.0}) {
      const int zone = PickZone(polygons, x + dx, y + dy) + 1;
      if (zone == place.zone) ++hits;
      EXPECT_TRUE(zone == 0 || zone == place.zone) << place.name << " also gives zone " << zone;
    }
  }
  EXPECT_GT(hits, 0) << place.name;
}

std::vector<CDPoly> ShippedPolygons() {
  std::vector<CDPoly> polygons;
  EXPECT_EQ(LoadZonePolygons(test::SourcePath("data"), polygons), std::nullopt);
  return polygons;
}

TEST(ZoneMap, ShippedFileHasOnePolygonPerZone) {
  EXPECT_EQ(ShippedPolygons().size(), kPlaneZoneCount);
}

TEST(ZoneMap, EveryPrefecturalCapitalLiesInTheZoneOfItsAreaText) {
  const std::vector<Place> capitals = {
      {"札幌市", 43.064, 141.347, 12},  {"青森県", 40.824, 140.740, 10},  {"岩手県", 39.704, 141.153, 10},
      {"宮城県", 38.269, 140.872, 10},  {"秋田県", 39.719, 140.102, 10},  {"山形県", 38.240, 140.363, 10},
      {"福島県", 37.750, 140.468, 9},   {"茨城県", 36.342, 140.447, 9},   {"栃木県", 36.566, 139.884, 9},
      {"群馬県", 36.391, 139.061, 9},   {"埼玉県", 35.857, 139.649, 9},   {"千葉県", 35.605, 140.123, 9},
      {"東京都", 35.690, 139.692, 9},   {"神奈川県", 35.448, 139.643, 9}, {"新潟県", 37.902, 139.023, 8},
      {"富山県", 36.695, 137.211, 7},   {"石川県", 36.594, 136.626, 7},   {"福井県", 36.065, 136.222, 6},
      {"山梨県", 35.664, 138.568, 8},   {"長野県", 36.651, 138.181, 8},   {"岐阜県", 35.391, 136.722, 7},
      {"静岡県", 34.977, 138.383, 8},   {"愛知県", 35.180, 136.907, 7},   {"三重県", 34.730, 136.509, 6},
      {"滋賀県", 35.004, 135.868, 6},   {"京都府", 35.021, 135.756, 6},   {"大阪府", 34.686, 135.520, 6},
      {"兵庫県", 34.691, 135.183, 5},   {"奈良県", 34.685, 135.833, 6},   {"和歌山県", 34.226, 135.168, 6},
      {"鳥取県", 35.504, 134.238, 5},   {"島根県", 35.472, 133.051, 3},   {"岡山県", 34.662, 133.935, 5},
      {"広島県", 34.397, 132.460, 3},   {"山口県", 34.186, 131.471, 3},   {"徳島県", 34.066, 134.559, 4},
      {"香川県", 34.340, 134.043, 4},   {"愛媛県", 33.842, 132.766, 4},   {"高知県", 33.560, 133.531, 4},
      {"福岡県", 33.607, 130.418, 2},   {"佐賀県", 33.249, 130.299, 2},   {"長崎県", 32.745, 129.874, 1},
      {"熊本県", 32.790, 130.742, 2},   {"大分県", 33.238, 131.613, 2},   {"宮崎県", 31.911, 131.424, 2},
      {"鹿児島県", 31.560, 130.558, 2}, {"沖縄県", 26.212, 127.681, 15}};
  ASSERT_EQ(capitals.size(), 47U);
  const std::vector<CDPoly> polygons = ShippedPolygons();
  for (const Place& place : capitals) {
    ExpectZoneAround(polygons, place);
    const QString area = PlaneZones()[static_cast<std::size_t>(place.zone - 1)].areaText.toString();
    const QString name = QString::fromUtf8(place.name);
    EXPECT_TRUE(area.contains(place.zone == 12 ? QStringLiteral("北海道") : name)) << place.name;
  }
}

TEST(ZoneMap, PartsOfHokkaido) {
  const std::vector<CDPoly> polygons = ShippedPolygons();
  const std::vector<Place> places = {
      {"函館市", 41.769, 140.729, 11}, {"小樽市", 43.191, 140.995, 11}, {"江差町", 41.869, 140.128, 11},
      {"旭川市", 43.771, 142.365, 12}, {"稚内市", 45.416, 141.673, 12}, {"苫小牧市", 42.634, 141.605, 12},
      {"帯広市", 42.924, 143.196, 13}, {"釧路市", 42.985, 144.382, 13}, {"網走市", 44.020, 144.274, 13},
      {"北見市", 43.808, 143.895, 13}, {"根室市", 43.330, 145.583, 13}};
  for (const Place& place : places) ExpectZoneAround(polygons, place);
}

TEST(ZoneMap, IslandZones) {
  const std::vector<CDPoly> polygons = ShippedPolygons();
  const std::vector<Place> places = {
      {"対馬", 34.205, 129.290, 1},      {"奄美大島", 28.377, 129.494, 1},  {"父島", 27.095, 142.192, 14},
      {"硫黄島", 24.784, 141.323, 14},   {"宮古島", 24.805, 125.281, 16},   {"石垣島", 24.345, 124.157, 16},
      {"南大東島", 25.829, 131.232, 17}, {"沖ノ鳥島", 20.423, 136.075, 18}, {"南鳥島", 24.290, 153.980, 19}};
  for (const Place& place : places) ExpectZoneAround(polygons, place);
}

}  // namespace
}  // namespace tremlo
