#include "core/report/ColumnWidths.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

std::vector<double> Widths(const std::vector<ColumnNeed>& needs) {
  return ColumnWidths(needs, 100.0);
}

TEST(ColumnWidthsTest, WhereAllFitTheRestIsSharedAlike) {
  EXPECT_THAT(Widths({{5.0, 10.0}, {5.0, 30.0}}), ElementsAre(DoubleEq(40.0), DoubleEq(60.0)));
  EXPECT_THAT(Widths({{5.0, 70.0}, {5.0, 30.0}}), ElementsAre(DoubleEq(70.0), DoubleEq(30.0)));
}

TEST(ColumnWidthsTest, AShortColumnGivesWhatALongOneNeeds) {
  EXPECT_THAT(Widths({{5.0, 10.0}, {20.0, 500.0}, {5.0, 20.0}}),
              ElementsAre(DoubleEq(10.0), DoubleEq(70.0), DoubleEq(20.0)));
}

TEST(ColumnWidthsTest, LongColumnsShareWhatIsLeft) {
  EXPECT_THAT(Widths({{10.0, 200.0}, {20.0, 200.0}}), ElementsAre(DoubleEq(45.0), DoubleEq(55.0)));
}

TEST(ColumnWidthsTest, WordsThatDoNotFitLeaveTheOthersTheirShare) {
  EXPECT_THAT(Widths({{900.0, 900.0}, {10.0, 10.0}}), ElementsAre(DoubleEq(90.0), DoubleEq(10.0)));
  EXPECT_THAT(Widths({{900.0, 900.0}, {800.0, 850.0}}), ElementsAre(DoubleEq(50.0), DoubleEq(50.0)));
}

TEST(ColumnWidthsTest, NoColumnIsNoWidth) {
  EXPECT_TRUE(ColumnWidths({}, 100.0).empty());
}

}  // namespace
}  // namespace tremlo
