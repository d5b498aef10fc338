#include "core/project/ScreenId.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(ScreenId, TheSixteenNumbersNameTheirWindows) {
  const char* names[] = {"Field",
                         "FlowCheck",
                         "Flowchart1",
                         "Flowchart2",
                         "Flowchart3",
                         "OrigSeismicWave",
                         "DamsiteWave",
                         "MakeSeismicWave1",
                         "MakeSeismicWave2",
                         "LowerSpectrum",
                         "BaseSpectrum",
                         "AdjustSeismicWave",
                         "Visualization",
                         "RespAdjustSpectrum",
                         "RespAdjustSpectrum",
                         "RespVisualization"};
  int id = 59649;
  for (const char* name : names) EXPECT_EQ(WindowName(ScreenId(id++)), QString::fromLatin1(name));
  EXPECT_EQ(id, 59665);
}

TEST(ScreenId, OtherNumbersAreNoScreens) {
  for (const int id : {59648, 59665, 0, -1}) {
    EXPECT_FALSE(IsScreen(ScreenId(id)));
    EXPECT_EQ(WindowName(ScreenId(id)), QString());
  }
}

}  // namespace
}  // namespace tremlo
