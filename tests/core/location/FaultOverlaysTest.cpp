#include "core/location/FaultOverlays.h"
#include "core/location/HazardAnswer.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A fault whose plane k has its corners around the longitude 130 + k.
FaultInfo FaultOf(int planes) {
  FaultInfo fault;
  fault.geomNum = planes;
  for (int i = 0; i < planes; ++i) {
    const double west = 130.0 + i;
    fault.corner1Lon.push_back(west);
    fault.corner1Lat.push_back(36.0);
    fault.corner2Lon.push_back(west + 0.5);
    fault.corner2Lat.push_back(36.0);
    fault.corner3Lon.push_back(west + 0.5);
    fault.corner3Lat.push_back(35.0);
    fault.corner4Lon.push_back(west);
    fault.corner4Lat.push_back(35.0);
  }
  return fault;
}

TEST(FaultOverlays, APlaneIsItsFourCornersAndTheFirstAgain) {
  const std::vector<MapOverlay> overlays = FaultOverlays({FaultOf(1)});
  ASSERT_THAT(overlays, SizeIs(1));
  EXPECT_THAT(overlays[0].points,
              ElementsAre(GeoPoint{130.0, 36.0}, GeoPoint{130.5, 36.0}, GeoPoint{130.5, 35.0},
                          GeoPoint{130.0, 35.0}, GeoPoint{130.0, 36.0}));
  EXPECT_EQ(overlays[0].color, 0xFF);
  EXPECT_EQ(overlays[0].penWidth, 3);
}

TEST(FaultOverlays, EveryPlaneOfEveryFaultHasOne) {
  EXPECT_THAT(FaultOverlays({}), IsEmpty());
  const std::vector<MapOverlay> overlays = FaultOverlays({FaultOf(2), FaultOf(0), FaultOf(3)});
  ASSERT_THAT(overlays, SizeIs(5));
  EXPECT_EQ(overlays[1].points[0].lon, 131.0);
  EXPECT_EQ(overlays[4].points[0].lon, 132.0);
}

TEST(FaultOverlays, APlaneWithACornerAtTheOriginHasNone) {
  FaultInfo fault = FaultOf(3);
  fault.corner4Lon[1] = fault.corner4Lat[1] = 0.0;
  EXPECT_THAT(FaultOverlays({fault}), SizeIs(2));
  fault.corner1Lon[0] = fault.corner1Lat[0] = 0.0;
  EXPECT_THAT(FaultOverlays({fault}), SizeIs(1));
  fault = FaultOf(1);
  fault.corner2Lon[0] = 0.0;
  EXPECT_THAT(FaultOverlays({fault}), SizeIs(1)) << "on the meridian it is a place";
}

TEST(FaultOverlays, ACountThatIsWrongReadsNothingBehindTheCorners) {
  FaultInfo fault = FaultOf(2);
  fault.geomNum = 7;
  EXPECT_THAT(FaultOverlays({fault}), SizeIs(2));
  fault.corner3Lat.pop_back();
  EXPECT_THAT(FaultOverlays({fault}), SizeIs(1));
  fault.geomNum = -1;
  EXPECT_THAT(FaultOverlays({fault}), IsEmpty());
}

TEST(FaultOverlays, ACornerThatIsNoNumberIsNoPlace) {
  FaultInfo fault = FaultOf(2);
  fault.corner3Lon[0] = std::numeric_limits<double>::quiet_NaN();
  fault.corner2Lat[1] = std::numeric_limits<double>::infinity();
  EXPECT_THAT(FaultOverlays({fault}), IsEmpty());
}

TEST(FaultOverlays, AnAnswerOfTheServiceGivesItsPlanes) {
  const QByteArray answer =
      test::ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/fltinfo_F016221.geojson")));
  FaultInfo fault;
  bool erase = false;
  ASSERT_EQ(ParseActivityAnswer({answer.constData(), static_cast<std::size_t>(answer.size())}, fault, erase)
                .outcome,
            ServiceOutcome::Done);
  const std::vector<MapOverlay> overlays = FaultOverlays({fault});
  ASSERT_THAT(overlays, SizeIs(6));
  EXPECT_EQ(overlays[5].points[3], (GeoPoint{fault.corner4Lon[5], fault.corner4Lat[5]}));
}

}  // namespace
}  // namespace tremlo
