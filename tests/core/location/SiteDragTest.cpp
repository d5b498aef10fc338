#include "core/location/Coordinates.h"
#include "core/location/SiteDrag.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using Outcome = SiteDrag::Outcome;

constexpr SitePosition kSite{38.0, 15.0, 20.66, 137.0, 46.0, 37.0};

/// A map of 400 by 300 pixels at zoom 10, far from the site, and the user who answers.
struct Drag {
  TileMap map;
  SiteDrag drag{map};
  bool answer = true;
  bool buttonDown = true;
  int questions = 0;

  Drag() {
    map.view.zoom = 10;
    map.view.clientRect = {0, 0, 400, 300};
  }
  void Press() { drag.Press(kSite, {200, 150}); }
  Outcome Move(PixelPoint pixel) {
    return drag.Move(
        pixel,
        [this] {
          ++questions;
          return answer;
        },
        [this] { return buttonDown; });
  }
  GeoPoint Center() const { return {map.view.centerLon, map.view.centerLat}; }
};

TEST(SitePosition, OfAMapPointHasSecondsCutToThousandths) {
  EXPECT_EQ(PositionAt({136.61409, 36.56144}), (SitePosition{36.0, 33.0, 41.184, 136.0, 36.0, 50.724}));
}

TEST(SitePosition, GoesToTheRecordAndBack) {
  SiteRecord site;
  EXPECT_EQ(PositionOf(site), kSite);
  const SitePosition other{1.5, 2.5, 3.5, 4.5, 5.5, 6.5};
  StorePosition(other, site);
  EXPECT_EQ(PositionOf(site), other);
  EXPECT_EQ(PlaceOf(other), (GeoPoint{SiteLongitude(site), SiteLatitude(site)}));
}

TEST(SiteDrag, PressCentresTheMapOnTheSiteAndTakesHoldOfIt) {
  Drag test;
  test.Press();
  EXPECT_TRUE(test.drag.IsActive());
  EXPECT_TRUE(test.map.IsDragging());
  EXPECT_EQ(test.Center(), PlaceOf(kSite));
  EXPECT_EQ(test.questions, 0);
}

TEST(SiteDrag, PressAndReleaseLeavesTheSameNumbersAndAsksNothing) {
  Drag test;
  test.Press();
  EXPECT_EQ(test.Move({200, 150}), Outcome::Nothing);  // reported where it was pressed
  EXPECT_EQ(test.drag.Release({200, 150}), Outcome::Ended);
  EXPECT_EQ(test.drag.Position(), kSite);
  EXPECT_FALSE(test.drag.IsActive());
  EXPECT_FALSE(test.map.IsDragging());
  EXPECT_EQ(test.questions, 0);
}

TEST(SiteDrag, TheSiteFollowsTheCentreOfTheMap) {
  Drag test;
  test.Press();
  EXPECT_EQ(test.Move({230, 130}), Outcome::Moved);
  EXPECT_LT(test.map.view.centerLon, PlaceOf(kSite).lon);  // the map goes east with the pointer
  EXPECT_LT(test.map.view.centerLat, PlaceOf(kSite).lat);
  EXPECT_EQ(test.drag.Position(), PositionAt(test.Center()));
  EXPECT_NE(test.drag.Position(), kSite);
  const SitePosition moved = test.drag.Position();
  EXPECT_EQ(test.drag.Release({230, 130}), Outcome::Ended);
  EXPECT_EQ(test.drag.Position(), moved);
  EXPECT_EQ(test.Center(), PlaceOf(moved));  // the crosshair marks the site to the last digit
}

TEST(SiteDrag, AsksOnceInADrag) {
  Drag test;
  test.Press();
  test.Move({230, 130});
  test.Move({240, 130});
  test.Move({200, 150});  // back where it was pressed is a move like any other
  EXPECT_EQ(test.questions, 1);
  EXPECT_NEAR(test.Center().lon, PlaceOf(kSite).lon, 1e-9);
  test.drag.Release({200, 150});
  test.Press();
  test.Move({230, 130});
  EXPECT_EQ(test.questions, 2);
}

TEST(SiteDrag, NoPutsTheSixNumbersAndTheCentreBackAndEndsTheDrag) {
  Drag test;
  test.answer = false;
  test.Press();
  EXPECT_EQ(test.Move({230, 130}), Outcome::PutBack);
  EXPECT_EQ(test.drag.Position(), kSite);
  EXPECT_EQ(test.Center(), PlaceOf(kSite));
  EXPECT_FALSE(test.map.IsDragging());
  EXPECT_EQ(test.Move({240, 130}), Outcome::Nothing);
  EXPECT_EQ(test.drag.Release({240, 130}), Outcome::Nothing);
  EXPECT_EQ(test.Center(), PlaceOf(kSite));
  EXPECT_EQ(test.questions, 1);
}

TEST(SiteDrag, ABoxThatSwallowedTheReleaseMakesThisMoveTheLast) {
  Drag test;
  test.buttonDown = false;
  test.Press();
  EXPECT_EQ(test.Move({230, 130}), Outcome::Ended);
  EXPECT_NE(test.drag.Position(), kSite);
  EXPECT_EQ(test.Center(), PlaceOf(test.drag.Position()));
  EXPECT_FALSE(test.map.IsDragging());
  EXPECT_EQ(test.drag.Release({230, 130}), Outcome::Nothing);
}

TEST(SiteDrag, ANoIsANoWhetherTheButtonIsDownOrUp) {
  Drag test;
  test.buttonDown = false;
  test.answer = false;
  test.Press();
  EXPECT_EQ(test.Move({230, 130}), Outcome::PutBack);
  EXPECT_EQ(test.drag.Position(), kSite);
}

TEST(SiteDrag, ACommandTakesThePositionThatIsShown) {
  Drag test;
  test.Press();
  test.Move({230, 130});
  const SitePosition shown = test.drag.Position();
  EXPECT_EQ(test.drag.Finish(), Outcome::Ended);
  EXPECT_EQ(test.drag.Position(), shown);
  EXPECT_FALSE(test.drag.IsActive());
  EXPECT_EQ(test.drag.Finish(), Outcome::Nothing);
}

TEST(SiteDrag, ACommandBeforeTheFirstMoveLeavesNothingToStore) {
  Drag test;
  test.Press();
  EXPECT_EQ(test.drag.Finish(), Outcome::Nothing);
  EXPECT_FALSE(test.drag.IsActive());
  EXPECT_FALSE(test.map.IsDragging());
}

TEST(SiteDrag, ADragThatEndedBehindItsQuestionStaysEnded) {
  Drag test;
  test.Press();
  const auto endsMeanwhile = [&] {
    EXPECT_EQ(test.drag.Finish(), Outcome::Nothing);
    return true;
  };
  EXPECT_EQ(test.drag.Move({230, 130}, endsMeanwhile, [] { return true; }), Outcome::Nothing);
  EXPECT_EQ(test.drag.Position(), kSite);
}

TEST(SiteDrag, WithoutAPressThereIsNothingToMove) {
  Drag test;
  EXPECT_EQ(test.Move({230, 130}), Outcome::Nothing);
  EXPECT_EQ(test.drag.Release({230, 130}), Outcome::Nothing);
  EXPECT_EQ(test.questions, 0);
}

}  // namespace
}  // namespace tremlo
