#include "core/project/FaultRows.h"
#include "core/sources/FaultAcquisition.h"
#include "core/sources/FaultConversion.h"
#include "support/GridPress.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

/// The faults "南" with one plane and "北" with two.
struct Grid {
  explicit Grid(std::int32_t mode) : rows(doc, mode) {
    test::FillProject(doc);
    FaultInfo& north = doc.faults[1];
    north.shortestDistance = {12.34567, 0.0};
    north.equivalentDistance[0] = 123456.00004;
    north.i45_ps = "99.9";
    north.i50_ps = "-";
    north.i55_ps = "0.0";
    north.i60_ps = "12.3";
    north.avract = "1000-2000年";
    north.newact = "-";
    north.t30p = "0.0123456";
    north.t50p = "-";
  }
  CMorvaneDoc doc{QString()};
  FaultRows rows;
};

TEST(FaultRows, ARankingTellsTheProbabilitiesOfTheIntensities) {
  const Grid grid(kAcquireRanking);
  EXPECT_EQ(grid.rows.RowCount(), 3);
  EXPECT_THAT(test::RowTexts(grid.rows, 2),
              ElementsAre("2", "北", "7.2", "12.3457", "123456.0000", "99.9", "-", "0.0", "12.3"));
  EXPECT_EQ(grid.rows.Text(0, 6), QString("震度5弱 (%)"));
  EXPECT_EQ(grid.rows.Text(0, 9), QString("震度6強 (%)"));
}

TEST(FaultRows, ARangeTellsTheActivity) {
  const Grid grid(kAcquireRange);
  EXPECT_THAT(test::RowTexts(grid.rows, 3),
              ElementsAre("2", "北", "7.2", "0.0000", "nan", "1000-2000年", "-", "0.01235", "-"));
  EXPECT_EQ(grid.rows.Text(0, 8), QString("30年発生確率"));
}

TEST(FaultRows, TheRankIsTheServicesInARankingAndThePlaceInARange) {
  Grid ranking(kAcquireRanking), range(kAcquireRange);
  ranking.doc.faults[1].rank = range.doc.faults[1].rank = "17";
  EXPECT_EQ(ranking.rows.Text(2, 1), QString("17"));
  EXPECT_EQ(range.rows.Text(2, 1), QString("2"));
}

TEST(FaultRows, AProbabilityWithoutANumberCountsAsNone) {
  Grid grid(kAcquireRange);
  grid.doc.faults[1].t30p = "";
  grid.doc.faults[1].t50p = "0.5以上";
  EXPECT_EQ(grid.rows.Text(2, 8), QString("0.00000"));
  EXPECT_EQ(grid.rows.Text(2, 9), QString("0.50000"));
  EXPECT_EQ(grid.doc.faults[1].t50p, QString("0.5以上"));
}

TEST(FaultRows, AMagnitudeOfTheOtherScaleIsShownConverted) {
  Grid grid(kAcquireRanking);
  ConvertMagnitude(grid.doc.faults[0], QStringLiteral("-7.2"));
  EXPECT_EQ(grid.rows.Text(1, 3), QString("7.85"));
}

TEST(FaultRows, APlaneTooSmallForTheGridHasNoEquivalentDistance) {
  Grid grid(kAcquireRanking);
  FaultInfo& fault = grid.doc.faults[0];
  fault.lon = fault.lat = fault.dep = fault.str = fault.dip = {QStringLiteral("1")};
  fault.len = {QStringLiteral("0.9")};
  fault.wid = {QStringLiteral("20")};
  ComputeFaultDistances(fault, 7, 0.0, 0.0);
  EXPECT_EQ(grid.rows.Text(1, 5), QString("nan"));
}

TEST(FaultRows, WhatBelongsToTheFaultSpansItsPlanes) {
  const Grid grid(kAcquireRanking);
  EXPECT_THAT(
      grid.rows.Spans(),
      ElementsAre(GridBlock{2, 1, 3, 1}, GridBlock{2, 2, 3, 2}, GridBlock{2, 3, 3, 3}, GridBlock{2, 6, 3, 6},
                  GridBlock{2, 7, 3, 7}, GridBlock{2, 8, 3, 8}, GridBlock{2, 9, 3, 9}));
}

TEST(FaultRows, AllOfItIsLocked) {
  const Grid grid(kAcquireRange);
  std::vector<CellFormat> formats;
  for (int column = 1; column <= 9; ++column) formats.push_back(grid.rows.Format(1, column));
  EXPECT_THAT(formats, Each(Field(&CellFormat::locked, true)));
}

TEST(FaultRows, TheGridFollowsTheDocument) {
  Grid grid(kAcquireRanking);
  grid.doc.ClearFaults();
  EXPECT_EQ(grid.rows.RowCount(), 0);
  EXPECT_THAT(grid.rows.Spans(), IsEmpty());
  EXPECT_EQ(grid.rows.Text(2, 1), QString());
}

TEST(FaultRows, ARecordWithVectorsCutShortIsShownAsFarAsItGoes) {
  Grid grid(kAcquireRanking);
  grid.doc.faults[1].shortestDistance.resize(1);
  grid.doc.faults[1].equivalentDistance.clear();
  EXPECT_EQ(grid.rows.Text(3, 4), QString());
  EXPECT_EQ(grid.rows.Text(2, 5), QString());
  grid.doc.faults[1].geomNum = 500;
  EXPECT_EQ(grid.rows.RowCount(), 3);
}

}  // namespace
}  // namespace tremlo
