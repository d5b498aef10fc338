#include "core/location/FaultInfo.h"

#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

TEST(FaultInfo, PlanesEndWhereTheirNumberOrTheShortestVectorEnds) {
  FaultInfo fault;
  fault.lon.resize(3);
  fault.attenUse.resize(2);
  for (const auto& [sent, expected] :
       {std::pair{0, 0U}, {1, 1U}, {2, 2U}, {3, 2U}, {std::numeric_limits<int>::max(), 2U}}) {
    fault.geomNum = sent;
    EXPECT_EQ(PlaneCount(fault, fault.lon, fault.attenUse), expected) << sent;
    EXPECT_EQ(fault.geomNum, sent);
  }
  fault.geomNum = 5;
  EXPECT_EQ(PlaneCount(fault, fault.lon), 3U);
  EXPECT_EQ(PlaneCount(fault, fault.lat, fault.lon), 0U);
}

TEST(FaultInfo, ANegativeNumberOfPlanesIsNone) {
  FaultInfo fault;
  fault.lon.resize(3);
  for (const int sent : {-1, std::numeric_limits<int>::min()}) {
    fault.geomNum = sent;
    EXPECT_EQ(PlaneCount(fault, fault.lon), 0U) << sent;
  }
}

}  // namespace
}  // namespace tremlo
