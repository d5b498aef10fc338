#include "core/report/PageBreaks.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr double kPage = 100.0;

/// Page and top of each piece.
std::vector<std::pair<int, double>> Placed(const std::vector<PagePiece>& pieces) {
  std::vector<std::pair<int, double>> places;
  for (const PiecePlace& place : BreakPages(pieces, kPage)) places.emplace_back(place.page, place.top);
  return places;
}

TEST(PageBreaksTest, NothingTakesNoPage) {
  EXPECT_THAT(BreakPages({}, kPage), IsEmpty());
}

TEST(PageBreaksTest, APageIsFilledToItsLastUnit) {
  EXPECT_THAT(Placed({{.height = 40.0}, {.height = 60.0}, {.height = 1.0}}),
              ElementsAre(Pair(0, 0.0), Pair(0, 40.0), Pair(1, 0.0)));
}

TEST(PageBreaksTest, OfTwoGapsThatMeetTheLargerIsKeptFree) {
  EXPECT_THAT(Placed({{.height = 10.0, .above = 7.0, .below = 3.0},
                      {.height = 10.0, .above = 5.0},
                      {.height = 10.0, .below = 4.0},
                      {.height = 10.0}}),
              ElementsAre(Pair(0, 0.0), Pair(0, 15.0), Pair(0, 25.0), Pair(0, 39.0)));
}

TEST(PageBreaksTest, NoGapHeadsAPage) {
  EXPECT_THAT(Placed({{.height = 95.0, .below = 9.0}, {.height = 10.0, .above = 9.0}}),
              ElementsAre(Pair(0, 0.0), Pair(1, 0.0)));
}

TEST(PageBreaksTest, WhatIsTiedTogetherMovesTogether) {
  EXPECT_THAT(Placed({{.height = 70.0},
                      {.height = 10.0, .withNext = true},
                      {.height = 10.0, .above = 5.0, .withNext = true},
                      {.height = 10.0},
                      {.height = 10.0}}),
              ElementsAre(Pair(0, 0.0), Pair(1, 0.0), Pair(1, 15.0), Pair(1, 25.0), Pair(1, 35.0)));
}

TEST(PageBreaksTest, TiedPiecesThatFitStayWhereTheyAre) {
  EXPECT_THAT(Placed({{.height = 70.0}, {.height = 10.0, .withNext = true}, {.height = 20.0}}),
              ElementsAre(Pair(0, 0.0), Pair(0, 70.0), Pair(0, 80.0)));
}

TEST(PageBreaksTest, MoreThanAPageHoldsIsPartedWhereEachPageEnds) {
  const PagePiece tied{.height = 40.0, .withNext = true};
  EXPECT_THAT(
      Placed({{.height = 10.0}, tied, tied, tied, {.height = 40.0}, {.height = 5.0}}),
      ElementsAre(Pair(0, 0.0), Pair(1, 0.0), Pair(1, 40.0), Pair(2, 0.0), Pair(2, 40.0), Pair(2, 80.0)));
}

TEST(PageBreaksTest, HeadingsComeAgainAboveWhatHeadsAPage) {
  const PagePiece heading{.height = 15.0, .withNext = true}, row{.height = 40.0, .repeated = 15.0};
  const std::vector<PiecePlace> places = BreakPages(std::vector{heading, row, row, row, row}, kPage);
  EXPECT_THAT(Placed({heading, row, row, row, row}),
              ElementsAre(Pair(0, 0.0), Pair(0, 15.0), Pair(0, 55.0), Pair(1, 15.0), Pair(1, 55.0)));
  for (std::size_t i = 0; i < places.size(); ++i) EXPECT_EQ(places[i].headed, i == 3) << i;
}

TEST(PageBreaksTest, HeadingsThatLeaveNoRoomAreLeftOut) {
  const std::vector<PiecePlace> places =
      BreakPages(std::vector<PagePiece>{{.height = 95.0}, {.height = 90.0, .repeated = 15.0}}, kPage);
  EXPECT_EQ(places[1].page, 1);
  EXPECT_EQ(places[1].top, 0.0);
  EXPECT_FALSE(places[1].headed);
}

TEST(PageBreaksTest, APieceTallerThanAPageHasOneOfItsOwn) {
  EXPECT_THAT(Placed({{.height = 120.0}, {.height = 130.0}, {.height = 10.0}}),
              ElementsAre(Pair(0, 0.0), Pair(1, 0.0), Pair(2, 0.0)));
}

}  // namespace
}  // namespace tremlo
