#include "core/location/Coordinates.h"
#include "core/sources/FaultConversion.h"
#include "support/TestFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace tremlo {
namespace {

QString ConvertedMagnitude(const QString& text) {
  FaultInfo fault;
  ConvertMagnitude(fault, text);
  return fault.magnitude;
}

FaultInfo FaultOf(const std::vector<QString>& plane) {
  FaultInfo fault;
  fault.geomNum = 1;
  fault.lon = {plane[0]};
  fault.lat = {plane[1]};
  fault.dep = {plane[2]};
  fault.len = {plane[3]};
  fault.wid = {plane[4]};
  fault.str = {plane[5]};
  fault.dip = {plane[6]};
  return fault;
}

TEST(FaultConversion, NegativeMagnitudeIsConvertedToTheOtherScale) {
  EXPECT_EQ(ConvertedMagnitude("-7.2"), QString("7.85"));
  EXPECT_EQ(ConvertedMagnitude("-6.7"), QString("7.21"));
  EXPECT_EQ(ConvertedMagnitude("-7.2abc"), QString("7.85"));
  EXPECT_EQ(ConvertedMagnitude("-8"), QString("8.87"));
  EXPECT_EQ(ConvertedMagnitude("-0.5"), QString("-0.74"));
}

TEST(FaultConversion, AnyOtherMagnitudeIsStoredAsItIs) {
  for (const char* text : {"7.2", "7.20", "0", "-0.0", "-", "", "7.2abc", "about 7"})
    EXPECT_EQ(ConvertedMagnitude(text), QString(text));
}

TEST(FaultConversion, HugeMagnitudeDoesNoHarm) {
  EXPECT_EQ(ConvertedMagnitude("-1e308").size(), 312);
  EXPECT_EQ(ConvertedMagnitude("-inf"), QString("inf"));
}

TEST(FaultConversion, CornerIsProjectedIntoTheZone) {
  FaultInfo fault = FaultOf({"139.9", "36.1", "3", "0", "0", "0", "90"});
  const PlanePoint corner = ToPlaneRectangular(9, 36.1, 139.9);
  ComputeFaultDistances(fault, 9, corner.easting / 1000.0 + 4.0, corner.northing / 1000.0);
  ASSERT_EQ(fault.shortestDistance.size(), 1U);
  EXPECT_NEAR(fault.shortestDistance[0], 5.0, 1e-9);
}

TEST(FaultConversion, TextsWithoutANumberCountAsZero) {
  FaultInfo fault = FaultOf({"139.9", "36.1", "-", "x", "", "-", "-"});
  const PlanePoint corner = ToPlaneRectangular(9, 36.1, 139.9);
  ComputeFaultDistances(fault, 9, corner.easting / 1000.0, corner.northing / 1000.0 + 7.0);
  EXPECT_EQ(fault.planeDepth, std::vector<double>{0.0});
  EXPECT_NEAR(fault.shortestDistance.at(0), 7.0, 1e-9);
  EXPECT_TRUE(std::isnan(fault.equivalentDistance.at(0)));
}

TEST(FaultConversion, PlanesEndWhereTheirNumberOrAVectorEnds) {
  FaultInfo fault = FaultOf({"139.9", "36.1", "3", "4", "4", "0", "90"});
  for (auto* texts : {&fault.lon, &fault.lat, &fault.dep, &fault.len, &fault.wid, &fault.str, &fault.dip})
    texts->resize(3, texts->front());
  fault.geomNum = 2;
  EXPECT_EQ(RectangleCount(fault), 2U);
  fault.geomNum = 7;
  EXPECT_EQ(RectangleCount(fault), 3U);
  fault.dip.pop_back();
  ComputeFaultDistances(fault, 9, 0.0, 0.0);
  EXPECT_EQ(fault.planeDepth.size(), 2U);
  EXPECT_EQ(fault.shortestDistance.size(), 2U);
  EXPECT_EQ(fault.equivalentDistance.size(), 2U);
  fault.geomNum = -1;
  ComputeFaultDistances(fault, 9, 0.0, 0.0);
  EXPECT_TRUE(fault.planeDepth.empty() && fault.shortestDistance.empty() && fault.equivalentDistance.empty());
}

QJsonObject JsonOf(const QString& name) {
  return QJsonDocument::fromJson(test::ReadAll(test::SourcePath("tests/data/jshis/" + name))).object();
}

/// The rectangles of a stored answer of the activity model.
FaultInfo FaultOfAnswer(const QString& code) {
  FaultInfo fault;
  const QJsonArray features = JsonOf("fltinfo_" + code + ".geojson").value("features").toArray();
  for (const QJsonValue& feature : features) {
    const QJsonObject properties = feature.toObject().value("properties").toObject();
    fault.lon.push_back(properties.value("lon").toString());
    fault.lat.push_back(properties.value("lat").toString());
    fault.dep.push_back(properties.value("dep").toString());
    fault.len.push_back(properties.value("len").toString());
    fault.wid.push_back(properties.value("wid").toString());
    fault.str.push_back(properties.value("str").toString());
    fault.dip.push_back(properties.value("dip").toString());
  }
  fault.geomNum = static_cast<std::int32_t>(features.size());
  return fault;
}

QString RankingMagnitude(const QString& code) {
  for (const QJsonValue& entry : JsonOf("fltsearch_C.json").value("Fault").toArray())
    if (entry.toObject().value("ltecode").toString() == code)
      return entry.toObject().value("magnitude").toString();
  return {};
}

TEST(FaultConversion, EveryPlaneOfTheStoredRankingHasTheExpectedDistances) {
  const PlanePoint site = ToPlaneRectangular(7, 36.56144, 136.61409);
  EXPECT_NEAR(site.easting / 1000.0, -49.462089, 1e-6);
  EXPECT_NEAR(site.northing / 1000.0, 62.435600, 1e-6);
  int planes = 0;
  const QString table =
      QString::fromUtf8(test::ReadAll(test::SourcePath("tests/data/jshis/expected_distances.csv")));
  for (const QString& line : table.split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList fields = line.split(u',');
    if (fields.size() != 6 || !fields[0].startsWith(u'F')) continue;
    SCOPED_TRACE(line.toStdString());
    FaultInfo fault = FaultOfAnswer(fields[0]);
    ConvertMagnitude(fault, RankingMagnitude(fields[0]));
    ComputeFaultDistances(fault, 7, site.easting / 1000.0, site.northing / 1000.0);
    const std::size_t plane = static_cast<std::size_t>(fields[1].toInt() - 1);
    constexpr double kHalfOfTheLastDigit = 0.00005;
    EXPECT_EQ(fault.magnitude, fields[2]);
    EXPECT_NEAR(fault.planeDepth.at(plane), fields[3].toDouble(), kHalfOfTheLastDigit + 1e-9);
    EXPECT_NEAR(fault.shortestDistance.at(plane), fields[4].toDouble(), kHalfOfTheLastDigit + 1e-9);
    EXPECT_NEAR(fault.equivalentDistance.at(plane), fields[5].toDouble(), kHalfOfTheLastDigit + 1e-9);
    ++planes;
  }
  EXPECT_EQ(planes, 13);
}

}  // namespace
}  // namespace tremlo
