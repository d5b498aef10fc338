#include "core/project/PlaneNames.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

std::vector<FaultInfo> Faults() {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  return doc.faults;
}

TEST(PlaneNames, TheNumberStandsFirstWhereThereAreSeveral) {
  const std::vector<FaultInfo> faults = Faults();
  EXPECT_EQ(PlaneName(faults[0], 0), QString("南"));
  EXPECT_EQ(PlaneName(faults[1], 0), QString("(1)北"));
  EXPECT_EQ(PlaneName(faults[1], 1), QString("(2)北"));
}

TEST(PlaneNames, LegendsHaveTheNumberBeforeTheDistance) {
  const std::vector<FaultInfo> faults = Faults();
  EXPECT_EQ(ShortestLegend(faults[0], 0), QString("(最短距離)南"));
  EXPECT_EQ(EquivalentLegend(faults[0], 0), QString("(等価震源距離)南"));
  EXPECT_EQ(ShortestLegend(faults[1], 1), QString("(2)(最短距離)北"));
  EXPECT_EQ(EquivalentLegend(faults[1], 0), QString("(1)(等価震源距離)北"));
}

TEST(PlaneNames, RowsGoThroughThePlanesOfAllFaults) {
  std::vector<FaultInfo> faults = Faults();
  faults.insert(faults.begin() + 1, FaultInfo{});  // a fault without planes has no row
  EXPECT_EQ(PlaneRowCount(faults), 3);
  EXPECT_EQ(PlaneOfRow(faults, 1), (PlanePlace{0, 0}));
  EXPECT_EQ(PlaneOfRow(faults, 2), (PlanePlace{2, 0}));
  EXPECT_EQ(PlaneOfRow(faults, 3), (PlanePlace{2, 1}));
  for (const int row : {-1, 0, 4}) EXPECT_EQ(PlaneOfRow(faults, row), std::nullopt) << row;
  EXPECT_EQ(PlaneRowCount({}), 0);
}

}  // namespace
}  // namespace tremlo
